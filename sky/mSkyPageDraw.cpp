// The charts within the frame of a printed page, in the units of the charts themselves: the surface's scale
// lays them on the paper.
#include <algorithm>
#include <cmath>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "shell/base/mGlobal.h"
#include "sky/mSkyPage.h"

namespace halvorine {

namespace {

constexpr double firstOfClass2 = 293, firstOfClass3 = 1639;        // the last star of a class
constexpr std::array<double, 3> starRadius = {26, 14, 8};          // twips, by class
constexpr double trackDot = 22, trackStart = 70;                   // twips, radius
constexpr double trackWidth = 2, thinWidth = 1;                    // of 10 twips
constexpr double sphereHalfWidth = 4300, sphereHalfHeight = 2850;  // twips
constexpr Colour red = Rgb(255, 0, 0);
const DrawFont smallFont{.Family = "Courier New", .Points = 8};
const DrawFont sideFont{.Family = "Courier New", .Points = 10, .Bold = true};

class NoPicture : public DrawPicture {
 public:
  bool Empty() const override { return true; }
  double NaturalWidth() const override { return 0; }
  double NaturalHeight() const override { return 0; }
};

/// Keeps a clip while it lives.
class ClipHold {
 public:
  ClipHold(PageSurface& surface, DeviceSpot corner, DeviceSize size) : surface_(surface) {
    surface_.Clip(corner, size);
  }
  ~ClipHold() { surface_.Unclip(); }
  ClipHold(const ClipHold&) = delete;
  ClipHold& operator=(const ClipHold&) = delete;

 private:
  PageSurface& surface_;
};

/// Prints a text with its top left corner at a point and notes the area that it takes.
void PrintNoted(DrawSurface& surface, std::vector<ChartArea>& taken, double x, double y,
                std::string_view text) {
  surface.CurrentX = x;
  surface.CurrentY = y;
  const double right = x + std::copysign(surface.TextWidth(text), surface.ScaleWidth());
  const double bottom = y + std::copysign(surface.TextHeight(text), surface.ScaleHeight());
  surface.Print(text);
  taken.push_back({x, y, right, bottom});
}

double UnitsOf(const DrawSurface& surface, double twips) {
  return std::abs(Div(twips * surface.ScaleWidth(), surface.Width()));
}

void DrawStarDot(DrawSurface& surface, std::size_t number, double x, double y) {
  const auto n = static_cast<double>(number);
  const std::size_t starClass = n <= firstOfClass2 ? 0 : n <= firstOfClass3 ? 1 : 2;
  surface.Circle(x, y, UnitsOf(surface, starRadius.at(starClass)), Black);
}

/// The Moon in black and white by the quadrants of its phase.
void DrawPageMoon(DrawSurface& surface, const BodyMark& mark, double phase) {
  constexpr double quarter = 3.14159265 / 2, threeQuarters = 3 * 3.14159265 / 2;
  const bool litRight = phase < 180;
  surface.FillColor = White;
  surface.Circle(mark.X, mark.Y, mark.Radius, Black);
  surface.FillColor = Black;
  surface.Pie(mark.X, mark.Y, mark.Radius, Black, litRight ? quarter : threeQuarters,
              litRight ? threeQuarters : quarter);
  const double aspect = phase < 90    ? 1 - phase / 90
                        : phase < 180 ? (phase - 90) / 90
                        : phase < 270 ? 1 - (phase - 180) / 90
                                      : (phase - 270) / 90;
  if (aspect == 0) return;
  surface.FillColor = phase < 90 || phase >= 270 ? Black : White;
  surface.Circle(mark.X, mark.Y, mark.Radius, surface.FillColor, 1 / aspect);
  surface.FillStyle = FillKind::Transparent;
  surface.Circle(mark.X, mark.Y, mark.Radius, Black);
  surface.FillStyle = FillKind::Solid;
}

void DrawPageBodies(DrawSurface& surface, const SkyPage& page, const std::vector<ChartArea>& taken) {
  surface.FillStyle = FillKind::Solid;
  for (const BodyMark& mark : page.Bodies) {
    surface.FillColor = Black;
    if (mark.Row == Moon)
      DrawPageMoon(surface, mark, page.MoonPhase);
    else
      surface.Circle(mark.X, mark.Y, mark.Radius, Black);
  }
  surface.FillStyle = FillKind::Transparent;
  surface.Font = smallFont;
  surface.ForeColor = Black;
  surface.TextHalo = White;
  PrintBodyNames(surface, page.Bodies, NoPicture(), taken, "P");
  surface.TextHalo.reset();
}

void DrawRing(DrawSurface& surface, const SkyView& view, std::vector<ChartArea>& taken) {
  for (const CompassMark& mark : CompassMarks(view.Projection)) {
    surface.Font = mark.Side ? sideFont : smallFont;
    PrintNoted(surface, taken, mark.X, mark.Y, mark.Text);
  }
}

void DrawPageTrack(PageSurface& surface, const SkyTrack& track) {
  if (track.Points.empty()) return;
  const Colour ink = surface.PrintsColour() ? red : Black;
  const TrackPoint& first = track.Start ? *track.Start : track.Points.front();
  surface.DrawWidth = trackWidth;
  surface.CurrentX = static_cast<double>(first.X);
  surface.CurrentY = static_cast<double>(first.Y);
  for (const TrackPoint& point : track.Points)
    surface.Line(static_cast<double>(point.X), static_cast<double>(point.Y), ink);
  surface.DrawWidth = thinWidth;
  surface.FillStyle = FillKind::Solid;
  surface.FillColor = ink;
  for (const TrackPoint& point : track.Points)
    if (point.Altitude >= 0)
      surface.Circle(static_cast<double>(point.X), static_cast<double>(point.Y), UnitsOf(surface, trackDot),
                     ink);
  surface.FillStyle = FillKind::Transparent;
  // a ring tells the end at which the satellite comes up
  surface.Circle(static_cast<double>(track.Points.front().X), static_cast<double>(track.Points.front().Y),
                 UnitsOf(surface, trackStart), ink);
}

void DrawPageMarks(DrawSurface& surface, const SkyTrack& track, std::vector<ChartArea>& taken) {
  surface.Font = smallFont;
  surface.TextHalo = White;
  const double last = surface.UserX(PageWidth - PageLeft / 2);
  for (const TimeMark& mark : track.Marks) {
    surface.Line(mark.X1, mark.Y1, mark.X2, mark.Y2, Black);
    const std::string text = TimeMarkText(track.Points.at(static_cast<std::size_t>(mark.Point)));
    const double x = std::min(mark.X2, last - surface.TextWidth(text));
    PrintNoted(surface, taken, x, mark.Y2 > mark.Y1 ? mark.Y2 + surface.TextHeight(text) : mark.Y2, text);
  }
  surface.TextHalo.reset();
}

void DrawPageNames(DrawSurface& surface, const SkyView& view, std::vector<ChartArea>& taken) {
  surface.Font = smallFont;
  surface.TextHalo = White;
  for (std::size_t i = 0; i < view.Places.Labels.size() && i < ConstellationLabels.size(); ++i) {
    const StarRow& place = view.Places.Labels[i];
    if (!(place.Altitude < 0))
      PrintNoted(surface, taken, static_cast<double>(place.X), static_cast<double>(place.Y),
                 ConstellationLabels[i].Abbreviation);
  }
  surface.TextHalo.reset();
}

/// The circles of altitude: the horizon, and those of the grid.
void DrawAltitudes(DrawSurface& surface, SkyView view) {
  surface.Circle(0, 0, HorizonRadius, Black);
  view.Switches.HorizontalGrid = true;
  DrawSkyGrid(surface, view);
}

void DrawDisc(PageSurface& surface, const SkyPage& page) {
  SkyView view = *page.Disc;
  view.GridColour = Black;
  view.Zoomed = false;
  const SkySwitches& on = view.Switches;
  surface.Scale(-ChartCentreX / TwipsPerUnit, ChartCentreY / TwipsPerUnit,
                (PageWidth - ChartCentreX) / TwipsPerUnit, (ChartCentreY - PageHeight) / TwipsPerUnit);
  surface.FillStyle = FillKind::Transparent;
  surface.Circle(0, 0, ChartDiameter / 2 / TwipsPerUnit, Black);
  if (on.Landscape || (on.Grid && on.HorizontalGrid)) DrawAltitudes(surface, view);
  std::vector<ChartArea> taken;
  DrawRing(surface, view, taken);
  if (on.Grid && !on.HorizontalGrid) DrawSkyGrid(surface, view);
  if (on.ConstellationLines)
    for (const ConstellationLine& line : view.Places.Lines)
      LineAboveHorizon(surface, line.From, line.To, Black);
  surface.FillStyle = FillKind::Solid;
  surface.FillColor = Black;
  for (std::size_t i = 0; i < view.Places.Stars.size(); ++i) {
    const StarRow& star = view.Places.Stars[i];
    if (star.Altitude > 0)
      DrawStarDot(surface, i + 1, static_cast<double>(star.X), static_cast<double>(star.Y));
  }
  DrawPageTrack(surface, view.Track);
  if (on.ConstellationNames) DrawPageNames(surface, view, taken);
  DrawPageMarks(surface, view.Track, taken);
  DrawPageBodies(surface, page, taken);
}

void DrawSphere(PageSurface& surface, const SkyPage& page) {
  const GeneralSkyView& view = *page.Sphere;
  const GeneralSkyBox& box = view.Box;
  const DeviceSpot corner{ChartCentreX - sphereHalfWidth, ChartCentreY - sphereHalfHeight};
  const DeviceSize size{2 * sphereHalfWidth, 2 * sphereHalfHeight};
  // the scale of the rectangle, carried on to the edges of the paper
  const double across = box.ScaleWidth() / size.Width, down = box.ScaleHeight() / size.Height;
  const double left = static_cast<double>(box.Left) - corner.X * across;
  const double top = static_cast<double>(box.Top) - corner.Y * down;
  surface.Scale(left, top, left + PageWidth * across, top + PageHeight * down);
  const GeneralSkyInk ink{.Grid = Black,
                          .GridNames = Black,
                          .Lines = Black,
                          .Names = Black,
                          .GridFont = smallFont,
                          .NameFont = smallFont,
                          .Halo = White};
  {
    const ClipHold clip(surface, corner, size);
    if (view.Switches.Grid) DrawGeneralGrid(surface, box, ink);
    if (view.Switches.ConstellationLines) DrawGeneralFigures(surface, ink);
    surface.DrawWidth = thinWidth;
    surface.FillStyle = FillKind::Solid;
    surface.FillColor = Black;
    const int count = UsableStarCount(view.StarCount);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
      DrawStarDot(surface, i + 1, static_cast<double>(StarTable[i].RightAscension),
                  static_cast<double>(StarTable[i].Declination));
    if (view.Switches.ConstellationNames) DrawGeneralNames(surface, box, ink);
    DrawPageBodies(surface, page, {});
  }
  surface.ScaleModeTwips();
  surface.FillStyle = FillKind::Transparent;
  surface.Box(corner.X, corner.Y, corner.X + size.Width, corner.Y + size.Height, Black, false);
}

}  // namespace

void DrawPageChart(PageSurface& surface, const SkyPage& page) {
  if (page.Disc) DrawDisc(surface, page);
  if (page.Sphere) DrawSphere(surface, page);
}

}  // namespace halvorine
