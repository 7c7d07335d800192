// The chart of one predicted pass: the observer's sky at its chosen moment, the satellite's track from rise
// to set with its times, and what is seen at rise, culmination and set. A chart keeps all that it shows:
// element set, dates, place and options are its own, so that many stand side by side and none touches the
// present.
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "shell/base/mForms.h"
#include "sky/mSkyDraw.h"

namespace halvorine {

/// State of one pass chart.
struct PassView {
  SkyView Sky;
  PassChart Pass;
  ObserverSite Place;                // from which the pass is seen
  std::array<TrackPoint, 3> Events;  // rise, culmination and set
  /// Without an element set only the sky is shown.
  bool HasSatellite() const { return !Pass.elements.CatalogNumber.empty(); }
};

/// A chart with the options of pass charts and the sky of the program's clock; no satellite yet.
PassView EmptyPassView();

/// Seconds between the points of a track, by the whole minutes that the pass lasts.
int PassStep(int wholeMinutes);

/// Seconds from a start to the first point of its track: to the next of 15, 30, 45 or 60 seconds in its
/// minute, a whole quarter where the start stands on one.
int SecondsToFirstPoint(Date start);

/// Gives a chart its pass, as seen from the present place, and computes track and events on the scratch slot.
/// What cannot be computed is left out. The marks of a pass before are gone; slot, clock, Sun, Moon and
/// planets are afterwards what they were.
void TakePass(PassView& view, const PassChart& pass);

/// Draws the whole chart on the persistent layer; its scale is 200 units on both axes. Clock, place and
/// bodies are afterwards what they were.
void Genera_mappa(DrawSurface& surface, PassView& view);

/// Computes the sky of a chart's moment and place and runs a routine on it. Clock, place and bodies are
/// afterwards what they were; the tick is held off.
void AtPassMoment(const PassView& view, const std::function<void()>& routine);

/// The point of the track that a press selects; nothing outside the chart or away from the track.
std::optional<int> PassPointAt(const PassView& view, double x, double y);

}  // namespace halvorine
