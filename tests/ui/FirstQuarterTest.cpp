// A person's first quarter of an hour with the program, by clicks and keys, from the choice of a language to
// a second start.
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "shell/frmLanguage.h"
#include "shell/mTick.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class FirstQuarterTest : public RunningProgram {
 protected:
  FirstQuarterTest() {
    std::filesystem::remove(folder_.SettingsFile());
    ForgetSettings();
    platform_.clockUtc = DateOf(2022, 6, 16) + 0.85;
  }
  void StartAsAPerson() {
    Start(0, [this] {
      frmLanguage dialog;
      QTimer::singleShot(0, &dialog, [&dialog] {
        auto* const list = Control<QListWidget>(&dialog, "lstLingua");
        QListWidgetItem* const item = list->findItems(QStringLiteral("Italiano"), Qt::MatchExactly).at(0);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
        QTest::mouseClick(Control<QPushButton>(&dialog, "cmdOK"), Qt::LeftButton);
      });
      dialog.exec();
      ++languageDialogs_;
    });
  }
  void Tool(const char* key) {
    auto* const bar = Control<QToolBar>(window_.get(), "Toolbar1");
    QTest::mouseClick(bar->widgetForAction(Control<QAction>(bar, key)), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  template <class Widget>
  Widget* In(const char* form, const char* name, int index = -1) {
    return Control<Widget>(Control<QWidget>(window_.get(), form), name, index);
  }
  int languageDialogs_ = 0;
};

TEST_F(FirstQuarterTest, AllIsAsItWasAtTheSecondStart) {
  StartAsAPerson();
  EXPECT_EQ(languageDialogs_, 1);

  Tool("Location");
  auto* const places = In<QComboBox>("frmLocation", "cmbCity");
  const int rome = places->findText(QStringLiteral("Italy: Rome"), Qt::MatchStartsWith);
  ASSERT_GE(rome, 0);
  places->setCurrentIndex(rome);
  Q_EMIT places->activated(rome);
  In<QLineEdit>("frmLocation", "txtHeight")->setText(QStringLiteral("21"));
  Click(Form("frmLocation"), "cmdOK");
  EXPECT_TRUE(Panel(3).startsWith(QStringLiteral("Italy: Rom")));

  platform_.chosenFiles = {folder_.Path("elements/sample.txt")};
  Tool("Open");
  ASSERT_EQ(PrimaryDatabase.Count(), 175);
  In<QComboBox>("frmDatabase", "cmbOrdina", 0)->setCurrentIndex(4);
  auto* const rows = In<QAbstractItemView>("frmDatabase", "lstDatabase", 0);
  EXPECT_TRUE(rows->model()->index(0, 0).data().toString().startsWith(QStringLiteral("009")))
      << "the shortest periods come first";
  ClickRow(rows, 0);
  ClickRow(rows, 7, Qt::ShiftModifier);
  Click(Form("frmDatabase"), "cmdAdd", 0);
  ASSERT_EQ(ActiveCount, 8);
  auto* const active = In<QAbstractItemView>("frmDatabase", "lstActive");
  ClickRow(active, 2);
  const std::string chosen = ElementSets[3].Name;
  Click(Form("frmDatabase"), "cmdPrincipale");
  EXPECT_EQ(ElementSets[1].Name, chosen);
  EXPECT_EQ(Panel(2), ToQ(chosen));
  Click(Form("frmDatabase"), "cmdOK");

  Tool("Recta");
  ASSERT_TRUE(IsFormLoaded("frmWorldMap"));
  Tick(0);

  Tool("Time");
  Click(Form("frmTime"), "chkUsaOraPc");
  EXPECT_FALSE(TickEnabled);
  In<QDateTimeEdit>("frmTime", "DTPicker1")
      ->setDateTime(QDateTime(QDate(2022, 6, 20), QTime(12, 0), Qt::UTC));
  Click(Form("frmTime"), "cmdPlay");
  Tick(0);
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("20 giugno 2022  12:00:00"))) << FromQ(Panel(1));
  Tick(0);
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("20 giugno 2022  12:00:01")));
  Click(Form("frmTime"), "cmdStop");
  Tick(0);
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("20 giugno 2022  12:00:01")));
  Click(Form("frmTime"), "chkUsaOraPc");
  Tick(0);
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("16 giugno 2022")));

  Tool("Save");
  const ObserverSite site = Site;
  EndProgram();
  ForgetSettings();
  const std::string program = AppPath;
  ResetSharedRecords();
  AppPath = program;
  LanguageLoaded = false;
  ResetForms();
  RegisterWindows();
  StartAsAPerson();
  EXPECT_EQ(languageDialogs_, 1);
  EXPECT_EQ(ActiveCount, 8);
  EXPECT_EQ(Panel(2), ToQ(chosen));
  EXPECT_EQ(Site.Place, site.Place);
  EXPECT_NEAR(Site.Latitude, site.Latitude, 1e-4);
  EXPECT_EQ(Site.Height, 21);
  EXPECT_EQ(PrimaryDatabasePath, folder_.Path("elements/sample.txt"));
  for (const FakePlatform::Message& message : platform_.messages)
    EXPECT_EQ(message.kind, MessageKind::Information) << message.text;
}

}  // namespace
}  // namespace halvorine
