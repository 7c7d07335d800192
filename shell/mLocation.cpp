#include "shell/mLocation.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "orbit/mSat.h"
#include "shell/base/mFiles.h"
#include "shell/base/mForms.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

/// Text behind the last row that was read; nothing while no list has been read, which must not be written
/// over.
std::optional<std::string> unread;

bool Within(double value, double limit) { return value >= -limit && value <= limit; }

/// The place of a line, or nothing where the line holds none.
std::optional<City> CityOfLine(std::string_view line) {
  try {
    ItemReader items(line);
    City city;
    city.Name = items.Text();
    city.Latitude = items.Number();
    city.Longitude = items.Number();
    city.Zone = items.Number();
    const bool plausible = Within(city.Latitude, 90) && Within(city.Longitude, 180) &&
                           std::fabs(city.Zone) < largestZoneHours + 1;
    if (plausible && items.AtEnd() && !Trimmed(city.Name).empty()) return city;
  } catch (const ConversionFailure&) {
    // a line with too few values or with a text for a number
  }
  return std::nullopt;
}

std::string LineOfCity(const City& city) {
  return "\"" + city.Name + "\"," + NumberText(city.Latitude) + "," + NumberText(city.Longitude) + "," +
         NumberText(city.Zone) + "\n";
}

/// The user's own copy where there is a user's folder: the program folder's list is laid out anew with every
/// new version.
std::string CitiesWritePath() {
  if (UserFolder.empty()) return WritePathOf(citiesFile);
  return UserFolder + "/" + std::string(citiesFile.substr(1));
}

void WriteCities(std::vector<City> changed) {
  if (!unread) throw FileFailure("file " + std::string(citiesFile) + " has not been read");
  std::string text;
  for (const City& city : changed) text += LineOfCity(city);
  ThePlatform().WriteFile(CitiesWritePath(), text + *unread);
  Cities = std::move(changed);
}

std::size_t IndexOf(int row) {
  if (row < 1 || static_cast<std::size_t>(row) > Cities.size())
    throw SubscriptFailure("place " + std::to_string(row) + " does not exist");
  return static_cast<std::size_t>(row - 1);
}

}  // namespace

const City& CityOf(int row) { return Cities[IndexOf(row)]; }

void ReadCities() {
  LongOperation operation;
  if (!operation.Started()) return;
  Cities.clear();
  unread.reset();
  std::string text;
  try {
    if (!FindProgramFile(citiesFile).empty()) text = ToUtf8(ReadProgramFile(citiesFile));
  } catch (const FileFailure&) {
    return;
  }
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  LineReader lines(text);
  std::size_t read = 0;
  for (std::string_view line; !CancelRequested && lines.Next(line); read = lines.Position()) {
    std::optional<City> city = CityOfLine(line);
    if (!city) break;
    Cities.push_back(std::move(*city));
    operation.Step(0);
  }
  unread = text.substr(std::min(read, text.size()));
}

std::vector<int> CitiesByName() {
  std::vector<int> rows(Cities.size());
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = static_cast<int>(i) + 1;
  std::stable_sort(rows.begin(), rows.end(),
                   [](int a, int b) { return LessText(CityOf(a).Name, CityOf(b).Name); });
  return rows;
}

int FindCity(std::string_view name) {
  const auto found =
      std::find_if(Cities.begin(), Cities.end(), [name](const City& city) { return city.Name == name; });
  return found == Cities.end() ? 0 : static_cast<int>(found - Cities.begin()) + 1;
}

int StoreCity(int row, const City& city) {
  std::vector<City> changed = Cities;
  if (row == 0) {
    changed.push_back(city);
    row = static_cast<int>(changed.size());
  } else {
    changed[IndexOf(row)] = city;
  }
  WriteCities(std::move(changed));
  return row;
}

void RemoveCity(int row) {
  std::vector<City> changed = Cities;
  changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(IndexOf(row)));
  WriteCities(std::move(changed));
}

ZoneParts PartsOfZone(double zone) {
  const double size = std::fabs(zone);
  ZoneParts parts;
  parts.BeforeGreenwich = zone < 0;
  parts.Hours = ToInt32(Fix(size));
  parts.Minutes = ToInt32((size - Fix(size)) * 60);
  return parts;
}

double ZoneOfTexts(const std::string& hours, const std::string& minutes, bool beforeGreenwich) {
  const double zone = ParseNumber(hours + "." + NumberText(ParseNumber(minutes) * 10 / 6));
  return beforeGreenwich ? 0 - zone : zone;
}

std::string LatitudeText(double latitude) { return Format(latitude, "#0.000#°"); }
std::string LongitudeText(double longitude) { return Format(longitude, "##0.000#°"); }

std::string HeightText(std::string_view typed) {
  constexpr double largestHeight = 99999;  // m
  const double height = ParseNumber(typed);
  return Format(Within(height, largestHeight) ? height : 0, "###0");
}

std::string ZoneBiasText(const ZoneBias& zone) {
  const auto text = [](const char* key) { return LookupText("frmLocation", key); };
  const int minutes = std::abs(zone.bias);
  const char* const sign = zone.bias > 0 ? "-" : "+";  // a bias counts westwards
  return text("fusoorario1") + " " + sign + std::to_string(minutes / 60) + "hr " +
         std::to_string(minutes % 60) + "min \n" + text(zone.isDaylight ? "fusoorario2" : "fusoorario3");
}

void ApplySite(const SiteChoice& choice) {
  if (choice.Place) {
    Site.Place = choice.Place->Name;
    Site.Latitude = ToSingle(choice.Place->Latitude);
    Site.Longitude = ToSingle(choice.Place->Longitude);
    if (MainFormCalls* const main = MainForm()) main->SetStatusPanel(3, Site.Place);
  }
  Site.Height = ToSingle(ParseNumber(HeightText(choice.Height)));
  Site.TimeZone = ToSingle(ZoneOfTexts(choice.Hours, choice.Minutes, choice.BeforeGreenwich));
  Site.DaylightSaving = choice.DaylightSaving ? 1 : 0;
  UpdateSiderealTime(CurrentDate);
  if (IsFormLoaded("frmWorldMap")) {
    if (!ElementSets[1].Name.empty()) DrawQuietly([] { ComputeSatelliteState(1, ClockFields.JulianDayNow); });
    ThePlatform().Yield();
    if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) map->Genera_mappa();
  }
  if (auto* const sky = Loaded<LocalSkyCalls>("frmLocalSky")) sky->Genera_mappa();
  if (auto* const sky = Loaded<GeneralSkyCalls>("frmGeneralSky")) sky->Genera_mappa();
}

GeoRegion RegionOf(double latitude, double longitude) {
  constexpr double shownWidth = 80, shownHeight = 50;  // a band and a rim around it
  // bands of 40 degrees from -160 to 160; the two of 20 degrees at the date line are shown as one
  const bool atDateLine = !(longitude >= -160 && longitude < 160);
  const double middle = atDateLine ? -180 : Int((longitude + 160) / 40) * 40 - 140;
  const double parallel = latitude < -60   ? -75
                          : latitude < -20 ? -40
                          : latitude < 20  ? 0
                          : latitude < 60  ? 40
                                           : 75;
  const double north = std::clamp(parallel + shownHeight / 2, -90 + shownHeight, 90.0);
  return {middle - shownWidth / 2, north, shownWidth, shownHeight};
}

void DrawRegion(DrawSurface& surface, const DrawPicture& earth, double latitude, double longitude) {
  constexpr double dot = 0.9, rim = 1.4;  // degrees
  const GeoRegion region = RegionOf(latitude, longitude);
  surface.Scale(region.West, region.North, region.West + region.Width, region.North - region.Height);
  surface.AutoRedraw(true);
  surface.BackColor = Rgb(60, 103, 145);
  surface.Cls();
  // beyond the date line the picture begins anew
  for (const double west : {-540.0, -180.0, 180.0})
    if (west < region.West + region.Width && west + 360 > region.West)
      surface.PaintPicture(earth, west, 90, 360, -180);
  const double east = longitude < region.West                  ? longitude + 360
                      : longitude > region.West + region.Width ? longitude - 360
                                                               : longitude;
  surface.FillStyle = FillKind::Solid;
  for (const auto& [radius, colour] : {std::pair(rim, Black), std::pair(dot, Rgb(255, 255, 0))}) {
    surface.FillColor = colour;
    surface.Circle(east, latitude, radius, colour);
  }
  surface.FillStyle = FillKind::Transparent;
}

}  // namespace halvorine
