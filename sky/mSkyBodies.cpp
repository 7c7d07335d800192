// Marks that all sky charts share: stars by their class, the Moon's disc, planets, and names that keep clear
// of one another.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "astro/mMoonDraw.h"
#include "shell/base/mGlobal.h"
#include "sky/mSkyDraw.h"

namespace halvorine {

namespace {

constexpr int circleStars = 293, brightPoints = 1639;  // the last number of a class
constexpr Colour brightPoint = Rgb(220, 220, 220), faintPoint = Rgb(140, 140, 140);
constexpr Colour planetRim = Rgb(214, 218, 232), nameColour = Rgb(180, 180, 180);
constexpr double smallestStar = 1.15, smallestPlanet = 2.2;  // pixels, radius
constexpr double rimWidth = 0.8;                             // pixels, around planets
constexpr double himetricPerTwip = 2540.0 / 1440.0;

/// A rectangle in user units whose axes run as the device's do: right and down.
struct Area {
  double left = 0, top = 0, right = 0, bottom = 0;
  bool Meets(const Area& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
};

/// Keeps names of bodies clear of one another, the brighter ones first.
class NamePlaces {
 public:
  explicit NamePlaces(const DrawSurface& surface)
      : surface_(surface), right_(Sgn(surface.ScaleWidth())), down_(Sgn(surface.ScaleHeight())) {}

  void Block(const BodyMark& mark, HalfExtent half) { taken_.push_back(Around(mark, half)); }

  /// Where the pen stands for a name beside a body: at its right, or at the first other side where the name
  /// meets no body and no name and stays on the surface.
  DeviceSpot Place(const BodyMark& mark, HalfExtent half, const std::string& name) {
    const Area body = Around(mark, half);
    const double width = surface_.TextWidth(name), height = surface_.TextHeight(name);
    const double x = (body.left + body.right - width) / 2, y = (body.top + body.bottom - height) / 2;
    const double left = body.left - width - surface_.TextWidth(" ");  // texts begin a little behind the pen
    const double above = body.top - height;
    const std::array<DeviceSpot, 8> corners = {{{body.right, y},
                                                {left, y},
                                                {x, body.bottom},
                                                {x, above},
                                                {body.right, body.bottom},
                                                {body.right, above},
                                                {left, body.bottom},
                                                {left, above}}};
    const auto area = [&](DeviceSpot at) { return Area{at.X, at.Y, at.X + width, at.Y + height}; };
    DeviceSpot chosen = corners.front();
    for (const DeviceSpot& corner : corners) {
      if (!Free(area(corner))) continue;
      chosen = corner;
      break;
    }
    taken_.push_back(area(chosen));
    return {chosen.X * right_, chosen.Y * down_};
  }

 private:
  Area Around(const BodyMark& mark, HalfExtent half) const {
    const double x = mark.X * right_, y = mark.Y * down_;
    return {x - half.X, y - half.Y, x + half.X, y + half.Y};
  }
  bool Free(const Area& area) const {
    const bool inside =
        area.left >= surface_.UserX(0) * right_ && area.right <= surface_.UserX(surface_.Width()) * right_ &&
        area.top >= surface_.UserY(0) * down_ && area.bottom <= surface_.UserY(surface_.Height()) * down_;
    return inside &&
           std::none_of(taken_.begin(), taken_.end(), [&](const Area& other) { return area.Meets(other); });
  }

  const DrawSurface& surface_;
  double right_, down_;  // 1 where the axis runs as the device's does, otherwise -1
  std::vector<Area> taken_;
};

/// Half the extent of a mark, user units.
HalfExtent HalfExtentOfMark(const DrawSurface& surface, const BodyMark& mark, const DrawPicture& sunIcon) {
  if (mark.Row == Sun && !sunIcon.Empty())
    return {std::abs(Div(sunIcon.NaturalWidth() / 2 * surface.ScaleWidth(), surface.Width())),
            std::abs(Div(sunIcon.NaturalHeight() / 2 * surface.ScaleHeight(), surface.Height()))};
  return {mark.Radius,
          std::abs(Div(Div(mark.Radius * surface.Width(), surface.ScaleWidth()) * surface.ScaleHeight(),
                       surface.Height()))};
}

/// Sorts by brightness: the Sun, the Moon, then the planets by magnitude.
bool Brighter(const BodyMark& a, const BodyMark& b) {
  const auto magnitude = [](const BodyMark& mark) {
    return mark.Row == Sun ? -1000.0 : mark.Row == Moon ? -999.0 : SkyObjectTable[mark.Row].Magnitude;
  };
  return magnitude(a) < magnitude(b);
}

void DrawPlanet(DrawSurface& surface, const BodyMark& mark) {
  surface.FillColor = PlanetColour(mark.Row);
  surface.MinimumRadius = smallestPlanet;
  surface.Circle(mark.X, mark.Y, mark.Radius, surface.FillColor);
  surface.FillStyle = FillKind::Transparent;
  surface.DrawWidth = rimWidth;
  surface.Circle(mark.X, mark.Y, mark.Radius, planetRim);
  surface.MinimumRadius = 0;
  surface.DrawWidth = 1;
}

void DrawSun(DrawSurface& surface, const BodyMark& mark, const DrawPicture& sunIcon) {
  if (!sunIcon.Empty()) return PaintCentred(surface, sunIcon, mark.X, mark.Y);
  surface.FillColor = Palette16[14];
  surface.Circle(mark.X, mark.Y, mark.Radius, Palette16[14]);
}

void PrintNames(DrawSurface& surface, std::vector<BodyMark> marks, const DrawPicture& sunIcon) {
  surface.ForeColor = nameColour;
  surface.TextHalo = Black;
  surface.Font = {};
  std::stable_sort(marks.begin(), marks.end(), Brighter);
  NamePlaces places(surface);
  for (const BodyMark& mark : marks) places.Block(mark, HalfExtentOfMark(surface, mark, sunIcon));
  for (const BodyMark& mark : marks) {
    if (!mark.Named) continue;
    const std::string name = BodyName(mark.Row);
    const DeviceSpot at = places.Place(mark, HalfExtentOfMark(surface, mark, sunIcon), name);
    surface.CurrentX = at.X;
    surface.CurrentY = at.Y;
    surface.Print(name);
  }
}

}  // namespace

void DrawStar(DrawSurface& surface, int number, double x, double y, double radius) {
  if (number > circleStars) {
    surface.PSet(x, y, number > brightPoints ? faintPoint : brightPoint);
    return;
  }
  surface.FillStyle = FillKind::Solid;
  surface.FillColor = White;
  surface.MinimumRadius = smallestStar;
  surface.Circle(x, y, radius, White);
}

Colour PlanetColour(int row) {
  constexpr std::array<std::size_t, 7> colours = {13, 10, 12, 4, 14, 11, 9};
  return Palette16[colours.at(static_cast<std::size_t>(row - 1))];
}

void DrawBodies(DrawSurface& surface, const std::vector<BodyMark>& marks, const DrawPicture& sunIcon) {
  surface.DrawStyle = LineKind::Solid;
  surface.DrawWidth = 1;
  for (const BodyMark& mark : marks) {
    surface.FillStyle = FillKind::Solid;
    if (mark.Row == Sun)
      DrawSun(surface, mark, sunIcon);
    else if (mark.Row == Moon)
      DrawMoon(surface, mark.X, mark.Y, mark.Radius, SkyObjectTable[Moon].PhaseAngle * RadToDeg);
    else
      DrawPlanet(surface, mark);
  }
  surface.FillStyle = FillKind::Transparent;
  PrintNames(surface, marks, sunIcon);
}

void DrawSkyBodies(DrawSurface& surface, const SkyView& view) {
  if (view.Pictures == nullptr) return;
  const double height = std::abs(surface.ScaleHeight());
  std::vector<BodyMark> marks;
  const auto add = [&](int row, double radius, bool named) {
    const StarRow& place = view.Places.Bodies[row];
    if (place.Altitude > 0)
      marks.push_back({row, static_cast<double>(place.X), static_cast<double>(place.Y), radius, named});
  };
  if (view.Switches.SunMoon) {
    add(Sun, height / 70, view.Switches.SunMoonNames);
    add(Moon, height / 70, view.Switches.SunMoonNames);
  }
  if (view.Switches.Planets)
    for (int row = Mercury; row <= Neptune; ++row) add(row, height / 200, view.Switches.PlanetNames);
  DrawBodies(surface, marks, view.Pictures->SunIcon());
}

void PaintCentred(DrawSurface& surface, const DrawPicture& icon, double x, double y) {
  if (icon.Empty()) return;
  const double width = Div(icon.NaturalWidth() * surface.ScaleWidth(), surface.Width());
  const double height = Div(icon.NaturalHeight() * surface.ScaleHeight(), surface.Height());
  surface.PaintPicture(icon, x - width / 2, y - height / 2);
}

HalfExtent HalfExtentOf(const DrawSurface& surface, const DrawPicture& icon, double factor) {
  return {
      std::abs(factor * icon.NaturalWidth() * himetricPerTwip * Div(surface.ScaleWidth(), surface.Width())),
      std::abs(factor * icon.NaturalHeight() * himetricPerTwip *
               Div(surface.ScaleHeight(), surface.Height()))};
}

int SkyIconOf(const std::string& catalogueNumber, std::int32_t condition) {
  if (catalogueNumber == "20580") return SkyIconTelescope;
  if (catalogueNumber == "25544") return SkyIconStation;
  if (condition == Eclipsed) return SkyIconEclipsed;
  return condition == Visible ? SkyIconVisible : SkyIconNotVisible;
}

}  // namespace halvorine
