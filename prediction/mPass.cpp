#include "prediction/mPass.h"

#include <cmath>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "orbit/mSat.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr double slopeWidth = 10.0 / 60 / 1440;  // 10 seconds, in days

std::string MagnitudeOf(const MagnitudeValue& magnitude) {
  switch (magnitude.kind) {
    case MagnitudeValue::Kind::Number:
      return Format(magnitude.value, "#0.0");
    case MagnitudeValue::Kind::Unknown:
      return "???";
    default:
      return {};
  }
}

bool IsAfternoon(Date date) {
  const DateParts parts = PartsOf(date);
  return (parts.hour * 60 + parts.minute) * 60 + parts.second > 12 * 3600;
}

}  // namespace

double PassRecord::MagnitudeValueForOrder() const {
  constexpr double unknown = 99;
  return culmination.magnitude.kind == MagnitudeValue::Kind::Number ? culmination.magnitude.value : unknown;
}

PassDuration DurationOf(double totalSeconds) {
  PassDuration duration;
  duration.hours = Int(totalSeconds / 3600);
  duration.minutes = Int((totalSeconds - duration.hours * 3600) / 60);
  duration.seconds = Int(totalSeconds - duration.hours * 3600 - duration.minutes * 60);
  return duration;
}

PassTexts TextsOf(const PassEvent& event) {
  PassTexts texts;
  texts.height = RightAligned(Format(event.elevation, "#0.0"), 4);
  texts.azimuth = RightAligned(Format(event.azimuth, "##0"), 4);
  texts.magnitude = RightAligned(MagnitudeOf(event.magnitude), 4);
  texts.sun = RightAligned(Format(event.sunElevation, "00.0"), 5);
  texts.distance = RightAligned(Format(event.range, "0.0"), 8);
  texts.state = LeftAligned(Stato2Stringa(event.condition), 8);
  texts.row = FormatDate(event.date, "dd mmm yyyy  hh:mm:ss", LanguageDates) + std::string(18, ' ') +
              texts.height + "   " + Format(event.azimuth, "000.0") + "   " + texts.state + "  " +
              texts.magnitude + "   " + texts.sun + "  " + texts.distance;
  return texts;
}

double PassStart(Date local) {
  const DateParts parts = PartsOf(local);
  const double hour = parts.hour;
  const double minute = parts.minute;
  const double second = parts.second;
  return JulianDay(parts.year, parts.month,
                   parts.day + (hour - ZoneShift()) / 24 + (minute + second / 60) / 1440);
}

bool HasNearlyConstantElevation(const ElementSet& set) {
  const double apart = std::fabs(set.MeanMotion - 1.0027);
  return !(apart >= 0.001 && (apart >= 1.0 || set.Eccentricity >= 0.1));
}

PassEngine::PassEngine(const PassQuery& query, PassWatcher& watcher) : query_(query), watcher_(watcher) {}

bool PassEngine::RunSlots(int first, int last) {
  PassThreshold = query_.threshold;
  currentEntry_ = 0;
  bool whole = true;
  try {
    for (int slot = first; slot <= last; ++slot) {
      PassSlot = ToInt16(slot);
      SearchSlot(slot);
    }
  } catch (const SearchCancelled&) {
    whole = false;
  }
  CancelRequested = false;
  return whole;
}

bool PassEngine::RunDatabase(std::span<const DatabaseEntry> entries) {
  PassThreshold = query_.threshold;
  bool whole = true;
  try {
    for (std::size_t k = 0; k < entries.size(); ++k) {
      PassSlot = ScratchSlot;
      currentEntry_ = static_cast<int>(k + 1);
      // decoding keeps a slot's channels, and these would be of the entry before
      Azzera_Satelement(ScratchSlot);
      SearchEntry(entries[k]);
    }
  } catch (const SearchCancelled&) {
    whole = false;
  }
  Azzera_Satelement(ScratchSlot);
  Azzera_RigaDati(ScratchSlot);
  CancelRequested = false;
  return whole;
}

void PassEngine::SearchEntry(const DatabaseEntry& entry) {
  try {
    Estrai_Dati_Satellite(ScratchSlot, entry.name, entry.line1, entry.line2);
    if (query_.transitOnly) {
      ComputeSatelliteState(ScratchSlot, query_.tStart);
      if (SatelliteStates[ScratchSlot].Elevation < 0) return;
    }
    SearchSlot(currentEntry_);
  } catch (const SearchCancelled&) {
    throw;
  } catch (const RuntimeFailure&) {
    return;  // passed over; the run goes on with the next entry
  }
}

void PassEngine::SearchSlot(int number) {
  const ElementSet& set = ElementSets[PassSlot];
  number_ = number;
  Yield(0);
  if (HasNearlyConstantElevation(set)) return;
  const double step = Div(1.0, set.MeanMotion) / 4;  // a quarter of a revolution
  PREDICI(query_.tStart, query_.tEnd, step, slopeWidth);
}

void PassEngine::Yield(double days) {
  if (!clock_.Due()) return;
  watcher_.Progress(number_, days);
  ThePlatform().Yield();
}

double PassEngine::SlopeAt(double t, double delta) {
  const double f = f_.At(t);
  return f - f_.At(t - delta);
}

void PassEngine::PREDICI(double tStart, double tEnd, double step, double delta) {
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

PassEvent PassEngine::EventAt(double julianDay) const {
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

PassEvent PassEngine::Crossing(double tFound, double tOuter, double limit, double& found) {
  const double side = tOuter - tFound;
  const bool reached = ExtendBracket(f_, tFound, tOuter);
  if (reached) FindRootBracketed(f_, tFound, tOuter, found);
  f_.Settle();  // the row shows the state of the last place that was tried
  if (!reached || (side < 0 ? found < limit : found > limit)) {
    found = limit;
    ComputeSatelliteState(PassSlot, limit);
  }
  return EventAt(found);
}

void PassEngine::EVENTI(double tStart, double tEnd, double tFound) {
  constexpr double threeSeconds = 3.0 / 86400;
  Yield(tFound - tStart);
  if (CancelRequested) {
    CancelRequested = false;
    throw SearchCancelled();
  }
  PassRecord pass;
  pass.currentEntry = currentEntry_;
  pass.slot = PassSlot;
  pass.rise = Crossing(tFound, tFound - threeSeconds, tStart, tRise_);
  ComputeSatelliteState(PassSlot, tFound);
  pass.culmination = EventAt(tFound);
  pass.set = Crossing(tFound, tFound + threeSeconds, tEnd, tSet_);
  pass.durationTotal = std::round((pass.set.date - pass.rise.date) * 86400);
  if (Stays(pass)) watcher_.Found(pass);
}

bool PassEngine::Stays(const PassRecord& pass) const {
  const bool isPm = IsAfternoon(pass.culmination.date);
  const bool isAm = !isPm;
  if (query_.morning != isAm && query_.evening != isPm) return false;
  if (query_.visibleOnly)
    return pass.rise.condition == Visible || pass.culmination.condition == Visible ||
           pass.set.condition == Visible;
  return pass.culmination.azimuth >= query_.azimuthMin && pass.culmination.azimuth < query_.azimuthMax;
}

}  // namespace halvorine
