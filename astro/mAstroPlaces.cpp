#include "astro/mAstro.h"
#include "astro/mMate.h"

namespace halvorine {

void EquatorialToHorizontal(double rightAscension, double declination, double& azimuth, double& altitude) {
  const double lat = static_cast<double>(Site.Latitude) * DegToRad;
  const double dec = declination * DegToRad;
  double h = ClockFields.LocalSiderealHours - rightAscension;
  if (h < 0) h += 24;
  h = h * 15 * DegToRad;
  const double s = std::sin(dec) * std::sin(lat) + std::cos(dec) * std::cos(lat) * std::cos(h);
  // altitude = ArcSin(s)*RadToDeg; fails in the zenith and the nadir
  Attempt([&] { altitude = ArcSin(s) * RadToDeg; });
  azimuth = ArcTan2Positive(-std::cos(dec) * std::cos(lat) * std::sin(h), std::sin(dec) - std::sin(lat) * s) *
            RadToDeg;
}

void EclipticToEquatorial(double latitude, double longitude, double obliquity, double& rightAscension,
                          double& declination) {
  const double s = std::sin(latitude) * std::cos(obliquity) +
                   std::cos(latitude) * std::sin(obliquity) * std::sin(longitude);
  // declination = ArcSin(s)*RadToDeg; fails at the poles
  Attempt([&] { declination = ArcSin(s) * RadToDeg; });
  rightAscension =
      ArcTan2Positive(std::sin(longitude) * std::cos(obliquity) - std::tan(latitude) * std::sin(obliquity),
                      std::cos(longitude)) *
      RadToDeg / 15;
}

void HorizontalToEquatorial(double azimuth, double altitude, EquatorialParts& parts) {
  const double lat = static_cast<double>(Site.Latitude) * DegToRad;
  const double s =
      std::sin(altitude) * std::sin(lat) + std::cos(altitude) * std::cos(lat) * std::cos(azimuth);
  double dec = 0;  // degrees; stays 0 where the arc fails at the poles
  Attempt([&] { dec = ArcSin(s) * RadToDeg; });
  // cannot fail: no latitude and no arc, being single and a quotient, has a cosine of 0
  const double c = Div(std::sin(altitude) - std::sin(lat) * s, std::cos(lat) * std::cos(dec * DegToRad));
  double h = 0;  // degrees; stays 0 where rounding has carried c beyond 1
  Attempt([&] { h = (Pi / 2 - ArcTan2Positive(c, Sqrt(1 - c * c))) * RadToDeg; });
  if (std::sin(azimuth) > 0) h = 360 - h;
  const double ra = ModFloor(ClockFields.LocalSiderealHours - h / 15, 24);

  parts.decSign = dec < 0 ? '-' : '+';
  parts.decDegrees = std::fabs(Fix(dec));
  parts.decMinutes = Int((std::fabs(dec) - Int(std::fabs(dec))) * 60);
  parts.raHours = Int(ra);
  parts.raMinutes = Int((ra - parts.raHours) * 60);
  parts.raSeconds = Int(((ra - parts.raHours) * 60 - parts.raMinutes) * 60);
}

}  // namespace halvorine
