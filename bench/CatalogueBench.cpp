#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "bench/Figures.h"
#include "catalogue/frmDatabase.h"
#include "catalogue/mTables.h"
#include "controls/frmProgress.h"
#include "shell/base/mFiles.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {
namespace {

constexpr int entryCount = 30000, firstNumber = 10001;

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

/// A file of many entries out of the sample's sets with numbers of their own, and 200 of them active.
class Catalogue {
 public:
  Catalogue()
      : path_((std::filesystem::temp_directory_path() /
               ("halvorine_bench_" + std::to_string(QCoreApplication::applicationPid()) + ".txt"))
                  .string()) {
    ResetSharedRecords();
    ResetForms();
    AppPath = TEST_SOURCE_DIR "/data";
    LanguageFile = "English.ini";
    LanguageLoaded = false;
    LookupText("Def", "giorni");
    LoadMagnitudes();
    LoadFrequencies();
    ClockFields.JulianDayNow = 2459746.5;
    std::ofstream(path_, std::ios::binary) << Text();
  }
  ~Catalogue() {
    UnloadAllForms({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ResetForms();
    PrimaryDatabase.Erase();
    ChangeSortKey(Primary, SortKey::Name);
    std::filesystem::remove(path_);
  }
  Catalogue(const Catalogue&) = delete;
  Catalogue& operator=(const Catalogue&) = delete;

  void Read() { Database_satelliti(path_); }
  static void MakeWindows() {
    MakeLoadable<frmDatabase>("frmDatabase");
    MakeLoadable<frmProgress>("frmProgress");
  }
  static void Show() {
    LoadForm("frmDatabase")->Show();
    QCoreApplication::processEvents();
  }
  /// Entry numbers of 200 satellites spread over the file.
  static std::vector<int> TwoHundred() {
    std::vector<int> numbers;
    for (int i = 0; i < MaxActive; ++i) numbers.push_back(1 + i * (entryCount / MaxActive));
    return numbers;
  }

 private:
  static std::string Text() {
    const std::string sample = ReadWholeFile(AppPath + "/elements/sample.txt");
    std::vector<std::string> lines;
    LineReader reader(sample);
    for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
    std::string text;
    for (int i = 0; i < entryCount; ++i) {
      const std::size_t at = static_cast<std::size_t>(i) * 3 % (lines.size() / 3 * 3);
      const std::string number = std::to_string(firstNumber + i);
      text += lines[at] + "\r\n" + lines[at + 1].replace(2, 5, number) + "\r\n" +
              lines[at + 2].replace(2, 5, number) + "\r\n";
    }
    return text;
  }

  BenchPlatform platform_;
  std::string path_;
};

double ReadEngine() {
  Catalogue catalogue;
  catalogue.Read();
  AddSelected(Primary, Catalogue::TwoHundred());
  return MedianMilliseconds(7, {}, [&] { catalogue.Read(); });
}

double ReadWithWindow() {
  Catalogue catalogue;
  Catalogue::MakeWindows();
  catalogue.Read();
  AddSelected(Primary, Catalogue::TwoHundred());
  Catalogue::Show();
  return MedianMilliseconds(7, {}, [&] {
    catalogue.Read();
    QCoreApplication::processEvents();
  });
}

double ReadMemory() {
  Catalogue catalogue;
  Catalogue::MakeWindows();
  Catalogue::Show();
  ResetPeakMemory();
  const double before = ProcessMemory("VmRSS");
  catalogue.Read();
  QCoreApplication::processEvents();
  return ProcessMemory("VmHWM") - before;
}

double SlowestSortKey() {
  Catalogue catalogue;
  Catalogue::MakeWindows();
  catalogue.Read();
  Catalogue::Show();
  auto* const sort =
      Control<QComboBox>(dynamic_cast<frmDatabase*>(LoadedForm("frmDatabase")), "cmbOrdina", Primary);
  double slowest = 0;
  for (int key = 1; key <= SortKeyCount; ++key)
    slowest = std::max(slowest, MedianMilliseconds(
                                    5, [&] { sort->setCurrentIndex((key + 1) % SortKeyCount); },
                                    [&] {
                                      sort->setCurrentIndex(key % SortKeyCount);
                                      QCoreApplication::processEvents();
                                    }));
  return slowest;
}

double AddTwoHundred() {
  Catalogue catalogue;
  Catalogue::MakeWindows();
  catalogue.Read();
  Catalogue::Show();
  return MedianMilliseconds(
      5, [] { ClearActive(); },
      [] {
        AddSelected(Primary, Catalogue::TwoHundred());
        QCoreApplication::processEvents();
      });
}

double SelectAboveHorizon() {
  Catalogue catalogue;
  Impostazioni_default();
  Site = {"", 45.47F, 9.19F, 133, 0, 0};
  Catalogue::MakeWindows();
  catalogue.Read();
  Catalogue::Show();
  auto* const window = dynamic_cast<frmDatabase*>(LoadedForm("frmDatabase"));
  auto* const button = Control<QPushButton>(window, "cmdVisibili", Primary);
  return MedianMilliseconds(5, {}, [&] {
    button->click();
    QCoreApplication::processEvents();
  });
}

double OpenWindow() {
  Catalogue catalogue;
  Catalogue::MakeWindows();
  catalogue.Read();
  return MedianMilliseconds(
      5,
      [] {
        UnloadAllForms({});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      },
      [] { Catalogue::Show(); });
}

const FigureRegistration figures[] = {
    // first of all: what other figures have freed would hide what this one takes
    FigureRegistration({"memory of the read at its peak, above before", 100, "MiB", ReadMemory}),
    FigureRegistration({"read 30,000 entries with 200 active, engine", 60, "ms", ReadEngine}),
    FigureRegistration({"the same with window and progress", 250, "ms", ReadWithWindow}),
    FigureRegistration({"change of sort key, slowest of ten", 60, "ms", SlowestSortKey}),
    FigureRegistration({"selecting those above the horizon of 30,000", 120, "ms", SelectAboveHorizon}),
    FigureRegistration({"adding 200 satellites", 100, "ms", AddTwoHundred}),
    FigureRegistration({"catalogue window opens on 30,000 rows", 150, "ms", OpenWindow}),
};

}  // namespace
}  // namespace halvorine
