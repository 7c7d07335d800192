// What is told about planets, Sun, Moon and stars.
#include "astro/mSkyTexts.h"

#include "astro/mAstro.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class SkyTexts : public TrappingArithmetic {
 protected:
  SkyTexts() {
    Speak({"", "[Planets]", "venere=Venus", "marte=Mars", "sole=Sun", "luna=Moon", "", "[frmObject]",
           "stella=Star"});
    for (int row = Mercury; row <= Moon; ++row) {
      SkyObjectTable[row].Distance = row;
      SkyObjectTable[row].Altitude = row % 4 * 10 - 15;
    }
    SkyObject& venus = SkyObjectTable[Venus];
    venus = {};
    venus.RightAscension = 23.9999;
    venus.Declination = -0.5;
    venus.Altitude = -3.25;
    venus.Azimuth = 7.06;
    venus.Magnitude = -4.35;
    venus.Distance = 0.72;
    venus.AngularDiameter = 119.6;
    venus.Phase = 0.425;
    SkyObjectTable[Sun].Distance = 149597871;
    SkyObjectTable[Sun].AngularDiameter = 1919.3;
    SkyObjectTable[Moon].Distance = 384401;
    SkyObjectTable[Moon].PhaseAngle = 1.0471975;  // 60 degrees: a quarter is lit
  }
  static std::vector<std::string> Cells(const PlanetTable& table, int row) {
    std::vector<std::string> cells;
    for (int column = 0; column < PlanetTable::ColumnCount; ++column)
      cells.push_back(table.Cell(row, column));
    return cells;
  }
  using Texts = std::vector<std::string>;
};

TEST_F(SkyTexts, RowsFollowTheirPictures) {
  SkyObjectTable[Mars].Declination = 17.9999;
  SkyObjectTable[Mars].Distance = 7.5;
  PlanetTable table;
  table.Refresh();
  EXPECT_EQ(Cells(table, 1),
            (Texts{"Venus", "-3.3°", "7.1°", "0h00m", "-0°30'", "-4.4", "0.7", "5m59s", ""}));
  EXPECT_EQ(Cells(table, 2),
            (Texts{"Mars", "15.0°", "0.0°", "0h00m", "+18°00'", "0.0", "7.5", "1h02m22s", ""}));
  EXPECT_EQ(Cells(table, 7),
            (Texts{"Sun", "-15.0°", "0.0°", "0h00m", "+0°00'", "", "", "8m19s", "149,597,871"}));
  EXPECT_EQ(Cells(table, 8), (Texts{"Moon", "-5.0°", "0.0°", "0h00m", "+0°00'", "", "", "1.3s", "384,401"}));
}

TEST_F(SkyTexts, ObjectShowsWhatItHas) {
  const ObjectTexts venus = BodyTexts(Venus), sun = BodyTexts(Sun), moon = BodyTexts(Moon);
  EXPECT_EQ((Texts{venus.Name, venus.RightAscension, venus.Declination, venus.Azimuth, venus.Altitude,
                   venus.Magnitude, venus.Diameter, venus.Phase, venus.Distance, venus.LightTime}),
            (Texts{"Venus", "00h 00m 00s", "-00° 30'", "7.1°", "-3.3°", "-4.4", "2'00''", "43%", "0.72 UA",
                   "5m59s"}));
  EXPECT_EQ((Texts{sun.Magnitude, sun.Diameter, sun.Phase, sun.Distance, sun.LightTime}),
            (Texts{"", "31'59''", "", "149,597,871 km", "8m19s"}));
  EXPECT_EQ((Texts{moon.Magnitude, moon.Phase, moon.Distance, moon.LightTime}),
            (Texts{"", "25%", "384,401 km", "1.3s"}));
  EXPECT_EQ(venus.Constellation + venus.Letter + venus.Spectrum, "");
  for (const int none : {0, 10, -1}) EXPECT_THROW(BodyTexts(none), SubscriptFailure);
}

TEST_F(SkyTexts, StarIsCalledByItsNameOrLetterAndStandsInTheObserversSky) {
  ConstellationLabels = {{5.5, 0, "Orion", "Ori"}};
  Site.Latitude = 45;
  ClockFields.LocalSiderealHours = 5.25;
  StarRecord star{5.25F, -8.2F, 0.18, "B8", "b", "Ori", "Rigel"};
  ObjectTexts texts = StarTexts(star);
  EXPECT_EQ((Texts{texts.Name, texts.Constellation, texts.Letter, texts.Spectrum, texts.Magnitude,
                   texts.RightAscension, texts.Declination}),
            (Texts{"Rigel", "Orion", "β", "B8", "0.18", "05h 15m 00s", "-08° 12'"}));
  EXPECT_EQ(texts.Azimuth, "180.0°") << "on the meridian";
  EXPECT_EQ(texts.Altitude, "36.8°");
  star.Name.clear();
  star.Letter = "p3";
  EXPECT_EQ(StarTexts(star).Name, "π³ Ori");
}

}  // namespace
}  // namespace halvorine
