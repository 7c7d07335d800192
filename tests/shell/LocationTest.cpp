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
  UserFolder = folder_.UserPath(".");
  const int row = StoreCity(0, kathmandu);
  EXPECT_EQ(row, 4232);
  RemoveCity(row);
  EXPECT_EQ(ProgramFolder::Read(folder_.UserPath("cities.dat")), shipped);
  EXPECT_EQ(File(), shipped) << "the shipped list stays";
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
}

TEST_F(LocationTest, AListThatCannotBeWrittenOrWasNotReadStaysAsItIs) {
  ReadCities();
  const std::vector<City> before = Cities;
  const std::string file = File();
  platform_.refuseWriting = true;
  EXPECT_THROW(StoreCity(0, kathmandu), FileFailure);
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

TEST_F(LocationTest, ZonesFallIntoTheirListsAndComeBack) {
  const struct {
    double zone;
    bool before;
    int hours, minutes;
  } rows[] = {
      {-3.5, true, 3, 30}, {5.75, false, 5, 45}, {-0.5, true, 0, 30}, {0, false, 0, 0}, {-11, true, 11, 0}};
  for (const auto& row : rows) {
    const ZoneParts parts = PartsOfZone(row.zone);
    EXPECT_EQ(parts.BeforeGreenwich, row.before) << row.zone;
    EXPECT_EQ(parts.Hours, row.hours) << row.zone;
    EXPECT_EQ(parts.Minutes, row.minutes) << row.zone;
    EXPECT_EQ(ZoneOfTexts(std::to_string(parts.Hours), std::to_string(parts.Minutes), row.before), row.zone);
  }
  EXPECT_EQ(PartsOfZone(5 + 20 / 60.0).Minutes, 20) << "which no list offers";
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
      {Decimal("90", "0001", "0", "0"), PageDecimal, "valorelaterrato", "txtDegLatitude"},
      {Decimal("89", "9999", "180", "1"), PageDecimal, "valorelongerrato", "txtDegLongitude"},
      {Decimal("91", "x", "0", "0"), PageDecimal, "valorecompreso0-90", "txtDegLatitude"},
      {Decimal("45,5", "0", "0", "0"), PageDecimal, "valorecompreso0-90", "txtDegLatitude"},
      {Decimal("1", "10000", "0", "0"), PageDecimal, "valorecompreso0-9999", "txtDegFrazLatitude"},
      {Decimal("1", "0", "1", "1e999"), PageDecimal, "valorecompreso0-9999", "txtDegFrazLongitude"},
      {Sexagesimal("90", "0", "0", "180", "0", "0"), PageSexagesimal, "", ""},
      {Sexagesimal("1", "60", "0", "0", "0", "0"), PageSexagesimal, "valorecompreso0-59",
       "txtDMSMinLatitude"},
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
  EXPECT_NEAR(ClockFields.UtcDate, CurrentDate - 2 / 24.0, 1e-9);
  EXPECT_EQ(log,
            (CallLog{"frmWorldMap.Genera_mappa", "frmLocalSky.Genera_mappa", "frmGeneralSky.Genera_mappa"}))
      << "an empty list has nothing to compute, and the maps are drawn all the same";
  ApplySite({std::nullopt, "-7", "12", "45", true, true});
  EXPECT_EQ(Site, (ObserverSite{"East", -33.5F, 30, -7, -12.75F, 1}));
  EXPECT_NEAR(ClockFields.UtcDate, CurrentDate + 11.75 / 24, 1e-9);
}

}  // namespace
}  // namespace halvorine
