// Drawing of the general sky chart; stars, Sun, Moon and planets are drawn as on the other charts.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "shell/base/mGlobal.h"
#include "sky/mGeneralSky.h"

namespace halvorine {

namespace {

constexpr Colour background = Rgb(0, 0, 71);
constexpr Colour gridLabel = Rgb(140, 140, 140);
constexpr double crossingHours = 16;                  // a segment that spans more crosses the hour 0
constexpr double figureWidth = 0.9;                   // pixels
constexpr double largeStar = 0.02, smallStar = 0.01;  // hours, of the whole sky and of a part of it
constexpr Colour nameHalo = Rgb(0, 0, 30);
const DrawFont nameFont{.Points = 8};

void PrintAt(DrawSurface& surface, double x, double y, const std::string& text) {
  surface.CurrentX = x;
  surface.CurrentY = y;
  surface.Print(text);
}

void DrawGrid(DrawSurface& surface, const GeneralSkyBox& box) {
  const Colour colour = Options.Colours.GeneralGrid;
  surface.DrawStyle = LineKind::Solid;
  surface.DrawWidth = 1;
  surface.Font = {};
  surface.TextHalo = nameHalo;
  surface.ForeColor = gridLabel;
  for (int hour = 4; hour <= 20; hour += 4) {
    surface.Line(hour, 90, hour, -90, colour);
    PrintAt(surface, hour, static_cast<double>(box.Top), " " + std::to_string(hour) + "h");
  }
  for (int degree = -60; degree <= 60; degree += 30) {
    surface.Line(24, degree, 0, degree, colour);
    PrintAt(surface, static_cast<double>(box.Left), degree, " " + std::to_string(degree) + "°");
  }
}

/// A segment of a figure; where it crosses the hour 0 it leaves the chart at one edge and comes back at the
/// other.
void DrawSegment(DrawSurface& surface, const StarRow& from, const StarRow& to, Colour colour) {
  const double x1 = static_cast<double>(from.RightAscension), y1 = static_cast<double>(from.Declination);
  const double x2 = static_cast<double>(to.RightAscension), y2 = static_cast<double>(to.Declination);
  if (std::abs(x1 - x2) <= crossingHours) {
    surface.Line(x1, y1, x2, y2, colour);
    return;
  }
  const double turn = x2 > x1 ? 24 : -24;
  surface.Line(x1, y1, x2 - turn, y2, colour);
  surface.Line(x1 + turn, y1, x2, y2, colour);
}

}  // namespace

void DrawGeneralFigures(DrawSurface& surface, Colour colour) {
  surface.DrawStyle = LineKind::Solid;
  surface.DrawWidth = figureWidth;
  for (const ConstellationLine& line : ConstellationLines) DrawSegment(surface, line.From, line.To, colour);
}

namespace {

void DrawNames(DrawSurface& surface, const GeneralSkyBox& box) {
  surface.Font = nameFont;
  surface.TextHalo = nameHalo;
  surface.ForeColor = Palette16[12];
  const double right = static_cast<double>(box.Right);
  for (const ConstellationLabel& label : ConstellationLabels) {
    const std::string& text = box.WholeSky() ? label.Abbreviation : label.Name;
    const double x = label.RightAscension;
    // a name at the right edge would be cut
    PrintAt(surface, x > right ? std::max(x, right + surface.TextWidth(text + " ")) : x, label.Declination,
            text);
  }
}

void DrawStars(DrawSurface& surface, const GeneralSkyView& view) {
  const double radius = view.Box.WholeSky() ? largeStar : smallStar;
  const int count = UsableStarCount(view.StarCount);
  surface.DrawWidth = 1;
  for (int number = 1; number <= count; ++number) {
    const StarRow& star = StarTable[static_cast<std::size_t>(number - 1)];
    DrawStar(surface, number, static_cast<double>(star.RightAscension), static_cast<double>(star.Declination),
             radius);
  }
}

void DrawBodies(DrawSurface& surface, const GeneralSkyView& view) {
  const double width = std::abs(view.Box.ScaleWidth());
  std::vector<BodyMark> marks;
  const auto add = [&](int row, double share, bool named) {
    const SkyObject& body = SkyObjectTable[row];
    marks.push_back({row, body.RightAscension, body.Declination, width / share, named});
  };
  if (view.Switches.SunMoon)
    for (const int row : {Sun, Moon}) add(row, 160, view.Switches.SunMoonNames);
  if (view.Switches.Planets)
    for (int row = Mercury; row <= Neptune; ++row) add(row, 500, view.Switches.PlanetNames);
  surface.Font = {};
  surface.TextHalo = nameHalo;
  halvorine::DrawBodies(surface, marks, view.Pictures->SunIcon());
}

}  // namespace

GeneralSkySwitches GeneralSwitchesOf(const SkyOptions& options) {
  return {.Grid = options.Grid != 0,
          .ConstellationLines = options.ConstellationLines != 0,
          .Planets = options.Planets != 0,
          .SunMoon = options.SunMoon != 0,
          .ConstellationNames = options.ConstellationNames != 0,
          .PlanetNames = options.PlanetNames != 0,
          .SunMoonNames = options.SunMoonNames != 0};
}

void Genera_mappa(DrawSurface& surface, const GeneralSkyView& view) {
  ComputeSkyObjects(CurrentDate);
  surface.AutoRedraw(true);
  DrawQuietly([&] {
    const GeneralSkyBox& box = view.Box;
    surface.Scale(static_cast<double>(box.Left), static_cast<double>(box.Top), static_cast<double>(box.Right),
                  static_cast<double>(box.Bottom));
    surface.BackColor = background;
    surface.Cls();
    if (view.Switches.Grid) DrawQuietly([&] { DrawGrid(surface, box); });
    if (view.Switches.ConstellationLines)
      DrawQuietly([&] { DrawGeneralFigures(surface, Options.Colours.ConstellationLines); });
    if (view.Switches.ConstellationNames) DrawQuietly([&] { DrawNames(surface, box); });
    DrawQuietly([&] { DrawStars(surface, view); });
    DrawQuietly([&] { DrawBodies(surface, view); });
  });
  surface.TextHalo.reset();
  surface.AutoRedraw(false);
}

}  // namespace halvorine
