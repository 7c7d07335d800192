// The observer's place: the list of places "\cities.dat", the choice of one of them, a place as it is typed
// in, and what follows from a new site. Angles are degrees, north and east positive; zones are hours,
// positive east of Greenwich.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "maps/DrawSurface.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mRecords.h"

namespace halvorine {

inline constexpr std::string_view citiesFile = "\\cities.dat";

/// One place of the list.
struct City {
  std::string Name;
  double Latitude = 0, Longitude = 0;  // degrees
  double Zone = 0;                     // hours
  bool operator==(const City&) const = default;
};

/// The list as the last ReadCities left it; row numbers count from 1.
inline std::vector<City> Cities;

/// The place of a row; SubscriptFailure where there is none.
const City& CityOf(int row);

/// Reads "\cities.dat" (UTF-8, or Latin-1 where it is not) into Cities, a long operation that lets events
/// run. The read ends at the first line that is empty or holds no place, and when CancelRequested is set;
/// what was read stays. Does nothing while another long operation runs.
void ReadCities();

/// Row numbers in the order of the names, without regard to case.
std::vector<int> CitiesByName();

/// The first row with a name, 0 where there is none.
int FindCity(std::string_view name);

/// Puts a place at a row, or behind the last one for row 0, and writes the list. Gives the row. Lines that
/// ReadCities did not reach are kept behind the rows. FileFailure where the list cannot be written or could
/// not be read; Cities is then as before.
int StoreCity(int row, const City& city);

/// Takes a row off the list and writes it; fails as StoreCity does.
void RemoveCity(int row);

/// Whole hours and minutes of a zone, unsigned.
struct ZoneParts {
  bool BeforeGreenwich = false;
  int Hours = 0, Minutes = 0;
};
ZoneParts PartsOfZone(double zone);

/// The zone of hours and minutes as texts, by hours "." (minutes*10/6).
double ZoneOfTexts(const std::string& hours, const std::string& minutes, bool beforeGreenwich);

/// Largest whole hours of a zone.
constexpr int largestZoneHours = 14;
/// The minutes that the lists of minutes offer.
constexpr std::array<int, 3> zoneMinutes = {0, 30, 45};

/// Latitude and longitude as they are shown.
std::string LatitudeText(double latitude);
std::string LongitudeText(double longitude);

/// A height in metres as it stands after it was typed: the number at the text's beginning as a whole number,
/// 0 where that cannot be a height.
std::string HeightText(std::string_view typed);

/// What the computer tells about its zone, in the language of the program.
std::string ZoneBiasText(const ZoneBias& zone);

/// A site as its window holds it when it is applied.
struct SiteChoice {
  std::optional<City>
      Place;  // the chosen place, of which the zone is not used; nothing keeps the present one
  std::string Height, Hours, Minutes;
  bool BeforeGreenwich = false, DaylightSaving = false;
};

/// Makes it the observer's site: status panel 3, sidereal time, and the maps that are open.
void ApplySite(const SiteChoice& choice);

/// Part of the Earth that is shown around a place.
struct GeoRegion {
  double West = 0, North = 0;  // of the top left corner; the west may lie below -180
  double Width = 0, Height = 0;
  bool operator==(const GeoRegion&) const = default;
};
GeoRegion RegionOf(double latitude, double longitude);

/// Draws the region of a place, cut from the picture of the whole Earth, and the place in it.
void DrawRegion(DrawSurface& surface, const DrawPicture& earth, double latitude, double longitude);

// A new or changed place as it is typed in, with two pages of the same values.

enum PlacePage : int { PageDecimal = 0, PageSexagesimal = 1 };

/// A field of a page: the name of its control, its greatest value (the least is 0), the warning for any other
/// and the picture by which it is shown.
struct PlaceField {
  const char* Control;
  PlacePage Page;
  bool Longitude;
  double Largest;
  const char* Warning;
  const char* Picture;
};
constexpr std::size_t placeFieldCount = 10;
/// All fields in the order in which they are checked.
extern const std::array<PlaceField, placeFieldCount> PlaceFields;

/// Texts of the fields, in their order.
using PlaceTexts = std::array<std::string, placeFieldCount>;

/// A field's text as it stands after it was left; one that is no whole number stays as it was typed.
std::string LeftFieldText(const PlaceField& field, const std::string& typed);

/// What is wrong with a typed place: the key of the warning and the control in which it lies.
struct PlaceFault {
  std::string Warning, Control;
};
std::optional<PlaceFault> FaultOfName(std::string_view name);
/// The first fault of a page: its fields first, then its whole values.
std::optional<PlaceFault> FaultOfPage(const PlaceTexts& texts, PlacePage page);

/// The unsigned latitude or longitude of a page without a fault, degrees.
double PlaceValue(const PlaceTexts& texts, PlacePage page, bool longitude);

/// Fills the fields of a page with the values of latitude and longitude without their signs.
void ShowPlaceValues(PlaceTexts& texts, PlacePage page, double latitude, double longitude);

/// Converts the values of a page without a fault to the other page.
void ConvertPlacePage(PlaceTexts& texts, PlacePage from);

/// The question before a place is saved.
std::string PlaceSummary(const City& city);

}  // namespace halvorine
