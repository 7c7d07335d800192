// The plain records that the parts of the program share. They carry no behaviour; who writes which of them
// stands at the instances in mGlobal.h. Angles are degrees, lengths km and times as named unless told.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/base/mFailure.h"

namespace halvorine {

/// A date is a count of days since 30 December 1899, 0h; its fraction is the time of day.
using Date = double;

/// A fixed array whose first element has the number 1.
template <class T, int N>
class Slots {
 public:
  T& operator[](int slot) { return items_[Checked(slot)]; }
  const T& operator[](int slot) const { return items_[Checked(slot)]; }
  static constexpr int Size() { return N; }

 private:
  static std::size_t Checked(int slot) {
    if (slot < 1 || slot > N) throw SubscriptFailure("slot " + std::to_string(slot) + " does not exist");
    return static_cast<std::size_t>(slot - 1);
  }
  std::array<T, static_cast<std::size_t>(N)> items_{};
};

constexpr int MaxActive = 200;    // satellites that can be followed at once
constexpr int ScratchSlot = 201;  // one-off computations and swaps
constexpr int SlotCount = 202;

/// The observer. Single precision, because the place is stored and computed so.
struct ObserverSite {
  std::string Place;
  float Latitude = 0;               // degrees, north positive
  float Longitude = 0;              // degrees, east positive
  float Height = 0;                 // metres above sea level
  float TimeZone = 0;               // hours, positive east of Greenwich
  std::uint8_t DaylightSaving = 0;  // hours added while daylight saving is in force
  bool operator==(const ObserverSite&) const = default;
};

/// Options of the world map; boolean ones are true when not zero.
struct MapOptions {
  std::int16_t Grid = 0, City = 0, Circle = 0, Track = 0, MouseData = 0, MouseCoordinates = 0, DataBox = 0,
               Sun = 0, Night = 0;
  bool operator==(const MapOptions&) const = default;
};

/// Options of one sky chart. The general chart uses only the first part, the pass chart has no data box.
struct SkyOptions {
  std::int16_t Grid = 0, ConstellationLines = 0, Planets = 0, SunMoon = 0, ConstellationNames = 0,
               PlanetNames = 0, SunMoonNames = 0, StarCount = 0;
  std::int16_t Grid10 = 0, GridType = 0, Stereographic = 0, Orientation = 0, Altazimuth = 0, Horizon = 0,
               Landscape = 0, DataBox = 0;
  bool operator==(const SkyOptions&) const = default;
};

/// Which passes a list keeps.
struct FilterOptions {
  std::int16_t Morning = 0, Evening = 0, VisibleOnly = 0;
  double MinAltitude = 0, MinAzimuth = 0, MaxAzimuth = 0;  // degrees
  bool operator==(const FilterOptions&) const = default;
};

/// Drawing colours, blue*65536 + green*256 + red.
struct ColourOptions {
  std::int32_t MapGrid = 0, LocalGrid1 = 0, LocalGrid2 = 0, LocalGrid3 = 0, LocalGrid4 = 0, GeneralGrid = 0,
               CityName = 0, Satellite = 0, TrackBehind = 0, TrackAhead = 0, ConstellationLines = 0,
               ConstellationNames = 0;
  bool operator==(const ColourOptions&) const = default;
};

/// Everything that the user can set but for the place, the primary file and the language.
struct ProgramOptions {
  std::int16_t Propagator = 0;    // orbit model: 0 Plan13, 1 SGP, 2 SGP4, 3 SGP4 and SDP4
  std::int16_t Refraction = 0;    // on only for -1
  std::int16_t PhaseLaw = 0;      // 0 standard, otherwise Lambertian
  std::int16_t SunThreshold = 0;  // altitude of the Sun, degrees, from which nothing is observable
  MapOptions Map;
  SkyOptions Local, General, Preview;
  std::int16_t InTransit = 0;
  FilterOptions FilterAll, FilterPrincipal, FilterSecondary;
  std::int16_t Toolbar = 0, StatusBar = 0, ConfirmExit = 0, Units = 0, ClockFormat = 0, CheckOptions = 0,
               WindowPositions = 0, CheckDaylight = 0;
  ColourOptions Colours;
  std::array<std::int16_t, 10> RadioChannel{};  // channel in use for each row of the live panel, from 1
  std::string ExternalProgram, ExternalParameters;
  std::array<std::string, 10> TimeServers;
  std::array<std::string, 31> RemoteFiles;
  bool operator==(const ProgramOptions&) const = default;
};

/// Three lines of an element file, exactly as read.
struct DatabaseEntry {
  std::string name, line1, line2;
  bool operator==(const DatabaseEntry&) const = default;
};

/// One decoded two-line element set; units as the lines hold them.
struct ElementSet {
  double EpochYear = 0;  // four digits
  double EpochDay = 0;   // 1.0 is 0h on 1 January
  double Inclination = 0, RightAscension = 0;
  double Eccentricity = 0;
  double ArgumentOfPerigee = 0, MeanAnomaly = 0;
  double MeanMotion = 0;     // revolutions per day
  double MeanMotionDot = 0;  // first derivative / 2, revolutions per day squared
  double RevolutionNumber = 0;
  std::string CatalogNumber;  // five characters as in the line
  double LaunchYear = 0, LaunchNumber = 0;
  std::string LaunchPiece;
  std::string Name;               // proper case, trimmed
  std::string StandardMagnitude;  // empty when not known
  double MeanMotionDDotMantissa = 0, MeanMotionDDotExponent = 0;
  double BstarMantissa = 0, BstarExponent = 0;
  double EpochJulianDay = 0;
  std::array<std::string, 10> Uplink, Downlink;  // MHz as text; a channel is free while both are empty
};

/// Visual magnitude: a number, "???" without a standard magnitude, or the empty text in eclipse.
struct MagnitudeValue {
  enum class Kind : std::uint8_t { Empty, Unknown, Number };
  Kind kind = Kind::Empty;
  double value = 0;
};

/// Values of SatelliteState::Condition.
enum SatelliteCondition : std::int32_t { Eclipsed = 1, Visible = 2, NotVisible = 3 };

/// The result of the last computation for a slot.
struct SatelliteState {
  double Elevation = 0;            // degrees, with refraction when that is on
  double Azimuth = 0;              // degrees from north through east
  double IlluminatedFraction = 0;  // 0 in eclipse
  double PhaseAngle = 0;           // degrees
  std::int32_t Condition = 0;      // SatelliteCondition, 0 before the first computation
  MagnitudeValue Magnitude;
  double LatitudeAbs = 0, LongitudeAbs = 0;
  double GeocentricRadius = 0;  // km
  double OrbitNumber = 0;
  double RangeRate = 0;                        // km/s, positive when receding
  double ApogeeHeight = 0, PerigeeHeight = 0;  // km above the equatorial radius
  double Speed = 0;                            // km/s, inertial
  double Height = 0;                           // km above the ellipsoid
  double Range = 0;                            // km
  double Period = 0;                           // seconds
  double LatitudeSigned = 0, LongitudeEast = 0, GeocentricLatitude = 0, Longitude360 = 0;
  char LatitudeHemisphere = 0, LongitudeHemisphere = 0;  // 'N' or 'S', 'E' or 'W', 0 before
  double TopoUp = 0, TopoEast = 0, TopoNorth = 0;        // unit vector observer to satellite
};

/// The current instant; written only by UpdateSiderealTime.
struct ClockFieldsRecord {
  Date LocalDate = 0, UtcDate = 0;
  double UtcYear = 0, UtcMonth = 0, UtcDay = 0;
  double LocalYear = 0, LocalMonth = 0, LocalDay = 0;
  double UtcHours = 0, LocalHours = 0;
  std::int16_t UtcDayOfYear = 0, LocalDayOfYear = 0;
  double JulianDayNow = 0, JulianDayMidnight = 0;
  double GreenwichSiderealHours = 0, LocalSiderealHours = 0;
};

/// One body of the solar system: elements as the data file gives them, and results.
struct SkyObject {
  double RightAscension = 0;         // hours
  double Declination = 0;            // degrees
  double Azimuth = 0, Altitude = 0;  // degrees
  double Distance = 0;               // astronomical units for planets, km for Sun and Moon
  double Magnitude = 0;
  double AngularDiameter = 0;  // seconds of arc
  double PeriodYears = 0;      // tropical years
  double LongitudeAtEpoch = 0, PerihelionLongitude = 0, Eccentricity = 0;
  double SemiMajorAxis = 0;  // astronomical units
  double OrbitInclination = 0, NodeLongitude = 0;
  double DiameterAtOneAU = 0;  // seconds of arc; degrees in the Sun's row
  double MagnitudeAtOneAU = 0;
  double PhaseAngle = 0;  // Moon: its longitude less the Sun's, radians 0 to two pi
  double Phase = 0;       // planets: lit fraction of the disc, 0 to 1
  std::string ObjectName;
};

/// Rows of SkyObjectTable.
enum SkyObjectRow : int { Mercury = 1, Venus, Mars, Jupiter, Saturn, Uranus, Neptune, Sun, Moon, Earth };

/// One row of the radio-frequency file; frequencies in MHz as text.
struct FrequencyRow {
  std::string catalogueNumber, uplink, downlink;
};

/// A star as the charts use it, all in single precision.
struct StarRow {
  float RightAscension = 0;  // hours
  float Declination = 0;     // degrees
  float Azimuth = 0, Altitude = 0, X = 0, Y = 0;
};

/// A star as its file has it; texts come without the blanks behind them.
struct StarRecord {
  float RightAscension = 0;   // hours
  float Declination = 0;      // degrees, north positive
  double Magnitude = 0;       // visual
  std::string Spectrum;       // class
  std::string Letter;         // Bayer's, as a Latin letter of the Symbol font, and an index digit
  std::string Constellation;  // abbreviation
  std::string Name;           // proper name; mostly empty
};

/// One segment of a constellation figure, with both of its ends.
struct ConstellationLine {
  StarRow From, To;
};

/// The point at which a constellation's name is written.
struct ConstellationLabel {
  double RightAscension = 0;  // hours
  double Declination = 0;     // degrees
  std::string Name, Abbreviation;
};

/// The eighteen live values of the principal satellite as they are shown.
struct LiveTexts {
  std::string Latitude, Longitude, Height, Range, RangeRate, OrbitNumber, Altitude, Azimuth, Apogee, Perigee,
      Period, Velocity, Ascension, Declination, State, Magnitude, Receive, Transmit;
};

/// Month and day names of the chosen language; January and Sunday first.
struct DateNames {
  std::array<std::string, 12> Months{"January", "February", "March",     "April",   "May",      "June",
                                     "July",    "August",   "September", "October", "November", "December"};
  std::array<std::string, 12> ShortMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::array<std::string, 7> Days{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                  "Thursday", "Friday", "Saturday"};
  std::array<std::string, 7> ShortDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
};

}  // namespace halvorine
