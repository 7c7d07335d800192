// The disc of the observer's sky: background, sides, grid, figures, stars, landscape, and the local chart
// that is made of them. Bodies stand in mSkyBodies.cpp.
#include "sky/mSkyDraw.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr Colour discEdge = Rgb(140, 140, 140);
constexpr Colour nameHalo = Rgb(0, 0, 30);
constexpr Colour red = Rgb(255, 0, 0);
constexpr int gradientSteps = 256;
constexpr double figureWidth = 0.9, trackWidth = 1.6;  // pixels
constexpr double smallestDot = 2.2;                    // pixels, radius
constexpr double wideView = 180;                       // chart units, above which stars are drawn larger

/// The sky by the Sun's altitude: colours of edge and middle, and the grid's.
struct SkyColours {
  std::array<int, 3> edge, middle;  // red, green, blue
  Colour grid;
};

SkyColours ColoursAt(double sunAltitude) {
  const ColourOptions& colours = Options.Colours;
  if (sunAltitude > -6) return {{0, 0, 196}, {0, 0, 148}, colours.LocalGrid1};
  if (sunAltitude > -12) return {{0, 0, 148}, {0, 0, 100}, colours.LocalGrid2};
  if (sunAltitude > -18) return {{0, 0, 100}, {0, 0, 71}, colours.LocalGrid3};
  return {{0, 0, 71}, {0, 0, 71}, colours.LocalGrid4};
}

/// A circle around the zenith that keeps to the scales of both axes.
void DiscCircle(DrawSurface& surface, double radius, Colour colour) {
  const double aspect = DiscAspect(surface);
  surface.Circle(0, 0, aspect > 1 ? radius * aspect : radius, colour, aspect);
}

void DrawGlow(DrawSurface& surface, const SkyColours& colours) {
  for (int i = 0; i < gradientSteps; ++i) {
    std::array<int, 3> mixed{};
    for (std::size_t c = 0; c < mixed.size(); ++c)
      mixed[c] = colours.edge[c] + (colours.middle[c] - colours.edge[c]) * i / (gradientSteps - 1);
    const Colour colour = Rgb(mixed[0], mixed[1], mixed[2]);
    surface.FillColor = colour;
    DiscCircle(surface, HorizonRadius * (gradientSteps - i) / gradientSteps, colour);
  }
}

void PrintAt(DrawSurface& surface, double x, double y, std::string_view text) {
  surface.CurrentX = x;
  surface.CurrentY = y;
  surface.Print(text);
}

/// Plain lines and figures without fill, from whatever was drawn before.
void PlainPen(DrawSurface& surface, double width = 1) {
  surface.DrawStyle = LineKind::Solid;
  surface.DrawWidth = width;
  surface.FillStyle = FillKind::Transparent;
  surface.MinimumRadius = 0;
}

}  // namespace

SkySwitches SwitchesOf(const SkyOptions& options) {
  SkySwitches on;
  on.Grid = options.Grid != 0;
  on.Grid10 = options.Grid10 != 0;
  on.HorizontalGrid = options.GridType != 0;
  on.ConstellationLines = options.ConstellationLines != 0;
  on.ConstellationNames = options.ConstellationNames != 0;
  on.Planets = options.Planets != 0;
  on.PlanetNames = options.PlanetNames != 0;
  on.SunMoon = options.SunMoon != 0;
  on.SunMoonNames = options.SunMoonNames != 0;
  on.Horizon = options.Horizon != 0;
  on.Landscape = options.Landscape != 0;
  return on;
}

SkyProjection ProjectionOf(const SkyOptions& options) {
  const bool known = options.Orientation >= FacingNorth && options.Orientation <= FacingEast;
  return {options.Stereographic != 0, known ? options.Orientation : static_cast<std::int16_t>(FacingSouth)};
}

Colour CompassColourOf(Colour buttonFace) {
  constexpr double darkest = 96;  // of 255; a contrast of about 3 to 1 on black
  const double brightness =
      0.299 * (buttonFace & 255) + 0.587 * ((buttonFace >> 8) & 255) + 0.114 * ((buttonFace >> 16) & 255);
  return brightness < darkest ? Palette16[7] : buttonFace;
}

void SetSkyScale(DrawSurface& surface, SkyView& view) {
  if (!view.Zoomed) {
    view.Box =
        view.Square ? ChartBox{-100, 100, 100, -100} : FullDiscBox(Div(surface.Width(), surface.Height()));
  }
  surface.Scale(static_cast<double>(view.Box.Left), static_cast<double>(view.Box.Top),
                static_cast<double>(view.Box.Right), static_cast<double>(view.Box.Bottom));
}

double DiscAspect(const DrawSurface& surface) {
  return Div(std::abs(surface.ScaleWidth()), std::abs(surface.ScaleHeight())) *
         Div(surface.Height(), surface.Width());
}

void DrawSkyBackground(DrawSurface& surface, SkyView& view) {
  const SkyColours colours = ColoursAt(static_cast<double>(view.Places.Bodies[Sun].Altitude));
  view.GridColour = colours.grid;
  surface.BackColor = Black;
  surface.Cls();
  PlainPen(surface);
  surface.FillStyle = FillKind::Solid;
  if (view.Switches.Horizon) {
    DrawGlow(surface, colours);
    surface.FillStyle = FillKind::Transparent;
  }
  surface.FillColor = Rgb(colours.edge[0], colours.edge[1], colours.edge[2]);
  DiscCircle(surface, HorizonRadius, discEdge);
  surface.FillStyle = FillKind::Transparent;
}

std::array<CompassMark, 12> CompassMarks(const SkyProjection& projection) {
  constexpr std::array<std::array<double, 2>, 12> points = {{{95, 2},
                                                             {78, 52},
                                                             {45, 86},
                                                             {-2, 98},
                                                             {-56, 85},
                                                             {-89, 53},
                                                             {-100, 2},
                                                             {-92, -45},
                                                             {-59, -78},
                                                             {-2, -92},
                                                             {45, -78},
                                                             {78, -45}}};
  constexpr std::array<const char*, 12> ring = {"W", "300°", "330°", "N", " 30°", " 60°",
                                                "E", "120°", "150°", "S", "210°", "240°"};
  const std::size_t first = ring.size() - 3 * static_cast<std::size_t>(QuarterTurns(projection.Orientation));
  std::array<CompassMark, 12> marks;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    const std::size_t text = (first + i) % ring.size();
    marks[i] = {points[i][0], points[i][1], ring[text], text % 3 == 0};
  }
  return marks;
}

void DrawCompass(DrawSurface& surface, const SkyView& view) {
  surface.ForeColor = view.CompassColour;
  surface.TextHalo = Black;
  for (const CompassMark& mark : CompassMarks(view.Projection)) {
    surface.Font = {.Points = mark.Side ? 10.0 : 8.0, .Bold = mark.Side};
    // a text of the whole view stays inside it; texts begin a little behind the pen
    const double last = surface.UserX(surface.Width()) - surface.TextWidth(std::string(mark.Text) + " ");
    PrintAt(surface, view.Zoomed ? mark.X : std::min(mark.X, last), mark.Y, mark.Text);
  }
}

void LineAboveHorizon(DrawSurface& surface, const StarRow& from, const StarRow& to, Colour colour) {
  const double x1 = static_cast<double>(from.X), y1 = static_cast<double>(from.Y);
  if (from.Altitude > 0 && to.Altitude > 0) {
    surface.Line(x1, y1, static_cast<double>(to.X), static_cast<double>(to.Y), colour);
    return;
  }
  if (!(static_cast<double>(from.Altitude) * static_cast<double>(to.Altitude) < 0)) return;
  if (from.Altitude < 0) return LineAboveHorizon(surface, to, from, colour);
  if (const std::optional<ChartSpot> cut = CutAtHorizon({from.X, from.Y}, {to.X, to.Y}))
    surface.Line(x1, y1, static_cast<double>(cut->X), static_cast<double>(cut->Y), colour);
}

namespace {

void DrawHorizontalGrid(DrawSurface& surface, const SkyView& view) {
  for (const double altitude : {10.0, 30.0, 60.0}) {
    if (altitude == 10 && !view.Switches.Grid10) continue;
    double x = 0, y = 0;
    Mappatura(view.Projection, 0, altitude, x, y);
    DiscCircle(surface, std::max(std::abs(x), std::abs(y)), view.GridColour);
  }
  surface.Line(-HorizonRadius, 0, HorizonRadius, 0, view.GridColour);
  surface.Line(0, -HorizonRadius, 0, HorizonRadius, view.GridColour);
}

void DrawEquatorialGrid(DrawSurface& surface, const SkyView& view) {
  constexpr std::size_t hours = 25, degrees = 181, southernmost = 90 - 75, northernmost = 90 + 75;
  std::vector<std::array<StarRow, degrees>> circles(hours);
  for (std::size_t hour = 0; hour < hours; ++hour) {
    for (std::size_t degree = 0; degree < degrees; ++degree) {
      StarRow& place = circles[hour][degree];
      place.RightAscension = static_cast<float>(hour);
      place.Declination = static_cast<float>(degree) - 90;
      ProjectPlace(place, view.Projection);
    }
  }
  for (const std::array<StarRow, degrees>& circle : circles)
    for (std::size_t degree = 1; degree < degrees; ++degree)
      LineAboveHorizon(surface, circle[degree - 1], circle[degree], view.GridColour);
  for (std::size_t degree = southernmost; degree <= northernmost; degree += 15)
    for (std::size_t hour = 1; hour < hours; ++hour)
      LineAboveHorizon(surface, circles[hour - 1][degree], circles[hour][degree], view.GridColour);
}

}  // namespace

void DrawSkyGrid(DrawSurface& surface, const SkyView& view) {
  PlainPen(surface);
  if (view.Switches.HorizontalGrid)
    DrawHorizontalGrid(surface, view);
  else
    DrawEquatorialGrid(surface, view);
}

void DrawConstellationLines(DrawSurface& surface, const SkyView& view) {
  PlainPen(surface, figureWidth);
  for (const ConstellationLine& line : view.Places.Lines)
    LineAboveHorizon(surface, line.From, line.To, Options.Colours.ConstellationLines);
}

void DrawConstellationNames(DrawSurface& surface, const SkyView& view) {
  surface.ForeColor = Options.Colours.ConstellationNames;
  surface.TextHalo = nameHalo;
  surface.Font = {.Points = 8};
  for (std::size_t i = 0; i < view.Places.Labels.size() && i < ConstellationLabels.size(); ++i) {
    const StarRow& place = view.Places.Labels[i];
    if (place.Altitude < 0) continue;
    PrintAt(surface, static_cast<double>(place.X), static_cast<double>(place.Y),
            view.Zoomed ? ConstellationLabels[i].Name : ConstellationLabels[i].Abbreviation);
  }
}

void DrawStars(DrawSurface& surface, const SkyView& view) {
  const Colour fill = surface.FillColor;
  const FillKind style = surface.FillStyle;
  const double radius = std::abs(surface.ScaleWidth()) > wideView ? 0.2 : 0.1;
  for (std::size_t i = 0; i < view.Places.Stars.size(); ++i) {
    const StarRow& star = view.Places.Stars[i];
    if (star.Altitude > 0)
      DrawStar(surface, static_cast<int>(i) + 1, static_cast<double>(star.X), static_cast<double>(star.Y),
               radius);
  }
  surface.FillColor = fill;
  surface.FillStyle = style;
  surface.MinimumRadius = 0;
}

void Disegna_terreno(DrawSurface& surface, const SkyView& view) {
  if (view.Pictures == nullptr) return;
  surface.PaintPicture(view.Pictures->Landscape(), -HorizonRadius, HorizonRadius, 2 * HorizonRadius,
                       -2 * HorizonRadius);
}

void DrawSky(DrawSurface& surface, SkyView& view) {
  const SkySwitches& on = view.Switches;
  DrawQuietly([&] { DrawSkyBackground(surface, view); });
  DrawQuietly([&] { DrawCompass(surface, view); });
  if (on.Grid) DrawQuietly([&] { DrawSkyGrid(surface, view); });
  if (on.ConstellationLines) DrawQuietly([&] { DrawConstellationLines(surface, view); });
  if (on.ConstellationNames) DrawQuietly([&] { DrawConstellationNames(surface, view); });
  DrawQuietly([&] { DrawStars(surface, view); });
  DrawQuietly([&] { DrawSkyBodies(surface, view); });
}

void Genera_mappa(DrawSurface& surface, SkyView& view) {
  const WaitPointerHold wait;
  surface.AutoRedraw(true);
  DrawQuietly([&] {
    ComputeSkyObjects(CurrentDate);
    ProjectObjects(view.Places, view.Projection, view.StarCount);
    ProjectTrack(view.Track, view.Projection);
    SetSkyScale(surface, view);
    DrawSky(surface, view);
    Disegna_passaggio(surface, view);
    if (view.Switches.Landscape) Disegna_terreno(surface, view);
  });
  surface.AutoRedraw(false);
}

namespace {

void DrawTrackLine(DrawSurface& surface, const SkyTrack& track) {
  PlainPen(surface, trackWidth);
  const CurveScope curve(surface, 0);
  const TrackPoint& first = track.Start ? *track.Start : track.Points.front();
  surface.CurrentX = static_cast<double>(first.X);
  surface.CurrentY = static_cast<double>(first.Y);
  for (const TrackPoint& point : track.Points)
    surface.Line(static_cast<double>(point.X), static_cast<double>(point.Y), red);
}

void DrawTimeMarks(DrawSurface& surface, const SkyTrack& track) {
  PlainPen(surface);
  surface.ForeColor = White;
  surface.TextHalo = Black;
  surface.Font = {.Points = 8.5};
  const double raised = std::abs(surface.ScaleHeight()) / 30;
  for (const TimeMark& mark : track.Marks) {
    surface.Line(mark.X1, mark.Y1, mark.X2, mark.Y2, White);
    // above the point the text stands on the line's end, so that the line does not cross it
    PrintAt(surface, mark.X2, mark.Y2 > mark.Y1 ? mark.Y2 + raised : mark.Y2,
            TimeMarkText(track.Points.at(static_cast<std::size_t>(mark.Point))));
  }
}

}  // namespace

void Disegna_passaggio(DrawSurface& surface, const SkyView& view) {
  const SkyTrack& track = view.Track;
  if (track.Points.empty()) return;
  DrawQuietly([&] {
    DrawTrackLine(surface, track);
    surface.DrawWidth = 1;
    surface.FillStyle = FillKind::Solid;
    surface.FillColor = red;
    surface.MinimumRadius = smallestDot;
    const double radius = std::abs(surface.ScaleHeight()) / 400;
    for (const TrackPoint& point : track.Points)
      if (point.Altitude >= 0)
        surface.Circle(static_cast<double>(point.X), static_cast<double>(point.Y), radius, red);
    DrawTimeMarks(surface, track);
  });
  surface.MinimumRadius = 0;
  surface.FillStyle = FillKind::Transparent;
}

void Disegna_satellite_in_cielo(DrawSurface& surface, const SkyView& view, int slot) {
  DrawQuietly([&] {
    surface.AutoRedraw(false);
    if (slot == 1) surface.Cls();
    const SatelliteState& state = SatelliteStates[slot];
    if (!(state.Elevation > 0) || view.Pictures == nullptr) return;
    double x = 0, y = 0;
    Mappatura(view.Projection, state.Azimuth, state.Elevation, x, y);
    const DrawPicture& icon =
        view.Pictures->Icon(SkyIconOf(ElementSets[slot].CatalogNumber, state.Condition));
    PaintCentred(surface, icon, x, y);
    const HalfExtent half = HalfExtentOf(surface, icon);
    surface.ForeColor = state.Condition == Eclipsed ? red : White;
    surface.TextHalo = Black;
    surface.Font = {};
    PrintAt(surface, x + half.X, y - half.Y, ElementSets[slot].Name);
  });
}

}  // namespace halvorine
