// The local sky at 1600 x 900: rebuilds with few and with all stars, a tick with 200 satellites, picking and
// the read-out under the mouse.
#include <QImage>
#include <QPainter>

#include "astro/mAstro.h"
#include "bench/Figures.h"
#include "orbit/mSat.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mReg.h"
#include "sky/mSkyDraw.h"
#include "sky/mStars.h"
#include "sky/qtSkyPictures.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {
namespace {

constexpr int width = 1600, height = 900;  // logical pixels

/// An evening over Milan with everything on and a transit under way; 200 satellites above the horizon.
class SkyScene {
 public:
  explicit SkyScene(int stars, bool horizontalGrid = true) {
    ResetSharedRecords();
    AppPath = TEST_PROGRAM_DIR;
    LanguageFile = "English.ini";
    Impostazioni_default();
    Site.Latitude = 45.4642F;
    Site.Longitude = 9.19F;
    Site.TimeZone = 2;
    LoadSkyData();
    ReadSkyObjects(ReadProgramFile("\\planets.dat"));
    CurrentDate = 44727 + 22.0 / 24;
    for (int slot = 1; slot <= MaxActive; ++slot) PutSatellite(slot);
    view.Pictures = &pictures_;
    view.StarCount = stars;
    view.Switches = {true, true, horizontalGrid, true, true, true, true, true, true, true, true};
    for (int i = 0; i < 40; ++i)
      view.Track.Points.push_back({0, 0, CurrentDate, {}, 90.0 + i, 80.0 - 2 * i, 2});
    for (int i = 0; i < 4; ++i) AddTimeMark(view.Track, 10 * i, 10.0 * i, 10.0 * i);
    surface.Resize(QSize(width, height), 1);
    Genera_mappa(surface, view);
  }
  ~SkyScene() { ResetSharedRecords(); }
  SkyScene(const SkyScene&) = delete;
  SkyScene& operator=(const SkyScene&) = delete;

  void DrawTick() {
    for (int slot = 1; slot <= ActiveCount; ++slot) Disegna_satellite_in_cielo(surface, view, slot);
  }
  void Show() {
    QPainter painter(&screen_);
    surface.PaintOn(painter);
  }

  PixmapSurface surface;
  SkyView view;

 private:
  static void PutSatellite(int slot) {
    ActiveCount = static_cast<std::int16_t>(slot);
    ElementSets[slot].Name = "Satellite " + std::to_string(slot);
    SatelliteStates[slot].Condition = 1 + slot % 3;
    SatelliteStates[slot].Azimuth = 37.0 * slot - 360.0 * (37 * slot / 360);
    SatelliteStates[slot].Elevation = 5 + slot % 80;
  }

  FakePlatform platform_;
  QtSkyPictures pictures_;
  QImage screen_{QSize(width, height), QImage::Format_RGB32};
};

double RebuildMilliseconds(int stars, bool horizontalGrid) {
  SkyScene scene(stars, horizontalGrid);
  return MedianMilliseconds(11, {}, [&scene] {
    Genera_mappa(scene.surface, scene.view);
    scene.DrawTick();
    scene.Show();
  });
}

double TickMilliseconds() {
  SkyScene scene(1639);
  return MedianMilliseconds(101, {}, [&scene] {
    scene.DrawTick();
    scene.Show();
  });
}

double PickMilliseconds() {
  SkyScene scene(9010);
  double found = 0;
  const double time = MedianMilliseconds(101, {}, [&] {
    if (const std::optional<SkyPick> pick = PickInSky(scene.view.Places, scene.view.Box, 30, -20))
      found += pick->Star;
  });
  return found > 0 ? time : 1e9;
}

double ReadoutMilliseconds() {
  SkyScene scene(1639);
  std::size_t length = 0;
  const double time =
      MedianMilliseconds(101, {}, [&] { length += SkyReadout(scene.view.Projection, true, 30, -20).size(); });
  return length > 0 ? time : 1e9;
}

const FigureRegistration few({"local sky: rebuild, 1639 stars, everything on, 1600 x 900", 60, "ms",
                              [] { return RebuildMilliseconds(1639, true); }});
const FigureRegistration equatorial({"local sky: the same with the equatorial grid", 60, "ms",
                                     [] { return RebuildMilliseconds(1639, false); }});
const FigureRegistration all({"local sky: rebuild, 9010 stars, everything on, 1600 x 900", 150, "ms",
                              [] { return RebuildMilliseconds(9010, false); }});
const FigureRegistration tick({"local sky: tick, 200 satellites with names, 1600 x 900", 20, "ms",
                               [] { return TickMilliseconds(); }});
const FigureRegistration pick({"local sky: picking among 9010 stars", 1, "ms",
                               [] { return PickMilliseconds(); }});
const FigureRegistration readout({"local sky: coordinates under the mouse", 0.2, "ms",
                                  [] { return ReadoutMilliseconds(); }});

}  // namespace
}  // namespace halvorine
