#include "prediction/mTable.h"

#include <cmath>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "orbit/mSat.h"
#include "prediction/mElementTexts.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmDetails";
constexpr const char* dateAndTime = "dd mmm yyyy  hh:mm:ss";
constexpr double fallenHeight = 98.0;  // km; a satellite below it ends its table
constexpr std::size_t captionWidth = 9;

constexpr std::array<TableColumn, 9> observerColumns = {{
    {3, 6, "0.00"},
    {3, 6, "0.00"},
    {3, 8, "0.0"},
    {3, 8, "0.0"},
    {3, 4, "0.0"},
    {3, 4, "0.0"},
    {3, 5, "0.0"},
    {3, 6, "#0.00"},
    {3, 0, "", CellKind::Condition},
}};
constexpr std::array<TableColumn, 8> inertialColumns = {{
    {3, 10, "0.000"},
    {2, 10, "0.000"},
    {2, 10, "0.000"},
    {2, 10, "0.000"},
    {2, 7, "0.000"},
    {2, 7, "0.000"},
    {2, 7, "0.000"},
    {2, 7, "0.000"},
}};
constexpr std::array<TableColumn, 3> subpointColumns = {{{3, 6, "0.00"}, {3, 6, "0.00"}, {3, 8, "0.0"}}};
constexpr std::array<TableColumn, 2> equatorialColumns = {
    {{2, 10, "", CellKind::RightAscension}, {3, 7, "", CellKind::Declination}}};

constexpr const char* inertialBar =
    "                        --------------------(km.)---------------------  "
    "-------------(km/sec)-------------";

/// Puts the clock fields back to the program's time.
class ClockHold {
 public:
  ClockHold() = default;
  ~ClockHold() {
    try {
      UpdateSiderealTime(CurrentDate);
    } catch (const RuntimeFailure&) {
      ClockFields = before_;  // a program time that no calendar knows
    }
  }
  ClockHold(const ClockHold&) = delete;
  ClockHold& operator=(const ClockHold&) = delete;

 private:
  ClockFieldsRecord before_ = ClockFields;
};

double SecondsBetween(Date from, Date to) { return std::round((to - from) * 86400); }

std::string Caption(const char* key) { return LeftAligned(LookupText(section, key), captionWidth) + ": "; }

std::string ObserverLine() {
  const auto angle = [](const char* key, float value, const char* picture) {
    return LookupText("Def", key) + " " + Format(static_cast<double>(value), picture);
  };
  return Caption("localita") + Site.Place + " (" + angle("lat", Site.Latitude, "#0.00°") + " " +
         angle("lon", Site.Longitude, "##0.00°") + ")";
}

/// What follows the four lines of the satellite, up to the names of the columns.
void AddCodeHead(TextTable& table, int code) {
  const auto heading = [&table](const char* key) { table.heading = LookupText(section, key); };
  std::vector<std::string>& head = table.head;
  head.emplace_back();
  switch (code) {
    case ObserverTable:
      head.insert(head.end(), {ObserverLine(), std::string()});
      heading("intestazioneobs");
      table.columns = observerColumns;
      break;
    case InertialTable:
      head.emplace_back(inertialBar);
      heading("intestazioneeci");
      table.columns = inertialColumns;
      break;
    case SubpointTable:
      heading("intestazionella");
      table.columns = subpointColumns;
      break;
    case EquatorialTable:
      head.insert(head.end(), {Caption("localita") + Site.Place, std::string()});
      heading("intestazionerad");
      table.columns = equatorialColumns;
      break;
    default:
      throw SubscriptFailure("coordinate code " + std::to_string(code) + " does not exist");
  }
  head.insert(head.end(), {table.heading, std::string()});
}

double MagnitudeCell(const MagnitudeValue& magnitude) {
  if (magnitude.kind == MagnitudeValue::Kind::Number) return magnitude.value;
  return magnitude.kind == MagnitudeValue::Kind::Unknown ? UnknownMagnitude : NoMagnitude;
}

std::array<double, MostColumns> ValuesOf(const TableSatellite& satellite, int code) {
  const SatelliteState& s = satellite.State();
  switch (code) {
    case ObserverTable:
      return {s.Elevation,
              s.Azimuth,
              s.Range,
              s.Height,
              MagnitudeCell(s.Magnitude),
              s.IlluminatedFraction * 100,
              s.PhaseAngle,
              satellite.sunElevation,
              static_cast<double>(s.Condition)};
    case InertialTable:
      return {satellite.position[0], satellite.position[1], satellite.position[2], s.GeocentricRadius,
              satellite.velocity[0], satellite.velocity[1], satellite.velocity[2], s.Speed};
    case SubpointTable:
      return {s.LatitudeSigned, s.LongitudeEast, s.Height};
    default: {
      const EquatorialCells place = EquatorialOf(s);
      return {place.rightAscension, place.declination};
    }
  }
}

}  // namespace

void AddSatelliteHead(TextTable& table, const char* key, int slot, std::size_t width) {
  const ElementSet& set = ElementSets[slot];
  std::vector<std::string>& head = table.head;
  const std::string name(Trimmed(set.Name));
  table.satellites += (table.satellites.empty() ? "" : " / ") + name + " " + set.CatalogNumber;
  const auto caption = [width](std::string_view text) { return LeftAligned(text, width) + ": "; };
  head.push_back(caption(LookupText(section, key)) + name);
  head.push_back(caption("Norad #") + set.CatalogNumber);
  head.push_back(caption("ID #") + std::string(Columns(ElementLines[slot].line1, 10, 15)));
  head.push_back(caption(LookupText(section, "elementiorbita")) + EpochDate(set) + " UTC");
}

TableSatellite::TableSatellite(int slot) : slot_(slot), before_(SatelliteStates[slot]) {}

TableSatellite::~TableSatellite() { SatelliteStates[slot_] = before_; }

bool TableSatellite::Compute() {
  const std::array<double, 3> last = position;
  PositionKm = position;
  VelocityKmS = velocity;
  ComputeSatelliteState(slot_, ClockFields.JulianDayNow);
  state_ = SatelliteStates[slot_];
  position = PositionKm;
  velocity = VelocityKmS;
  sunElevation = SunElevationDeg;
  const bool sameInstant = julianDay_ == ClockFields.JulianDayNow;
  julianDay_ = ClockFields.JulianDayNow;
  // a model that fails leaves its vectors as they were, and no satellite stands still
  return sameInstant || position != last;
}

bool TableSatellite::HasFallen() const { return !(state_.Height >= fallenHeight); }

EquatorialCells EquatorialOf(const SatelliteState& state) {
  EquatorialParts parts;
  HorizontalToEquatorial(state.Azimuth * DegToRad, state.Elevation * DegToRad, parts);
  const double minutes = parts.decDegrees * 60 + parts.decMinutes;
  return {(parts.raHours * 60 + parts.raMinutes) * 60 + parts.raSeconds,
          parts.decSign == '-' ? -minutes : minutes};
}

TableSpan SpanOf(const TableRequest& request) {
  if (request.step != 0) return {AddSeconds(request.start, -request.step), request.step};
  Date t = AddSeconds(request.start, -15);
  const int second = PartsOf(t).second;
  const int quarter = second >= 46 ? 45 : second >= 31 ? 30 : second >= 16 ? 15 : 0;
  t = AddSeconds(t, quarter - second);
  const double minutes = Fix(SecondsBetween(t, request.end) / 60);
  double step = 0;
  if (minutes > 720) step = 180;
  if (minutes < 720) step = 120;
  if (minutes < 60) step = 60;
  if (minutes < 20) step = 30;
  if (minutes < 10) step = 15;
  return {t, step};
}

TableOutcome FillTable(TextTable& table, const TableSpan& span, Date end, const RowMaker& make,
                       const TableGrowth& grown) {
  LongOperation operation;
  if (!operation.Started()) return TableOutcome::Refused;
  const TickHold hold;
  const ClockHold clock;
  operation.ShowProgress(LookupText(section, "effemeridisatellite"), SecondsBetween(span.before, end));
  TableOutcome outcome = TableOutcome::Done;
  TableRow row;
  row.time = span.before;
  double progress = 0;
  // one line is kept for the end
  while (row.time < AddSeconds(end, 0) && !CancelRequested && table.LineCount() < MostListRows - 1) {
    row.time = AddSeconds(row.time, span.step);
    RowOutcome made;
    try {
      UpdateSiderealTime(row.time);
      made = make(row);
    } catch (const RuntimeFailure&) {
      made.computed = false;  // elements without a mean motion, a date beyond the calendar
    }
    if (!made.computed) {
      outcome = TableOutcome::NotComputable;
      break;
    }
    if (made.listed) table.rows.push_back(row);
    grown();
    progress += span.step;
    operation.Step(progress);
    if (made.last) break;
  }
  table.complete = true;
  grown();
  return outcome;
}

TableOutcome MakeTable(int slot, TableRequest& request, TextTable& table, const TableGrowth& grown) {
  AddSatelliteHead(table, "satellite", slot, captionWidth);
  AddCodeHead(table, request.code);
  grown();
  const TableSpan span = SpanOf(request);
  request.step = span.step;
  TableSatellite satellite(slot);
  return FillTable(
      table, span, request.end,
      [&](TableRow& row) {
        RowOutcome outcome;
        outcome.computed = satellite.Compute();
        row.values = ValuesOf(satellite, request.code);
        outcome.listed =
            request.code != ObserverTable || !request.onlyAboveHorizon || satellite.State().Elevation > 0;
        outcome.last = satellite.HasFallen();
        return outcome;
      },
      grown);
}

std::string TableTitle(std::string_view name, Date start) {
  return LookupText(section, "dettagli") + ": " + std::string(name) + " - " +
         FormatDate(start, dateAndTime, LanguageDates);
}

void TellNotComputable() { Tell(MessageKind::Information, LookupText(section, "noncalcolabile")); }

std::shared_ptr<const CatalogueRows> EntryNames(int index) {
  const SatelliteDatabase& database = DatabaseOf(index);
  std::size_t bytes = 0;
  for (int number = 1; number <= database.Count(); ++number) bytes += database.Entry(number).name.size();
  auto rows = std::make_shared<CatalogueRows>();
  rows->Reserve(database.Count(), bytes);
  for (int number = 1; number <= database.Count(); ++number)
    rows->Append(ToUtf8(Trimmed(database.Entry(number).name)), number);
  return rows;
}

bool IsEntry(int index, int number, std::string_view name) {
  const SatelliteDatabase& database = DatabaseOf(index);
  return number >= 1 && number <= database.Count() && ToUtf8(Trimmed(database.Entry(number).name)) == name;
}

void TakeEntry(int slot, int index, int number) {
  const DatabaseEntry entry = DatabaseOf(index).Copy(number);
  Azzera_Valori(slot);
  Azzera_Satelement(slot);
  Azzera_RigaDati(slot);
  try {
    Estrai_Dati_Satellite(slot, entry.name, entry.line1, entry.line2);
  } catch (const RuntimeFailure&) {
    // a number that no table knows: what could be decoded is there, and serves
  }
}

Date SpanEnd(Date start, int amount, int unit) {
  const double seconds = unit == SpanDays ? 86400 : unit == SpanHours ? 3600 : 60;
  return AddSeconds(start, amount * seconds);
}

double StepOf(int amount, int unit) {
  return amount * (unit == StepHours ? 3600.0 : unit == StepMinutes ? 60.0 : 1.0);
}

}  // namespace halvorine
