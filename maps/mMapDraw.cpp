#include "maps/mMapDraw.h"

#include <cmath>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "maps/mMapPen.h"
#include "orbit/mSat.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr double trackWidth = 1.6, circleWidth = 1.4;  // pixels
constexpr double casingWidth = 1.8;                    // pixels, beyond the line's own
constexpr int trackSteps = 540, stepsPerPeriod = 270;
constexpr double himetricPerTwip = 2540.0 / 1440.0;
constexpr double iconHalf = 0.29;  // half an icon from its HiMetric size to twips, rounded up on purpose

/// Half the extent of an icon in map units.
struct HalfSize {
  double x, y;
};

HalfSize HalfSizeOf(const DrawSurface& surface, const DrawPicture& icon) {
  return {
      std::abs(iconHalf * icon.NaturalWidth() * himetricPerTwip * Div(surface.ScaleWidth(), surface.Width())),
      std::abs(iconHalf * icon.NaturalHeight() * himetricPerTwip *
               Div(surface.ScaleHeight(), surface.Height()))};
}

void PaintIcon(DrawSurface& surface, const DrawPicture& icon, double x, double y) {
  const HalfSize half = HalfSizeOf(surface, icon);
  surface.PaintPicture(icon, x - half.x, y + half.y);
}

GeoPoint PrincipalPlace(double julianDay) {
  ComputeSatelliteState(1, julianDay);
  return {SatelliteStates[1].LongitudeEast, SatelliteStates[1].LatitudeSigned};
}

/// Puts clock and principal satellite back to the present.
void RestorePresent() {
  UpdateSiderealTime(CurrentDate);
  ComputeSatelliteState(1, ClockFields.JulianDayNow);
}

void DrawTrack(DrawSurface& surface, const MapView& view) {
  const double s = SatelliteStates[1].Period / stepsPerPeriod;
  const double now = ClockFields.JulianDayNow;
  const double t0 = now - ((s / 60) * stepsPerPeriod) / 1440;
  surface.DrawStyle = LineKind::Solid;
  surface.DrawWidth = trackWidth;
  const CurveScope curve(surface, casingWidth);
  MapPen pen(surface, view, HiddenPart::KeepsPen);
  pen.MoveTo(PrincipalPlace(t0));
  for (int i = 0; i <= trackSteps; ++i) {
    const Colour colour = i <= stepsPerPeriod ? Options.Colours.TrackBehind : Options.Colours.TrackAhead;
    pen.LineTo(PrincipalPlace(((s / 60) * i) / 1440 + t0), colour);
  }
}

/// Loads what `choice` names unless it is loaded already.
void TakeGlobe(MapView& view, const MapFileChoice& choice) {
  if (choice.File == view.File) return;
  view.File = choice.File;
  view.Picture = &view.Pictures->MapFile(view.File);
  view.CentreLongitude = choice.CentreLongitude;
  view.CentreLatitude = choice.CentreLatitude;
}

std::optional<MapFileChoice> ChoiceForPrincipal() {
  return ChooseMapFile(SatelliteStates[1].GeocentricLatitude, SatelliteStates[1].Longitude360);
}

}  // namespace

MapView::MapView() {
  for (int slot = 1; slot <= MaxActive; ++slot) PlaceX[slot] = PlaceY[slot] = hiddenPlace;
}

int SatelliteIcon(int slot) {
  const ElementSet& set = ElementSets[slot];
  if (set.CatalogNumber == "20580") return IconTelescope;
  if (set.CatalogNumber == "25544") return IconStation;
  if (set.Name.find("tank") != std::string::npos || set.Name.find("R/b") != std::string::npos)
    return IconRocket;
  return slot == 1 ? IconPrincipal : IconSatellite;
}

void Carica_mappa(DrawSurface& surface, MapView& view) {
  if (!view.IsGlobe()) {
    view.File = mapEarthFile;
    view.Picture = &view.Pictures->MapFile(view.File);
  } else if (const std::optional<MapFileChoice> choice = ChoiceForPrincipal()) {
    TakeGlobe(view, *choice);
  } else if (view.File.empty() || view.File == mapEarthFile) {
    TakeGlobe(view, {"\\Map0.dat", 0, 0});  // the gap in the choice, with no globe to keep
  }
  surface.ScaleModeTwips();
  surface.BackColor = Black;
  surface.Cls();
  if (view.Picture != nullptr && !view.Picture->Empty()) {
    const PicturePlace place = PlaceMapPicture(view.Kind, surface.Width(), surface.Height());
    surface.PaintPicture(*view.Picture, place.X, place.Y, place.Width, place.Height);
  }
  SetMapScale(surface, view.Kind);
}

void Genera_mappa(DrawSurface& surface, MapView& view) {
  surface.AutoRedraw(true);
  surface.TextHalo = Black;
  DrawQuietly([&] { Carica_mappa(surface, view); });
  if (view.Switches.Night) Disegna_ombra(surface, view);
  if (view.Switches.Grid) Disegna_griglia(surface, view);
  if (view.Switches.Sun) Disegna_sole(surface, view);
  Disegna_osservatore(surface, view);
  if (view.Switches.Track) Disegna_orbita(surface, view);
  surface.AutoRedraw(false);
}

void Disegna_sole(DrawSurface& surface, const MapView& view) {
  DrawQuietly([&] {
    const SkyObject& sun = SkyObjectTable[SkyObjectRow::Sun];
    const GeoPoint place{SubsolarLongitude(ClockFields.GreenwichSiderealHours, sun.RightAscension),
                         NightDeclination(sun.Declination)};
    double x = 0, y = 0;
    if (ProjectPlace(view, place, x, y))
      PaintIcon(surface, view.Pictures->Icon(IconList::Second, IconSun), x, y);
  });
}

void Disegna_osservatore(DrawSurface& surface, const MapView& view) {
  DrawQuietly([&] {
    surface.FillColor = surface.ForeColor = Options.Colours.CityName;
    surface.FillStyle = FillKind::Solid;
    surface.DrawStyle = LineKind::Solid;
    surface.DrawWidth = 1;
    surface.MinimumRadius = 2;
    surface.Font = {};
    double x = 0, y = 0;
    if (!ProjectPlace(view, {Site.Longitude, Site.Latitude}, x, y)) return;
    surface.Circle(x, y, view.IsGlobe() ? 1.0 : 0.5, Options.Colours.CityName);
    if (view.Switches.City) surface.Print(Site.Place);
  });
  surface.MinimumRadius = 0;
}

void Disegna_orbita(DrawSurface& surface, const MapView& view) {
  if (ActiveCount < 1) return;
  const WaitPointerHold wait;
  const TickHold hold;
  DrawQuietly([&] { DrawTrack(surface, view); });
  DrawQuietly(RestorePresent);
}

void Disegna_visibilita(DrawSurface& surface, const MapView& view) {
  if (ActiveCount < 1) return;
  DrawQuietly([&] {
    const SatelliteState& state = SatelliteStates[1];
    const CirclePoints points =
        VisibilityCircle(state.GeocentricRadius, state.LatitudeSigned, state.LongitudeEast);
    surface.DrawStyle = LineKind::Solid;
    surface.DrawWidth = circleWidth;
    const CurveScope curve(surface, casingWidth);
    MapPen pen(surface, view, HiddenPart::KeepsPen);
    pen.MoveTo(points.front());
    for (const GeoPoint& point : points) pen.LineTo(point, Options.Colours.Satellite);
  });
}

void Disegna_satellite(DrawSurface& surface, MapView& view, int slot) {
  DrawQuietly([&] {
    const DrawPicture& icon = view.Pictures->Icon(IconList::Main, SatelliteIcon(slot));
    if (slot == 1) {
      surface.Cls();
      const std::optional<MapFileChoice> choice = ChoiceForPrincipal();
      if (view.IsGlobe() && choice && choice->File != view.File) Genera_mappa(surface, view);
    }
    surface.FillColor = surface.ForeColor = Options.Colours.Satellite;
    surface.Font = {};
    const SatelliteState& state = SatelliteStates[slot];
    double x = state.LongitudeEast, y = state.LatitudeSigned;
    if (view.IsGlobe()) {
      view.PlaceX[slot] = view.PlaceY[slot] = hiddenPlace;
      std::int16_t visible = 0;
      Proietta_orto(view.CentreLongitude, view.CentreLatitude, state.Longitude360, state.GeocentricLatitude,
                    x, y, visible);
      if (visible == 0) return;
      view.PlaceX[slot] = x;
      view.PlaceY[slot] = y;
    }
    const HalfSize half = HalfSizeOf(surface, icon);
    surface.PaintPicture(icon, x - half.x, y + half.y);
    surface.CurrentX = x + half.x;
    surface.CurrentY = y - half.y;
    surface.Print(ElementSets[slot].Name);
  });
}

std::optional<MapSpot> SpotOf(const MapView& view, int slot) {
  const SatelliteState& state = SatelliteStates[slot];
  if (state.Condition == 0) return std::nullopt;
  const MapSpot spot = view.IsGlobe() ? MapSpot{view.PlaceX[slot], view.PlaceY[slot]}
                                      : MapSpot{state.LongitudeEast, state.LatitudeSigned};
  if (spot.X == hiddenPlace) return std::nullopt;
  return spot;
}

int SatelliteAt(const MapView& view, double x, double y) {
  const double reach = view.IsGlobe() ? 81 : 24;  // squared map units
  int found = 0;
  for (int slot = 1; slot <= ActiveCount && slot <= MaxActive; ++slot) {
    const double dx = x - (view.IsGlobe() ? view.PlaceX[slot] : SatelliteStates[slot].LongitudeEast);
    const double dy = y - (view.IsGlobe() ? view.PlaceY[slot] : SatelliteStates[slot].LatitudeSigned);
    if (dx * dx + dy * dy < reach) found = slot;
  }
  return found;
}

std::string SatelliteTooltip(int slot) {
  const SatelliteState& state = SatelliteStates[slot];
  return "Norad# " + ElementSets[slot].CatalogNumber + " " + LookupText("Def", "lat") + " " +
         Format(state.LatitudeSigned, "00.00") + " " + LookupText("Def", "lon") + " " +
         Format(state.LongitudeEast, "##0.00") + " " + LookupText("Def", "hgt") + " " +
         Format(state.Height, "####0.0") + " " + LookupText("Def", "vel") + " " + Format(state.Speed, "#0.0");
}

}  // namespace halvorine
