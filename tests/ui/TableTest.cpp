// The dialogs of tables and of relative motion and the window that shows, saves and prints what they ask for,
// driven by clicks and keys through the main window.
#include <QDir>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

#include "controls/qtPreview.h"
#include "controls/qtPrint.h"
#include "prediction/frmCalc.h"
#include "prediction/frmDetails.h"
#include "prediction/frmRelative.h"
#include "prediction/mRelative.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/qtDates.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class TableTest : public RunningProgram {
 protected:
  TableTest() { Start(3); }
  ~TableTest() override { SetPrinterAnswer({}); }

  /// Opens a dialog with the sample loaded.
  template <class Form>
  Form* Open(const char* command, const char* name) {
    Database_satelliti(folder_.Path("elements/sample.txt"));
    platform_.messages.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the progress window
    window_->activateWindow();
    Run(command);
    return Control<Form>(window_.get(), name);
  }
  frmCalc* OpenCalc() { return Open<frmCalc>("mnuSatellitiCalcoloEffemeridi", "frmCalc"); }
  frmRelative* OpenRelative() { return Open<frmRelative>("mnuSatellitiMotoRelativo", "frmRelative"); }

  static void ClickRow(QWidget* form, int index, int row) {
    auto* const list = Control<RowList>(form, "lstDatabase", index);
    Control<QTabWidget>(form, "SSTab1")->setCurrentIndex(index);
    QCoreApplication::processEvents();
    RunningProgram::ClickRow(list, row);
  }
  static void Choose(QWidget* form, const char* name, int row) {
    ChooseEntry(Control<QComboBox>(form, name), row);
  }
  frmDetails* Details() { return window_->findChild<frmDetails*>(); }
  QStringList Rows() {
    const QAbstractItemModel* const model = Control<RowList>(Details(), "List1")->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) rows << model->index(row, 0).data().toString();
    return rows;
  }
  std::string SaveAs(const char* name) {
    platform_.chosenFiles = {folder_.Path(name)};
    Details()->Salva();
    return ProgramFolder::Read(folder_.Path(name));
  }
  void PrintTo(const QString& path, bool withPreview = false) {
    SetPrinterAnswer(
        [path](QPrinter& printer) {
          printer.setOutputFormat(QPrinter::PdfFormat);
          printer.setOutputFileName(path);
          return true;
        },
        withPreview);
  }
};

TEST_F(TableTest, TableIsMadeOfWhatTheDialogSaysAndTheDialogHides) {
  frmCalc* const form = OpenCalc();
  EXPECT_TRUE(Control<RowList>(form, "lstDatabase", 0)->hasFocus());
  EXPECT_EQ(Control<RowList>(form, "lstDatabase", 0)->RowCount(), 175);
  EXPECT_EQ(Control<RowList>(form, "lstDatabase", 1)->RowCount(), 0);
  EXPECT_EQ(DateOf(Control<QDateTimeEdit>(form, "DTPicker1")->dateTime()), AddSeconds(CurrentDate, 0));
  Click(form, "cmdOK");
  EXPECT_EQ(LastMessage(), LookupText("frmCalc", "selezionaresatellite"));
  EXPECT_EQ(platform_.messages.back().kind, MessageKind::Information);
  EXPECT_TRUE(form->isVisible());
  ClickRow(form, 0, 1);
  EXPECT_EQ(Control<QLabel>(form, "lblNorad", 0)->text(), "Norad 20580");
  Choose(form, "cmbDurata", 2);
  Choose(form, "cmbTipoDurata", 1);
  Choose(form, "cmbIntervallo", 29);
  Choose(form, "cmbTipoIntervallo", 1);
  const std::array<std::pair<const char*, qsizetype>, 4> codes = {
      {{"optOBS", 9}, {"optECI", 8}, {"optLLA", 7}, {"optRAD", 9}}};
  for (const auto& [option, head] : codes) {
    form->Show();
    Click(form, option);
    QTest::keyClick(form, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_FALSE(form->isVisible()) << option;
    const QStringList rows = Rows();
    ASSERT_EQ(rows.size(), head + 7 + 1) << option;
    EXPECT_EQ(rows[0], "Satellite: Hst");
    EXPECT_TRUE(rows[head].startsWith("14 Jun 2022  13:00:00  ")) << rows[head].toStdString();
    EXPECT_TRUE(rows[head + 6].startsWith("14 Jun 2022  16:00:00  "));
    EXPECT_TRUE(rows.back().isEmpty() && rows[head - 1].isEmpty());
    EXPECT_EQ(Details()->windowTitle(), "Details: Hst - 14 Jun 2022  13:00:00");
  }
  EXPECT_FALSE(IsFormLoaded("frmProgress"));
  EXPECT_TRUE(TickEnabled);
  form->Show();
  EXPECT_EQ(Control<RowList>(form, "lstDatabase", 0)->SelectedRows(), std::vector<int>{1});
  Click(form, "cmdCancel");
  EXPECT_FALSE(form->isVisible());
}

TEST_F(TableTest, RightButtonOnTheBodyLeavesOutWhatIsBelowTheHorizon) {
  frmCalc* const form = OpenCalc();
  ClickRow(form, 0, 0);
  Choose(form, "cmbTipoDurata", 2);
  Click(form, "cmdOK");
  const auto all = Rows().size();
  form->Show();
  QTest::mouseClick(form, Qt::RightButton, {}, QPoint(4, 4));
  Click(form, "cmdOK");
  EXPECT_GT(Rows().size(), 20);
  EXPECT_LT(Rows().size(), all / 5);
  double step = 0;
  Details()->Genera_elenco(1, CurrentDate, AddSeconds(CurrentDate, 3600), step, ObserverTable);
  EXPECT_EQ(step, 120) << "the chosen step comes back";
  Click(form, "cmdHelp");
  EXPECT_EQ(platform_.helpTopics.back(), 130);
}

TEST_F(TableTest, TwoSatellitesAreComparedUnlessTheyAreOne) {
  frmRelative* const form = OpenRelative();
  Click(form, "cmdOK");
  EXPECT_EQ(LastMessage(), LookupText("frmRelative", "selezionaresatelliti"));
  ClickRow(form, 0, 0);
  Click(form, "cmdOK");
  EXPECT_EQ(platform_.messages.size(), 2U);
  EXPECT_EQ(Control<QTabWidget>(form, "SSTab1")->currentIndex(), 1)
      << "the page without a choice is turned to";
  ClickRow(form, 1, 0);
  Click(form, "cmdOK");
  EXPECT_EQ(LastMessage(), LookupText("frmRelative", "satelliticoincidenti"));
  // the same entry of the other database is another one
  Choose(form, "cmbDatabase(1)", 1);
  EXPECT_EQ(Control<RowList>(form, "lstDatabase", 1)->RowCount(), 0);
  Database_satelliti_secondario(folder_.Path("elements/sample.txt"));
  form->Show();
  ClickRow(form, 1, 0);
  for (const auto& [option, width] :
       {std::pair{"optOBS", 106}, {"optECI", 104}, {"optLLA", 112}, {"optRAD", 106}}) {
    form->Show();
    Click(form, option);
    Click(form, "cmdOK");
    EXPECT_FALSE(form->isVisible());
    const QStringList rows = Rows();
    ASSERT_EQ(rows.size(), 12 + 121 + 1) << option;
    EXPECT_EQ(rows[20].size(), width) << rows[20].toStdString();
    EXPECT_EQ(Details()->windowTitle(), "Details: Iss (Zarya), Iss (Zarya) - 14 Jun 2022  13:00:00");
  }
  EXPECT_EQ(ElementSets[RelativeSlot].CatalogNumber, "25544");
}

TEST_F(TableTest, CommandsNeedADatabaseAndFollowOneThatIsReadAnew) {
  for (const char* const command : {"mnuSatellitiCalcoloEffemeridi", "mnuSatellitiMotoRelativo"}) {
    Run(command);
    ASSERT_FALSE(platform_.messages.empty());
    EXPECT_EQ(platform_.messages.back().buttons, MessageButtons::OkCancel);
  }
  EXPECT_FALSE(IsFormLoaded("frmCalc") || IsFormLoaded("frmRelative"));
  frmCalc* const form = OpenCalc();
  ClickRow(form, 0, 1);
  const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
  folder_.Write("other.txt", sample.substr(sample.find("ISS (NAUKA)")));
  Database_satelliti(folder_.Path("other.txt"));
  platform_.messages.clear();
  Click(form, "cmdOK");
  EXPECT_EQ(LastMessage(), LookupText("frmCalc", "selezionaresatellite"))
      << "the chosen row is another satellite now";
  EXPECT_EQ(Details(), nullptr);
  Run("mnuSatellitiCalcoloEffemeridi");
  EXPECT_EQ(Control<RowList>(form, "lstDatabase", 0)->RowCount(), 173);
}

TEST_F(TableTest, TableIsSavedAsTextAndAsCsvWithPlaceAndZone) {
  Load<DetailsCalls>("frmDetails")->Show();
  SaveAs("empty.txt");
  EXPECT_TRUE(platform_.fileQuestions.empty()) << "nothing is shown, nothing is asked";
  double step = 600;
  Details()->Genera_elenco(1, CurrentDate, AddSeconds(CurrentDate, 1200), step, SubpointTable);
  Site.DaylightSaving = 1;  // the table still is of the zone before
  std::string wanted;
  for (const QString& row : Rows()) wanted += FromQ(row) + "\r\n";
  wanted += "Italy: Milano - Times in zone UTC+01:00\r\n";
  EXPECT_EQ(SaveAs("table.txt"), wanted);
  const std::string csv = SaveAs("table.CSV");
  EXPECT_TRUE(csv.starts_with("Date,Time,Lat.,Lon.,Height km\r\n2022-06-14,13:00:00,"));
  EXPECT_TRUE(csv.ends_with("\r\nItaly: Milano - Times in zone UTC+01:00,Iss (Zarya) 25544\r\n"));
  Details()->Sommario(0);
  platform_.refuseWriting = true;
  Details()->BeginRows("");
  Details()->AddRow("one  two");
  EXPECT_EQ(SaveAs("table.txt"), wanted) << "a disk that is full loses nothing";
  EXPECT_TRUE(LastMessage().starts_with(LookupText("Dialogs", "nonsalvato")));
  platform_.refuseWriting = false;
  EXPECT_EQ(SaveAs("rows.csv"), "one,two\r\nItaly: Milano - Times in zone UTC+02:00\r\n");
}

TEST_F(TableTest, PagesAreLaidSidewaysNumberedAndEndWithThePlace) {
  frmRelative* const form = OpenRelative();
  ClickRow(form, 0, 0);
  ClickRow(form, 1, 1);
  Click(form, "optLLA");
  Click(form, "cmdOK");
  const QString path = ToQ(folder_.Path("table.pdf"));
  PrintTo(path, true);
  // the preview waits in a loop of its own
  QTimer::singleShot(0, window_.get(), [] {
    auto* const preview = qobject_cast<frmPreview*>(QApplication::activeModalWidget());
    ASSERT_NE(preview, nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(Control<QLabel>(preview, "lblPagina")->text(), "1 / 3");
    QTest::mouseClick(Control<QToolButton>(preview, "cmdSuccessiva"), Qt::LeftButton);
    EXPECT_EQ(Control<QLabel>(preview, "lblPagina")->text(), "2 / 3");
    QTest::mouseClick(Control<QPushButton>(preview, "cmdStampa"), Qt::LeftButton);
  });
  Run("mnuFileStampa");
  const QString folder = qEnvironmentVariable("HALVORINE_PICTURES");
  if (!folder.isEmpty()) QFile::copy(path, QDir(folder).filePath(QStringLiteral("relative.pdf")));
  EXPECT_EQ(ThePrinter().pageLayout().orientation(), QPageLayout::Portrait);
  QProcess reader;
  reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
  if (!reader.waitForFinished()) GTEST_SKIP() << "no pdftotext here";
  const QString text = QString::fromUtf8(reader.readAllStandardOutput());
  EXPECT_EQ(text.count(QLatin1Char('\f')), 3);
  for (const char* const part :
       {"1 / 3", "3 / 3", "Satellite B: Hst", "Italy: Milano - Times in zone UTC+01:00"})
    EXPECT_EQ(text.count(QLatin1String(part)), 1) << part;
  EXPECT_TRUE(text.simplified().contains(Rows()[30].simplified()));
}

TEST_F(TableTest, PrinterThatFailsIsToldAndACancelIsNot) {
  auto* const details = Load<DetailsCalls>("frmDetails");
  details->Show();
  details->BeginRows("");
  details->AddRow("row");
  platform_.messages.clear();
  SetPrinterAnswer([](QPrinter&) { return false; });
  Details()->Stampa();
  EXPECT_TRUE(platform_.messages.empty());
  for (const QString& path :
       {ToQ(folder_.Path("missing/table.pdf")), QStringLiteral("/dev/full"), QString()}) {
    PrintTo(path);
    platform_.messages.clear();
    Details()->Stampa();
    EXPECT_EQ(LastMessage(), LookupText("frmPreview", "nonstampato")) << path.toStdString();
  }
}

TEST_F(TableTest, CancelsAndClosedWindowsEndATableAndRestoreTheClock) {
  const double now = ClockFields.JulianDayNow;
  double step = 1;
  const Date end = AddSeconds(CurrentDate, 40000);
  Load<DetailsCalls>("frmDetails")->Show();
  platform_.millisecondsPerLook = 10;
  int yields = 0;
  platform_.onYield = [&] {
    EXPECT_FALSE(TickEnabled);
    EXPECT_GT(Rows().size(), yields) << "the table grows while it is made";
    if (++yields == 5) Click(QApplication::activeModalWidget(), "cmdCancel");
  };
  Details()->Genera_elenco(1, CurrentDate, end, step, ObserverTable);
  EXPECT_EQ(yields, 5);
  EXPECT_GT(Rows().size(), 10);
  EXPECT_LT(Rows().size(), 1000);
  EXPECT_TRUE(Rows().back().isEmpty());
  EXPECT_EQ(Details()->windowTitle(), "Details: Iss (Zarya) - 14 Jun 2022  13:00:00");
  platform_.onYield = [this] {
    platform_.onYield = nullptr;
    Details()->Genera_elenco(1, CurrentDate, CurrentDate, platform_.clockUtc, ObserverTable);
    EXPECT_EQ(LastMessage(), LookupText("MDIForm1", "comandoincorso"));
    LoadedForm("frmDetails")->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  };
  Details()->Genera_elenco(1, CurrentDate, end, step, ObserverTable);
  EXPECT_EQ(Details(), nullptr);
  Load<DetailsCalls>("frmDetails")->Show();
  platform_.onYield = [this] { window_->close(); };
  Options.ConfirmExit = 0;
  ElementSets[ScratchSlot] = ElementSets[1];
  ElementSets[RelativeSlot] = ElementSets[2];
  Details()->Genera_relativo(CurrentDate, end, step, ObserverTable);
  EXPECT_FALSE(LongOperation::Running() || CancelRequested);
  EXPECT_EQ(ClockFields.JulianDayNow, now);
  QCoreApplication::processEvents();
  EXPECT_FALSE(window_->isVisible()) << "the exit is asked for again when the table has ended";
}

TEST_F(TableTest, ElementsWithoutAPositionAreTold) {
  frmCalc* const form = OpenCalc();
  const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
  std::string bad = sample.substr(0, sample.find("HST"));
  bad.replace(bad.find("0004194"), 7, "0000000");
  folder_.Write("bad.txt", bad);
  Database_satelliti(folder_.Path("bad.txt"));
  form->Show();
  ClickRow(form, 0, 0);
  platform_.messages.clear();
  Click(form, "cmdOK");
  EXPECT_EQ(LastMessage(), LookupText("frmDetails", "noncalcolabile"));
  EXPECT_EQ(Rows().size(), 10) << "a head and a blank row";
}

}  // namespace
}  // namespace halvorine
