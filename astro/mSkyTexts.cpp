#include "astro/mSkyTexts.h"

#include <algorithm>
#include <cmath>

#include "astro/mAlmanac.h"
#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr double lightHoursPerUnit = 0.1386;  // of an astronomical unit
constexpr double lightSpeed = 299792.0;       // km/s, truncated on purpose

bool IsPlanet(int row) { return row <= Neptune; }

double LightHours(int row) {
  const double distance = SkyObjectTable[row].Distance;
  return IsPlanet(row) ? distance * lightHoursPerUnit : distance / lightSpeed / 3600;
}

std::string BodyLightTime(int row) {
  return row == Moon ? Format(LightHours(row) * 3600, "0.0s") : LightTimeText(LightHours(row));
}

std::string NameOf(int row) { return LookupText("Planets", BodyKeys[static_cast<std::size_t>(row - 1)]); }

/// Hours or degrees with their parts.
struct Sexagesimal {
  double whole = 0, minutes = 0, seconds = 0;
};

Sexagesimal HoursAndMinutes(double hours) {
  Sexagesimal split;
  DecimalToDm(ModFloor(hours, 24), split.whole, split.minutes);
  if (split.whole == 24) split.whole = 0;
  return split;
}

/// Degrees with the sign apart, so that those between 0 and -1 keep theirs.
std::string DeclinationText(double declination, const char* degrees, const char* minutes) {
  Sexagesimal split;
  DecimalToDm(std::fabs(declination), split.whole, split.minutes);
  const bool negative = declination < 0 && (split.whole > 0 || split.minutes > 0);
  return (negative ? "-" : "+") + Format(split.whole, degrees) + Format(split.minutes, minutes);
}

std::string DiameterText(double arcSeconds) {
  const double total = RoundedByPicture(arcSeconds);
  const double minutes = Int(total / 60);
  return Format(minutes, "#0'") + Format(total - minutes * 60, "00''");
}

void WritePlace(double rightAscension, double declination, double azimuth, double altitude,
                ObjectTexts& texts) {
  Sexagesimal split;
  DecimalToDms(ModFloor(rightAscension, 24), split.whole, split.minutes, split.seconds);
  if (split.whole == 24) split.whole = 0;
  const std::string text =
      Format(split.whole, " 00h") + Format(split.minutes, " 00m") + Format(split.seconds, " 00s");
  texts.RightAscension = Trimmed(text);
  texts.Declination = DeclinationText(declination, "00°", " 00'");
  texts.Azimuth = Format(azimuth, "##0.0°");
  texts.Altitude = Format(altitude, "#0.0°");
}

/// The constellation's name for its abbreviation, or the abbreviation where the table has none.
std::string ConstellationName(const std::string& abbreviation) {
  for (const ConstellationLabel& label : ConstellationLabels)
    if (SameText(Trimmed(label.Abbreviation), Trimmed(abbreviation))) return label.Name;
  return abbreviation;
}

}  // namespace

std::string LightTimeText(double hours) {
  Sexagesimal split;
  DecimalToDms(hours, split.whole, split.minutes, split.seconds);
  const std::string seconds = Format(split.seconds, "00s");
  if (split.whole < 1) return Format(split.minutes, "#0m") + seconds;
  return Format(split.whole, "0h") + Format(split.minutes, "00m") + seconds;
}

const std::array<PlanetTable::Column, PlanetTable::ColumnCount>& PlanetTable::Columns() {
  static constexpr std::array<Column, ColumnCount> columns = {{{"frmPlanets", "pianeta", false},
                                                               {"Def", "alt", true},
                                                               {"Def", "az", true},
                                                               {"Def", "ar", true},
                                                               {"Def", "dec", true},
                                                               {"Def", "mag", true},
                                                               {"frmPlanets", "distua", true},
                                                               {"frmPlanets", "distluce", true},
                                                               {"frmPlanets", "distkm", true}}};
  return columns;
}

PlanetTable::Row PlanetTable::RowOf(int body) {
  const SkyObject& object = SkyObjectTable[body];
  const Sexagesimal ascension = HoursAndMinutes(object.RightAscension);
  Row row;
  row[0] = {NameOf(body), static_cast<double>(body)};
  row[1] = {Format(object.Altitude, "#0.0°"), object.Altitude};
  row[2] = {Format(object.Azimuth, "##0.0°"), object.Azimuth};
  row[3] = {Format(ascension.whole, "#0h") + Format(ascension.minutes, "00m"), object.RightAscension};
  row[4] = {DeclinationText(object.Declination, "#0°", "00'"), object.Declination};
  if (IsPlanet(body)) {
    row[5] = {Format(object.Magnitude, "0.0"), object.Magnitude};
    row[6] = {Format(object.Distance, "#0.0"), object.Distance};
  }
  row[7] = {BodyLightTime(body), LightHours(body)};
  if (!IsPlanet(body))
    row[8] = {Format(object.Distance, body == Sun ? "000,000,000" : "000,000"), object.Distance};
  return row;
}

void PlanetTable::Refresh() {
  for (int body = Mercury; body <= Moon; ++body) rows_[static_cast<std::size_t>(body - 1)] = RowOf(body);
  Order();
}

void PlanetTable::SortBy(int column) {
  descending_ = column == sortColumn_ && !descending_;
  sortColumn_ = column;
  Order();
}

void PlanetTable::Order() {
  for (int row = 0; row < RowCount; ++row) order_[static_cast<std::size_t>(row)] = row;
  if (sortColumn_ < 0 || sortColumn_ >= ColumnCount) return;
  std::stable_sort(order_.begin(), order_.end(), [this](int a, int b) {
    const auto column = static_cast<std::size_t>(sortColumn_);
    const Value& left = rows_[static_cast<std::size_t>(a)][column];
    const Value& right = rows_[static_cast<std::size_t>(b)][column];
    if (std::isnan(left.key) || std::isnan(right.key)) return !std::isnan(left.key) && std::isnan(right.key);
    if (column == 0) return descending_ ? LessText(right.text, left.text) : LessText(left.text, right.text);
    return descending_ ? right.key < left.key : left.key < right.key;
  });
}

const std::string& PlanetTable::Cell(int row, int column) const {
  return rows_.at(static_cast<std::size_t>(order_.at(static_cast<std::size_t>(row))))
      .at(static_cast<std::size_t>(column))
      .text;
}

std::string GreekLetter(std::string_view letter) {
  // the Latin letters of the Symbol font, a to z
  static constexpr std::array<const char*, 26> greek = {"α", "β", "χ", "δ", "ε", "φ", "γ", "η", "ι",
                                                        "ϕ", "κ", "λ", "μ", "ν", "ο", "π", "θ", "ρ",
                                                        "σ", "τ", "υ", "ϖ", "ω", "ξ", "ψ", "ζ"};
  static constexpr std::array<const char*, 10> raised = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
  std::string text;
  for (const char c : letter) {
    if (c >= 'a' && c <= 'z')
      text += greek[static_cast<std::size_t>(c - 'a')];
    else if (c >= '0' && c <= '9')
      text += raised[static_cast<std::size_t>(c - '0')];
    else
      text += c;
  }
  return text;
}

ObjectTexts StarTexts(const StarRecord& star) {
  ObjectTexts texts;
  texts.Letter = GreekLetter(star.Letter);
  texts.Constellation = ConstellationName(star.Constellation);
  texts.Spectrum = star.Spectrum;
  texts.Name = !star.Name.empty()     ? star.Name
               : texts.Letter.empty() ? LookupText("frmObject", "stella")
                                      : texts.Letter + " " + star.Constellation;
  texts.Magnitude = Format(star.Magnitude, "0.00");
  const auto rightAscension = static_cast<double>(star.RightAscension);
  const auto declination = static_cast<double>(star.Declination);
  double azimuth = 0;
  double altitude = 0;
  EquatorialToHorizontal(rightAscension, declination, azimuth, altitude);
  WritePlace(rightAscension, declination, azimuth, altitude, texts);
  return texts;
}

ObjectTexts BodyTexts(int row) {
  if (row < Mercury || row > Moon) throw SubscriptFailure("body " + std::to_string(row) + " does not exist");
  const SkyObject& body = SkyObjectTable[row];
  ObjectTexts texts;
  texts.Name = NameOf(row);
  WritePlace(body.RightAscension, body.Declination, body.Azimuth, body.Altitude, texts);
  texts.Diameter = DiameterText(body.AngularDiameter);
  texts.LightTime = BodyLightTime(row);
  if (IsPlanet(row)) {
    texts.Magnitude = Format(body.Magnitude, "0.0");
    texts.Phase = Format(body.Phase, "#0%");
    texts.Distance = Format(body.Distance, "#0.00 UA");
  } else {
    if (row == Moon) texts.Phase = Format(MoonLitPart(body.PhaseAngle * RadToDeg), "#0%");
    texts.Distance = Format(body.Distance, row == Sun ? "000,000,000 km" : "000,000 km");
  }
  return texts;
}

}  // namespace halvorine
