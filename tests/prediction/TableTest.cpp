// Tables of one and of two satellites against values computed outside, and what ends or bends them.
#include "prediction/mTable.h"

#include <map>
#include <set>

#include "astro/mAstro.h"
#include "prediction/mRelative.h"
#include "shell/base/mFiles.h"
#include "shell/base/mForms.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mText.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

const char* const languages[] = {"English.ini", "Italiano.ini", "Deutsch.ini", "Français.ini", "Español.ini"};

class Tables : public OrbitTest {
 protected:
  Tables() {
    AppPath = TEST_SOURCE_DIR "/data";
    SetLanguage(languages[0]);
    Options.SunThreshold = -6;
    CurrentDate = DateOf(2022, 6, 14) + 0.5;
    UpdateSiderealTime(CurrentDate);
    TickEnabled = SatelliteTickEnabled = true;
    for (const ReferenceRow& set : ReferenceRows("tables.csv", ',', "set"))
      MagnitudeTable.at(static_cast<std::size_t>(ToInt32(ParseNumber(Columns(set.Text(2), 3, 7))))) =
          set.Text(4);
    Take(ScratchSlot, 0);
    Take(RelativeSlot, 1);
    Observe(45.47, 9.19, 122);
  }
  static void SetLanguage(const char* file) {
    LanguageFile = file;
    LanguageLoaded = false;
    LookupText("Def", "min");
    ReadLanguageDates();
    ConditionEclipsed = "Eclipsed";
    ConditionVisible = "Visible";
    ConditionNotVisible = "Not vis.";
  }
  static void Take(int slot, std::size_t set) {
    const ReferenceRow row = ReferenceRows("tables.csv", ',', "set").at(set);
    Estrai_Dati_Satellite(slot, row.Text(1), row.Text(2), row.Text(3));
  }
  static TableRequest Span(double seconds, double step, int code = ObserverTable) {
    const Date start = DateOf(2022, 6, 14) + 20.0 / 24;
    return {start, AddSeconds(start, seconds), step, code};
  }
  TableOutcome Make(TableRequest request, bool two = false) {
    table = {};
    const TableOutcome outcome = two ? MakeRelativeTable(request, table, [] {})
                                     : MakeTable(ScratchSlot, request, table, [this] { Grown(); });
    step = request.step;
    EXPECT_TRUE(TickEnabled && SatelliteTickEnabled);
    EXPECT_EQ(ClockFields.LocalDate, CurrentDate);
    EXPECT_FALSE(LongOperation::Running() || CancelRequested);
    return outcome;
  }
  void Grown() {
    if (cancelAt > 0 && static_cast<int>(table.rows.size()) == cancelAt) CancelRequested = true;
  }
  std::string TimeOf(std::size_t row) const { return FormatDate(table.rows.at(row).time, "hh:nn:ss", {}); }

  FakePlatform platform;
  TextTable table;
  double step = 0;
  int cancelAt = 0;
};

/// Where the columns end, counted in characters, and by how much two computations may differ.
struct Layout {
  std::vector<int> ends;
  std::vector<double> apart;
};
const std::map<std::string, Layout> layouts = {
    {"one,1", {{30, 39, 50, 61, 68, 75, 83, 92, 103}, {0.02, 0.05, 0.6, 0.3, 0.06, 0.2, 0.1, 0.02, 0}}},
    {"one,2", {{34, 46, 58, 70, 79, 88, 97, 106}, {0.1, 0.1, 0.1, 0.1, 0.001, 0.001, 0.001, 0.001}}},
    {"one,3", {{30, 39, 50}, {0.01, 0.02, 0.3}}},
    {"one,4", {{33, 43}, {12, 3}}},
    {"two,1", {{30, 39, 50, 60, 68, 78, 88, 96, 106}, {0.1, 0.1, 0.1, 0.02, 0.05, 0.3, 0.02, 0.05, 0.3}}},
    {"two,2", {{34, 46, 58, 70, 82, 94, 104}, {0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1}}},
    {"two,3", {{30, 39, 50, 61, 71, 81, 92, 102, 112}, {0.01, 0.01, 0.1, 0.01, 0.02, 0.3, 0.01, 0.02, 0.3}}},
    {"two,4", {{35, 43, 54, 67, 78, 95, 106}, {12, 3, 0.1, 12, 3, 12, 3}}},
};

/// The number that a cell shows; hours and degrees in seconds and minutes, as the reference has them.
double Shown(std::string cell) {
  if (cell == "Eclipsed" || cell == "Visible" || cell == "Not vis.")
    return cell == "Eclipsed" ? 1 : cell == "Visible" ? 2 : 3;
  const double sign = cell.front() == '-' || cell.back() == 'S' || cell.back() == 'W' ? -1 : 1;
  std::vector<double> parts;
  for (std::size_t at = 0; at < cell.size();) {
    const std::size_t from = cell.find_first_of("0123456789", at);
    if (from == std::string::npos) break;
    at = std::min(cell.find_first_not_of("0123456789.", from), cell.size());
    parts.push_back(ParseStrict(cell.substr(from, at - from)));
  }
  double value = 0;
  for (const double part : parts) value = value * 60 + part;
  return sign * value;
}

void CompareLine(std::string line, const ReferenceRow& wanted) {
  const Layout& layout = layouts.at(wanted.Text(0) + "," + wanted.Text(1));
  EXPECT_EQ(line.substr(0, 21), wanted.Text(2));
  // a sign of degrees is two bytes in the text and one column in the table
  for (std::size_t at = 0; (at = line.find("°")) != std::string::npos;) line.replace(at, 2, "d");
  int begin = 21;
  for (std::size_t i = 0; i < layout.ends.size(); ++i) {
    const std::string cell(Trimmed(Columns(line, begin + 1, layout.ends[i])));
    begin = layout.ends[i];
    const std::string where =
        wanted.Text(0) + wanted.Text(1) + " column " + std::to_string(i) + " of " + line;
    ASSERT_EQ(cell.empty(), wanted.Text(3 + i).empty()) << where;
    if (cell.empty()) continue;
    double apart = std::fabs(Shown(cell) - wanted.Number(3 + i));
    if (wanted.Text(1) == "4" && apart > 43200) apart = 86400 - apart;
    EXPECT_LE(apart, layout.apart[i]) << where << ", wanted " << wanted.Text(3 + i);
  }
}

TEST_F(Tables, AllCodesAgreeWithTheOutsideComputation) {
  int compared = 0;
  std::map<std::string, std::size_t> row;
  for (const ReferenceRow& wanted : ReferenceRows("tables.csv", ',')) {
    if (wanted.Text(0) == "set") continue;
    if (wanted.Text(0) == "site") {
      Observe(wanted.Number(2), wanted.Number(3), wanted.Number(4));
      Site.TimeZone = static_cast<float>(wanted.Number(5));
      Site.DaylightSaving = static_cast<std::uint8_t>(wanted.Count(6));
      row.clear();
      continue;
    }
    TableRequest request = Span(12 * 480, 480, wanted.Count(1));
    request.start = AddSeconds(DateOf(2022, 6, 14), 6 * 3600 + 240 + ZoneShift() * 3600);
    request.end = AddSeconds(request.start, 12 * 480);
    ASSERT_EQ(Make(request, wanted.Text(0) == "two"), TableOutcome::Done);
    ASSERT_EQ(table.rows.size(), 13U);
    CompareLine(table.Line(static_cast<int>(table.head.size() + row[wanted.Text(0) + wanted.Text(1)]++)),
                wanted);
    ++compared;
  }
  EXPECT_EQ(compared, 2 * 13 * 8);
}

TEST_F(Tables, AutomaticStepFollowsTheWholeMinutes) {
  const struct {
    int minutes;
    double step;
    const char* first;
  } rows[] = {{9, 15, "19:59:45"},  {10, 30, "20:00:00"},  {19, 30, "20:00:00"},   {20, 60, "20:00:30"},
              {59, 60, "20:00:30"}, {60, 120, "20:01:30"}, {719, 120, "20:01:30"}, {721, 180, "20:02:30"}};
  for (const auto& row : rows) {
    ASSERT_EQ(Make(Span(row.minutes * 60, 0)), TableOutcome::Done);
    EXPECT_EQ(step, row.step) << row.minutes;
    EXPECT_EQ(TimeOf(0), row.first) << row.minutes;
    EXPECT_GE(table.rows.back().time, Span(row.minutes * 60, 0).end);
  }
}

TEST_F(Tables, ExactlyTwelveHoursStandStillUntilACancel) {
  cancelAt = 50;
  ASSERT_EQ(Make(Span(720 * 60, 0)), TableOutcome::Done);
  EXPECT_EQ(step, 0);
  EXPECT_EQ(table.rows.size(), 50U);
  EXPECT_EQ(table.rows.front().time, table.rows.back().time);
  cancelAt = 0;
  Make(Span(720 * 60, 0));
  EXPECT_EQ(table.LineCount(), MostListRows);
  EXPECT_EQ(table.Line(MostListRows - 1), "");
  EXPECT_THROW(table.Line(MostListRows), SubscriptFailure);
}

TEST_F(Tables, SpanIsWalkedFromItsStartToJustPastItsEnd) {
  const struct {
    double seconds, step;
    std::size_t rows;
  } spans[] = {{60, 3600, 2}, {0, 60, 1}, {600, 60, 11}, {601, 60, 12}, {-60, 15, 0}};
  for (const auto& row : spans) {
    ASSERT_EQ(Make(Span(row.seconds, row.step)), TableOutcome::Done);
    EXPECT_EQ(table.rows.size(), row.rows) << row.seconds;
    EXPECT_TRUE(table.complete);
  }
  for (const int year : {1900, 2099}) {
    TableRequest request = Span(0, 60);
    request.start = DateOf(year, 1, 1);
    request.end = AddSeconds(request.start, 300);
    EXPECT_NE(Make(request), TableOutcome::Refused);
    EXPECT_LE(table.rows.size(), 6U);
  }
}

TEST_F(Tables, SatelliteBelowNinetyEightKilometresEndsItsTable) {
  ElementSets[ScratchSlot].MeanMotion = 16.8;  // a radius of about 6440 km
  ElementSets[ScratchSlot].BstarMantissa = 0;
  ASSERT_EQ(Make(Span(86400, 60)), TableOutcome::Done);
  ASSERT_EQ(table.rows.size(), 1U) << "the row that shows it is still there";
  EXPECT_LT(table.rows[0].values[3], 98);
  EXPECT_EQ(Make(Span(86400, 60), true), TableOutcome::Done);
  EXPECT_EQ(table.rows.size(), 1U);
}

TEST_F(Tables, ElementsWithoutAPositionAreToldFromOthers) {
  PositionKm = {7000, 0, 0};  // what the satellite before has left
  ElementSets[ScratchSlot].Eccentricity = 0;
  EXPECT_EQ(Make(Span(600, 60)), TableOutcome::NotComputable);
  EXPECT_TRUE(table.rows.empty() && table.complete);
  EXPECT_EQ(Make(Span(600, 60), true), TableOutcome::NotComputable);
  ElementSets[ScratchSlot].MeanMotion = 0;
  EXPECT_EQ(Make(Span(600, 60)), TableOutcome::NotComputable);
  TextTable other;
  TableRequest request = Span(600, 60);
  const LongOperation running;
  EXPECT_EQ(MakeTable(ScratchSlot, request, other, [] {}), TableOutcome::Refused);
}

TEST_F(Tables, AnglesEndAtTheirLimits) {
  struct Row {
    double cosine, angle;
  };
  for (const Row& row :
       {Row{1, 0}, Row{1.0000001, 0}, Row{-1, 180}, Row{-1.1, 180}, Row{0.5, 60}, Row{-0.5, 120}})
    EXPECT_NEAR(AngleOf(row.cosine), row.angle, 1e-6) << row.cosine;
  EXPECT_EQ(LongitudeApart(179, -179), 2);
  EXPECT_EQ(LongitudeApart(-10, 20), 30);
  EXPECT_EQ(LongitudeApart(90, -90), 180);
  Take(RelativeSlot, 0);
  ASSERT_EQ(Make(Span(600, 60), true), TableOutcome::Done);
  ASSERT_EQ(table.rows.size(), 11U);
  for (const TableRow& row : table.rows) EXPECT_NEAR(row.values[0] + row.values[1] + row.values[2], 0, 1e-5);
}

TEST_F(Tables, EveryHeadingNamesEveryColumnInCsv) {
  for (const char* const language : languages) {
    SetLanguage(language);
    for (int code = 1; code <= 8; ++code) {
      Make(Span(60, 60, (code - 1) % 4 + 1), code > 4);
      const std::string csv = CsvOf(table, "Here, UTC");
      LineReader lines(csv);
      std::string_view line;
      ASSERT_TRUE(lines.Next(line));
      const std::vector<std::string> names = Split(line, ',');
      EXPECT_EQ(names.size(), table.columns.size() + 2) << language << " " << line;
      EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size()) << "names differ: " << line;
      for (const std::string& name : names) EXPECT_FALSE(name.empty()) << language << " " << line;
      ASSERT_TRUE(lines.Next(line));
      EXPECT_EQ(line.substr(0, 20), "2022-06-14,20:00:00,");
      EXPECT_EQ(Split(line, ',').size(), names.size());
      EXPECT_TRUE(csv.ends_with(code > 4 ? "\"Here, UTC\",Iss (Zarya) 25544 / Hst 20580\r\n"
                                         : "\"Here, UTC\",Iss (Zarya) 25544\r\n"));
    }
  }
}

}  // namespace
}  // namespace halvorine
