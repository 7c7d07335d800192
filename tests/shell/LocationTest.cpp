// The list of places, zones, typed places, regions of the map, and what a new site changes.
#include "shell/mLocation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "astro/mConv.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLongOperation.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakeMainForm.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"
#include "tests/fakes/RecordingSurface.h"

namespace halvorine {
namespace {

class LocationTest : public testing::Test {
 protected:
  LocationTest() {
    LanguageFile = "English.ini";
    // a list of its own: a link to the shipped one would be followed when it is written
    folder_.Write("cities.dat", ProgramFolder::Read(TEST_SOURCE_DIR "/data/cities.dat"));
  }
  void ReadText(const std::string& text) {
    folder_.Write("cities.dat", text);
    ReadCities();
  }
  std::string File() const { return ProgramFolder::Read(folder_.Path("cities.dat")); }

  ProgramFolder folder_;
  FakePlatform platform_;
};

const City kathmandu{"Nepal: Kathmandu", 27.7172, 85.324, 5.75};

TEST_F(LocationTest, ShippedListIsReadWholeAndWrittenBackAsItWas) {
  const std::string shipped = File();
  ReadCities();
  EXPECT_EQ(Cities.size(), 4231U);
  UserFolder = folder_.UserPath(".");
  const int row = StoreCity(0, kathmandu);
  EXPECT_EQ(row, 4232);
  RemoveCity(row);
  EXPECT_EQ(ProgramFolder::Read(folder_.UserPath("cities.dat")), shipped);
  EXPECT_EQ(File(), shipped) << "the shipped list stays";
}

TEST_F(LocationTest, UsersCopyIsTheOneThatCounts) {
  UserFolder = folder_.UserPath(".");
  ReadCities();
  City changed = CityOf(1);
  changed.Name = "Åland, \t\xF0\x9F\x8C\x8D; 'here'";
  StoreCity(1, changed);
  RemoveCity(2);
  const std::vector<City> before = Cities;
  ReadCities();
  EXPECT_EQ(Cities, before);
  EXPECT_EQ(FindCity(changed.Name), 1);
  EXPECT_EQ(FindCity("Afghanistan: Herat"), 0);
}

TEST_F(LocationTest, ReadEndsWhereALineHoldsNoPlaceAndNothingBehindItIsLost) {
  const std::string first = "\"A\",1,2,3\n\"B\",-1.5,-2.25,-3.5\n", last = "\"Z\",5,6,7\n";
  for (const std::string& broken :
       {std::string("\n"), std::string("\"\",1,2,3\n"), std::string("\"C\",1,2\n"),
        std::string("\"C\",1,2,3,4\n"), std::string("\"C\",north,2,3\n"), std::string("\"C\",1,5,2,3,0\n"),
        std::string("\"C\",91,2,3\n"), std::string("\"C\",1,181,3\n"), std::string("\"C\",1,2,99\n"),
        std::string("\"C\",1,2,nan\n"), std::string("\"C,1,2,3\n"), std::string("\0\1\xFF\xFE\n", 5),
        std::string(100000, 'x') + "\n"}) {
    ReadText(first + broken + last);
    ASSERT_EQ(Cities.size(), 2U) << broken.substr(0, 30);
    EXPECT_EQ(Cities[1], (City{"B", -1.5, -2.25, -3.5}));
    StoreCity(0, kathmandu);
    EXPECT_TRUE(File().starts_with(first + "\"Nepal: Kathmandu\",27.7172,85.324,5.75\n"));
    EXPECT_TRUE(File().ends_with(last)) << broken.substr(0, 30);
  }
}

TEST_F(LocationTest, FilesOfOtherMakersAreRead) {
  ReadText("\xEF\xBB\xBF\"Sao\", 1.5 , -2 ,3\r\nPlain name,1,2,-3\r\n\"Z\xFCrich\",47.4,8.5,1");
  ASSERT_EQ(Cities.size(), 3U);
  EXPECT_EQ(Cities[1].Name, "Plain name");
  EXPECT_EQ(Cities[2].Name, "Z\xC3\xBCrich") << "Latin-1 where the bytes are no UTF-8";
  ReadText("");
  EXPECT_TRUE(Cities.empty());
  folder_.Remove("cities.dat");
  ReadCities();
  EXPECT_EQ(StoreCity(0, kathmandu), 1);
  EXPECT_EQ(File(), "\"Nepal: Kathmandu\",27.7172,85.324,5.75\n");
}

TEST_F(LocationTest, ACancelledReadKeepsWhatItDidNotReach) {
  platform_.millisecondsPerLook = 50;
  platform_.onYield = [] { CancelRequested = Cities.size() == 10; };
  ReadCities();
  EXPECT_EQ(Cities.size(), 10U);
  EXPECT_FALSE(CancelRequested);
  RemoveCity(1);
  platform_.onYield = nullptr;
  ReadCities();
  EXPECT_EQ(Cities.size(), 4230U);
}

TEST_F(LocationTest, AHundredThousandPlacesAreReadWithYieldsByTheClock) {
  std::string text;
  for (int i = 0; i < 100000; ++i) text += "\"Place " + std::to_string(i) + "\",1.5,2.5,-3.5\n";
  ReadText(text);
  EXPECT_EQ(Cities.size(), 100000U);
  EXPECT_EQ(platform_.yields, 0) << "no time has gone by";
  EXPECT_EQ(CityOf(CitiesByName()[1]).Name, "Place 1");
}

TEST_F(LocationTest, AListThatCannotBeWrittenOrWasNotReadStaysAsItIs) {
  ReadCities();
  const std::vector<City> before = Cities;
  const std::string file = File();
  platform_.refuseWriting = true;
  EXPECT_THROW(StoreCity(0, kathmandu), FileFailure);
  EXPECT_THROW(StoreCity(7, kathmandu), FileFailure);
  EXPECT_THROW(RemoveCity(7), FileFailure);
  EXPECT_EQ(Cities, before);
  EXPECT_EQ(File(), file);
  platform_.refuseWriting = false;
  folder_.Remove("cities.dat");
  std::filesystem::create_symlink("nowhere", folder_.Path("cities.dat"));
  ReadCities();
  EXPECT_TRUE(Cities.empty());
  EXPECT_THROW(StoreCity(0, kathmandu), FileFailure);
  EXPECT_THROW(CityOf(1), SubscriptFailure);
}

TEST_F(LocationTest, ASecondLongCommandLeavesTheListAlone) {
  ReadCities();
  const LongOperation other;
  ReadCities();
  EXPECT_EQ(Cities.size(), 4231U);
  EXPECT_EQ(platform_.messages.size(), 1U);
}

TEST_F(LocationTest, ZonesFallIntoTheirListsAndComeBack) {
  struct Row {
    double zone;
    bool before;
    int hours, minutes;
  };
  for (const Row& row : {Row{-3.5, true, 3, 30}, Row{5.75, false, 5, 45}, Row{12.75, false, 12, 45},
                         Row{-0.5, true, 0, 30}, Row{0, false, 0, 0}, Row{-11, true, 11, 0}}) {
    const ZoneParts parts = PartsOfZone(row.zone);
    EXPECT_EQ(parts.BeforeGreenwich, row.before) << row.zone;
    EXPECT_EQ(parts.Hours, row.hours) << row.zone;
    EXPECT_EQ(parts.Minutes, row.minutes) << row.zone;
    EXPECT_EQ(ZoneOfTexts(std::to_string(parts.Hours), std::to_string(parts.Minutes), row.before), row.zone);
  }
  EXPECT_EQ(PartsOfZone(5 + 20 / 60.0).Minutes, 20) << "which no list offers";
  EXPECT_FALSE(std::signbit(ZoneOfTexts("0", "0", true)));
}

TEST_F(LocationTest, HeightsAreWholeMetres) {
  const std::pair<const char*, const char*> rows[] = {{"122.5", "123"},   {"-430", "-430"}, {"", "0"},
                                                      {"high", "0"},      {"12,5", "12"},   {"1e300", "0"},
                                                      {" 8848 m", "8848"}};
  for (const auto& [typed, shown] : rows) EXPECT_EQ(HeightText(typed), shown) << typed;
}

TEST_F(LocationTest, ComputerZoneIsToldInHoursAndMinutesEastOfGreenwich) {
  EXPECT_NE(ZoneBiasText({-345, false}).find(" +5hr 45min \nStandard"), std::string::npos);
  EXPECT_NE(ZoneBiasText({150, true}).find(" -2hr 30min \nDaylight"), std::string::npos);
}

TEST_F(LocationTest, EveryPlaceLiesWellInsideItsRegion) {
  for (int latitude = -90; latitude <= 90; ++latitude)
    for (int longitude = -180; longitude <= 180; ++longitude) {
      const GeoRegion region = RegionOf(latitude, longitude);
      const double east = std::fmod(longitude - region.West + 720, 360);
      ASSERT_TRUE(east >= 15 && east <= region.Width - 15) << latitude << " " << longitude;
      ASSERT_TRUE(latitude <= region.North && latitude >= region.North - region.Height);
      ASSERT_TRUE(region.North <= 90 && region.North - region.Height >= -90);
    }
  EXPECT_EQ(RegionOf(10, 179.9), RegionOf(10, -179.9));
  EXPECT_NE(RegionOf(10, -100.1), RegionOf(10, -139.9 + 80));
}

TEST_F(LocationTest, RegionAtTheDateLineIsCutFromBothEndsOfThePicture) {
  RecordingSurface surface(1200, 750);
  const FakePicture earth;
  DrawRegion(surface, earth, 52, 178);
  const std::vector<Primitive> pictures = surface.Of(Primitive::Kind::Picture);
  ASSERT_EQ(pictures.size(), 2U);
  // both are the whole Earth, 360 degrees at 15 twips to a degree, and meet in the middle
  for (const Primitive& picture : pictures) EXPECT_NEAR(picture.to.X - picture.from.X, 5400, 1e-6);
  EXPECT_NEAR(pictures[0].to.X, 600, 1e-6);
  EXPECT_NEAR(pictures[1].from.X, 600, 1e-6);
  EXPECT_NEAR(pictures[0].from.Y, -25 * 15, 1e-6);
  const std::vector<Primitive> dots = surface.Of(Primitive::Kind::Ellipse);
  ASSERT_EQ(dots.size(), 2U);
  EXPECT_NEAR(dots[1].from.X, 600 - 2 * 15, 1e-6);
  EXPECT_NEAR(dots[1].from.Y, 13 * 15, 1e-6);
}

PlaceTexts Decimal(const char* lat, const char* latFraction, const char* lon, const char* lonFraction) {
  return {lat, latFraction, lon, lonFraction};
}
PlaceTexts Sexagesimal(const char* d, const char* m, const char* s, const char* lonD, const char* lonM,
                       const char* lonS) {
  return {"", "", "", "", d, m, s, lonD, lonM, lonS};
}

TEST_F(LocationTest, FirstFaultOfAPageIsFound) {
  struct Row {
    PlaceTexts texts;
    PlacePage page;
    const char *warning, *control;
  };
  const Row rows[] = {
      {Decimal("90", "0000", "180", "0"), PageDecimal, "", ""},
      {Decimal("", "", "", ""), PageDecimal, "", ""},
      {Decimal("90", "0001", "0", "0"), PageDecimal, "valorelaterrato", "txtDegLatitude"},
      {Decimal("89", "9999", "180", "1"), PageDecimal, "valorelongerrato", "txtDegLongitude"},
      {Decimal("91", "x", "0", "0"), PageDecimal, "valorecompreso0-90", "txtDegLatitude"},
      {Decimal("45,5", "0", "0", "0"), PageDecimal, "valorecompreso0-90", "txtDegLatitude"},
      {Decimal("-1", "0", "0", "0"), PageDecimal, "valorecompreso0-90", "txtDegLatitude"},
      {Decimal("1", "10000", "0", "0"), PageDecimal, "valorecompreso0-9999", "txtDegFrazLatitude"},
      {Decimal("1", "0", "181", "0"), PageDecimal, "valorecompreso0-180", "txtDegLongitude"},
      {Decimal("1", "0", "1", "1e999"), PageDecimal, "valorecompreso0-9999", "txtDegFrazLongitude"},
      {Sexagesimal("90", "0", "0", "180", "0", "0"), PageSexagesimal, "", ""},
      {Sexagesimal("90", "0", "1", "0", "0", "0"), PageSexagesimal, "valorelaterrato", "txtDMSDegLatitude"},
      {Sexagesimal("1", "60", "0", "0", "0", "0"), PageSexagesimal, "valorecompreso0-59",
       "txtDMSMinLatitude"},
      {Sexagesimal("1", "0", "0", "0", "0", "99"), PageSexagesimal, "valorecompreso0-59",
       "txtDMSSecLongitude"},
      {Sexagesimal("1", "0", "0", "180", "1", "0"), PageSexagesimal, "valorelongerrato",
       "txtDMSDegLongitude"}};
  for (const Row& row : rows) {
    const std::optional<PlaceFault> fault = FaultOfPage(row.texts, row.page);
    EXPECT_EQ(fault ? fault->Warning : "", row.warning) << row.control;
    EXPECT_EQ(fault ? fault->Control : "", row.control);
  }
  for (const char* name : {"", "  ", "a\"b", "a\nb", "a\rb"}) EXPECT_TRUE(FaultOfName(name)) << name;
  EXPECT_FALSE(FaultOfName(std::string(1000, 'n') + ", 'x'"));
}

TEST_F(LocationTest, FieldsTakeTheirPictureWhenTheyAreLeft) {
  EXPECT_EQ(LeftFieldText(PlaceFields[0], "007"), "7");
  EXPECT_EQ(LeftFieldText(PlaceFields[1], "5"), "0005");
  EXPECT_EQ(LeftFieldText(PlaceFields[3], ""), "0000");
  EXPECT_EQ(LeftFieldText(PlaceFields[5], " 7 "), "07");
  EXPECT_EQ(LeftFieldText(PlaceFields[1], "45,5"), "45,5");
  EXPECT_EQ(LeftFieldText(PlaceFields[0], "abc"), "abc");
}

TEST_F(LocationTest, PagesConvertIntoEachOther) {
  PlaceTexts texts = Decimal("45", "4669", "10", "9999");
  ConvertPlacePage(texts, PageDecimal);
  // 0.4669 degrees are 28' 0.84", 0.9999 degrees are 59' 59.64"
  EXPECT_EQ(std::vector<std::string>(texts.begin() + 4, texts.end()),
            (std::vector<std::string>{"45", "28", "01", "11", "00", "00"}));
  for (int step = 0; step < 900000; step += 1237) {
    const double latitude = step / 10000.0;
    ShowPlaceValues(texts, PageDecimal, -latitude, 2 * latitude);
    EXPECT_NEAR(PlaceValue(texts, PageDecimal, false), latitude, 1e-9);
    ConvertPlacePage(texts, PageDecimal);
    ConvertPlacePage(texts, PageSexagesimal);
    EXPECT_NEAR(PlaceValue(texts, PageDecimal, false), latitude, 2e-4) << step;
    EXPECT_NEAR(PlaceValue(texts, PageDecimal, true), 2 * latitude, 2e-4) << step;
  }
}

TEST_F(LocationTest, SummaryShowsSignedValues) {
  EXPECT_EQ(
      PlaceSummary({"x", -45.46694, 9.2, -3.5}),
      "Save the place with these values?\nLatitude= -45.4669°\nLongitude= 9.200°\nTime zone= -3.5 hours");
}

class FakeGeneralSky : public FakeForm<GeneralSkyCalls> {
 public:
  explicit FakeGeneralSky(CallLog& log) : FakeForm("frmGeneralSky", log) {}
  void Genera_mappa() override { Note("Genera_mappa"); }
};

TEST_F(LocationTest, ANewSiteReachesTheClockThePanelAndTheOpenMaps) {
  CallLog log;
  FakeMainForm main;
  FakeWorldMap map(log);
  FakeLocalSky sky(log);
  FakeGeneralSky general(log);
  CurrentDate = DateOf(2022, 6, 14) + 0.5;
  Site = {"Greenwich", 0, 0, 40, 0, 0};
  ApplySite({City{"East", -33.5, 30, 0}, "100", "2", "0", false, false});
  EXPECT_EQ(Site, (ObserverSite{"East", -33.5F, 30, 100, 2, 0}));
  EXPECT_EQ(main.panels[3], "East");
  const double sidereal = ClockFields.LocalSiderealHours;
  EXPECT_NEAR(ClockFields.UtcDate, CurrentDate - 2 / 24.0, 1e-9);
  EXPECT_EQ(log,
            (CallLog{"frmWorldMap.Genera_mappa", "frmLocalSky.Genera_mappa", "frmGeneralSky.Genera_mappa"}))
      << "an empty list has nothing to compute, and the maps are drawn all the same";
  // the same instant fifteen degrees further east
  ApplySite({City{"Further", -33.5, 45, 0}, "x", "2", "0", false, false});
  EXPECT_NEAR(std::fmod(ClockFields.LocalSiderealHours - sidereal + 24, 24), 1, 1e-6);
  ApplySite({std::nullopt, "-7", "12", "45", true, true});
  EXPECT_EQ(Site, (ObserverSite{"Further", -33.5F, 45, -7, -12.75F, 1}));
  EXPECT_NEAR(ClockFields.UtcDate, CurrentDate + 11.75 / 24, 1e-9);
}

}  // namespace
}  // namespace halvorine
