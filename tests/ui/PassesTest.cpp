// The window of pass predictions, driven by clicks and keys in the running program.
#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>

#include "controls/qtPrint.h"
#include "orbit/mSearch.h"
#include "prediction/frmVisibleSatellites.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mText.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class PassesTest : public RunningProgram {
 protected:
  ~PassesTest() override { SetPrinterAnswer({}); }
  void Open(int followed) {
    Start(followed);
    window_->RunCommand("mnuSatellitiPrevisioniPassaggi");
    QCoreApplication::processEvents();
    form_ = dynamic_cast<frmVisibleSatellites*>(LoadedForm("frmVisibleSatellites"));
    ASSERT_NE(form_, nullptr);
  }
  void Page(int index) { ClickTab(Control<QTabWidget>(form_, "SSTab1"), index); }
  void Click(const char* name, int index = -1) { RunningProgram::Click(form_, name, index); }
  void Choose(const char* combo, int index, int row) {
    ChooseEntry(Control<QComboBox>(form_, combo, index), row);
  }
  void ClickHeading(int index, int column) { RunningProgram::ClickHeading(Passes(index), column); }
  void Menu(const char* name) {
    Q_EMIT Control<QMenu>(form_, "mnuFile")->aboutToShow();
    Control<QAction>(form_, name)->trigger();
  }
  PassTable* Passes(int index) { return Control<PassTable>(form_, "lvwPass", index); }
  RowList* Report(int index) { return Control<RowList>(form_, "lstPass", index); }
  const PassList& List(int index) { return dynamic_cast<PassModel*>(Passes(index)->model())->List(); }
  QString Cell(int index, int row, int column) {
    return Passes(index)->model()->index(row, column - 1).data().toString();
  }
  bool Enabled(const char* name, int index = -1) {
    return Control<QPushButton>(form_, name, index)->isEnabled();
  }
  static std::string Word(const char* key) { return LookupText("frmVisibleSatellites", key); }

  frmVisibleSatellites* form_ = nullptr;
};

TEST_F(PassesTest, OpensWithTheStoredFiltersAndSaysWhatIsMissing) {
  SaveRegistryString("Halvorine", "Filtri", "PM secondari", "0");
  Open(0);
  EXPECT_EQ(Control<QDateTimeEdit>(form_, "DTPicker1", 1)->dateTime(),
            QDateTime(QDate(2022, 6, 14), QTime(13, 0), Qt::UTC));
  EXPECT_TRUE(Control<QCheckBox>(form_, "chkAM", 2)->isChecked());
  EXPECT_FALSE(Control<QCheckBox>(form_, "chkPM", 2)->isChecked());
  EXPECT_TRUE(Control<QCheckBox>(form_, "chkTransito")->isChecked());
  EXPECT_FALSE(Enabled("cmdDettagli", 0) || Enabled("cmdMappa", 0) || Enabled("cmdAttiva"));
  for (const int hidden : {7, 8}) EXPECT_TRUE(Passes(0)->header()->isSectionHidden(hidden));
  EXPECT_EQ(Passes(0)->header()->sectionSize(1), 160);
  EXPECT_EQ(Report(0)->height(), 249);
  EXPECT_EQ(Control<QLabel>(form_, "lblFiltro", 0)->text(), "Alt. > 10°    Az. 0° – 360°");
  Click("chkNessunFiltro", 0);
  EXPECT_EQ(Control<QLabel>(form_, "lblFiltro", 0)->text(), "Alt. > 0°    Az. 0° – 360°");
  Menu("mnuSalva");
  EXPECT_TRUE(platform_.fileQuestions.empty()) << "nothing to save, no chooser";

  Click("cmdOK", 0);
  ASSERT_EQ(LastMessage(), LookupText("MDIForm1", "necessariodb"));
  EXPECT_EQ(platform_.messages.back().buttons, MessageButtons::OkCancel);
  Click("chkAM", 0);
  Click("chkPM", 0);
  Click("cmdOK", 0);
  EXPECT_EQ(LastMessage(), Word("selezionareampm"));
  Page(1);
  Click("cmdOK", 1);
  EXPECT_EQ(LastMessage(), Word("nessunsatelliteprimario"));
  Page(2);
  Click("cmdOK", 2);
  EXPECT_EQ(LastMessage(), Word("nessunsatellitesecondario"));
  Page(0);
  Click("chkAM", 0);
  Options.FilterAll.MinAzimuth = 360;
  platform_.answers = {MessageAnswer::Ok};  // the database is read, and the command goes on by itself
  Click("cmdOK", 0);
  EXPECT_EQ(ListedRows(Primary)->Count(), 175);
  EXPECT_EQ(LastMessage(), Word("intervalloazimutherrato"));
  Options.FilterAll = {-1, -1, 0, 89.99, 0, 360};
  Click("chkNessunFiltro", 0);
  Click("cmdOK", 0);
  EXPECT_EQ(LastMessage(), Word("nessunpassaggio"));
  Click("cmdHelp", 2);
  EXPECT_EQ(platform_.helpTopics, std::vector<int>{152});
  QTest::keyClick(form_, Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_TRUE(IsFormLoaded("frmVisibleSatellites"));
}

TEST_F(PassesTest, AllSatellitesAreSearchedSortedShownAndDetailed) {
  CallLog log;
  Open(3);
  FakeSkySat chart(log);
  Database_satelliti(folder_.Path("elements/sample.txt"));
  Click("chkTransito");
  Choose("cmbDurata", 0, 6);
  QTest::keyClick(form_, Qt::Key_Return);
  QCoreApplication::processEvents();
  const int count = List(0).Count();
  ASSERT_GT(count, 150);
  EXPECT_EQ(Passes(0)->currentIndex().row(), 0) << "the first row is as if clicked";
  ASSERT_EQ(Report(0)->RowCount(), 3);
  EXPECT_EQ(Report(0)->currentIndex().row(), 1);
  const QString first = Cell(0, 0, 1);

  ClickHeading(0, 0);
  for (int row = 1; row < count; ++row) ASSERT_LE(Cell(0, row - 1, 8), Cell(0, row, 8));
  EXPECT_EQ(Cell(0, Passes(0)->currentIndex().row(), 1), first) << "the chosen pass stays chosen";
  const QString earliest = Cell(0, 0, 1);
  ClickHeading(0, 0);
  EXPECT_EQ(Cell(0, count - 1, 1), earliest);
  ClickHeading(0, 5);
  for (int row = 1; row < count; ++row) ASSERT_LE(Cell(0, row - 1, 9), Cell(0, row, 9));

  ClickRow(Passes(0), 7);
  const PassReport report = List(0).Report(7);
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(Report(0)->model()->index(row, 0).data().toString(),
              ToQ(report.at(static_cast<std::size_t>(row))));
    EXPECT_EQ(Report(0)->model()->index(row, 0).data(Qt::UserRole).toInt(), List(0).Number(7));
  }
  ClickRow(Report(0), 2);
  EXPECT_EQ(PassSlot, ScratchSlot);
  EXPECT_EQ(ElementSets[ScratchSlot].Name, List(0).Satellite(7));
  Click("cmdMappa", 0);
  EXPECT_EQ(chart.shown.selected, List(0).Pass(7).set.date);
  EXPECT_EQ(chart.shown.rise, List(0).Pass(7).rise.date);
  EXPECT_EQ(chart.shown.culminationRow, report[1]);
  EXPECT_EQ(chart.shown.elements.Name, List(0).Satellite(7));

  Click("cmdDettagli", 0);
  auto* const details = Form("frmDetails");
  EXPECT_TRUE(details->windowTitle().contains(ToQ(List(0).Satellite(7))));
  EXPECT_GT(Control<RowList>(details, "List1")->RowCount(), 10);
  ClickRow(Passes(0), 7, {}, Qt::RightButton);
  auto* const all = Control<RowList>(details, "List1");
  ASSERT_EQ(all->RowCount(), 3 * count);
  EXPECT_EQ(all->model()->index(3 * 7 + 2, 0).data().toString(), ToQ(report[2]));

  // another file under the result: what is not there any more is no satellite
  platform_.chosenFiles = {""};
  const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
  folder_.Write("short.txt", sample.substr(0, sample.find("HST")));
  Database_satelliti(folder_.Path("short.txt"));
  for (int row = 0; row < count; ++row)
    if (List(0).Number(row) > 1) {
      ClickRow(Passes(0), row);
      EXPECT_FALSE(Enabled("cmdDettagli", 0) || Enabled("cmdMappa", 0) || Enabled("cmdAttiva"));
      break;
    }
  EXPECT_EQ(List(0).Count(), count);
}

TEST_F(PassesTest, TabsKeepResultsOfTheirOwnAndTheDoubleClickDetails) {
  Open(5);
  Page(1);
  Choose("cmbDurata", 1, 2);
  Click("cmdOK", 1);
  const int principal = List(1).Count();
  ASSERT_GT(principal, 5);
  Page(2);
  Choose("cmbLimite", -1, 5);
  Click("cmdOK", 2);
  ASSERT_GT(List(2).Count(), 10);
  EXPECT_EQ(List(1).Count(), principal);
  EXPECT_EQ(List(2).Number(List(2).Count() - 1), 5);
  EXPECT_EQ(PassSlot, List(2).Number(0));
  EXPECT_TRUE(Enabled("cmdMappa", 2));
  QTest::mouseDClick(Report(2)->viewport(), Qt::LeftButton, {},
                     Report(2)->visualRect(Report(2)->model()->index(0, 0)).center());
  QCoreApplication::processEvents();
  ASSERT_TRUE(IsFormLoaded("frmDetails"));
  // only visible passes: at least one of three rows says so, whatever the azimuth
  Options.FilterSecondary.MaxAzimuth = 1;
  Click("chkSoloVisibili", 2);
  Choose("cmbDurata", 2, 27);
  Click("cmdOK", 2);
  ASSERT_GT(List(2).Count(), 0);
  for (int row = 0; row < List(2).Count(); ++row)
    EXPECT_NE(List(2).Tag(row).find(ConditionVisible), std::string::npos);
}

TEST_F(PassesTest, SatellitesOfPassesAreActivated) {
  Open(1);
  Database_satelliti(folder_.Path("elements/sample.txt"));
  platform_.messages.clear();
  Click("chkTransito");
  Choose("cmbDurata", 0, 3);
  Click("cmdOK", 0);
  ClickHeading(0, 0);
  std::vector<int> rows;  // of satellites that all differ, none active
  for (int row = 0; row < List(0).Count(); ++row)
    if (List(0).Number(row) > 1 && std::none_of(rows.begin(), rows.end(), [&](int other) {
          return List(0).Number(row) == List(0).Number(other);
        }))
      rows.push_back(row);
  ASSERT_GT(rows.size(), 3U);
  const std::string one = List(0).Satellite(rows[0]), two = List(0).Satellite(rows[1]);
  ClickRow(Passes(0), rows[0]);
  platform_.answers = {MessageAnswer::Cancel, MessageAnswer::No};
  Click("cmdAttiva");
  EXPECT_EQ(ActiveCount, 1);
  Click("cmdAttiva");
  ASSERT_EQ(ActiveCount, 2);
  EXPECT_EQ(ElementSets[2].Name, one);
  Click("cmdAttiva");
  EXPECT_EQ(platform_.messages.back().caption, std::string(Trimmed(one)));
  EXPECT_EQ(LastMessage(), LookupText("frmDatabase", "satellitegiainelenco"));
  ClickRow(Passes(0), rows[1]);
  platform_.answers = {MessageAnswer::Yes};
  Click("cmdAttiva");
  EXPECT_EQ(ActiveCount, 3);
  EXPECT_EQ(ElementSets[1].Name, two);
  EXPECT_EQ(Panel(2), ToQ(Trimmed(two)));
  ClickRow(Passes(0), rows[2]);
  ActiveCount = MaxActive;
  Click("cmdAttiva");
  EXPECT_EQ(platform_.messages.back().kind, MessageKind::Information);
  EXPECT_TRUE(LastMessage().starts_with(LookupText("frmDatabase", "limiteraggiunto1")));
  ActiveCount = 3;
}

TEST_F(PassesTest, ReportsAndListsAreSavedAndPrinted) {
  Open(1);
  Page(1);
  Choose("cmbDurata", 1, 27);
  Click("cmdOK", 1);
  ASSERT_GT(List(1).Count(), 100);
  const PassReport report = List(1).Report(0);
  const std::string place = "Italy: Milano - Times in zone UTC+01:00\r\n";
  const std::string saved = report[0] + "\r\n" + report[1] + "\r\n" + report[2] + "\r\n" + place;
  const std::string path = folder_.Path("pass.txt"), list = folder_.Path("list.txt"),
                    values = folder_.Path("LIST.CSV");
  platform_.chosenFiles = {"", path, list, values};
  Menu("mnuSalva");
  EXPECT_FALSE(QFile::exists(ToQ(path)));
  Menu("mnuSalva");
  EXPECT_EQ(ProgramFolder::Read(path), saved);
  Menu("mnuSalvaElenco");
  EXPECT_EQ(ProgramFolder::Read(list), List(1).AsText());
  Menu("mnuSalvaElenco");
  EXPECT_EQ(ProgramFolder::Read(values), List(1).AsCsv());
  platform_.messages.clear();
  platform_.refuseWriting = true;
  platform_.chosenFiles = {path, list};
  Menu("mnuSalva");
  EXPECT_TRUE(platform_.messages.empty());
  Menu("mnuSalvaElenco");
  EXPECT_EQ(platform_.messages.size(), 1U);
  EXPECT_EQ(ProgramFolder::Read(path), saved) << "the old file stays";

  const QString folder = qEnvironmentVariable("HALVORINE_PICTURES", ToQ(folder_.UserPath("")));
  QString pdf = folder + QStringLiteral("/pass.pdf");
  SetPrinterAnswer([](QPrinter&) { return false; });
  Menu("mnuStampa");
  EXPECT_FALSE(QFile::exists(pdf));
  SetPrinterAnswer([&pdf](QPrinter& printer) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    return true;
  });
  Menu("mnuStampa");
  EXPECT_NE(ProgramFolder::Read(FromQ(pdf)).find("/Count 1"), std::string::npos);
  // the whole result goes to paper by way of the window of tables
  ClickRow(Passes(1), 0, {}, Qt::RightButton);
  pdf = folder + QStringLiteral("/list.pdf");
  window_->RunCommand("mnuFileStampa");
  EXPECT_NE(ProgramFolder::Read(FromQ(pdf)).find("/Type /Page"), std::string::npos);
  SetPrinterAnswer({});
  QTimer::singleShot(0, [] {
    QWidget* const preview = QApplication::activeModalWidget();
    ASSERT_NE(preview, nullptr);
    EXPECT_TRUE(preview->windowTitle().contains(QStringLiteral("Pass predictions")));
    if (qEnvironmentVariableIsSet("HALVORINE_PICTURES"))
      preview->grab().save(qEnvironmentVariable("HALVORINE_PICTURES") + QStringLiteral("/preview.png"));
    preview->close();
  });
  Menu("mnuAnteprima");
}

TEST_F(PassesTest, RunsEndWellWhateverHappensInTheMiddleOfOne) {
  Open(4);
  Database_satelliti(folder_.Path("elements/sample.txt"));
  platform_.messages.clear();
  Click("chkTransito");
  Choose("cmbDurata", 0, 24);
  const auto run = [this](const std::function<void()>& middle) {
    int yields = 0;
    platform_.millisecondsPerLook = 15;
    platform_.onYield = [&yields, middle] {
      QCoreApplication::processEvents();
      if (++yields == 9) middle();
    };
    Click("cmdOK", 0);
    platform_.millisecondsPerLook = 0;
    platform_.onYield = [] { QCoreApplication::processEvents(); };
    EXPECT_TRUE(TickEnabled && SatelliteTickEnabled);
    EXPECT_FALSE(LongOperation::Running() || CancelRequested || IsFormLoaded("frmProgress"));
  };
  run([this] {
    EXPECT_FALSE(Passes(0)->isVisible());
    EXPECT_TRUE(IsFormLoaded("frmProgress"));
    Click("cmdOK", 0);
    EXPECT_EQ(LastMessage(), LookupText("MDIForm1", "comandoincorso"));
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
  });
  const int cancelled = List(0).Count();
  EXPECT_GT(cancelled, 0);
  EXPECT_TRUE(Passes(0)->isVisible());
  EXPECT_EQ(Report(0)->RowCount(), 3);
  run([] {});
  EXPECT_GT(List(0).Count(), cancelled);
  // the window goes in the middle
  run([this] {
    form_->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  });
  EXPECT_FALSE(IsFormLoaded("frmVisibleSatellites"));
  // the program goes in the middle: the run is cancelled, and then it does
  window_->RunCommand("mnuSatellitiPrevisioniPassaggi");
  form_ = dynamic_cast<frmVisibleSatellites*>(LoadedForm("frmVisibleSatellites"));
  Choose("cmbDurata", 0, 24);
  Options.ConfirmExit = 0;
  Options.CheckOptions = 0;
  const std::size_t messages = platform_.messages.size();
  platform_.millisecondsPerLook = 15;
  platform_.onYield = [this] { window_->close(); };
  Click("cmdOK", 0);
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(platform_.messages.size(), messages);
}

}  // namespace
}  // namespace halvorine
