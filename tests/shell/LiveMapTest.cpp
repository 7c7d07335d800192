// A minute of ticks with all of the sample's satellites, drawn on the flat map: every place against the
// independently computed point under the satellite.
#include <gtest/gtest.h>

#include <cmath>

#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "catalogue/mTables.h"
#include "shell/base/mReg.h"
#include "shell/mTick.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakeMainForm.h"
#include "tests/fakes/ProgramFolder.h"
#include "tests/maps/MapFixture.h"

namespace halvorine {
namespace {

constexpr int seconds = 62;
constexpr double tolerance = 0.01;  // degrees
constexpr double degree = 3.14159265358979323846 / 180;

struct SubPoint {
  double latitude, longitude;
};

/// By second, then in the order of the sample.
std::vector<std::vector<SubPoint>> ReferencePoints() {
  std::vector<std::vector<SubPoint>> points(seconds);
  for (const ReferenceRow& row : ReferenceRows("subpoints.csv", ',')) {
    double latitude = 0, longitude = 0;
    for (std::size_t second = 0; second < seconds; ++second) {
      latitude += row.Number(1 + 2 * second);
      longitude += row.Number(2 + 2 * second);
      points[second].push_back({latitude / 1000, longitude / 1000});
    }
  }
  return points;
}

/// The world map without a window.
class RecordingMap : public FakeWorldMap {
 public:
  explicit RecordingMap(CallLog& log) : FakeWorldMap(log) { view.Pictures = &pictures_; }
  void Genera_mappa() override {
    ++rebuilds;
    halvorine::Genera_mappa(surface, view);
  }
  void Disegna_satellite(int slot) override { halvorine::Disegna_satellite(surface, view, slot); }
  /// Map places of the icons of the last tick: the corner plus the agreed half-size.
  std::vector<SubPoint> Icons() const {
    constexpr double halfPerTwip = 0.29 * 2540 / 1440;  // of the icon's extent in hundredths of a millimetre
    std::vector<SubPoint> places;
    for (const Primitive& item : surface.Of(Primitive::Kind::Picture))
      if (item.layer == DrawLayer::Transient)
        places.push_back(
            {item.y1 + (item.y2 - item.y1) * halfPerTwip, item.x1 + (item.x2 - item.x1) * halfPerTwip});
    return places;
  }
  RecordingSurface surface;
  MapView view;
  int rebuilds = 0;

 private:
  FakeMapPictures pictures_;
};

class LiveMapTest : public testing::Test {
 protected:
  LiveMapTest() {
    platform_.settingsFile = folder_.SettingsFile();
    LoadSettings();
    LanguageFile = "English.ini";
    ReadMagnitudes(ProgramFolder::Read(folder_.Path("magnitud.dat")));
    folder_.Write("Halvorine.ini", ProgramFolder::Read(folder_.Path("elements/sample.txt")));
    LoadActiveList();
    DecodeActiveList();
    TickEnabled = SatelliteTickEnabled = true;
  }
  void Tick(int second) {
    platform_.clockUtc = AddSeconds(DateOf(2022, 6, 14), 20 * 3600 + 8 * 60 + 41 + second);
    tmrCentrale_Timer();
  }
  ProgramFolder folder_;
  FakePlatform platform_;
  CallLog log_;
  FakeMainForm main_;
  FakeTime time_{log_};
  std::vector<std::vector<SubPoint>> reference_ = ReferencePoints();
};

TEST_F(LiveMapTest, EverySatelliteStandsAtItsSubPointEachSecondOnTheFlatMap) {
  RecordingMap map(log_);
  map.Genera_mappa();
  for (int second = 0; second < seconds; ++second) {
    map.surface.drawn.clear();
    Tick(second);
    const std::vector<SubPoint> icons = map.Icons();
    const std::vector<SubPoint>& expected = reference_[static_cast<std::size_t>(second)];
    ASSERT_EQ(icons.size(), expected.size()) << "second " << second;
    for (std::size_t i = 0; i < icons.size(); ++i) {
      ASSERT_NEAR(icons[i].latitude, expected[i].latitude, tolerance) << second << " satellite " << i + 1;
      // near a pole a hundredth of a degree is little on the ground and much in longitude
      const double scale = std::cos(expected[i].latitude * degree);
      ASSERT_NEAR(std::remainder(icons[i].longitude - expected[i].longitude, 360) * scale, 0, tolerance)
          << second << " satellite " << i + 1;
    }
  }
  EXPECT_EQ(map.rebuilds, 2) << "once at the beginning, once at the sixty-first tick";
  EXPECT_TRUE(platform_.messages.empty());
}

}  // namespace
}  // namespace halvorine
