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

std::string HeightText(const PassEvent& event) { return RightAligned(Format(event.elevation, "#0.0"), 4); }
std::string AzimuthText(const PassEvent& event) { return RightAligned(Format(event.azimuth, "##0"), 4); }
std::string MagnitudeText(const PassEvent& event) { return RightAligned(MagnitudeOf(event.magnitude), 4); }
std::string StateText(const PassEvent& event) { return LeftAligned(Stato2Stringa(event.condition), 8); }

PassTexts TextsOf(const PassEvent& event) {
  PassTexts texts;
  texts.height = HeightText(event);
  texts.azimuth = AzimuthText(event);
  texts.magnitude = MagnitudeText(event);
  texts.sun = RightAligned(Format(event.sunElevation, "00.0"), 5);
  texts.distance = RightAligned(Format(event.range, "0.0"), 8);
  texts.state = StateText(event);
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
      number_ = slot;
      YieldAndLook(0);
      SearchSlot();
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
      number_ = currentEntry_ = static_cast<int>(k + 1);
      YieldAndLook(0);
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
    SearchSlot();
  } catch (const SearchCancelled&) {
    throw;
  } catch (const RuntimeFailure&) {
    return;  // passed over; the run goes on with the next entry
  }
}

PassEngine::Before PassEngine::Remember() const {
  return {StateScratch,    WorkingElements,           PositionKm, VelocityKmS, SunElevationDeg,
          SunElevationRad, SatelliteStates[PassSlot], tRise_,     tSet_};
}

void PassEngine::PutBack(const Before& before) {
  StateScratch = before.scratch;
  WorkingElements = before.elements;
  PositionKm = before.position;
  VelocityKmS = before.velocity;
  SunElevationDeg = before.sunDeg;
  SunElevationRad = before.sunRad;
  SatelliteStates[PassSlot] = before.state;
  tRise_ = before.tRise;
  tSet_ = before.tSet;
}

void PassEngine::SearchSlot() {
  const ElementSet& set = ElementSets[PassSlot];
  if (HasNearlyConstantElevation(set)) return;
  const double step = Div(1.0, set.MeanMotion) / 4;  // a quarter of a revolution
  const double tStart = query_.tStart;
  const double tEnd = query_.tEnd;
  events_ = silentEvents_ = 0;
  if (elevation_.Start()) {
    const Before before = Remember();
    const bool whole = Attempt([&] {
      f_ = &elevation_;
      within_ = reach_.Start(elevation_.Terms(), elevation_.Observer(), PassThreshold, tStart, tEnd, step);
      within_ ? SearchWithinReach(tStart, tEnd, step, slopeWidth) : PREDICI(tStart, tEnd, step, slopeWidth);
      f_->Settle();
    });
    f_ = &wholeState_;
    within_ = false;
    if (whole) return;
    // some statement fails on the way: only whole states, one after another, leave the right values standing
    PutBack(before);
    silentEvents_ = events_;
    events_ = 0;
  }
  PREDICI(tStart, tEnd, step, slopeWidth);
}

void PassEngine::YieldAndLook(double days) {
  if (clock_.Due()) {
    watcher_.Progress(number_, days);
    ThePlatform().Yield();
  }
  if (!CancelRequested) return;
  CancelRequested = false;
  throw SearchCancelled();
}

double PassEngine::SlopeAt(double t, double delta) {
  const double f = f_->At(t);
  return f - f_->At(t - delta);
}

void PassEngine::PREDICI(double tStart, double tEnd, double step, double delta) {
  bool searchDone = false;
  double fLow = f_->At(tStart);
  double tFound = tStart;
  double slope = f_->At(tStart + delta) - fLow;
  double slopeBefore = slope;
  double bracketLow = tStart;
  double bracketHigh = tStart;
  double cursor = tStart;
  if (!(cursor + step > cursor)) return;  // a stride that leads nowhere
  if (slope >= 0 && fLow < 0) FileEvent(tStart, tEnd, tStart, fLow, false);
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
      fLow = f_->At(tEnd);
      slope = fLow - f_->At(tEnd - delta);
      if (slope < 0) {
        if (fLow < 0) FileEvent(tStart, tEnd, tEnd, fLow, false);
        return;
      }
      if (slopeBefore >= 0) return;
      tFound = tEnd;
      bracketHigh = tEnd;
      searchDone = true;
    }
    MinimizeBracketed(*f_, bracketLow, bracketHigh, tFound, fLow);
    bracketLow = bracketHigh;
    slopeBefore = slope;
    if (fLow < 0) FileEvent(tStart, tEnd, tFound, fLow, true);
  }
}

void PassEngine::SearchWithinReach(double tStart, double tEnd, double step, double delta) {
  double fLow = f_->At(tStart);
  double slope = f_->At(tStart + delta) - fLow;
  if (!(tStart + step > tStart)) return;
  if (slope >= 0 && fLow < 0) FileEvent(tStart, tEnd, tStart, fLow, false);
  double cursor = tStart;
  double tFound = tStart;
  bool known = true;  // the slope is that at the cursor
  // the instants of the walk are sums of its steps, to the bit
  // NOLINTNEXTLINE(cert-flp30-c,clang-analyzer-security.FloatLoopCounter)
  for (double next = cursor + step; next < tEnd; cursor = next, next = cursor + step) {
    if (reach_.CannotRise(cursor, next)) {
      known = false;
      continue;
    }
    if (!known) slope = SlopeAt(cursor, delta);
    const bool rising = slope <= 0;
    slope = SlopeAt(next, delta);
    known = true;
    if (!(rising && slope >= 0)) continue;
    MinimizeBracketed(*f_, cursor, next, tFound, fLow);
    if (fLow < 0) FileEvent(tStart, tEnd, tFound, fLow, true);
  }
  if (!known) slope = SlopeAt(cursor, delta);
  fLow = f_->At(tEnd);
  const double slopeAtEnd = fLow - f_->At(tEnd - delta);
  if (slopeAtEnd < 0) {
    if (fLow < 0) FileEvent(tStart, tEnd, tEnd, fLow, false);
    return;
  }
  if (slope >= 0) return;
  tFound = tEnd;
  MinimizeBracketed(*f_, cursor, tEnd, tFound, fLow);
  if (fLow < 0) FileEvent(tStart, tEnd, tFound, fLow, true);
}

void PassEngine::StateAt(double julianDay) {
  ComputeSatelliteState(PassSlot, julianDay);
  elevation_.TakeAsSettled();
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

bool PassEngine::ExtendFromTop(double& tOuter, double& fOuter, double guess) {
  constexpr int mostRounds = 40;
  constexpr double clear = 1e-3;  // degrees from the threshold, beyond which a sign is certain
  std::array<double, mostRounds> ends{};
  double end = tOuter;
  for (double& place : ends) place = end = end + (end - tFound_) * 0.25;
  std::size_t at = 0;
  while (at + 1 < mostRounds && std::fabs(ends[at] - tFound_) < guess) ++at;
  if (!(fFound_ < -clear)) return false;
  double f = elevation_.At(ends[at]);
  if (!(std::fabs(f) > clear)) return false;
  if (f < 0) {
    do {
      if (++at == mostRounds) return false;
      f = elevation_.At(ends[at]);
      if (!(std::fabs(f) > clear)) return false;
    } while (f < 0);
    tOuter = ends[at];
    fOuter = f;
    return true;
  }
  while (at > 0) {
    const double before = elevation_.At(ends[at - 1]);
    if (!(std::fabs(before) > clear)) return false;
    if (before < 0) break;
    --at;
    f = before;
  }
  tOuter = ends[at];
  fOuter = f;
  return true;
}

PassEvent PassEngine::Crossing(double tOuter, double limit, double& found) {
  const double side = tOuter - tFound_;
  bool reached = false;
  if (f_ == &elevation_) {
    double fOuter = 0;
    const double tInner = tOuter;
    if (within_ && isTop_ && reach_.HasPlainPasses()) {
      // the set side of a pass is about as long as its rise side
      const double guess = side < 0 ? reach_.HalfPass(PassThreshold - fFound_) : tFound_ - tRise_;
      reached = ExtendFromTop(tOuter, fOuter, guess);
    }
    if (!reached) {
      tOuter = tInner;
      const double within = SpanWithin(elevation_.Terms(), elevation_.Observer(), tFound_, -fFound_);
      reached = ExtendBracket(elevation_, tFound_, fFound_, tOuter, fOuter, within);
    }
    if (reached) {
      elevation_.Pretend(tOuter);
      FindRootBracketed(elevation_, tFound_, fFound_, tOuter, fOuter, found);
    }
  } else {
    reached = ExtendBracket(wholeState_, tFound_, tOuter);
    if (reached) FindRootBracketed(wholeState_, tFound_, tOuter, found);
  }
  if (!reached || (side < 0 ? found < limit : found > limit)) {
    found = limit;
    StateAt(limit);
  } else {
    f_->Settle();  // the row shows the state of the last place that was tried
  }
  return EventAt(found);
}

void PassEngine::EVENTI(double tStart, double tEnd, double tFound) {
  FileEvent(tStart, tEnd, tFound, f_ == &elevation_ ? f_->At(tFound) : 0.0, false);
}

void PassEngine::FileEvent(double tStart, double tEnd, double tFound, double fFound, bool isTop) {
  constexpr double threeSeconds = 3.0 / 86400;
  const bool silent = events_ < silentEvents_;
  if (!silent) YieldAndLook(tFound - tStart);
  tFound_ = tFound;
  fFound_ = fFound;
  isTop_ = isTop;
  PassRecord pass;
  pass.currentEntry = currentEntry_;
  pass.slot = PassSlot;
  pass.rise = Crossing(tFound - threeSeconds, tStart, tRise_);
  StateAt(tFound);
  pass.culmination = EventAt(tFound);
  pass.set = Crossing(tFound + threeSeconds, tEnd, tSet_);
  pass.durationTotal = std::round((pass.set.date - pass.rise.date) * 86400);
  ++events_;
  if (!silent && Stays(pass)) watcher_.Found(pass);
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
