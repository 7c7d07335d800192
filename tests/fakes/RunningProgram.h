// The whole program without a screen: main window, shipped data, a set clock, a store of its own. Base of
// window tests that begin with a started program.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <memory>

#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "shell/MDIForm1.h"
#include "shell/base/mReg.h"
#include "shell/base/qtForms.h"
#include "shell/mStart.h"
#include "shell/qtApplication.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {

class RunningProgram : public testing::Test {
 protected:
  RunningProgram() {
    for (const int index : {Primary, Secondary}) {
      DatabaseOf(index).Erase();  // what the test before has read
      ChangeSortKey(index, SortKey::Name);
    }
    platform_.settingsFile = folder_.SettingsFile();
    platform_.onYield = [] { QCoreApplication::processEvents(); };
    platform_.clockUtc = DateOf(2022, 6, 14) + 0.5;
    SaveRegistryString(settingsApplication, "Generali", "Lingua", "English.ini");
    SaveRegistryString(settingsApplication, "Database", "Primario", folder_.Path("elements/sample.txt"));
    RegisterWindows();
  }
  ~RunningProgram() override {
    UnloadAllForms("MDIForm1");
    window_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  /// Starts the program following the first satellites of the sample.
  void Start(int followed = 0) {
    const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
    std::size_t end = 0;
    for (int line = 0; line < 3 * followed; ++line) end = sample.find('\n', end) + 1;
    if (followed > 0) folder_.Write("Halvorine.ini", sample.substr(0, end));
    StartStageOne({.chooseLanguage = [] {}});
    window_ = std::make_unique<MDIForm1>();
    window_->Load();
    window_->activateWindow();
    QCoreApplication::processEvents();
  }
  QAction* Item(const char* name) { return Control<QAction>(window_.get(), name); }
  QMenu* Menu(const char* name) { return Control<QMenu>(window_.get(), name); }
  QWidget* Form(const char* name) { return Control<QWidget>(window_.get(), name); }
  QString Panel(int number) { return Control<QLabel>(window_.get(), "StatusBar1.Panels", number)->text(); }

  ProgramFolder folder_;
  FakePlatform platform_;
  std::unique_ptr<MDIForm1> window_;
};

}  // namespace halvorine
