// The window of pass predictions over a whole database, against the engine alone; and one satellite for
// weeks.
#include <QApplication>
#include <QHeaderView>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <limits>

#include "bench/Figures.h"
#include "catalogue/mCatalogue.h"
#include "controls/frmProgress.h"
#include "prediction/frmVisibleSatellites.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/ManySets.h"

namespace halvorine {
namespace {

constexpr int entryCount = 30000;

double NowMilliseconds() {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

/// The real clock and real events; notes the longest time without a yield.
class WatchedPlatform : public FakePlatform {
 public:
  std::int64_t Milliseconds() override { return static_cast<std::int64_t>(NowMilliseconds()); }
  void Yield() override {
    Note();
    QCoreApplication::processEvents();
  }
  void Begin() {
    last_ = NowMilliseconds();
    longestGap = 0;
  }
  void Note() {
    const double now = NowMilliseconds();
    longestGap = std::max(longestGap, now - last_);
    last_ = now;
  }
  double longestGap = 0;

 private:
  double last_ = 0;
};

class Passes : public PassWatcher {
 public:
  void Found(const PassRecord& /*pass*/) override { ++count; }
  int count = 0;
};

/// The window over a database of many entries; all its passes of a day are listed once, for all figures.
class PassWindow {
 public:
  PassWindow() {
    ResetSharedRecords();
    ResetForms();
    AppPath = TEST_SOURCE_DIR "/data";
    LanguageFile = "English.ini";
    LanguageLoaded = false;
    ReadLanguageDates();
    Impostazioni_default();
    Options.InTransit = 0;
    MagnitudeTable.assign(100000, "5.1");
    Site = {"", 45.4642F, 9.19F, 122, 1, 0};
    CurrentDate = DateOf(2018, 1, 21);
    entries_ = ManySets(entryCount);
    std::string text;
    for (const DatabaseEntry& entry : entries_)
      text.append(entry.name).append("\n").append(entry.line1).append("\n").append(entry.line2).append("\n");
    path_ = (std::filesystem::temp_directory_path() /
             ("halvorine_passes_" + std::to_string(QCoreApplication::applicationPid()) + ".txt"))
                .string();
    platform.WriteFile(path_, text);
    MakeLoadable<frmProgress>("frmProgress");
    MakeLoadable<frmVisibleSatellites>("frmVisibleSatellites");
    Database_satelliti(path_);
    LoadForm("frmVisibleSatellites")->Show();
    form_ = dynamic_cast<frmVisibleSatellites*>(LoadedForm("frmVisibleSatellites"));
    QCoreApplication::processEvents();
  }
  ~PassWindow() {
    UnloadAllForms({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ResetForms();
    PrimaryDatabase.Erase();
    ChangeSortKey(Primary, SortKey::Name);
    std::filesystem::remove(path_);
  }
  PassWindow(const PassWindow&) = delete;
  PassWindow& operator=(const PassWindow&) = delete;

  /// Milliseconds from the click on Compute to the list in sight.
  double Run() {
    auto* const duration = Control<QComboBox>(form_, "cmbDurata", AllSatellites);
    duration->setCurrentIndex(duration->count() - 1);
    const double begin = NowMilliseconds();
    platform.Begin();
    Control<QPushButton>(form_, "cmdOK", AllSatellites)->click();
    QCoreApplication::processEvents();
    platform.Note();
    return NowMilliseconds() - begin;
  }
  double EngineAlone() {
    PassQuery query = FilterInForce(AllSatellites, false);
    query.tStart = PassStart(CurrentDate);
    query.tEnd = query.tStart + 1;
    Passes passes;
    const double begin = NowMilliseconds();
    PassEngine(query, passes).RunDatabase(entries_);
    const double taken = NowMilliseconds() - begin;
    return passes.count == Model().rowCount() ? taken : 0;
  }
  PassTreeView& View() { return *Control<PassTreeView>(form_, "lvwPass", AllSatellites); }
  PassModel& Model() { return dynamic_cast<PassModel&>(*View().model()); }
  /// The slowest column, from the click on its heading to the list in sight.
  double SlowestSort() {
    double slowest = 0;
    for (int column = 0; column < DurationColumn; ++column)
      slowest = std::max(slowest, MedianMilliseconds(5, {}, [&] {
                           Q_EMIT View().header()->sectionClicked(column);
                           QCoreApplication::processEvents();
                         }));
    return slowest;
  }

  WatchedPlatform platform;

 private:
  std::vector<DatabaseEntry> entries_;
  std::string path_;
  frmVisibleSatellites* form_ = nullptr;
};

double DriverAgainstEngine() {
  PassWindow window;
  double best = std::numeric_limits<double>::max(), engine = best;
  for (int round = 0; round < 3; ++round) {
    best = std::min(best, window.Run());
    engine = std::min(engine, window.EngineAlone());
  }
  return best / engine;
}

double LongestGap() {
  PassWindow window;
  window.Run();
  return window.platform.longestGap;
}

double SlowestSort() {
  PassWindow window;
  window.Run();
  return window.Model().rowCount() > 100000 ? window.SlowestSort() : std::numeric_limits<double>::infinity();
}

double FillList() {
  PassWindow window;
  window.Run();
  const PassList list = window.Model().List();
  return MedianMilliseconds(
      5, [&] { window.Model().SetList({}); },
      [&] {
        window.Model().SetList(list);
        window.View().Choose(0);
        QCoreApplication::processEvents();
      });
}

double FourWeeks() {
  const PassWindow window;
  ActiveCount = 1;
  Estrai_Dati_Satellite(1, "", "1 25544U 98067A   18020.89808844  .00002078  00000-0  38550-4 0  9992",
                        "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614");
  return MedianMilliseconds(7, {}, [] {
    RunPasses({.tab = PrincipalSatellite, .noFilter = true, .start = CurrentDate, .duration = 27});
  });
}

const FigureRegistration figures[] = {
    FigureRegistration({"all passes of 30,000 satellites listed, as a multiple of the engine", 1.2, "",
                        DriverAgainstEngine}),
    FigureRegistration({"longest time without a yield meanwhile", 100, "ms", LongestGap}),
    FigureRegistration({"their list filled and shown", 100, "ms", FillList}),
    FigureRegistration({"their list sorted, slowest column", 150, "ms", SlowestSort}),
    FigureRegistration({"passes of one satellite over 28 days", 50, "ms", FourWeeks}),
};

}  // namespace
}  // namespace halvorine
