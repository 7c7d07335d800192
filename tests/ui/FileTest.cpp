// The windows that work on files, driven by clicks and keys through the main window: editor, viewer, summary,
// formatting, channels, printing, and what happens to unsaved texts.
#include <QHeaderView>
#include <QMdiSubWindow>
#include <QPushButton>
#include <algorithm>

#include "catalogue/frmChannel.h"
#include "catalogue/frmFile.h"
#include "controls/GraphButton.h"
#include "controls/qtPrint.h"
#include "prediction/frmDetails.h"
#include "shell/base/mFiles.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class FileTest : public RunningProgram {
 protected:
  FileTest() { Start(); }
  ~FileTest() override { SetPrinterAnswer({}); }
  /// The window of a type that was opened last, or null.
  template <class Form>
  Form* Newest() {
    const QList<Form*> found = window_->findChildren<Form*>();
    return found.isEmpty() ? nullptr : found.back();
  }
  static QPlainTextEdit* TextOf(QWidget* form) { return Control<QPlainTextEdit>(form, "txtFile"); }
  /// Two entries of the sample with the wanted line ends.
  std::string TwoEntries(const std::string& end) {
    std::string_view line;
    std::string text;
    const std::string sample = ReadWholeFile(folder_.Path("elements/sample.txt"));
    LineReader lines(sample);
    for (int i = 0; i < 6 && lines.Next(line); ++i) text.append(line).append(end);
    return text;
  }
  frmFile* EditNew(const char* typed) {
    Run("mnuFileNuovo");
    auto* const form = Newest<frmFile>();
    QTest::keyClicks(TextOf(form), QString::fromLatin1(typed));
    return form;
  }
  QString LastText() const {
    return platform_.messages.empty() ? QString() : ToQ(platform_.messages.back().text);
  }
};

TEST_F(FileTest, NewTextsAreNumberedAndStandOpenAtOnce) {
  frmFile* const first = EditNew("one");
  frmFile* const second = EditNew("two");
  EXPECT_EQ(first->windowTitle(), "New file 1");
  EXPECT_EQ(second->windowTitle(), "New file 2");
  EXPECT_TRUE(IsFormLoaded("frmFile1"));
  EXPECT_TRUE(IsFormLoaded("frmFile2"));
  EXPECT_TRUE(first->isVisible());
  EXPECT_EQ(TextOf(first)->toPlainText(), "one");
  EXPECT_EQ(TextOf(second)->size(), second->size()) << "the text fills the window";
  second->Frame()->resize(420, 300);
  QCoreApplication::processEvents();
  EXPECT_EQ(TextOf(second)->size(), second->size());
}

TEST_F(FileTest, UntitledTextAsksForItsFileOnceAndIsWrittenWithLineEnds) {
  frmFile* const form = EditNew("first");
  QTest::keyClick(TextOf(form), Qt::Key_Return);
  QTest::keyClicks(TextOf(form), QStringLiteral("second"));
  form->Salva();
  ASSERT_EQ(platform_.fileQuestions.size(), 1U);
  EXPECT_TRUE(platform_.fileQuestions[0].saving);
  EXPECT_EQ(platform_.fileQuestions[0].initial, "New file 1");
  EXPECT_TRUE(TextOf(form)->document()->isModified()) << "the chooser was cancelled";
  platform_.chosenFiles = {folder_.Path("own.txt")};
  form->Salva();
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("own.txt")), "first\r\nsecond");
  EXPECT_EQ(form->windowTitle(), ToQ(folder_.Path("own.txt")));
  QTest::keyClicks(TextOf(form), QStringLiteral("!"));
  auto* const menu = Control<QMenu>(window_.get(), "mnuFile");
  menu->popup(QPoint(0, 0));
  menu->close();
  Run("mnuFileSalva");
  EXPECT_EQ(platform_.fileQuestions.size(), 2U) << "now it has a file";
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("own.txt")), "first\r\nsecond!");
}

TEST_F(FileTest, EditedFileOfAnyKindIsLoadedOrToldAndEmptyOnesAreNot) {
  folder_.Write("edit.txt", "caf\xe9 \xa0\nline\n");
  platform_.chosenFiles = {folder_.Path("edit.txt")};
  Run("mnuFileModifica");
  auto* const form = Newest<frmFile>();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->windowTitle(), ToQ(folder_.Path("edit.txt")));
  EXPECT_FALSE(TextOf(form)->document()->isModified());
  form->Salva();
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("edit.txt")), "caf\xe9 \xa0\r\nline\r\n");
  folder_.Write("empty.txt", "");
  const auto open = window_->findChildren<frmFile*>().size();
  for (const std::string& path : {folder_.Path("empty.txt"), std::string()}) {
    platform_.chosenFiles = {path};
    Run("mnuFileModifica");
  }
  EXPECT_TRUE(platform_.messages.empty());
  for (const std::string& path : {folder_.Path("gone.txt"), folder_.Path("elements")}) {
    platform_.chosenFiles = {path};
    Run("mnuFileModifica");
    EXPECT_EQ(LastText(), Text("Dialogs", "formatononvalido")) << path;
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(window_->findChildren<frmFile*>().size(), open);
}

TEST_F(FileTest, UnsavedTextIsAskedForAtItsClose) {
  const auto close = [this](frmFile* form, MessageAnswer answer) {
    platform_.answers = {answer};
    form->Frame()->close();
    EXPECT_EQ(LastText(), Text("frmFile", "salvamodifiche"));
    EXPECT_EQ(platform_.messages.back().buttons, MessageButtons::YesNoCancel);
  };
  frmFile* const form = EditNew("text");
  close(form, MessageAnswer::Cancel);
  EXPECT_TRUE(IsFormLoaded("frmFile1"));
  close(form, MessageAnswer::Yes);  // the chooser behind it is cancelled
  EXPECT_TRUE(IsFormLoaded("frmFile1"));
  platform_.refuseWriting = true;
  platform_.chosenFiles = {folder_.Path("kept.txt")};
  folder_.Write("kept.txt", "old");
  platform_.answers = {MessageAnswer::Yes};
  form->Frame()->close();
  EXPECT_TRUE(IsFormLoaded("frmFile1")) << "what could not be written is not thrown away";
  EXPECT_TRUE(LastText().startsWith(Text("Dialogs", "nonsalvato")));
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("kept.txt")), "old");
  platform_.refuseWriting = false;
  platform_.chosenFiles = {folder_.Path("kept.txt")};
  close(form, MessageAnswer::Yes);
  EXPECT_FALSE(IsFormLoaded("frmFile1"));
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("kept.txt")), "text");
  close(EditNew("more"), MessageAnswer::No);
  EXPECT_FALSE(IsFormLoaded("frmFile1"));
  const auto asked = platform_.messages.size();
  EditNew("")->Frame()->close();
  EXPECT_EQ(platform_.messages.size(), asked) << "an empty new text is nothing to save";
}

TEST_F(FileTest, CloseAllAndExitLeaveATextThatIsToBeKept) {
  EditNew("text");
  platform_.answers = {MessageAnswer::Cancel};
  Run("mnuFinestreChiudiTutto");
  EXPECT_TRUE(IsFormLoaded("frmFile1"));
  Options.ConfirmExit = 0;
  platform_.answers = {MessageAnswer::Cancel};
  window_->close();
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(IsFormLoaded("frmFile1"));
  platform_.answers = {MessageAnswer::No};
  window_->close();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(platform_.messages.size(), 3U) << "nobody is asked twice";
}

TEST_F(FileTest, RightClickInTheTextOpensTheEditMenu) {
  frmFile* const form = EditNew("text");
  auto* const menu = Control<QMenu>(window_.get(), "mnuModifica");
  QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, TextOf(form)->mapToGlobal(QPoint(5, 5)));
  QCoreApplication::sendEvent(TextOf(form)->viewport(), &event);
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

TEST_F(FileTest, ViewerShowsAFileSortsByItsHeadingsAndTellsWhatIsNone) {
  platform_.chosenFiles = {folder_.Path("crlf.txt")};
  folder_.Write("crlf.txt", TwoEntries("\r\n"));
  Run("mnuFileVisualizza");
  auto* const form = Newest<frmDetails>();
  ASSERT_NE(form, nullptr);
  auto* const list = Control<QTreeView>(form, "ListView1");
  EXPECT_TRUE(list->isVisible());
  EXPECT_FALSE(Control<QWidget>(form, "List1")->isVisible());
  EXPECT_EQ(form->windowTitle(), Text("Dialogs", "visualizzatle") + " - " + ToQ(folder_.Path("crlf.txt")));
  EXPECT_EQ(list->model()->columnCount(), 11);
  ASSERT_EQ(list->model()->rowCount(), 2);
  const auto name = [list](int row) { return list->model()->index(row, 1).data().toString(); };
  ClickHeading(list, 1);
  const QString smaller = name(0);
  EXPECT_LT(smaller.toLower(), name(1).toLower());
  ClickHeading(list, 1);
  EXPECT_EQ(name(1), smaller);
  EXPECT_EQ(platform_.waitDepth, 0);

  platform_.chosenFiles = {folder_.Path("lf.txt")};
  folder_.Write("lf.txt", TwoEntries("\n"));
  Run("mnuFileVisualizza");
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(list->model()->rowCount(), 0);
  EXPECT_EQ(LastText(),
            Text("Dialogs", "formatononvalido") + "\n" + Text("frmDatabase", "funzioneriparazione"));
  EXPECT_EQ(platform_.messages.back().caption, folder_.Path("lf.txt"));
  EXPECT_EQ(platform_.waitDepth, 0);
}

TEST_F(FileTest, FormattingRepairsWhatTheViewerThenShows) {
  folder_.Write("lf.txt", TwoEntries("\n"));
  platform_.chosenFiles = {folder_.Path("lf.txt")};
  Run("mnuStrumentiFormattazione");
  ASSERT_EQ(platform_.messages.size(), 2U);
  for (const FakePlatform::Message& message : platform_.messages) {
    EXPECT_EQ(message.kind, MessageKind::Information);
    EXPECT_EQ(message.buttons, MessageButtons::Ok);
  }
  EXPECT_EQ(LastText(), Text("MDIForm1", "conversioneterminata"));
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("lf.txt")), TwoEntries("\r\n") + "\r\n");
  platform_.chosenFiles = {folder_.Path("lf.txt")};
  Run("mnuFileVisualizza");
  EXPECT_EQ(Control<QTreeView>(Newest<frmDetails>(), "ListView1")->model()->rowCount(), 2);
  folder_.Write("full.txt", "a\nb\n");
  platform_.refuseWriting = true;
  platform_.chosenFiles = {folder_.Path("full.txt")};
  Run("mnuStrumentiFormattazione");
  EXPECT_TRUE(LastText().startsWith(Text("Dialogs", "nonsalvato")));
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("full.txt")), "a\nb\n");
  platform_.refuseWriting = false;
  const auto told = platform_.messages.size();
  platform_.chosenFiles = {folder_.Path("gone.txt")};
  Run("mnuStrumentiFormattazione");
  EXPECT_EQ(platform_.messages.size(), told + 1) << "after its first box it ends in silence";
  EXPECT_EQ(platform_.waitDepth, 0);
}

TEST_F(FileTest, SummaryOfTheDatabaseFollowsTheButtonAndIsSavedAsShown) {
  Run("mnuSatellitiDatabase");
  auto* const catalogue = Control<QWidget>(window_.get(), "frmDatabase");
  auto* const button = Control<GraphButton>(catalogue, "cmdSommario", 0);
  EXPECT_FALSE(Control<GraphButton>(catalogue, "cmdSommario", 1)->isEnabled()) << "nothing is listed there";
  QTest::mouseClick(button, Qt::LeftButton);
  auto* const form = Newest<frmDetails>();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->windowTitle(), Text("frmDetails", "sommariodbprincipale"));
  EXPECT_EQ(Control<QTreeView>(form, "ListView1")->model()->rowCount(), PrimaryDatabase.Count());
  platform_.chosenFiles = {folder_.Path("summary.txt")};
  form->Salva();
  const std::string saved = ProgramFolder::Read(folder_.Path("summary.txt"));
  EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), PrimaryDatabase.Count());
  EXPECT_EQ(saved.find("\r\n"), 103U) << "eleven widths and ten gaps";
  platform_.refuseWriting = true;
  platform_.chosenFiles = {folder_.Path("summary.txt")};
  form->Salva();
  EXPECT_TRUE(LastText().startsWith(Text("Dialogs", "nonsalvato")));
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("summary.txt")), saved);
}

TEST_F(FileTest, ViewerThatIsClosedInTheMiddleOfItsWorkEndsQuietly) {
  Run("mnuSatellitiDatabase");
  auto* const details = Load<DetailsCalls>("frmDetails");
  details->Show();
  platform_.millisecondsPerLook = 100;
  platform_.onYield = [this] {
    if (auto* const form = Newest<frmDetails>()) form->Frame()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  };
  details->Sommario(0);
  EXPECT_FALSE(IsFormLoaded("frmDetails"));
  EXPECT_EQ(platform_.waitDepth, 0);
  Load<DetailsCalls>("frmDetails")->Leggi(folder_.Path("gone.txt"));
  EXPECT_EQ(LastText(), Text("Dialogs", "formatononvalido"));
  platform_.onYield = nullptr;
  Load<DetailsCalls>("frmDetails")->Leggi(folder_.Path("elements/sample.txt"));
  EXPECT_GT(Control<QTreeView>(Newest<frmDetails>(), "ListView1")->model()->rowCount(), 100);
}

TEST_F(FileTest, ActiveWindowIsPrintedToAFileAndACancelPrintsNothing) {
  Run("mnuFileStampa");  // no window is open
  EditNew("printed");
  SetPrinterAnswer([](QPrinter& printer) {
    EXPECT_EQ(printer.printRange(), QPrinter::AllPages);
    return false;
  });
  Run("mnuFileStampa");
  const QString path = ToQ(folder_.Path("out.pdf"));
  const auto print = [&path](QPrinter::PrintRange range) {
    SetPrinterAnswer([&path, range](QPrinter& printer) {
      EXPECT_EQ(printer.printRange(), range);
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(path);
      return true;
    });
  };
  EXPECT_FALSE(QFile::exists(path));
  print(QPrinter::Selection);
  TextOf(Newest<frmFile>())->selectAll();
  Run("mnuFileStampa");
  EXPECT_EQ(ProgramFolder::Read(FromQ(path)).substr(0, 5), "%PDF-");
  auto* const details = Load<DetailsCalls>("frmDetails");
  details->Show();
  details->BeginRows("Table");
  for (int row = 0; row < 200; ++row) details->AddRow("row " + std::to_string(row));
  QFile::remove(path);
  print(QPrinter::AllPages);
  Run("mnuFileStampa");
  const std::string pdf = ProgramFolder::Read(FromQ(path));
  EXPECT_NE(pdf.find("/Count 3"), std::string::npos)
      << "200 rows of 4 mm need three pages: " << pdf.substr(std::min(pdf.find("/Count"), pdf.size()), 12);
}

TEST_F(FileTest, ChannelIsChosenByKeysAndByADoubleClick) {
  ElementSets[3].Downlink[4] = "437.55";
  Options.RadioChannel[2] = 5;
  frmChannel dialog;
  dialog.Fill(3, 2);
  dialog.show();
  auto* const list = Control<QListWidget>(&dialog, "List1");
  ASSERT_EQ(list->count(), 10);
  EXPECT_EQ(list->currentRow(), 4);
  EXPECT_EQ(list->currentItem()->text(), "437.5500   \t000.0000");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Up);
  QTest::mouseClick(Control<QPushButton>(&dialog, "cmdCancel"), Qt::LeftButton);
  EXPECT_EQ(Options.RadioChannel[2], 5);
  frmChannel again;
  again.Fill(3, 2);
  again.show();
  auto* const rows = Control<QListWidget>(&again, "List1");
  const QPoint second = rows->visualItemRect(rows->item(1)).center();
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, second);
  QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(again.result(), QDialog::Accepted);
  EXPECT_EQ(again.Channel(), 2);
  EXPECT_EQ(Options.RadioChannel[2], 2);
  Options.RadioChannel[0] = 77;
  frmChannel strange;
  strange.Fill(1, 0);
  strange.show();
  QTest::mouseClick(Control<QPushButton>(&strange, "cmdOK"), Qt::LeftButton);
  EXPECT_EQ(strange.Channel(), 77) << "without a choice nothing changes";
  EXPECT_THROW(strange.Fill(1, 10), SubscriptFailure);
  EXPECT_THROW(strange.Fill(0, 0), SubscriptFailure);
}

}  // namespace
}  // namespace halvorine
