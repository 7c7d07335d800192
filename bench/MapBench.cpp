// The world map at 1600 x 900 with 200 satellites: what a tick draws and shows, and a whole rebuild.
#include <QImage>
#include <QPainter>
#include <memory>

#include "astro/mAstro.h"
#include "bench/Figures.h"
#include "maps/mMapDraw.h"
#include "maps/qtMapPictures.h"
#include "orbit/mSat.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mReg.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {
namespace {

constexpr int width = 1600, height = 900;  // logical pixels

/// 200 satellites of the sample around its epoch; the sets are taken again where they do not suffice.
class MapScene {
 public:
  explicit MapScene(std::string_view kind) {
    ResetSharedRecords();
    AppPath = TEST_PROGRAM_DIR;
    Impostazioni_default();
    Site.Place = "Italy: Milano";
    MagnitudeTable.assign(100000, "");
    ReadSatellites();
    view.Kind = kind;
    view.Pictures = &pictures;
    surface.Resize(QSize(width, height), 1);
    Genera_mappa(surface, view);
  }
  ~MapScene() { ResetSharedRecords(); }
  MapScene(const MapScene&) = delete;
  MapScene& operator=(const MapScene&) = delete;

  void DrawTick() {
    for (int slot = 1; slot <= ActiveCount; ++slot) Disegna_satellite(surface, view, slot);
    Disegna_visibilita(surface, view);
  }
  void Show() {
    QPainter painter(&screen);
    surface.PaintOn(painter);
  }

  PixmapSurface surface;
  MapView view;

 private:
  static void ReadSatellites() {
    const std::string text = ReadWholeFile(std::string(TEST_SOURCE_DIR) + "/data/elements/sample.txt");
    while (ActiveCount < MaxActive) {
      LineReader lines(text);
      for (std::string_view name, line1, line2;
           ActiveCount < MaxActive && lines.Next(name) && lines.Next(line1) && lines.Next(line2);)
        Estrai_Dati_Satellite(++ActiveCount, std::string(name), std::string(line1), std::string(line2));
    }
    CurrentDate = JulianDayToLocalDate(ElementSets[1].EpochJulianDay + 0.3);
    UpdateSiderealTime(CurrentDate);
    ComputeSun();
    for (int slot = 1; slot <= ActiveCount; ++slot)
      ComputeSatelliteState(slot, ClockFields.JulianDayNow + slot * 0.001);
  }

  FakePlatform platform_;
  QtMapPictures pictures;
  QImage screen{QSize(width, height), QImage::Format_RGB32};
};

double TickMilliseconds(std::string_view kind) {
  MapScene scene(kind);
  return MedianMilliseconds(101, {}, [&scene] {
    scene.DrawTick();
    scene.Show();
  });
}

double RebuildMilliseconds(std::string_view kind) {
  MapScene scene(kind);
  return MedianMilliseconds(11, {}, [&scene] {
    Genera_mappa(scene.surface, scene.view);
    scene.DrawTick();
    scene.Show();
  });
}

const FigureRegistration flatTick({"tick on the flat map, 200 satellites with names, 1600 x 900", 2, "ms",
                                   [] { return TickMilliseconds(kindRecta); }});
const FigureRegistration globeTick({"tick on the globe, 200 satellites with names, 1600 x 900", 2, "ms",
                                    [] { return TickMilliseconds(kindOrtho); }});
const FigureRegistration flatRebuild({"full rebuild of the flat map, 1600 x 900", 150, "ms",
                                      [] { return RebuildMilliseconds(kindRecta); }});
const FigureRegistration globeRebuild({"full rebuild of the globe, 1600 x 900", 150, "ms",
                                       [] { return RebuildMilliseconds(kindOrtho); }});

}  // namespace
}  // namespace halvorine
