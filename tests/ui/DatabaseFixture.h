// What the tests of the catalogue window share: the running program with the sample, and the hands in the
// window.
#pragma once

#include <algorithm>
#include <string>

#include "catalogue/frmDatabase.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {

class DatabaseTest : public RunningProgram {
 protected:
  DatabaseTest() {
    platform_.clockUtc = DateOf(2022, 6, 16);
    DatabaseStats = {};  // of the test before
    Start();
  }
  frmDatabase& Open() {
    auto& window = dynamic_cast<frmDatabase&>(*LoadForm("frmDatabase"));
    window.ShowForm();
    QCoreApplication::processEvents();
    return window;
  }
  std::string Sample() const { return folder_.Path("elements/sample.txt"); }
  frmDatabase& OpenWithSample() {
    Database_satelliti(Sample());
    return Open();
  }
  static void Click(const frmDatabase& window, const char* name, int index = -1) {
    RunningProgram::Click(&window, name, index);
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
};

}  // namespace halvorine
