// Element sets, orbit models and the state of a satellite at an instant. The models follow Hoots and
// Roehrich, "Spacetrack Report No. 3", with the program's own deviations, which docs/numerics.md lists.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "shell/base/mGlobal.h"

namespace halvorine {

/// The working copy of an element set that the models read: radians and minutes. Overwritten for each
/// computation. The rates behind the elements are shared with the deep-space model.
struct WorkingElementsRecord {
  double M0 = 0, Node0 = 0, Omega0 = 0, E0 = 0, I0 = 0;  // radians, pure number for E0
  double N0 = 0;                                         // radians per minute
  double NDot = 0;                                       // radians per minute squared
  double NDDot = 0;                                      // radians per minute cubed
  double Bstar = 0;                                      // per Earth radius
  double Epoch = 0;                                      // Julian day
  double Aodp = 0, Xnodp = 0;                            // recovered axis (Earth radii) and motion
  // inputs of the deep-space perturbations beside those above
  double Eosq = 0, Sinio = 0, Cosio = 0, Betao = 0, Betao2 = 0, Theta2 = 0, Sing = 0, Cosg = 0;
  double Xmdot = 0, Omgdot = 0, Xnodot = 0;  // radians per minute
  // elements at an instant, which the perturbations change
  double Xll = 0, Omgasm = 0, Xnodes = 0, Em = 0, Xinc = 0, Xn = 0, T = 0;
};

inline WorkingElementsRecord WorkingElements;

/// Output of the models in their inertial frame (true equator and mean equinox of the epoch): km and km/s.
/// A failing model leaves both wholly as they were.
inline std::array<double, 3> PositionKm{}, VelocityKmS{};

/// Altitude of the Sun at the observer for the instant of the last ComputeSatelliteState.
inline double SunElevationDeg = 0, SunElevationRad = 0;

/// Scratch values of ComputeSatelliteState. They live across calls and slots, because a skipped statement
/// finds the value that the computation before has left, be it of another satellite. Earth-fixed unless told.
struct StateScratchRecord {
  bool deep = false;                  // deep-space test of the element set
  double phi = 0, lambda = 0, h = 0;  // observer: radians, km
  std::array<double, 3> observer{}, observerVelocity{}, zenith{}, east{}, north{};
  double dt = 0, d0 = 0, theta0 = 0, theta = 0;  // days; radians
  double cosTheta = 0, sinTheta = 0;             // of -theta
  std::array<double, 3> position{}, velocity{};  // km, km/s
  std::array<double, 3> R{}, u{}, relativeVelocity{};
  std::array<double, 3> H{}, eccentricityVector{};  // inertial
  double latitude = 0;                              // arc sine of z/|r|, radians
  bool latitudeKnown = false;                       // it did not fail at this instant
  double p = 0, e = 0, a = 0;                       // osculating orbit, km
  double x = 0, y = 0;                              // orbit number
  double t = 0;                                     // refraction
  double m = 0, lon = 0;                            // Sun, radians
  std::array<double, 3> S{}, earthS{};              // towards the Sun: inertial, Earth-fixed
  double q = 0, d = 0;                              // shadow
  double g = 0, ang = 0, f = 0, xMagnitude = 0;     // phase
  bool operator==(const StateScratchRecord&) const = default;
};

inline StateScratchRecord StateScratch;

/// Decodes three lines into the slot's element set and source lines. Bad numbers turn into what ParseNumber
/// reads. A catalogue number that is no number raises ConversionFailure, one outside the magnitude table
/// SubscriptFailure; everything that comes before the magnitude is decoded by then, and the epoch's Julian
/// day and the radio channels are set all the same. Channels the slot holds already are kept.
void Estrai_Dati_Satellite(int slot, const std::string& nameLine, const std::string& line1,
                           const std::string& line2);

/// Makes the index of FrequencyTable by catalogue number that decoding uses. It is made anew by itself when
/// the table moves or changes its size; who changes rows in place calls this.
void IndexFrequencies();

/// The orbit models at `tsince` minutes from the epoch of WorkingElements: position and velocity into
/// PositionKm and VelocityKmS. All raise ArithmeticFailure, and then leave both vectors as they were. SGP,
/// SGP4 and SDP4 are those of Spacetrack Report No. 3, SDP4 being meant for orbits of 225 minutes and more;
/// Plan13 is a Kepler ellipse with secular drift of node and perigee. Plan13 knows no failure of its own.
void PropagatePlan13(double tsince);
void PropagateSGP(double tsince);
void PropagateSGP4(double tsince);
void PropagateSDP4(double tsince);

/// Greenwich angle in radians, 0 to two pi, for the deep-space model; `ds50` gets the days since 1950.
double ThetaG(double julianDay, double& ds50);

/// State of a slot at a Julian day (Universal Time), for the observer in Site and the options of satellites.
/// Writes the slot's SatelliteState, WorkingElements, both vectors and the Sun's elevation. A slot outside
/// 1 to 202 raises SubscriptFailure, a mean motion of 0 ArithmeticFailure; any other failing statement is
/// skipped and leaves what it was to write.
void ComputeSatelliteState(int slot, double julianDay);

/// Puts the records of this header back to their state before the first computation; serves tests.
void ResetOrbitRecords();

}  // namespace halvorine
