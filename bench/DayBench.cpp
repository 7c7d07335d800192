// A day of the running program, second by second on a set clock, with map, charts and panels open: what it
// has left behind at the end.
#include <malloc.h>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <map>
#include <memory>

#include "astro/mConv.h"
#include "bench/Figures.h"
#include "shell/MDIForm1.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mReg.h"
#include "shell/base/qtForms.h"
#include "shell/mStart.h"
#include "shell/mTick.h"
#include "shell/qtApplication.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

constexpr int secondsADay = 86400, secondsToRebuild = 60;
/// An hour unless HALVORINE_TICKS tells how many seconds are lived through.
int Seconds() {
  const int told = qEnvironmentVariableIntValue("HALVORINE_TICKS");
  return told > 0 ? told : secondsADay / 24;
}
constexpr const char* shown[] = {"frmWorldMap", "frmLocalSky", "frmGeneralSky", "frmSatellite", "frmTrack",
                                 "frmPlanets",  "frmFloating", "frmTime",       "frmDatabase"};

/// What is allocated, MiB; what other figures have freed and left in pieces does not count.
double MemoryInUse() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd) / 1048576;
}

/// What a day has left behind.
struct Remains {
  double MiB = 0, Objects = 0, Pictures = 0;
};

class Day {
 public:
  Day() {
    platform_.settingsFile = folder_.SettingsFile();
    platform_.clockUtc = begin_;
    SaveRegistryString(settingsApplication, "Generali", "Lingua", "English.ini");
    RegisterWindows();
    const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
    std::size_t end = 0;
    for (int line = 0; line < 3 * followed; ++line) end = sample.find('\n', end) + 1;
    folder_.Write("Halvorine.ini", sample.substr(0, end));
    StartStageOne({.chooseLanguage = [] {}});
    main_ = std::make_unique<MDIForm1>();
    main_->Load();
    for (const char* const name : shown) LoadForm(name)->Show();
  }
  ~Day() {
    UnloadAllForms("MDIForm1");
    main_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  Day(const Day&) = delete;
  Day& operator=(const Day&) = delete;

  Remains Live() {
    // all once first: what is made at a first use stays
    PassOnBothMaps(2 * secondsToRebuild);
    const auto before = Pictures();
    PassOnBothMaps(2 * secondsToRebuild);
    const double objects = Objects(), memory = MemoryInUse();
    PassOnBothMaps(Seconds() / 2);
    Remains remains{.MiB = MemoryInUse() - memory, .Objects = Objects() - objects};
    for (const auto& [name, picture] : Pictures())
      if (picture != before.at(name)) ++remains.Pictures;
    return remains;
  }

 private:
  static constexpr int followed = 10;

  /// So many ticks, each shown; timers of charts ring at their seconds.
  void Pass(int seconds) {
    for (int second = 1; second <= seconds; ++second) {
      platform_.clockUtc += 1.0 / secondsADay;
      tmrCentrale_Timer();
      if (second % secondsToRebuild == 0)
        for (const char* const name : {"tmrLocalSky", "tmrGeneralSky"})
          for (QTimer* const timer : main_->findChildren<QTimer*>(QString::fromLatin1(name)))
            QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
  }
  void PassOnBothMaps(int seconds) {
    for (const char* const kind : {"Ortho", "Recta"}) {
      dynamic_cast<WorldMapCalls*>(LoadedForm("frmWorldMap"))->ShowKind(kind);
      Pass(seconds);
    }
  }
  /// The windows as they are at the first second of the day.
  std::map<std::string, QImage> Pictures() {
    platform_.clockUtc = begin_ - 1.0 / secondsADay;
    Pass(secondsToRebuild);
    // the map's own rebuild may have been up to a minute ago
    dynamic_cast<WorldMapCalls*>(LoadedForm("frmWorldMap"))->Genera_mappa();
    MinuteCounter = 0;
    Pass(1);
    std::map<std::string, QImage> pictures;
    for (const char* const name : shown)
      pictures[name] = dynamic_cast<QWidget*>(LoadedForm(name))->grab().toImage();
    return pictures;
  }
  /// Windows and all that they hold, and timers.
  double Objects() const {
    qsizetype count = 0;
    for (const QWidget* const window : QApplication::topLevelWidgets())
      count += 1 + window->findChildren<QObject*>().size();
    return static_cast<double>(count + qApp->findChildren<QObject*>().size());
  }

  static inline const Date begin_ = DateOf(2022, 6, 14) + 0.5;
  ProgramFolder folder_;
  FakePlatform platform_;
  std::unique_ptr<MDIForm1> main_;
};

/// The day is lived once for its three figures.
const Remains& OneDay() {
  static const Remains remains = Day().Live();
  return remains;
}

const FigureRegistration figures[] = {
    FigureRegistration(
        {"ticks of an hour or a day, nine windows: growth of memory", 1, "MiB", [] { return OneDay().MiB; }}),
    FigureRegistration(
        {"the same: windows, controls and timers left over", 0, "", [] { return OneDay().Objects; }}),
    FigureRegistration({"the same: pictures not as before", 0, "", [] { return OneDay().Pictures; }}),
};

}  // namespace
}  // namespace halvorine
