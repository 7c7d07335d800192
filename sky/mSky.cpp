#include "sky/mSky.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "astro/mMate.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"

namespace halvorine {

namespace {

constexpr double zoomReachX = 200, zoomReachY = 100;  // chart units around the zenith
constexpr double smallestExtent = 0.1;                // chart units of a box that can be zoomed into
constexpr double notchFactor = 0.8;                   // of the box for each notch of the wheel
constexpr double fullWidth = 400;                     // of the first view, twice as wide as the sky
constexpr double farAway = 100000;                    // squared chart units, where a search begins

/// Least squared distance found so far, and what lies there.
struct Nearest {
  double squared = farAway;
  int row = 0;
  void Try(const StarRow& place, double x, double y, int at) {
    if (!(place.Altitude > 0)) return;
    const double dx = static_cast<double>(place.X) - x, dy = static_cast<double>(place.Y) - y;
    const double candidate = dx * dx + dy * dy;
    if (!(candidate < squared)) return;
    squared = candidate;
    row = at;
  }
};

/// The same stretch, or the smallest one around its middle.
void Widen(double& low, double& high) {
  if (high - low >= smallestExtent) return;
  const double middle = (low + high) / 2;
  low = middle - smallestExtent / 2;
  high = middle + smallestExtent / 2;
}

ChartBox BoxOf(double left, double top, double right, double bottom) {
  Widen(left, right);
  Widen(bottom, top);
  return {ToSingle(left), ToSingle(top), ToSingle(right), ToSingle(bottom)};
}

}  // namespace

int QuarterTurns(std::int16_t orientation) {
  constexpr std::array<int, 4> turns = {2, 0, 3, 1};  // north, south, west, east
  return orientation < 0 || orientation > 3 ? 0 : turns[static_cast<std::size_t>(orientation)];
}

void Mappatura(const SkyProjection& projection, double azimuth, double altitude, double& x, double& y) {
  const double k = QuarterTurns(projection.Orientation);
  if (projection.Stereographic) {
    const double a = ModFloor(azimuth + 90 * k, 360) * DegToRad;
    const double z = altitude * DegToRad;
    const double p = Pi / 4.0 - z / 2.0;
    const double r = Finite(Div(HorizonRadius * std::sin(p), std::cos(p)));
    x = r * std::sin(2.0 * Pi - a);
    y = r * std::cos(2.0 * Pi - a);
    return;
  }
  const double a = ModFloor(azimuth + 90 * k + 90, 360) * DegToRad;
  x = Finite((90 - altitude) * std::cos(a));
  y = Finite((90 - altitude) * std::sin(a));
}

void Mappatura_inversa(const SkyProjection& projection, double x, double y, double& azimuth,
                       double& altitude) {
  const double k = QuarterTurns(projection.Orientation);
  const double radius = Finite(std::hypot(x, y));
  // on the meridian a quotient of sines would have no value, hence the distance itself
  altitude =
      projection.Stereographic ? (Pi - 4 * std::atan(radius / HorizonRadius)) / 2 * RadToDeg : 90 - radius;
  azimuth = ModFloor(ArcTan2Positive(y, x) * RadToDeg - 90 * k - 90, 360);
}

ChartBox FullDiscBox(double ratio) {
  const double a = static_cast<double>(ToSingle(ratio));
  if (!(a > 0)) FailDivision(a);
  if (a >= 1) return {ToSingle(-100 * a), 100, ToSingle(100 * a), -100};
  return {-100, ToSingle(100 / a), 100, ToSingle(-100 / a)};
}

std::optional<ChartBox> ZoomDiscBox(double x1, double y1, double x2, double y2) {
  x1 = std::clamp(Finite(x1), -zoomReachX, zoomReachX);
  x2 = std::clamp(Finite(x2), -zoomReachX, zoomReachX);
  y1 = std::clamp(Finite(y1), -zoomReachY, zoomReachY);
  y2 = std::clamp(Finite(y2), -zoomReachY, zoomReachY);
  if (x1 == x2 || y1 == y2) return std::nullopt;
  return BoxOf(std::min(x1, x2), std::max(y1, y2), std::max(x1, x2), std::min(y1, y2));
}

std::optional<ChartBox> ZoomDiscAbout(const ChartBox& box, const ChartBox& full, double x, double y,
                                      double notches) {
  const double factor = std::pow(notchFactor, std::clamp(Finite(notches), -50.0, 50.0));
  const double width = box.Width() * factor, height = -box.Height() * factor;
  if (width >= full.Width() || height >= -full.Height()) return std::nullopt;
  const double left = x - (x - static_cast<double>(box.Left)) * factor;
  const double top = y - (y - static_cast<double>(box.Top)) * factor;
  return BoxOf(left, top, left + width, top - height);
}

ChartBox PanDiscBox(const ChartBox& box, const ChartBox& full, double right, double down) {
  const double width = box.Width(), height = -box.Height();
  const double least = static_cast<double>(full.Left), most = static_cast<double>(full.Right) - width;
  const double lowest = static_cast<double>(full.Bottom) + height, highest = static_cast<double>(full.Top);
  const double left = std::clamp(static_cast<double>(box.Left) + right * width, least, std::max(least, most));
  const double top =
      std::clamp(static_cast<double>(box.Top) - down * height, std::min(lowest, highest), highest);
  return BoxOf(left, top, left + width, top - height);
}

int UsableStarCount(int count) { return std::clamp(count, 0, static_cast<int>(StarTable.size())); }

void ComputeSkyObjects(Date localDate) {
  UpdateSiderealTime(localDate);
  Attempt(ComputeSun);
  Attempt(ComputeMoon);
  Attempt(ComputePlanets);
}

void ProjectPlace(StarRow& place, const SkyProjection& projection) {
  double azimuth = static_cast<double>(place.Azimuth), altitude = static_cast<double>(place.Altitude);
  EquatorialToHorizontal(static_cast<double>(place.RightAscension), static_cast<double>(place.Declination),
                         azimuth, altitude);
  double x = static_cast<double>(place.X), y = static_cast<double>(place.Y);
  Attempt([&] { Mappatura(projection, azimuth, altitude, x, y); });
  place.Azimuth = ToSingle(azimuth);
  place.Altitude = ToSingle(altitude);
  place.X = ToSingle(x);
  place.Y = ToSingle(y);
}

void ProjectObjects(SkyPlaces& places, const SkyProjection& projection, int starCount) {
  const std::size_t count = static_cast<std::size_t>(UsableStarCount(starCount));
  places.Stars.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    StarRow& star = places.Stars[i];
    star.RightAscension = StarTable[i].RightAscension;
    star.Declination = StarTable[i].Declination;
    ProjectPlace(star, projection);
  }
  if (places.Lines.size() != ConstellationLines.size()) places.Lines = ConstellationLines;
  for (ConstellationLine& line : places.Lines) {
    ProjectPlace(line.From, projection);
    ProjectPlace(line.To, projection);
  }
  places.Labels.resize(ConstellationLabels.size());
  for (std::size_t i = 0; i < places.Labels.size(); ++i) {
    places.Labels[i].RightAscension = ToSingle(ConstellationLabels[i].RightAscension);
    places.Labels[i].Declination = ToSingle(ConstellationLabels[i].Declination);
    ProjectPlace(places.Labels[i], projection);
  }
  for (int row = Mercury; row <= Earth; ++row) {
    StarRow& body = places.Bodies[row];
    body.RightAscension = ToSingle(SkyObjectTable[row].RightAscension);
    body.Declination = ToSingle(SkyObjectTable[row].Declination);
    ProjectPlace(body, projection);
  }
}

bool IsWithinChart(const ChartBox& box, double x) {
  const double s = std::abs(box.Width()) == fullWidth ? 2 : 1;
  return x >= static_cast<double>(box.Left) / s && x <= static_cast<double>(box.Right) / s;
}

std::optional<SkyPick> PickInSky(const SkyPlaces& places, const ChartBox& box, double x, double y) {
  if (!IsWithinChart(box, x)) return std::nullopt;
  Nearest star, body;
  for (std::size_t i = 0; i < places.Stars.size(); ++i)
    star.Try(places.Stars[i], x, y, static_cast<int>(i) + 1);
  for (int row = Mercury; row <= Moon; ++row) body.Try(places.Bodies[row], x, y, row);
  if (!(std::min(star.squared, body.squared) < std::abs(box.Height()) / 30)) return std::nullopt;
  return star.squared < body.squared ? SkyPick{.Star = star.row} : SkyPick{.Body = body.row};
}

std::vector<ChartSpot> PickablePlaces(const SkyPlaces& places, const ChartBox& box) {
  std::vector<ChartSpot> found;
  const auto add = [&](const StarRow& place) {
    if (place.Altitude > 0 && place.X >= box.Left && place.X <= box.Right && place.Y <= box.Top &&
        place.Y >= box.Bottom)
      found.push_back({place.X, place.Y});
  };
  for (int row = Mercury; row <= Moon; ++row) add(places.Bodies[row]);
  for (const StarRow& star : places.Stars) add(star);
  return found;
}

std::optional<ChartSpot> CutAtHorizon(ChartSpot above, ChartSpot below) {
  ChartSpot cut = below;
  Attempt([&] { ClipSegmentToCircle90(above.X, above.Y, cut.X, cut.Y); });
  const bool moved = cut.X != below.X || cut.Y != below.Y;
  if (!moved && std::hypot(static_cast<double>(cut.X), static_cast<double>(cut.Y)) > HorizonRadius)
    return std::nullopt;
  return cut;
}

namespace {

std::string EquatorialText(double azimuth, double altitude) {
  EquatorialParts parts;
  HorizontalToEquatorial(azimuth * DegToRad, altitude * DegToRad, parts);
  return LookupText("Def", "ar") + " " + Format(parts.raHours, "00h") + Format(parts.raMinutes, " 00m ") +
         Format(parts.raSeconds, "00s ") + LookupText("Def", "dec") + parts.decSign + " " +
         Format(parts.decDegrees, "00°") + Format(parts.decMinutes, " 00'");
}

std::string HorizontalText(double azimuth, double altitude) {
  const auto minutes = [](double degrees) { return Int((degrees - Int(degrees)) * 60); };
  return LookupText("Def", "az") + " " + Format(Int(azimuth), "000°") + Format(minutes(azimuth), " 00' ") +
         LookupText("Def", "alt") + " " + Format(Int(altitude), "00°") + Format(minutes(altitude), " 00'");
}

}  // namespace

std::string SkyReadout(const SkyProjection& projection, bool equatorial, double x, double y) {
  double azimuth = 0, altitude = -1;
  Attempt([&] { Mappatura_inversa(projection, x, y, azimuth, altitude); });
  if (!(altitude >= 0)) return {};
  return equatorial ? EquatorialText(azimuth, altitude) : HorizontalText(azimuth, altitude);
}

std::string BodyName(int row) {
  constexpr std::array<const char*, 9> keys = {"mercurio", "venere",  "marte", "giove", "saturno",
                                               "urano",    "nettuno", "sole",  "luna"};
  if (row < Mercury || row > Moon) throw SubscriptFailure("body " + std::to_string(row) + " has no name");
  return LookupText("Planets", keys[static_cast<std::size_t>(row - 1)]);
}

std::string ChartDate(Date localDate) { return FormatDate(localDate, "dd mmm yyyy hh:mm", LanguageDates); }

}  // namespace halvorine
