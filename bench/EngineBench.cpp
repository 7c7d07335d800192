// One state with its checks against the same arithmetic without any, a tick of 200 satellites, and the start.
#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <limits>
#include <stdexcept>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "bench/Figures.h"
#include "bench/unchecked/Twin.h"
#include "catalogue/mCatalogue.h"
#include "orbit/mSat.h"
#include "shell/MDIForm1.h"
#include "shell/base/mFiles.h"
#include "shell/base/mForms.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "shell/base/mStore.h"
#include "shell/mStart.h"
#include "shell/mTick.h"
#include "shell/qtApplication.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {
namespace {

constexpr const char* name = "ISS (ZARYA)";
constexpr const char* line1 = "1 25544U 98067A   18020.89808844  .00002078  00000-0  38550-4 0  9992";
constexpr const char* line2 = "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614";
constexpr double epoch = 2458139.39808844;

double Seconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Best of many interleaved rounds, so that a busy machine disturbs both alike.
double CheckRatio() {
  constexpr int rounds = 41, states = 4000;
  ResetSharedRecords();
  MagnitudeTable.assign(100000, "");
  Impostazioni_default();
  Site = {"", 45.47F, 9.19F, 133, 0, 0};
  Estrai_Dati_Satellite(1, name, line1, line2);
  TwinTake(name, line1, line2);
  double checked = std::numeric_limits<double>::max(), unchecked = checked;
  for (int round = 0; round < rounds; ++round) {
    checked = std::min(checked, Seconds([] {
                         for (int i = 0; i < states; ++i) ComputeSatelliteState(1, epoch + i * 0.001);
                       }));
    unchecked = std::min(unchecked, Seconds([] {
                           for (int i = 0; i < states; ++i) TwinState(epoch + i * 0.001);
                         }));
  }
  if (TwinState(epoch + 1) != (ComputeSatelliteState(1, epoch + 1), SatelliteStates[1].Azimuth))
    throw std::logic_error("the twin computes another state");
  return checked / unchecked;
}

/// The sample's sets, taken again until 200 slots are full.
void FollowTwoHundred() {
  const std::string text = ReadWholeFile(std::string(TEST_SOURCE_DIR) + "/data/elements/sample.txt");
  while (ActiveCount < MaxActive) {
    LineReader lines(text);
    for (std::string_view a, b, c;
         ActiveCount < MaxActive && lines.Next(a) && lines.Next(b) && lines.Next(c);)
      Estrai_Dati_Satellite(++ActiveCount, std::string(a), std::string(b), std::string(c));
  }
}

double TickMilliseconds() {
  FakePlatform platform;
  ResetSharedRecords();
  ResetForms();
  AppPath = TEST_PROGRAM_DIR;
  MagnitudeTable.assign(100000, "");
  Impostazioni_default();
  FollowTwoHundred();
  platform.clockUtc = DateOf(2022, 6, 16);
  TickEnabled = SatelliteTickEnabled = true;
  return MedianMilliseconds(101, {}, tmrCentrale_Timer);
}

/// From the first step of start-up to the visible main window, the first tick of 200 satellites included.
double StartMilliseconds() {
  FakePlatform platform;
  QTemporaryDir user;
  return MedianMilliseconds(
      5,
      [&] {
        ResetSharedRecords();
        ResetForms();
        ForgetSettings();
        LanguageLoaded = false;
        AppPath = TEST_PROGRAM_DIR;
        UserFolder = user.path().toStdString();
        platform.settingsFile = UserFolder + "/settings.txt";
        platform.clockUtc = DateOf(2022, 6, 16);
        SaveRegistryString(settingsApplication, "Generali", "Lingua", "English.ini");
        std::string list = ReadWholeFile(AppPath + "/elements/sample.txt");
        platform.WriteFile(UserFolder + "/Halvorine.ini", list + list);
        RegisterWindows();
      },
      [] {
        StartStageOne({.chooseLanguage = [] {}});
        MDIForm1 window;
        window.Load();
        UnloadAllForms("MDIForm1");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      });
}

const FigureRegistration checks({"one state, as a multiple of the same arithmetic without checks", 1.15, "",
                                 CheckRatio});
const FigureRegistration tick({"tick of 200 satellites without drawing", 0.3, "ms", TickMilliseconds});
const FigureRegistration start({"start to the end of the first tick, 200 satellites, and the window", 250,
                                "ms", StartMilliseconds});

}  // namespace
}  // namespace halvorine
