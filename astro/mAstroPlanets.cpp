#include <algorithm>
#include <array>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "shell/base/mFiles.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr std::size_t elementCount = 9;

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

/// The nine numbers of a body; a comma, blanks, or both stand between two of them.
std::array<double, elementCount> ReadElements(std::string_view line) {
  std::array<double, elementCount> elements{};
  std::string_view rest = WithoutLeadingBlanks(line);
  for (std::size_t i = 0; i < elementCount; ++i) {
    const std::size_t end = std::min(rest.find_first_of(", \t"), rest.size());
    elements[i] = ParseStrict(rest.substr(0, end));
    rest = WithoutLeadingBlanks(rest.substr(end));
    if (!rest.empty() && rest.front() == ',') rest = WithoutLeadingBlanks(rest.substr(1));
  }
  if (!rest.empty()) throw ConversionFailure("more than nine elements in line '" + std::string(line) + "'");
  return elements;
}

/// Heliocentric place in the plane of a body's own orbit.
struct OrbitPlace {
  double longitude = 0;  // degrees, 0 to 360
  double radius = 0;     // astronomical units
};

OrbitPlace PlaceInOrbit(const SkyObject& body, double d) {
  const double e = body.Eccentricity;
  const double n = ModFloor(Div(d * 360, 365.242191 * body.PeriodYears), 360);
  const double m = (n + body.LongitudeAtEpoch - body.PerihelionLongitude) * DegToRad;
  OrbitPlace place;
  place.longitude = ModFloor(n + 360 * e * std::sin(m) / Pi + body.LongitudeAtEpoch, 360);
  const double v = (place.longitude - body.PerihelionLongitude) * DegToRad;
  place.radius = Div(body.SemiMajorAxis * (1 - e * e), 1 + e * std::cos(v));
  return place;
}

void ComputePlanet(int row, double d, const OrbitPlace& earth) {
  SkyObject& planet = SkyObjectTable[row];
  const OrbitPlace place = PlaceInOrbit(planet, d);
  const double l = place.longitude * DegToRad;
  const double r = place.radius;
  const double L = earth.longitude * DegToRad;
  const double R = earth.radius;

  const double i = planet.OrbitInclination * DegToRad;
  const double om = planet.NodeLongitude * DegToRad;
  const double psi = ArcSin(std::sin(l - om) * std::sin(i));
  const double y = std::sin(l - om) * std::cos(i);
  const double x = std::cos(l - om);
  const double lpDegrees = ArcTan2Positive(y, x) * RadToDeg + planet.NodeLongitude;
  const double lp = lpDegrees * DegToRad;
  const double rp = r * std::cos(psi);

  double lam = 0;
  if (row <= Venus) {
    const double A = std::atan(Div(rp * std::sin(L - lp), R - rp * std::cos(L - lp))) * RadToDeg;
    lam = 180 + earth.longitude + A;
  } else {
    lam = std::atan(Div(R * std::sin(lp - L), rp - R * std::cos(lp - L))) * RadToDeg + lpDegrees;
  }
  lam = ModFloor(lam, 360) * DegToRad;
  const double beta = std::atan(Div(rp * std::tan(psi) * std::sin(lam - lp), R * std::sin(lp - L)));

  EclipticToEquatorial(beta, lam, Obliquity, planet.RightAscension, planet.Declination);
  EquatorialToHorizontal(planet.RightAscension, planet.Declination, planet.Azimuth, planet.Altitude);

  const double rho = Sqrt(R * R + r * r - 2 * R * r * std::cos(l - L));
  planet.Distance = rho;
  planet.AngularDiameter = Div(planet.DiameterAtOneAU, rho);
  planet.Phase = (1 + std::cos(lam - l)) / 2;
  planet.Magnitude = 5 * Log(Div(r * rho, Sqrt(planet.Phase))) / std::log(10.0) + planet.MagnitudeAtOneAU;
}

SkyObject ReadSkyObject(LineReader& lines) {
  std::string_view name;
  std::string_view line;
  if (!lines.Next(name) || !lines.Next(line)) throw ConversionFailure("the planet file ends too early");
  const std::array<double, elementCount> elements = ReadElements(line);
  SkyObject body;
  body.ObjectName = Trimmed(name);
  body.PeriodYears = elements[0];
  body.LongitudeAtEpoch = elements[1];
  body.PerihelionLongitude = elements[2];
  body.Eccentricity = elements[3];
  body.SemiMajorAxis = elements[4];
  body.OrbitInclination = elements[5];
  body.NodeLongitude = elements[6];
  body.DiameterAtOneAU = elements[7];
  body.MagnitudeAtOneAU = elements[8];
  return body;
}

}  // namespace

void ComputePlanets() {
  const double d = ClockFields.JulianDayNow - 2451545.0;
  const OrbitPlace earth = PlaceInOrbit(SkyObjectTable[Earth], d);
  for (int row = Mercury; row <= Neptune; ++row) ComputePlanet(row, d, earth);
}

void ReadSkyObjects(std::string_view text) {
  Slots<SkyObject, 10> table;
  LineReader lines(text);
  for (int row = 1; row <= Slots<SkyObject, 10>::Size(); ++row) table[row] = ReadSkyObject(lines);
  SkyObjectTable = table;
}

}  // namespace halvorine
