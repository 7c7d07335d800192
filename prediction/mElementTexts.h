// Everything about one element set as text: what its lines say, and what follows from them.
#pragma once

#include <string>

#include "prediction/mTrack.h"

namespace halvorine {

struct ElementTexts {
  std::string Name;  // empty for a slot without a satellite
  std::string EpochTime, Date, Inclination, Raan, Eccentricity, ArgumentPerigee, MeanAnomaly, MeanMotion,
      Dev1, Dev2, BStar, OrbitNumberEpoch;
  std::string NoradNumber, International, LaunchYear, LaunchNumber, Age, Set, MagStd;
  std::string ZeroLine, FirstLine, SecondLine;
  std::string Apogee, Perigee, OrbitalPeriod, SemiMaj, SemiMin;
};

/// The texts of a slot. Without a satellite the numbers are "0" and the rest is empty; a derived value that
/// cannot be computed is "0" as well. The age counts to the instant of ClockFields. SubscriptFailure for a
/// slot that does not exist.
ElementTexts ElementTextsOf(int slot);

/// The slot after a step among the active satellites.
int MovedSatellite(int slot, TrackMove move);

/// The epoch on the calendar: its day, and the fraction of it as a time of day. OverflowFailure for a year
/// that no calendar knows.
std::string EpochDate(const ElementSet& set);

/// Semi-major axis in km of a mean motion in revolutions per day, by Kepler's third law. ArithmeticFailure
/// for a mean motion of 0.
double SemiMajorAxisOf(double meanMotion);

}  // namespace halvorine
