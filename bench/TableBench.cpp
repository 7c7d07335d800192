#include <QCoreApplication>
#include <chrono>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "bench/Figures.h"
#include "catalogue/mTables.h"
#include "controls/frmProgress.h"
#include "orbit/mSat.h"
#include "prediction/frmDetails.h"
#include "prediction/mRelative.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {
namespace {

constexpr int rowCount = 10000, stepSeconds = 60;

/// The real clock and real events behind the platform of the tests.
class BenchPlatform : public FakePlatform {
 public:
  std::int64_t Milliseconds() override {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
  }
  void Yield() override { QCoreApplication::processEvents(); }
};

/// Two satellites of the sample, and the window that shows their tables.
double TableWithList(bool two) {
  BenchPlatform platform;
  ResetSharedRecords();
  ResetForms();
  AppPath = TEST_SOURCE_DIR "/data";
  LanguageFile = "English.ini";
  LanguageLoaded = false;
  Impostazioni_default();
  LoadMagnitudes();
  Site = {"", 45.47F, 9.19F, 133, 1, 1};
  CurrentDate = DateOf(2022, 6, 14) + 0.5;
  UpdateSiderealTime(CurrentDate);
  Estrai_Dati_Satellite(ScratchSlot, "ISS (ZARYA)",
                        "1 25544U 98067A   22166.98291539  .00007389  00000+0  13721-3 0  9996",
                        "2 25544  51.6447 342.5501 0004194 242.9750 255.0959 15.50021518344998");
  Estrai_Dati_Satellite(RelativeSlot, "NOAA 19",
                        "1 33591U 09005A   22167.07413971  .00000185  00000+0  12503-3 0  9992",
                        "2 33591  99.1475 201.1822 0013817 187.7309 172.3651 14.12576913687992");
  MakeLoadable<frmDetails>("frmDetails");
  MakeLoadable<frmProgress>("frmProgress");
  auto* const window = Load<DetailsCalls>("frmDetails");
  window->Show();
  const double time = MedianMilliseconds(5, {}, [&] {
    double step = stepSeconds;
    const Date end = AddSeconds(CurrentDate, (rowCount - 1) * stepSeconds);
    if (two)
      window->Genera_relativo(CurrentDate, end, step, ObserverTable);
    else
      window->Genera_elenco(ScratchSlot, CurrentDate, end, step, ObserverTable);
    QCoreApplication::processEvents();
  });
  const int shown = Control<RowList>(dynamic_cast<QWidget*>(window), "List1")->RowCount();
  if (shown < rowCount) throw RuntimeFailure("a table of " + std::to_string(shown) + " rows");
  UnloadAllForms({});
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ResetForms();
  return time;
}

const FigureRegistration figures[] = {
    FigureRegistration(
        {"table of 10,000 rows with its list", 200, "ms", [] { return TableWithList(false); }}),
    FigureRegistration({"the same of two satellites", 200, "ms", [] { return TableWithList(true); }}),
};

}  // namespace
}  // namespace halvorine
