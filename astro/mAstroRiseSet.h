// Rising and setting of Sun and Moon over one civil day, by the low-precision series of van Flandern and
// Pulkkinen and a quadratic through each hour in which the altitude changes its sign. Everything comes by
// argument: neither ClockFields nor the observer's record is read.
#pragma once

#include <optional>
#include <string>

#include "shell/base/mRecords.h"

namespace halvorine {

/// What a body does in one civil day, before anything is rounded. Of several events of a kind the last
/// stands.
struct DayEvents {
  std::optional<double> RiseHour, SetHour;        // hours from 0h
  std::optional<double> RiseAzimuth, SetAzimuth;  // degrees from north through east
  std::string NoteKey;                            // key of the text that says why one is missing
};

/// Events of the Sun and of the Moon on the civil day of `date`; arguments and failures as below.
void SunEvents(double latitude, double longitude, double hours, Date date, DayEvents& events);
void MoonEvents(double latitude, double longitude, double hours, Date date, DayEvents& events);

/// Events of the Sun on the civil day of `date` at a latitude (north positive) and longitude (east positive)
/// in degrees; `hours` is minus the hours that civil time is ahead of Universal Time. Times come as "06:17",
/// azimuths in degrees as "091.6", both empty for an event that does not take place; the note is a text of
/// the language file that says why one is missing, else empty. All outputs are cleared first. An arithmetic
/// failure (ArithmeticFailure) leaves in them what was found until then.
void SunRiseSet(double latitude, double longitude, double hours, Date date, std::string& riseTime,
                std::string& setTime, std::string& riseAzimuth, std::string& setAzimuth, std::string& note);

/// Likewise for the Moon, with its parallax.
void MoonRiseSet(double latitude, double longitude, double hours, Date date, std::string& riseTime,
                 std::string& setTime, std::string& riseAzimuth, std::string& setAzimuth, std::string& note);

}  // namespace halvorine
