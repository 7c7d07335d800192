// The charts within the frame of a printed page. Objects are drawn in the units of the charts, which the
// surface's scale lays on the paper; texts are placed in twips.
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "astro/mMate.h"
#include "shell/base/mGlobal.h"
#include "sky/mSkyPage.h"

namespace halvorine {

namespace {

constexpr std::size_t lastOfClass1 = 293, lastOfClass2 = 1639;     // numbers of stars
constexpr std::array<double, 3> starRadius = {26, 14, 8};          // twips, by class
constexpr double trackDot = 22, trackStart = 70;                   // twips, radius
constexpr double trackWidth = 2, thinWidth = 1;                    // of 10 twips
constexpr double sphereHalfWidth = 4000, sphereHalfHeight = 3300;  // twips
constexpr double bodyRoom = 30;                                    // twips, between a body and its name
constexpr double ringRoom = 30;                    // twips, between the disc and the texts around it
constexpr int rings = 6;                           // of places around a body that are tried for its name
constexpr double lastMark = PageWidth - PageLeft;  // right end of times along a track
constexpr Colour red = Rgb(255, 0, 0);
const DrawFont smallFont{.Family = "Courier New", .Points = 8};
const DrawFont sideFont{.Family = "Courier New", .Points = 10, .Bold = true};

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

/// A rectangle of the paper, twips.
struct Area {
  double left = 0, top = 0, right = 0, bottom = 0;
  bool Meets(const Area& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
};

/// Lays texts on a chart that is drawn: none over another, over a body or over the chart's edge, as long as a
/// free side is found. It takes the chart's units from the surface's scale and lets the surface count in
/// twips from then on.
class Writer {
 public:
  Writer(DrawSurface& surface, std::function<bool(const Area&)> inside)
      : surface_(surface),
        inside_(std::move(inside)),
        left_(surface.UserX(0)),
        top_(surface.UserY(0)),
        across_(Div(surface.Width(), surface.ScaleWidth())),
        down_(Div(surface.Height(), surface.ScaleHeight())) {
    surface.ScaleModeTwips();
    surface.ForeColor = Black;
    surface.TextHalo = White;
  }
  ~Writer() { surface_.TextHalo.reset(); }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  double X(double x) const { return (x - left_) * across_; }
  double Y(double y) const { return (y - top_) * down_; }

  /// A text that has its place, by the top left corner in twips.
  void Print(const DrawFont& font, double x, double y, std::string_view text) {
    surface_.Font = font;
    surface_.CurrentX = x;
    surface_.CurrentY = y;
    taken_.push_back(AreaAt(x, y, text));
    surface_.Print(text);
  }
  /// A name with its top left corner at a point of the chart, or on another side of the point.
  void PrintName(double x, double y, std::string_view text) {
    surface_.Font = smallFont;
    PrintBeside({X(x), Y(y), X(x), Y(y)}, text, surface_.TextHeight(text) / 2);
  }
  /// A name beside a body, at its right before all other sides.
  void PrintName(const BodyMark& mark, std::string_view text) {
    surface_.Font = smallFont;
    PrintBeside(AreaOf(mark), text, 0);
  }
  void Block(const BodyMark& mark) { taken_.push_back(AreaOf(mark)); }

 private:
  Area AreaAt(double x, double y, std::string_view text) const {
    return {x, y, x + surface_.TextWidth(text), y + surface_.TextHeight(text)};
  }
  Area AreaOf(const BodyMark& mark) const {
    const double half = mark.Radius * std::abs(across_) + bodyRoom, x = X(mark.X), y = Y(mark.Y);
    return {x - half, y - half, x + half, y + half};
  }
  bool Free(const Area& area) const {
    return inside_(area) &&
           std::none_of(taken_.begin(), taken_.end(), [&](const Area& other) { return area.Meets(other); });
  }
  /// The first place around a body, ever further away, where a text is free; at its right where none is.
  DeviceSpot PlaceBeside(Area body, double width, double height, double lowered) const {
    const DeviceSpot first{body.right, (body.top + body.bottom - height) / 2 + lowered};
    for (int ring = 0; ring < rings; ++ring) {
      const double x = (body.left + body.right - width) / 2;
      const double y = (body.top + body.bottom - height) / 2 + lowered;
      const double left = body.left - width, above = body.top - height;
      for (const DeviceSpot& at : std::array<DeviceSpot, 8>{{{body.right, y},
                                                             {left, y},
                                                             {x, body.bottom},
                                                             {x, above},
                                                             {body.right, body.bottom},
                                                             {body.right, above},
                                                             {left, body.bottom},
                                                             {left, above}}})
        if (Free({at.X, at.Y, at.X + width, at.Y + height})) return at;
      const double step = height / 2;
      body = {body.left - step, body.top - step, body.right + step, body.bottom + step};
    }
    return first;
  }
  void PrintBeside(const Area& body, std::string_view text, double lowered) {
    const DeviceSpot at = PlaceBeside(body, surface_.TextWidth(text), surface_.TextHeight(text), lowered);
    Print(smallFont, at.X, at.Y, text);
  }

  DrawSurface& surface_;
  std::function<bool(const Area&)> inside_;
  double left_, top_, across_, down_;
  std::vector<Area> taken_;
};

double UnitsOf(const DrawSurface& surface, double twips) {
  return std::abs(Div(twips * surface.ScaleWidth(), surface.Width()));
}

void DrawStarDot(DrawSurface& surface, std::size_t number, double x, double y) {
  const std::size_t starClass = number <= lastOfClass1 ? 0 : number <= lastOfClass2 ? 1 : 2;
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

void DrawPageBodies(DrawSurface& surface, const SkyPage& page) {
  surface.FillStyle = FillKind::Solid;
  for (const BodyMark& mark : page.Bodies) {
    surface.FillColor = Black;
    if (mark.Row == Moon)
      DrawPageMoon(surface, mark, page.MoonPhase);
    else
      surface.Circle(mark.X, mark.Y, mark.Radius, Black);
  }
  surface.FillStyle = FillKind::Transparent;
}

void PrintPageNames(Writer& writer, const std::vector<BodyMark>& bodies) {
  for (const BodyMark& mark : bodies) writer.Block(mark);
  for (const BodyMark& mark : bodies) {
    if (mark.Named)
      writer.PrintName(mark, BodyName(mark.Row));
    else if (mark.Row <= Neptune)
      writer.PrintName(mark, "P");
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

void DrawPageMarks(DrawSurface& surface, Writer& writer, const SkyTrack& track) {
  for (const TimeMark& mark : track.Marks) {
    const double x = writer.X(mark.X2), y = writer.Y(mark.Y2);
    surface.Line(writer.X(mark.X1), writer.Y(mark.Y1), x, y, Black);
    surface.Font = smallFont;
    const std::string text = TimeMarkText(track.Points.at(static_cast<std::size_t>(mark.Point)));
    // above the point the text stands on the line's end, so that the line does not cross it
    const double width = surface.TextWidth(text), height = surface.TextHeight(text);
    const double left = std::min(x, lastMark - width), top = mark.Y2 > mark.Y1 ? y - height : y;
    // what lies below would show between the words
    surface.Box(left, top + bodyRoom, left + width, top + height - bodyRoom, White, true);
    writer.Print(smallFont, left, top, text);
  }
}

/// The names of the sides and the azimuths at their points; one that would touch the disc moves aside.
void PrintRing(DrawSurface& surface, Writer& writer, const SkyProjection& projection) {
  constexpr double clear = ChartDiameter / 2 + ringRoom;
  for (const CompassMark& mark : CompassMarks(projection)) {
    surface.Font = mark.Side ? sideFont : smallFont;
    const double y = writer.Y(mark.Y), width = surface.TextWidth(mark.Text);
    const double lower = y + surface.TextHeight(mark.Text);
    const double off = lower < ChartCentreY ? ChartCentreY - lower : std::max(0.0, y - ChartCentreY);
    const double half = off < clear ? std::sqrt(clear * clear - off * off) : 0;
    double x = writer.X(mark.X);
    if (half > 0)
      x = mark.X > 0 ? std::max(x, ChartCentreX + half) : std::min(x, ChartCentreX - half - width);
    writer.Print(surface.Font, x, y, mark.Text);
  }
}

void PrintDiscTexts(DrawSurface& surface, const SkyPage& page, const SkyView& view) {
  Writer writer(surface, [](const Area& area) {
    const double x = std::max(std::abs(area.left - ChartCentreX), std::abs(area.right - ChartCentreX));
    const double y = std::max(std::abs(area.top - ChartCentreY), std::abs(area.bottom - ChartCentreY));
    return std::hypot(x, y) < HorizonRadius * TwipsPerUnit;
  });
  PrintRing(surface, writer, view.Projection);
  DrawPageMarks(surface, writer, view.Track);
  PrintPageNames(writer, page.Bodies);
  if (!view.Switches.ConstellationNames) return;
  for (std::size_t i = 0; i < view.Places.Labels.size() && i < ConstellationLabels.size(); ++i) {
    const StarRow& place = view.Places.Labels[i];
    if (!(place.Altitude < 0))
      writer.PrintName(static_cast<double>(place.X), static_cast<double>(place.Y),
                       ConstellationLabels[i].Abbreviation);
  }
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
  DrawPageBodies(surface, page);
  PrintDiscTexts(surface, page, view);
}

constexpr Area sphere{ChartCentreX - sphereHalfWidth, ChartCentreY - sphereHalfHeight,
                      ChartCentreX + sphereHalfWidth, ChartCentreY + sphereHalfHeight};

bool IsOnSphere(double x, double y) {
  return x >= sphere.left && x <= sphere.right && y >= sphere.top && y <= sphere.bottom;
}

void DrawSphereObjects(PageSurface& surface, const SkyPage& page) {
  const GeneralSkyView& view = *page.Sphere;
  const ClipHold clip(surface, {sphere.left, sphere.top}, {2 * sphereHalfWidth, 2 * sphereHalfHeight});
  if (view.Switches.Grid) {
    for (int hour = 4; hour <= 20; hour += 4) surface.Line(hour, 90, hour, -90, Black);
    for (int degree = -60; degree <= 60; degree += 30) surface.Line(24, degree, 0, degree, Black);
  }
  if (view.Switches.ConstellationLines) DrawGeneralFigures(surface, Black);
  surface.DrawWidth = thinWidth;
  surface.FillStyle = FillKind::Solid;
  surface.FillColor = Black;
  const auto count = static_cast<std::size_t>(UsableStarCount(view.StarCount));
  for (std::size_t i = 0; i < count; ++i)
    DrawStarDot(surface, i + 1, static_cast<double>(StarTable[i].RightAscension),
                static_cast<double>(StarTable[i].Declination));
  DrawPageBodies(surface, page);
}

/// The numbers of the grid, outside the rectangle.
void PrintGridNumbers(DrawSurface& surface, Writer& writer) {
  surface.Font = smallFont;
  const double height = surface.TextHeight("0");
  for (int hour = 4; hour <= 20; hour += 4) {
    const std::string text = std::to_string(hour) + "h";
    const double x = writer.X(hour);
    if (IsOnSphere(x, sphere.top))
      writer.Print(smallFont, x - surface.TextWidth(text) / 2, sphere.top - height, text);
  }
  for (int degree = -60; degree <= 60; degree += 30) {
    const std::string text = std::to_string(degree) + "° ";
    const double y = writer.Y(degree);
    if (IsOnSphere(sphere.left, y))
      writer.Print(smallFont, sphere.left - surface.TextWidth(text), y - height / 2, text);
  }
}

void PrintSphereTexts(DrawSurface& surface, const SkyPage& page) {
  const GeneralSkyView& view = *page.Sphere;
  Writer writer(surface, [](const Area& area) {
    return IsOnSphere(area.left, area.top) && IsOnSphere(area.right, area.bottom);
  });
  if (view.Switches.Grid) PrintGridNumbers(surface, writer);
  std::vector<BodyMark> shown;
  for (const BodyMark& mark : page.Bodies)
    if (IsOnSphere(writer.X(mark.X), writer.Y(mark.Y))) shown.push_back(mark);
  PrintPageNames(writer, shown);
  if (!view.Switches.ConstellationNames) return;
  for (const ConstellationLabel& label : ConstellationLabels)
    if (IsOnSphere(writer.X(label.RightAscension), writer.Y(label.Declination)))
      writer.PrintName(label.RightAscension, label.Declination,
                       view.Box.WholeSky() ? label.Abbreviation : label.Name);
}

void DrawSphere(PageSurface& surface, const SkyPage& page) {
  const GeneralSkyBox& box = page.Sphere->Box;
  // the scale of the rectangle, carried on to the edges of the paper
  const double across = box.ScaleWidth() / (2 * sphereHalfWidth);
  const double down = box.ScaleHeight() / (2 * sphereHalfHeight);
  const double left = static_cast<double>(box.Left) - sphere.left * across;
  const double top = static_cast<double>(box.Top) - sphere.top * down;
  surface.Scale(left, top, left + PageWidth * across, top + PageHeight * down);
  DrawSphereObjects(surface, page);
  PrintSphereTexts(surface, page);
  surface.FillStyle = FillKind::Transparent;
  surface.Box(sphere.left, sphere.top, sphere.right, sphere.bottom, Black, false);
}

}  // namespace

void DrawPageChart(PageSurface& surface, const SkyPage& page) {
  if (page.Disc) DrawDisc(surface, page);
  if (page.Sphere) DrawSphere(surface, page);
}

}  // namespace halvorine
