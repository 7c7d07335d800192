#include "orbit/mSatTexts.h"

#include "astro/mAstro.h"
#include "astro/mMate.h"

namespace halvorine {

namespace {

std::string WithHemisphere(std::string text, char hemisphere) {
  if (hemisphere != 0) text += hemisphere;
  return text;
}

std::string PeriodText(double period) {
  const double h = Int(period / 3600);
  const double m = Int((period - h * 3600) / 60);
  const double s = Int(period - h * 3600 - m * 60);
  return Format(h, "00") + ":" + Format(m, "00") + ":" + Format(s, "00");
}

/// Frequency as it is to be set for the range rate; `sense` is -1 for receiving and 1 for sending.
std::string FrequencyText(const std::string& frequency, double rangeRate, double sense) {
  constexpr double lightSpeed = 299792.0;  // km/s, truncated on purpose
  if (frequency.empty()) return "0";
  try {
    return Format(ParseStrict(frequency) * (1 + sense * rangeRate / lightSpeed), "000.0000");
  } catch (const ConversionFailure&) {
    return "0";
  }
}

void EquatorialTexts(const SatelliteState& state, LiveTexts& texts) {
  EquatorialParts parts;
  HorizontalToEquatorial(state.Azimuth * DegToRad, state.Elevation * DegToRad, parts);
  texts.Ascension = Format(parts.raHours, "00") + "h" + Format(parts.raMinutes, "00") + "m" +
                    Format(parts.raSeconds, "00") + "s";
  texts.Declination =
      parts.decSign + Format(parts.decDegrees, "00") + "°" + Format(parts.decMinutes, "00") + "'";
}

}  // namespace

std::string MagnitudeText(const SatelliteState& state) {
  if (!(state.Elevation >= 0) || state.Condition == Eclipsed) return "*";
  switch (state.Magnitude.kind) {
    case MagnitudeValue::Kind::Number:
      return Format(state.Magnitude.value, "#0.0");
    case MagnitudeValue::Kind::Unknown:
      return "???";
    default:
      return {};
  }
}

LiveTexts BuildLiveTexts(const SatelliteState& state, const ElementSet& set, int channel) {
  LiveTexts texts;
  texts.Latitude = WithHemisphere(Format(state.LatitudeAbs, "#0.00°"), state.LatitudeHemisphere);
  texts.Longitude = WithHemisphere(Format(state.LongitudeAbs, "##0.00°"), state.LongitudeHemisphere);
  texts.Height = Format(state.Height, "#####0.0");
  texts.Range = Format(state.Range, "#####0.0");
  texts.RangeRate = Format(state.RangeRate, "#0.0");
  texts.OrbitNumber = Format(state.OrbitNumber, "#####0.0");
  texts.Altitude = Format(state.Elevation, "00.00°");
  texts.Azimuth = Format(state.Azimuth, "#00.00°");
  texts.Apogee = Format(state.ApogeeHeight, "#####0.0");
  texts.Perigee = Format(state.PerigeeHeight, "#####0.0");
  texts.Period = PeriodText(state.Period);
  texts.Velocity = Format(state.Speed, "##0.0");
  EquatorialTexts(state, texts);
  texts.State = Stato2Stringa(state.Condition);
  texts.Magnitude = MagnitudeText(state);
  const bool known = channel >= 1 && channel <= static_cast<int>(set.Uplink.size());
  const std::size_t at = known ? static_cast<std::size_t>(channel - 1) : 0;
  texts.Receive = known ? FrequencyText(set.Downlink[at], state.RangeRate, -1) : "0";
  texts.Transmit = known ? FrequencyText(set.Uplink[at], state.RangeRate, 1) : "0";
  return texts;
}

}  // namespace halvorine
