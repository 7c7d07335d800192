// What the tests of the sky charts share: the shipped stars over Milan on a known evening.
#pragma once

#include <map>

#include "astro/mAstro.h"
#include "shell/base/mFiles.h"
#include "shell/base/mReg.h"
#include "sky/mSkyDraw.h"
#include "sky/mStars.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"
#include "tests/fakes/RecordingSurface.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {

class FakeSkyPictures : public SkyPictures {
 public:
  std::map<int, FakePicture> icons;
  FakePicture sun, landscape{30720, 30720};
  const DrawPicture& Icon(int number) override { return icons[number]; }
  const DrawPicture& SunIcon() override { return sun; }
  const DrawPicture& Landscape() override { return landscape; }
};

class SkyTest : public OrbitTest {
 protected:
  SkyTest() {
    LanguageFile = "English.ini";
    Impostazioni_default();
    Options.Propagator = 2;
    Observe(45.4642, 9.19, 122);
    Site.TimeZone = 1;
    Site.DaylightSaving = 1;
    LoadSkyData();
    ReadSkyObjects(ReadProgramFile("\\planets.dat"));
    MagnitudeTable.assign(100000, "");
    view.Pictures = &pictures;
    GoTo(DateOf(2022, 6, 15) + 22.5 / 24);
  }
  void GoTo(Date local) {
    CurrentDate = local;
    ComputeSkyObjects(local);
  }
  /// A star's or body's place by a rotation of its unit vector: east, north, up.
  static std::array<double, 3> VectorOf(double rightAscension, double declination) {
    const double degree = std::acos(-1.0) / 180;
    const double h = (ClockFields.LocalSiderealHours - rightAscension) * 15 * degree;
    const double dec = declination * degree, lat = static_cast<double>(Site.Latitude) * degree;
    const double south = std::cos(dec) * std::cos(h), west = std::cos(dec) * std::sin(h), up = std::sin(dec);
    return {-west, std::cos(lat) * up - std::sin(lat) * south, std::cos(lat) * south + std::sin(lat) * up};
  }

  ProgramFolder folder;
  FakePlatform platform;
  FakeSkyPictures pictures;
  RecordingSurface surface{24000, 13500};  // 1600 x 900 pixels
  SkyView view;
};

}  // namespace halvorine
