// The whole program without a screen: main window, shipped data, a set clock, a store of its own. Base of
// window tests that begin with a started program.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>
#include <functional>
#include <memory>

#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "controls/qtLook.h"
#include "shell/MDIForm1.h"
#include "shell/base/mReg.h"
#include "shell/base/qtForms.h"
#include "shell/mStart.h"
#include "shell/mTick.h"
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
  ~RunningProgram() override { EndProgram(); }
  void EndProgram() {
    SwitchNightColours(false);
    UnloadAllForms("MDIForm1");
    window_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  /// Starts the program following the first satellites of the sample.
  void Start(
      int followed = 0, const std::function<void()>& chooseLanguage = [] {}) {
    const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
    std::size_t end = 0;
    for (int line = 0; line < 3 * followed; ++line) end = sample.find('\n', end) + 1;
    if (followed > 0) folder_.Write("Halvorine.ini", sample.substr(0, end));
    StartStageOne({.chooseLanguage = chooseLanguage});
    window_ = std::make_unique<MDIForm1>();
    window_->Load();
    window_->activateWindow();
    QCoreApplication::processEvents();
  }
  /// Gives a command of the menus.
  void Run(const char* command) {
    ASSERT_TRUE(Item(command)->isEnabled()) << command;
    Item(command)->trigger();
    QCoreApplication::processEvents();
  }
  /// Clicks a button of a window, a check box on its mark.
  static void Click(const QWidget* window, const char* name, int index = -1) {
    auto* const button = Control<QAbstractButton>(window, name, index);
    const bool mark = qobject_cast<QPushButton*>(button) == nullptr;
    QTest::mouseClick(button, Qt::LeftButton, {}, mark ? QPoint(8, button->height() / 2) : QPoint());
    QCoreApplication::processEvents();
  }
  static void ClickRow(QAbstractItemView* list, int row, Qt::KeyboardModifiers keys = {},
                       Qt::MouseButton button = Qt::LeftButton) {
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    QTest::mouseClick(list->viewport(), button, keys, list->visualRect(index).center());
    QCoreApplication::processEvents();
  }
  static void ClickHeading(const QTreeView* table, int column) {
    const QHeaderView* const head = table->header();
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {},
                      QPoint(head->sectionViewportPosition(column) + 8, head->height() / 2));
  }
  static void ClickTab(const QTabWidget* pages, int page) {
    QTest::mouseClick(pages->tabBar(), Qt::LeftButton, {}, pages->tabBar()->tabRect(page).center());
  }
  /// Chooses an entry of a list by keys.
  static void ChooseEntry(QComboBox* list, int entry) {
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < entry; ++i) QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->currentIndex(), entry);
  }
  void Tick(double seconds = 1) {
    platform_.clockUtc = AddSeconds(platform_.clockUtc, seconds);
    tmrCentrale_Timer();
  }
  std::string LastMessage() const { return platform_.messages.empty() ? "" : platform_.messages.back().text; }
  QAction* Item(const char* name) { return Control<QAction>(window_.get(), name); }
  QMenu* Menu(const char* name) { return Control<QMenu>(window_.get(), name); }
  QWidget* Form(const char* name) { return Control<QWidget>(window_.get(), name); }
  QString Panel(int number) { return Control<QLabel>(window_.get(), "StatusBar1.Panels", number)->text(); }

  ProgramFolder folder_;
  FakePlatform platform_;
  std::unique_ptr<MDIForm1> window_;
};

}  // namespace halvorine
