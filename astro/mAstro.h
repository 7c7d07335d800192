// Calendar, sidereal time, Sun, Moon, planets and the three coordinate routines. The series are those of
// Duffett-Smith's "Practical Astronomy with your Calculator", with the program's truncated constants.
// All of them read the shared ClockFields; UpdateSiderealTime must have run for the instant before.
#pragma once

#include "shell/base/mGlobal.h"

namespace halvorine {

/// Ecliptic longitude and mean anomaly of the Sun, radians, and its place in hours and degrees,
/// for the instant of the last ComputeSun.
inline double SunLongitudeRad = 0, SunMeanAnomalyRad = 0, SunRightAscension = 0, SunDeclination = 0;

/// Obliquity of the ecliptic, radians, for all bodies and instants.
constexpr double Obliquity = 0.40909281926890995;

/// Hours that the observer's civil time is ahead of Universal Time.
double ZoneShift();

/// Julian day of a calendar date; the day may have a fraction. Before 15 October 1582 the Julian calendar
/// holds (Meeus, "Astronomical Algorithms").
double JulianDay(double year, double month, double day);

/// The date in the observer's civil time of a Julian day, cut to 0.00001 day and rounded to whole seconds.
Date JulianDayToLocalDate(double jd);

/// Fills ClockFields for an instant in the observer's civil time.
void UpdateSiderealTime(Date localDate);

/// Place of the Sun into its row of SkyObjectTable and into the shared values above.
/// A failing statement raises ArithmeticFailure to the caller.
void ComputeSun();

/// Place and phase of the Moon into its row; needs ComputeSun for the same instant before.
void ComputeMoon();

/// Places, distances, phases, sizes and magnitudes of Mercury to Neptune into their rows, by two-body orbits
/// from mean elements of J2000; light time is left to who shows them. A failing statement raises
/// ArithmeticFailure: rows before it are done, those behind it keep their values.
void ComputePlanets();

/// Hours and degrees to degrees of azimuth (north through east) and altitude, for the observer and the local
/// sidereal time. A statement that fails (a body in the zenith) leaves its result as it was.
void EquatorialToHorizontal(double rightAscension, double declination, double& azimuth, double& altitude);

/// Ecliptic latitude, longitude and obliquity in radians to hours and degrees; skips failing statements.
void EclipticToEquatorial(double latitude, double longitude, double obliquity, double& rightAscension,
                          double& declination);

/// Equatorial place as it is shown: parts of the right ascension and of the declination, with its sign apart.
struct EquatorialParts {
  double raHours = 0, raMinutes = 0, raSeconds = 0, decDegrees = 0, decMinutes = 0;
  char decSign = '+';
};

/// Azimuth and altitude in radians to the parts of right ascension and declination; a failing statement
/// leaves what the parts held.
void HorizontalToEquatorial(double azimuth, double altitude, EquatorialParts& parts);

/// Reads the ten rows of the planet file's text into SkyObjectTable: for each a line with the name and a line
/// with nine numbers, commas or blanks between them; what follows the tenth is ignored. A short file, a bad
/// number or a tenth one raises ConversionFailure, and the table stays as it was.
void ReadSkyObjects(std::string_view text);

}  // namespace halvorine
