#include "tests/prediction/LiteralSearch.h"

#include <cmath>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "orbit/mSat.h"

namespace halvorine::literal {

constexpr double slopeWidth = 10.0 / 60 / 1440;

void LiteralSearch::RunDatabase(std::span<const DatabaseEntry> entries) {
  PassThreshold = query_.threshold;
  for (std::size_t k = 0; k < entries.size(); ++k) {
    PassSlot = ScratchSlot;
    currentEntry_ = static_cast<int>(k + 1);
    // decoding keeps a slot's channels, and these would be of the entry before
    Azzera_Satelement(ScratchSlot);
    SearchEntry(entries[k]);
  }
  Azzera_Satelement(ScratchSlot);
  Azzera_RigaDati(ScratchSlot);
}

void LiteralSearch::SearchEntry(const DatabaseEntry& entry) {
  try {
    Estrai_Dati_Satellite(ScratchSlot, entry.name, entry.line1, entry.line2);
    if (query_.transitOnly) {
      literal::ComputeSatelliteState(ScratchSlot, query_.tStart);
      if (SatelliteStates[ScratchSlot].Elevation < 0) return;
    }
    SearchSlot();
  } catch (const RuntimeFailure&) {
    return;  // passed over; the run goes on with the next entry
  }
}

void LiteralSearch::SearchSlot() {
  const ElementSet& set = ElementSets[PassSlot];
  if (HasNearlyConstantElevation(set)) return;
  const double step = Div(1.0, set.MeanMotion) / 4;  // a quarter of a revolution
  PREDICI(query_.tStart, query_.tEnd, step, slopeWidth);
}

double LiteralSearch::SlopeAt(double t, double delta) {
  const double f = f_.At(t);
  return f - f_.At(t - delta);
}

void LiteralSearch::PREDICI(double tStart, double tEnd, double step, double delta) {
  bool searchDone = false;
  double fLow = f_.At(tStart);
  double tFound = tStart;
  double slope = f_.At(tStart + delta) - fLow;
  double slopeBefore = slope;
  double bracketLow = tStart;
  double bracketHigh = tStart;
  double cursor = tStart;
  if (!(cursor + step > cursor)) return;  // a stride that leads nowhere
  if (slope >= 0 && fLow < 0) EVENTI(tStart, tEnd, tStart);
  for (;;) {
    bool tail = false;
    if (slope <= 0) {
      // rising: on to the first cursor at which it falls
      do {
        bracketLow = cursor;
        slopeBefore = slope;
        cursor += step;
        tail = cursor >= tEnd;
        if (!tail) slope = SlopeAt(cursor, delta);
      } while (!tail && !(slope >= 0));
      if (!tail) bracketHigh = cursor;
    } else {
      cursor += step;
      tail = cursor >= tEnd;
      if (!tail) {
        slope = SlopeAt(cursor, delta);
        continue;
      }
    }
    if (tail) {
      if (searchDone) return;
      fLow = f_.At(tEnd);
      slope = fLow - f_.At(tEnd - delta);
      if (slope < 0) {
        if (fLow < 0) EVENTI(tStart, tEnd, tEnd);
        return;
      }
      if (slopeBefore >= 0) return;
      tFound = tEnd;
      bracketHigh = tEnd;
      searchDone = true;
    }
    MinimizeBracketed(f_, bracketLow, bracketHigh, tFound, fLow);
    bracketLow = bracketHigh;
    slopeBefore = slope;
    if (fLow < 0) EVENTI(tStart, tEnd, tFound);
  }
}

PassEvent LiteralSearch::EventAt(double julianDay) const {
  const SatelliteState& state = SatelliteStates[PassSlot];
  PassEvent event;
  event.julianDay = julianDay;
  event.date = JulianDayToLocalDate(julianDay);
  event.elevation = state.Elevation;
  event.azimuth = state.Azimuth;
  event.range = state.Range;
  event.sunElevation = SunElevationDeg;
  event.condition = state.Condition;
  event.magnitude = state.Magnitude;
  return event;
}

PassEvent LiteralSearch::Crossing(double tFound, double tOuter, double limit, double& found) {
  const double side = tOuter - tFound;
  const bool reached = ExtendBracket(f_, tFound, tOuter);
  if (reached) FindRootBracketed(f_, tFound, tOuter, found);
  if (!reached || (side < 0 ? found < limit : found > limit)) {
    found = limit;
    literal::ComputeSatelliteState(PassSlot, limit);
  }
  return EventAt(found);
}

void LiteralSearch::EVENTI(double tStart, double tEnd, double tFound) {
  constexpr double threeSeconds = 3.0 / 86400;
  PassRecord pass;
  pass.currentEntry = currentEntry_;
  pass.slot = PassSlot;
  pass.rise = Crossing(tFound, tFound - threeSeconds, tStart, tRise_);
  literal::ComputeSatelliteState(PassSlot, tFound);
  pass.culmination = EventAt(tFound);
  pass.set = Crossing(tFound, tFound + threeSeconds, tEnd, tSet_);
  pass.durationTotal = std::round((pass.set.date - pass.rise.date) * 86400);
  passes.push_back(pass);
}

}  // namespace halvorine::literal
