#include "shell/mTime.h"

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "shell/base/mGlobal.h"
#include "shell/mTick.h"

namespace halvorine {

std::string SiderealText(double hours) {
  const std::int16_t h = ToInt16(hours);
  const std::int16_t m = ToInt16((hours - h) * 60);
  const std::int16_t s = ToInt16(((hours - h) * 60 - m) * 60);
  return Format(h, "00") + "." + Format(m, "00") + "." + Format(s, "00");
}

std::string PlainSiderealText(double hours) { return FormatDate(hours / 24, "hh:mm:ss", {}); }

TimeTexts TimeTextsOf(const ClockFieldsRecord& clock, Date current, const DateNames& names) {
  TimeTexts texts;
  texts.LocalTime = FormatDate(current, "hh:mm:ss", names);
  texts.LocalDate = FormatDate(current, "dd mmm yyyy", names);
  texts.LocalYear = NumberText(static_cast<double>(clock.LocalDayOfYear));
  texts.UtTime = FormatDate(clock.UtcDate, "hh:mm:ss", names);
  texts.UtDate = FormatDate(clock.UtcDate, "dd mmm yyyy", names);
  texts.UtcYear = NumberText(static_cast<double>(clock.UtcDayOfYear));
  texts.Lst = SiderealText(clock.LocalSiderealHours);
  texts.Gst = SiderealText(clock.GreenwichSiderealHours);
  texts.LstPlain = PlainSiderealText(clock.LocalSiderealHours);
  texts.GstPlain = PlainSiderealText(clock.GreenwichSiderealHours);
  texts.Jd = Format(clock.JulianDayNow, "######0.00000");
  return texts;
}

TimeControls TimeControlsOf(TimeState state) {
  switch (state) {
    case TimeState::Stopped:
      return {.stateKey = "arresto", .play = true, .stop = false, .picker = true, .startCaption = true};
    case TimeState::Running:
      return {.stateKey = "simulazione", .play = false, .stop = true, .picker = false, .startCaption = true};
    default:
      return {.stateKey = "temporeale", .play = false, .stop = false, .picker = false, .startCaption = false};
  }
}

Date EnterRealTime() {
  SetTickEnabled(true);
  return ComputerDate();
}

Date EnterSimulation() {
  StopSimulation();
  return CurrentDate;
}

void ChooseInstant(Date chosen) {
  CurrentDate = chosen;
  UpdateSiderealTime(CurrentDate);
}

void StartSimulation(Date chosen) {
  CurrentDate = AddSeconds(chosen, -1);
  // called while the tick is still off it does nothing: the first effective tick is the timer's next one
  tmrCentrale_Timer();
  SetTickEnabled(true);
}

void StopSimulation() { SetTickEnabled(false); }

}  // namespace halvorine
