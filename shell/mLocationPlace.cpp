#include <algorithm>
#include <cmath>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"
#include "shell/mLocation.h"

namespace halvorine {

namespace {

constexpr const char* latitudeWarning = "valorecompreso0-90";
constexpr const char* longitudeWarning = "valorecompreso0-180";
constexpr const char* decimalsWarning = "valorecompreso0-9999";
constexpr const char* sixtiethsWarning = "valorecompreso0-59";
constexpr double decimals = 10000;  // steps of a degree on the decimal page

/// The number of a field; an empty one counts as 0, and nothing comes of any other text.
std::optional<double> FieldNumber(const std::string& text) {
  if (Trimmed(text).empty()) return 0.0;
  try {
    return ParseStrict(text);
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

bool Fits(const PlaceField& field, const std::string& text) {
  const std::optional<double> number = FieldNumber(text);
  return number && *number >= 0 && *number <= field.Largest && *number == Fix(*number);
}

/// Index of the first field of a value: degrees, behind which the smaller parts follow.
std::size_t FirstField(PlacePage page, bool longitude) {
  const auto found = std::find_if(PlaceFields.begin(), PlaceFields.end(), [&](const PlaceField& field) {
    return field.Page == page && field.Longitude == longitude;
  });
  return static_cast<std::size_t>(found - PlaceFields.begin());
}

void ShowValue(PlaceTexts& texts, PlacePage page, bool longitude, double value) {
  const std::size_t at = FirstField(page, longitude);
  const auto show = [&](std::size_t part, double number) {
    texts.at(at + part) = Format(number, PlaceFields.at(at + part).Picture);
  };
  if (page == PageDecimal) {
    // the whole part is taken from the rounded value, so that 9999.9 decimals carry
    const double steps = std::round(value * decimals);
    show(0, Fix(steps / decimals));
    show(1, steps - Fix(steps / decimals) * decimals);
    return;
  }
  double degrees = 0, minutes = 0, seconds = 0;
  DecimalToDms(value, degrees, minutes, seconds);
  show(0, degrees);
  show(1, minutes);
  show(2, seconds);
}

}  // namespace

const std::array<PlaceField, placeFieldCount> PlaceFields = {{
    {"txtDegLatitude", PageDecimal, false, 90, latitudeWarning, "#0"},
    {"txtDegFrazLatitude", PageDecimal, false, 9999, decimalsWarning, "0000"},
    {"txtDegLongitude", PageDecimal, true, 180, longitudeWarning, "##0"},
    {"txtDegFrazLongitude", PageDecimal, true, 9999, decimalsWarning, "0000"},
    {"txtDMSDegLatitude", PageSexagesimal, false, 90, latitudeWarning, "#0"},
    {"txtDMSMinLatitude", PageSexagesimal, false, 59, sixtiethsWarning, "00"},
    {"txtDMSSecLatitude", PageSexagesimal, false, 59, sixtiethsWarning, "00"},
    {"txtDMSDegLongitude", PageSexagesimal, true, 180, longitudeWarning, "##0"},
    {"txtDMSMinLongitude", PageSexagesimal, true, 59, sixtiethsWarning, "00"},
    {"txtDMSSecLongitude", PageSexagesimal, true, 59, sixtiethsWarning, "00"},
}};

std::string LeftFieldText(const PlaceField& field, const std::string& typed) {
  const std::optional<double> number = FieldNumber(typed);
  return number && std::fabs(*number) < 1e9 && *number == Fix(*number) ? Format(*number, field.Picture)
                                                                       : typed;
}

std::optional<PlaceFault> FaultOfName(std::string_view name) {
  if (Trimmed(name).empty() || name.find_first_of("\"\r\n") != std::string_view::npos)
    return PlaceFault{"nomeobbligatorio", "txtCityName"};
  return std::nullopt;
}

std::optional<PlaceFault> FaultOfPage(const PlaceTexts& texts, PlacePage page) {
  for (std::size_t i = 0; i < placeFieldCount; ++i) {
    const PlaceField& field = PlaceFields.at(i);
    if (field.Page == page && !Fits(field, texts.at(i))) return PlaceFault{field.Warning, field.Control};
  }
  for (const bool longitude : {false, true})
    if (PlaceValue(texts, page, longitude) > (longitude ? 180 : 90))
      return PlaceFault{longitude ? "valorelongerrato" : "valorelaterrato",
                        PlaceFields.at(FirstField(page, longitude)).Control};
  return std::nullopt;
}

double PlaceValue(const PlaceTexts& texts, PlacePage page, bool longitude) {
  const std::size_t at = FirstField(page, longitude);
  const auto part = [&](std::size_t i) { return FieldNumber(texts.at(at + i)).value_or(0); };
  return page == PageDecimal ? part(0) + part(1) / decimals : DmsToDecimal(part(0), part(1), part(2));
}

void ShowPlaceValues(PlaceTexts& texts, PlacePage page, double latitude, double longitude) {
  ShowValue(texts, page, false, std::fabs(latitude));
  ShowValue(texts, page, true, std::fabs(longitude));
}

void ConvertPlacePage(PlaceTexts& texts, PlacePage from) {
  ShowPlaceValues(texts, from == PageDecimal ? PageSexagesimal : PageDecimal, PlaceValue(texts, from, false),
                  PlaceValue(texts, from, true));
}

std::string PlaceSummary(const City& city) {
  const auto text = [](const char* key) { return LookupText("frmAddLocation", key); };
  return text("nuovalocalitacondati") + "\n" + text("latitudine") + "= " + LatitudeText(city.Latitude) +
         "\n" + text("longitudine") + "= " + LongitudeText(city.Longitude) + "\n" + text("fuso") + "= " +
         NumberText(city.Zone) + " " + LookupText("Def", "ore");
}

}  // namespace halvorine
