// What holds for every window that the program can open, whichever they are: its texts fit in all languages,
// its mnemonics are unique, its night is red, and it may be opened, used and closed while long work runs.
#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QPushButton>
#include <QTabWidget>
#include <map>

#include "controls/qtPrint.h"
#include "net/mTimeProtocol.h"
#include "prediction/mPassRun.h"
#include "prediction/mRelative.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/mLocation.h"
#include "shell/mTick.h"
#include "tests/fakes/RunningProgram.h"
#include "tests/fakes/TestServer.h"
#include "tests/fakes/TextWidths.h"

namespace halvorine {
namespace {

/// The window of that name, shown; null where it did not come.
QWidget* Opened(const std::string& name) {
  FormCalls* const form = LoadForm(name);
  if (form == nullptr) return nullptr;
  form->Show();
  QCoreApplication::processEvents();
  return dynamic_cast<QWidget*>(LoadedForm(name));
}

void Close(const std::string& name) {
  if (FormCalls* const form = LoadedForm(name)) form->Unload();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

class EveryWindowTest : public RunningProgram {
 protected:
  /// Runs `look` on every page of a window's tabs.
  static void OnEachPage(QWidget* window, const std::function<void(const QString& page)>& look) {
    auto* const pages = window->findChild<QTabWidget*>();
    if (pages == nullptr) return look({});
    for (int page = 0; page < pages->count(); ++page) {
      pages->setCurrentIndex(page);
      QCoreApplication::processEvents();
      look(QString::number(page));
    }
  }
  static void SavePicture(QWidget* window, const QString& name) {
    const QString folder = qEnvironmentVariable("HALVORINE_PICTURES");
    if (!folder.isEmpty()) window->grab().save(QDir(folder).filePath(name + QStringLiteral(".png")));
  }
};

void ExpectSingleMnemonics(const QWidget* window, const std::string& where) {
  std::map<QString, int> mnemonics;
  for (const QAbstractButton* const button : window->findChildren<QAbstractButton*>()) {
    if (!button->isVisible()) continue;
    const qsizetype mark = button->text().indexOf('&');
    if (mark < 0 || button->text().mid(mark + 1, 1) == QLatin1String("&")) continue;
    EXPECT_EQ(++mnemonics[button->text().mid(mark + 1, 1).toLower()], 1) << where << FromQ(button->text());
  }
}

TEST_F(EveryWindowTest, NoTextIsCutAndNoMnemonicIsDoubleInAnyLanguage) {
  Start(3);
  for (const std::string& language : InstalledLanguages()) {
    UnloadAllForms("MDIForm1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ChooseLanguage(language);
    window_->Lingua();
    for (const std::string& name : LoadableForms()) {
      QWidget* const window = Opened(name);
      ASSERT_NE(window, nullptr) << name;
      OnEachPage(window, [&](const QString& page) {
        ExpectNothingCut(*window, language);
        ExpectSingleMnemonics(window, language + " " + name + " ");
        SavePicture(window, ToQ(name + "-" + language) + page);
      });
      Close(name);
    }
  }
}

/// What a user and the clock may do in the middle of long work, a step at every yield: a tick, the window of
/// the step before is closed, the next one is opened and has a key, and one more command is given.
class Disturbance {
 public:
  Disturbance(MDIForm1& window, FakePlatform& platform) : window_(window), platform_(platform) {
    // these wait in a loop of their own, end the program, or leave windows to the desktop
    const QStringList waiting{"mnuOpzioniLingua",    "mnuAiutoInformazioni",
                              "mnuFileEsci",         "mnuFileImpostaStampante",
                              "mnuFileStampa",       "mnuFileAnteprima",
                              "mnuLocalSkyStampa",   "mnuSkySatStampa",
                              "mnuGeneralSkyStampa", "mnuSatellitiElementiOrbitali"};
    for (const QAction* const action : window.findChildren<QAction*>())
      if (action->objectName().startsWith(QLatin1String("mnu")) && action->menu() == nullptr &&
          !waiting.contains(action->objectName()) &&
          !action->objectName().endsWith(QLatin1String("Magnitudine")))
        commands_.push_back(action->objectName());
  }
  void Begin(const std::string& work) {
    work_ = work;
    step_ = 0;
  }
  bool Done() const { return step_ > forms_.size(); }
  void Step() {
    if (++depth_ == 1) {
      tmrCentrale_Timer();
      if (step_ > 0 && step_ <= forms_.size() && forms_[step_ - 1] != keep) Close(forms_[step_ - 1]);
      if (step_ < forms_.size()) {
        QWidget* const opened = Opened(forms_[step_]);
        if (opened != nullptr) QTest::keyClick(opened, Qt::Key_Down);
      }
      ++step_;
      window_.RunCommand(FromQ(commands_[static_cast<qsizetype>(command_++ % commands_.size())]));
    }
    QCoreApplication::processEvents();
    --depth_;
  }
  /// Does some work again and again until all windows have been opened in the middle of it.
  void During(const std::string& work, const std::function<void()>& act) {
    Begin(work);
    platform_.onYield = [this] { Step(); };
    platform_.onMessage = platform_.onYield;
    for (int run = 0; run < 60 && !Done(); ++run) {
      platform_.chosenFiles.clear();
      act();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    platform_.onMessage = nullptr;
    platform_.onYield = [] { QCoreApplication::processEvents(); };
    EXPECT_TRUE(Done()) << work << " has yielded " << step_ << " times";
    EXPECT_FALSE(LongOperation::Running()) << work;
    EXPECT_EQ(platform_.waitDepth, 0) << work;
    EXPECT_TRUE(window_.isEnabled()) << work;
    UnloadAllForms("MDIForm1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  std::string keep;  // a window that is the work's own

 private:
  MDIForm1& window_;
  FakePlatform& platform_;
  std::string work_;
  const std::vector<std::string> forms_ = LoadableForms();
  QStringList commands_;
  qsizetype command_ = 0;
  std::size_t step_ = 0;
  int depth_ = 0;
};

TEST_F(EveryWindowTest, AllMayBeOpenedUsedAndClosedDuringLongWork) {
  Start(3);
  platform_.millisecondsPerLook = 30;
  const std::string sample = folder_.Path("elements/sample.txt");
  const QString paper = ToQ(folder_.UserPath("paper.pdf"));
  SetPrinterAnswer([paper](QPrinter& printer) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(paper);
    return true;
  });
  const auto print = [this](const char* command, const char* item) {
    Item(command)->trigger();
    Item(item)->trigger();
  };
  Disturbance disturbance(*window_, platform_);
  const std::pair<const char*, std::function<void()>> works[] = {
      {"a read", [&] { Database_satelliti(sample); }},
      {"a read of the other database", [&] { Database_satelliti_secondario(sample); }},
      {"a view", [&] { Load<DetailsCalls>("frmDetails")->LeggiDiretto(sample); }},
      {"a summary", [] { Load<DetailsCalls>("frmDetails")->Sommario(0); }},
      {"a table",
       [] {
         double step = 60;
         Load<DetailsCalls>("frmDetails")->Genera_elenco(1, CurrentDate, CurrentDate + 2, step, 1);
       }},
      {"a table of two",
       [] {
         ElementSets[ScratchSlot] = ElementSets[1];
         ElementSets[RelativeSlot] = ElementSets[2];
         Load<DetailsCalls>("frmDetails")->Genera_relativo(CurrentDate, CurrentDate + 2, 60, 1);
       }},
      {"passes of the list", [] { RunPasses({.tab = 2, .start = CurrentDate, .duration = 12}); }},
      {"passes of a file", [] { RunPasses({.tab = 0, .start = CurrentDate, .duration = 12}); }},
      {"the places", [] { ReadCities(); }},
      {"a change of place",
       [&] {
         Item("mnuTerraMappaRettangolare")->trigger();
         ApplySite({});
       }},
      {"a repair",
       [&] {
         platform_.chosenFiles = {sample};
         Item("mnuStrumentiFormattazione")->trigger();
       }},
      {"the local sky", [&] { print("mnuCieloMappaLocale", "mnuLocalSkyRidisegnaMappa"); }},
      {"the whole sky", [&] { print("mnuCieloMappaGenerale", "mnuGeneralSkyRidisegnaMappa"); }},
      {"the map", [&] { print("mnuTerraMappaOrtografica", "mnuWorldmapRidisegnaMappa"); }},
      {"a chart on paper", [&] { print("mnuCieloMappaLocale", "mnuLocalSkyStampa"); }},
  };
  for (const auto& [name, work] : works) {
    disturbance.During(name, work);
    Database_satelliti(sample);
  }
  SetPrinterAnswer({});
  EXPECT_EQ(PrimaryDatabase.Count(), 175);
}

/// Likewise while a server keeps a download or the clock waiting.
TEST_F(EveryWindowTest, AllMayBeOpenedUsedAndClosedWhileAServerIsSlow) {
  Start(3);
  TestServer server;
  server.answer = "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n1 25544U";
  server.end = TestServer::End::Stay;
  server.awaitRequest = false;
  TimePort = server.serverPort();
  const struct {
    const char *command, *form, *address;
  } rows[] = {{"mnuStrumentiDownload", "frmDownload", "cmbFileRemoto"},
              {"mnuStrumentiSincronizzazione", "frmSyncro", "cmbURL"}};
  for (const auto& row : rows) {
    Disturbance disturbance(*window_, platform_);
    disturbance.keep = row.form;
    disturbance.Begin(row.form);
    const bool clock = std::string_view(row.form) == "frmSyncro";
    if (clock) server.answer = "abc";
    while (!disturbance.Done()) {
      if (!IsFormLoaded(row.form)) {  // a command has closed it
        Item(row.command)->trigger();
        QCoreApplication::processEvents();
        auto* const dialog = Control<QDialog>(window_.get(), row.form);
        Control<QComboBox>(dialog, row.address)
            ->setEditText(clock ? QStringLiteral("127.0.0.1") : ToQ(server.Address("/a.txt")));
        platform_.chosenFiles = {folder_.Path("target.txt")};
        QTest::mouseClick(Control<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
      }
      disturbance.Step();
      server.Send("1");
    }
    if (FormCalls* const form = LoadedForm(row.form)) form->Unload();
    UnloadAllForms("MDIForm1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window_->isEnabled());
  }
  TimePort = 37;
}

}  // namespace
}  // namespace halvorine
