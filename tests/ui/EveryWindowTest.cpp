// What holds for every window that the program can open, whichever they are: its texts fit in all languages,
// its mnemonics are unique, its night is red, and it may be opened, used and closed while long work runs.
#include <QAbstractButton>
#include <QDir>
#include <QTabWidget>
#include <map>

#include "controls/qtLook.h"
#include "prediction/mPassRun.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/mTick.h"
#include "tests/fakes/RunningProgram.h"
#include "tests/fakes/TextWidths.h"

namespace halvorine {
namespace {

class EveryWindowTest : public RunningProgram {
 protected:
  /// The window of that name, shown; null where it did not come.
  static QWidget* Opened(const std::string& name) {
    FormCalls* const form = LoadForm(name);
    if (form == nullptr) return nullptr;
    form->Show();
    QCoreApplication::processEvents();
    return dynamic_cast<QWidget*>(LoadedForm(name));
  }
  static void Close(const std::string& name) {
    if (FormCalls* const form = LoadedForm(name)) form->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
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

/// At every yield of long work: a tick, and one window more is opened or closed, or one command more is
/// given.
TEST_F(EveryWindowTest, AllMayBeOpenedUsedAndClosedDuringLongWork) {
  Start(3);
  platform_.millisecondsPerLook = 30;
  const std::string sample = folder_.Path("elements/sample.txt");
  const std::map<std::string, std::function<void()>> works = {
      {"a read", [&] { Database_satelliti(sample); }},
      {"a view", [&] { Load<DetailsCalls>("frmDetails")->LeggiDiretto(sample); }},
      {"a table",
       [] {
         double step = 60;
         Load<DetailsCalls>("frmDetails")->Genera_elenco(1, CurrentDate, CurrentDate + 2, step, 1);
       }},
      {"a summary", [] { Load<DetailsCalls>("frmDetails")->Sommario(0); }},
      {"a search of passes", [] { RunPasses({.start = CurrentDate, .duration = 12}); }},
  };
  // these wait in a loop of their own, end the program, or leave windows to the desktop
  const QStringList waiting{"mnuOpzioniLingua",    "mnuAiutoInformazioni",
                            "mnuFileEsci",         "mnuFileImpostaStampante",
                            "mnuFileStampa",       "mnuFileAnteprima",
                            "mnuLocalSkyStampa",   "mnuSkySatStampa",
                            "mnuGeneralSkyStampa", "mnuSatellitiElementiOrbitali"};
  QStringList commands;
  for (const QAction* const action : window_->findChildren<QAction*>())
    if (action->objectName().startsWith(QLatin1String("mnu")) && action->menu() == nullptr &&
        !waiting.contains(action->objectName()) &&
        !action->objectName().endsWith(QLatin1String("Magnitudine")))
      commands.push_back(action->objectName());
  for (const auto& [name, work] : works) {
    std::size_t step = 0;
    const std::vector<std::string> forms = LoadableForms();
    platform_.onYield = [&, depth = 0]() mutable {
      if (++depth == 1) {
        tmrCentrale_Timer();
        const std::size_t turn = step++;
        const std::string& form = forms[turn / 2 % forms.size()];
        if (turn % 2 == 0)
          Opened(form);
        else
          Close(form);
        window_->RunCommand(
            FromQ(commands[static_cast<qsizetype>(turn % static_cast<std::size_t>(commands.size()))]));
      }
      QCoreApplication::processEvents();
      --depth;
    };
    for (int run = 0; run < 20 && step < 2 * forms.size() + static_cast<std::size_t>(commands.size());
         ++run) {
      platform_.chosenFiles.clear();
      work();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_GT(step, 2 * forms.size()) << name;
    platform_.onYield = [] { QCoreApplication::processEvents(); };
    EXPECT_FALSE(LongOperation::Running()) << name;
    EXPECT_EQ(platform_.waitDepth, 0) << name;
    EXPECT_TRUE(window_->isEnabled()) << name;
  }
  Database_satelliti(sample);
  EXPECT_EQ(PrimaryDatabase.Count(), 175);
}

}  // namespace
}  // namespace halvorine
