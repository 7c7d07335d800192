#include "sky/mGeneralSky.h"

#include <algorithm>
#include <cmath>

#include "astro/mMate.h"
#include "shell/base/mGlobal.h"

namespace halvorine {

namespace {

constexpr double wholeWidth = 24, wholeHeight = 180;           // hours, degrees
constexpr double smallestWidth = 0.02, smallestHeight = 0.15;  // of a box that can be zoomed into
constexpr double notchFactor = 0.8;                            // of the box for each notch of the wheel

/// A stretch of one axis.
struct Span {
  double low, high;
};

/// A stretch of at least the smallest extent around the same middle, moved into 0 to `whole`.
Span Fitted(Span span, double smallest, double whole) {
  const double extent = std::clamp(span.high - span.low, smallest, whole);
  const double low = std::clamp((span.low + span.high - extent) / 2, 0.0, whole - extent);
  return {low, low + extent};
}

GeneralSkyBox BoxOf(Span hours, Span degreesFromSouth) {
  const Span x = Fitted(hours, smallestWidth, wholeWidth);
  const Span y = Fitted(degreesFromSouth, smallestHeight, wholeHeight);
  return {ToSingle(x.high), ToSingle(y.high - 90), ToSingle(x.low), ToSingle(y.low - 90)};
}

/// Least distance found so far, and what lies there.
struct Nearest {
  double squared = 100000;
  int row = 0;
  void Try(double candidate, int at) {
    if (!(candidate < squared)) return;
    squared = candidate;
    row = at;
  }
};

}  // namespace

std::optional<GeneralSkyBox> ZoomBox(double x1, double y1, double x2, double y2) {
  x1 = std::clamp(Finite(x1), 0.0, wholeWidth);
  x2 = std::clamp(Finite(x2), 0.0, wholeWidth);
  y1 = std::clamp(Finite(y1), -90.0, 90.0);
  y2 = std::clamp(Finite(y2), -90.0, 90.0);
  if (x1 == x2 || y1 == y2) return std::nullopt;
  return BoxOf({std::min(x1, x2), std::max(x1, x2)}, {std::min(y1, y2) + 90, std::max(y1, y2) + 90});
}

GeneralSkyBox ZoomAbout(const GeneralSkyBox& box, double x, double y, double notches) {
  const double factor = std::pow(notchFactor, std::clamp(notches, -50.0, 50.0));
  const double left = static_cast<double>(box.Left), right = static_cast<double>(box.Right);
  const double top = static_cast<double>(box.Top), bottom = static_cast<double>(box.Bottom);
  return BoxOf({x - (x - right) * factor, x + (left - x) * factor},
               {y + 90 - (y - bottom) * factor, y + 90 + (top - y) * factor});
}

GeneralSkyBox PanBox(const GeneralSkyBox& box, double right, double down) {
  const double hours = right * box.ScaleWidth(), degrees = down * box.ScaleHeight();
  return BoxOf({static_cast<double>(box.Right) + hours, static_cast<double>(box.Left) + hours},
               {static_cast<double>(box.Bottom) + 90 + degrees, static_cast<double>(box.Top) + 90 + degrees});
}

std::string GeneralSkyReadout(double x, double y, std::string_view rightAscensionLabel,
                              std::string_view declinationLabel) {
  if (!(x >= 0 && x <= wholeWidth && y >= -90 && y <= 90)) return {};
  const double hours = Int(x), minutes = Int((x - hours) * 60);
  const double seconds = Int(((x - hours) * 60 - minutes) * 60);
  const double size = std::abs(y), degrees = Int(size);
  return std::string(rightAscensionLabel) + " " + Format(hours, "00h ") + Format(minutes, "00m ") +
         Format(seconds, "00s ") + " " + std::string(declinationLabel) + " " + (y < 0 ? "-" : "+") +
         Format(degrees, "00° ") + Format(Int((size - degrees) * 60), "00' ");
}

std::optional<SkyPick> PickInGeneralSky(const GeneralSkyBox& box, int starCount, double x, double y) {
  const double width = std::abs(box.ScaleWidth()), height = std::abs(box.ScaleHeight());
  const double flattening = Div(height, width);
  const auto distance = [&](double rightAscension, double declination) {
    return (x - rightAscension) * (x - rightAscension) + (y - declination) * (y - declination) / flattening;
  };
  Nearest star, body;
  const int stars = UsableStarCount(starCount);
  for (int i = 0; i < stars; ++i) {
    const StarRow& row = StarTable[static_cast<std::size_t>(i)];
    star.Try(distance(static_cast<double>(row.RightAscension), static_cast<double>(row.Declination)), i + 1);
  }
  for (int row = Mercury; row <= Moon; ++row)
    body.Try(distance(SkyObjectTable[row].RightAscension, SkyObjectTable[row].Declination), row);
  const double limit = std::min(width, height) / 400;
  if (!(star.squared < limit) && !(body.squared < limit)) return std::nullopt;
  return star.squared < body.squared ? SkyPick{.Star = star.row} : SkyPick{.Body = body.row};
}

std::vector<ChartSpot> PickablePlaces(const GeneralSkyBox& box, int starCount) {
  std::vector<ChartSpot> found;
  const auto add = [&](float rightAscension, float declination) {
    if (rightAscension <= box.Left && rightAscension >= box.Right && declination <= box.Top &&
        declination >= box.Bottom)
      found.push_back({rightAscension, declination});
  };
  for (int row = Mercury; row <= Moon; ++row)
    add(ToSingle(SkyObjectTable[row].RightAscension), ToSingle(SkyObjectTable[row].Declination));
  const auto stars = static_cast<std::size_t>(UsableStarCount(starCount));
  for (std::size_t i = 0; i < stars; ++i) add(StarTable[i].RightAscension, StarTable[i].Declination);
  return found;
}

}  // namespace halvorine
