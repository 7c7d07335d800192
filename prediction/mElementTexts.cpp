#include "prediction/mElementTexts.h"

#include <string_view>

#include "astro/mMate.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr double gravity = 398600.8;  // km^3/s^2

/// The numbers of a slot without a satellite.
ElementTexts BlankTexts() {
  ElementTexts texts;
  for (std::string* const number : {&texts.EpochTime,
                                    &texts.Inclination,
                                    &texts.Raan,
                                    &texts.Eccentricity,
                                    &texts.ArgumentPerigee,
                                    &texts.MeanAnomaly,
                                    &texts.MeanMotion,
                                    &texts.Dev1,
                                    &texts.Dev2,
                                    &texts.BStar,
                                    &texts.OrbitNumberEpoch,
                                    &texts.NoradNumber,
                                    &texts.LaunchYear,
                                    &texts.LaunchNumber,
                                    &texts.Age,
                                    &texts.Apogee,
                                    &texts.Perigee,
                                    &texts.OrbitalPeriod,
                                    &texts.SemiMaj,
                                    &texts.SemiMin})
    *number = "0";
  return texts;
}

/// A catalogue number that is one by its picture, any other as it stands.
std::string CatalogueNumber(const std::string& number) {
  try {
    return Format(ParseStrict(number), "####0");
  } catch (const ConversionFailure&) {
    return std::string(Trimmed(number));
  }
}

void WriteOrbit(const ElementSet& set, ElementTexts& texts) {
  texts.EpochTime = Format(set.EpochDay, "##0.00000000") + "@" + Format(set.EpochYear, "0000");
  Attempt([&] { texts.Date = EpochDate(set); });
  texts.Inclination = Format(set.Inclination, "##0.0000");
  texts.Raan = Format(set.RightAscension, "##0.0000");
  texts.Eccentricity = Format(set.Eccentricity, "0.0000000");
  texts.ArgumentPerigee = Format(set.ArgumentOfPerigee, "##0.0000");
  texts.MeanAnomaly = Format(set.MeanAnomaly, "##0.0000");
  texts.MeanMotion = Format(set.MeanMotion, "#0.00000000");
  texts.Dev1 = Format(set.MeanMotionDot, "0.00000000");
  texts.Dev2 = Format(set.MeanMotionDDotMantissa * Pow(10, set.MeanMotionDDotExponent), "0.00000000");
  texts.BStar = Format(set.BstarMantissa * Pow(10, set.BstarExponent), "0.00000000");
  texts.OrbitNumberEpoch = Format(set.RevolutionNumber, "####0");
}

void WriteGeneral(const ElementSet& set, const std::string& line1, ElementTexts& texts) {
  texts.NoradNumber = CatalogueNumber(set.CatalogNumber);
  texts.International = Trimmed(Columns(line1, 10, 17));
  texts.LaunchYear = Format(set.LaunchYear, "0000");
  texts.LaunchNumber = Format(set.LaunchNumber, "##0") + std::string(Trimmed(set.LaunchPiece));
  texts.Age = Format(ClockFields.JulianDayNow - set.EpochJulianDay, "0.0");
  texts.Set = Trimmed(Columns(line1, 65, 68));
  texts.MagStd = set.StandardMagnitude.empty() ? "???" : set.StandardMagnitude;
}

void WriteDerived(const ElementSet& set, ElementTexts& texts) {
  double a = 0;
  if (!Attempt([&] { a = SemiMajorAxisOf(set.MeanMotion); })) return;
  const double e = set.Eccentricity;
  texts.Apogee = Format((1 + e) * a - EarthRadius, "#####0.0");
  texts.Perigee = Format((1 - e) * a - EarthRadius, "#####0.0");
  texts.SemiMaj = Format(a, "#####0.0");
  Attempt([&] { texts.OrbitalPeriod = Format(TwoPi * a * Sqrt(a / gravity) / 60, "####0.0"); });
  Attempt([&] { texts.SemiMin = Format(a * Sqrt(1 - e * e), "#####0.0"); });
}

}  // namespace

std::string EpochDate(const ElementSet& set) {
  const double day = Int(set.EpochDay);
  const Date date = DateOf(ToInt16(set.EpochYear), 1, 0) + day;
  return FormatDate(date, "dd mmm yyyy", LanguageDates) + " - " +
         FormatDate(set.EpochDay - day, "hh:mm:ss", LanguageDates);
}

double SemiMajorAxisOf(double meanMotion) {
  const double w = meanMotion * 2 * Pi / 86400;  // radians per second
  return Pow(Div(gravity, w * w), 1.0 / 3);
}

ElementTexts ElementTextsOf(int slot) {
  const DatabaseEntry& lines = ElementLines[slot];
  ElementTexts texts = BlankTexts();
  if (lines.name.empty()) return texts;
  texts.Name = Trimmed(lines.name);
  texts.ZeroLine = lines.name;
  texts.FirstLine = lines.line1;
  texts.SecondLine = lines.line2;
  WriteOrbit(ElementSets[slot], texts);
  WriteGeneral(ElementSets[slot], lines.line1, texts);
  WriteDerived(ElementSets[slot], texts);
  return texts;
}

int MovedSatellite(int slot, TrackMove move) {
  switch (move) {
    case TrackMove::First:
      return 1;
    case TrackMove::Previous:
      return slot > 1 ? slot - 1 : slot;
    case TrackMove::Next:
      return slot < ActiveCount ? slot + 1 : slot;
    default:
      return ActiveCount > 0 ? ActiveCount : MaxActive;
  }
}

}  // namespace halvorine
