// What the tests of the catalogue window share: shipped tables and sample, and the hands that click in it.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <string>

#include "catalogue/frmDatabase.h"
#include "catalogue/mTables.h"
#include "shell/base/mLang.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {

/// Folder for pictures of the windows, from the environment; no pictures without it.
inline void SavePicture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("HALVORINE_PICTURES");
  if (!folder.isEmpty()) window.grab().save(QDir(folder).filePath(name + QStringLiteral(".png")));
}

class DatabaseTest : public testing::Test {
 protected:
  DatabaseTest() {
    ResetSharedRecords();
    ResetForms();
    PrimaryDatabase.Erase();
    SecondaryDatabase.Erase();
    DatabaseStats = {};
    for (const int index : {Primary, Secondary}) ChangeSortKey(index, SortKey::Name);
    AppPath = TEST_SOURCE_DIR "/data";
    SetLanguage("English.ini");
    LoadMagnitudes();
    LoadFrequencies();
    ClockFields.JulianDayNow = 2459746.5;
    MakeLoadable<frmDatabase>("frmDatabase");
    platform.onYield = [] { QCoreApplication::processEvents(); };
  }
  ~DatabaseTest() override {
    UnloadAllForms({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ResetForms();
    LanguageLoaded = false;
  }

  static void SetLanguage(const std::string& file) {
    LanguageFile = file;
    LanguageLoaded = false;
  }
  frmDatabase& Open() {
    auto& window = dynamic_cast<frmDatabase&>(*LoadForm("frmDatabase"));
    window.ShowForm();
    QCoreApplication::processEvents();
    return window;
  }
  static std::string Sample() { return AppPath + "/elements/sample.txt"; }
  frmDatabase& OpenWithSample() {
    Database_satelliti(Sample());
    return Open();
  }

  static void Click(const frmDatabase& window, const char* name, int index = -1) {
    QTest::mouseClick(Control<QPushButton>(&window, name, index), Qt::LeftButton);
  }
  static void ClickRow(const RowList* list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QModelIndex index = list->model()->index(row, 0);
    const_cast<RowList*>(list)->scrollTo(index);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, list->visualRect(index).center());
  }
  static QString TextOf(const frmDatabase& window, const char* name, int index = -1) {
    return Control<QLabel>(&window, name, index)->text();
  }
  static QStringList RowsOf(const RowList* list, int count) {
    QStringList rows;
    for (int row = 0; row < std::min(count, list->RowCount()); ++row)
      rows.push_back(list->model()->index(row, 0).data().toString());
    return rows;
  }

  FakePlatform platform;
};

}  // namespace halvorine
