// The general sky chart at 1600 x 900 with everything on it: rebuild, picking and read-out.
#include <string>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "bench/Figures.h"
#include "maps/qtSurface.h"
#include "shell/base/mFiles.h"
#include "shell/base/mReg.h"
#include "sky/mGeneralSky.h"
#include "sky/mStars.h"
#include "sky/qtSkyPictures.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {
namespace {

class GeneralSkyScene {
 public:
  GeneralSkyScene() {
    ResetSharedRecords();
    AppPath = TEST_PROGRAM_DIR;
    Impostazioni_default();
    LoadSkyData();
    ReadSkyObjects(ReadProgramFile("\\planets.dat"));
    CurrentDate = DateOf(2022, 6, 15) + 22.5 / 24;
    view.Pictures = &pictures_;
    view.StarCount = CatalogueStars;
    view.Switches = {true, true, true, true, true, true, true};
    surface.Resize(QSize(1600, 900), 1);
    Genera_mappa(surface, view);
  }
  ~GeneralSkyScene() { ResetSharedRecords(); }
  GeneralSkyScene(const GeneralSkyScene&) = delete;
  GeneralSkyScene& operator=(const GeneralSkyScene&) = delete;

  PixmapSurface surface;
  GeneralSkyView view;

 private:
  FakePlatform platform_;
  QtSkyPictures pictures_;
};

const FigureRegistration rebuild({"general chart with 9010 stars, everything on, 1600 x 900", 120, "ms", [] {
                                    GeneralSkyScene scene;
                                    return MedianMilliseconds(
                                        11, {}, [&] { Genera_mappa(scene.surface, scene.view); });
                                  }});
const FigureRegistration picking({"picking among 9010 stars on the general chart", 1, "ms", [] {
                                    GeneralSkyScene scene;
                                    return MedianMilliseconds(
                                        101, {}, [&] { PickInGeneralSky(scene.view.Box, 9010, 11.1, -3.3); });
                                  }});
const FigureRegistration readout({"mouse read-out of the general chart", 0.2, "ms", [] {
                                    return MedianMilliseconds(
                                        101, {}, [] { GeneralSkyReadout(11.1234, -3.3456, "RA", "Dec."); });
                                  }});

}  // namespace
}  // namespace halvorine
