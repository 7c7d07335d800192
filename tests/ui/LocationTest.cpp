// The windows of the observer's place, driven by clicks and keys.
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include "shell/base/mGlobal.h"
#include "shell/base/mLongOperation.h"
#include "shell/mLocation.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class LocationWindowTest : public RunningProgram {
 protected:
  LocationWindowTest() { Start(); }
  void Open() {
    QTest::mouseClick(Control<QWidget>(window_.get(), "StatusBar1.Panel", 3), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form_ = Control<QWidget>(window_.get(), "frmLocation");
    QCoreApplication::processEvents();
  }
  QWidget* Dialog() { return Control<QWidget>(form_, "frmAddLocation"); }
  QComboBox* Combo(const char* name) { return Control<QComboBox>(form_, name); }
  QString TextOf(const char* name) { return Control<QLabel>(form_, name)->text(); }
  static void Type(const QWidget* window, const char* name, const char* text) {
    auto* const field = Control<QLineEdit>(window, name);
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, QString::fromUtf8(text));
  }
  /// Finds a place as a user does: by a part of its name and the arrow keys.
  void Choose(const char* part) {
    QLineEdit* const field = Combo("cmbCity")->lineEdit();
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QString::fromUtf8(part));
    QWidget* const popup = Combo("cmbCity")->completer()->popup();
    ASSERT_TRUE(popup->isVisible()) << part;
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
  }
  QWidget* form_ = nullptr;
};

TEST_F(LocationWindowTest, ShowsTheSiteAndTheNumberOfPlaces) {
  Site = {"Italy: Milano", 45.5F, 9.25F, 122, -3.5, 1};
  Open();
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(platform_.waitDepth, 0);
  EXPECT_TRUE(TextOf("lblCity").endsWith(QStringLiteral("(4231)")));
  EXPECT_EQ(Combo("cmbCity")->currentText(), QStringLiteral("Italy: Milano"));
  EXPECT_EQ(TextOf("lblLatitude"), QStringLiteral("45.500°"));
  EXPECT_EQ(TextOf("lblLongitude"), QStringLiteral("9.250°"));
  EXPECT_EQ(Control<QLineEdit>(form_, "txtHeight")->text(), QStringLiteral("122"));
  EXPECT_EQ(Combo("cmbOffset")->currentIndex(), 1);
  EXPECT_EQ(Combo("cmbOffsetHours")->currentText(), QStringLiteral("3"));
  EXPECT_EQ(Combo("cmbOffsetMin")->currentText(), QStringLiteral("30"));
  EXPECT_TRUE(Control<QCheckBox>(form_, "chkDaylight")->isChecked());
  const ObserverSite before = Site;
  Click(form_, "cmdOK");
  EXPECT_EQ(Site, before) << "what was shown is what is applied";
  EXPECT_FALSE(IsFormLoaded("frmLocation"));
}

TEST_F(LocationWindowTest, APlaceFoundByTypingBecomesTheSite) {
  Open();
  Control<QLineEdit>(form_, "txtHeight")->setText(QStringLiteral("500"));
  Choose("kathm");
  EXPECT_EQ(Combo("cmbCity")->currentText(), QStringLiteral("Nepal: Kathmandu"));
  EXPECT_EQ(Control<QLineEdit>(form_, "txtHeight")->text(), QStringLiteral("0"));
  Type(form_, "txtHeight", "1400");
  QTest::mouseClick(Control<QCheckBox>(form_, "chkDaylight"), Qt::LeftButton, {}, QPoint(8, 8));
  QTest::keyClick(Control<QLineEdit>(form_, "txtHeight"), Qt::Key_Return);
  EXPECT_EQ(Site.Place, "Nepal: Kathmandu");
  EXPECT_NEAR(Site.Latitude, 27.7, 0.1);
  EXPECT_EQ(Site.TimeZone, 5.75F);
  EXPECT_EQ(Site.Height, 1400);
  EXPECT_EQ(Site.DaylightSaving, 1);
  EXPECT_EQ(Panel(3), QStringLiteral("Nepal: Kathmandu"));
  EXPECT_FALSE(IsFormLoaded("frmLocation"));
}

TEST_F(LocationWindowTest, EnterSettlesATypedNameBeforeItMeansOk) {
  Open();
  QLineEdit* const field = Combo("cmbCity")->lineEdit();
  for (const auto& [typed, settled] :
       {std::pair("kathmandu", "Nepal: Kathmandu"), std::pair("no such place", "Nepal: Kathmandu"),
        std::pair("san", "Nepal: Kathmandu"), std::pair("", "Nepal: Kathmandu")}) {
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, QString::fromUtf8(typed));
    Combo("cmbCity")->completer()->popup()->hide();
    QTest::keyClick(field, Qt::Key_Return);
    ASSERT_TRUE(IsFormLoaded("frmLocation")) << typed;
    EXPECT_EQ(field->text(), QString::fromUtf8(settled)) << typed;
  }
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_FALSE(IsFormLoaded("frmLocation"));
}

TEST_F(LocationWindowTest, CancelAndEscapeChangeNothing) {
  const ObserverSite before = Site;
  Open();
  Choose("kathm");
  Click(form_, "cmdCancel");
  EXPECT_FALSE(IsFormLoaded("frmLocation"));
  Open();
  Type(form_, "txtHeight", "77");
  QTest::keyClick(Control<QLineEdit>(form_, "txtHeight"), Qt::Key_Escape);
  EXPECT_FALSE(IsFormLoaded("frmLocation"));
  EXPECT_EQ(Site, before);
}

TEST_F(LocationWindowTest, ClosingDuringTheReadEndsItAndALongCommandForbidsTheOpening) {
  platform_.millisecondsPerLook = 50;
  int waiting = 0;
  platform_.onYield = [&] {
    if (!LongOperation::Running() || waiting > 0) return;
    waiting = platform_.waitDepth;
    auto* const form = Control<QWidget>(window_.get(), "frmLocation");
    EXPECT_FALSE(Control<QPushButton>(form, "cmdOK")->isEnabled());
    window_->RunCommand("mnuOpzioniLocalita");  // once more in the middle of it
    QTest::keyClick(form, Qt::Key_Escape);
  };
  window_->RunCommand("mnuOpzioniLocalita");
  EXPECT_EQ(waiting, 1) << "the hourglass stands while the window opens";
  EXPECT_EQ(platform_.waitDepth, 0);
  EXPECT_FALSE(IsFormLoaded("frmLocation"));
  EXPECT_EQ(Cities.size(), 1U);
  EXPECT_FALSE(CancelRequested);
  const LongOperation other;
  window_->RunCommand("mnuOpzioniLocalita");
  EXPECT_FALSE(IsFormLoaded("frmLocation"));
  EXPECT_EQ(platform_.messages.size(), 1U);
}

TEST_F(LocationWindowTest, ANewPlaceIsCheckedAskedForAndStored) {
  Open();
  Click(form_, "cmdNuova");
  const QPointer<QWidget> dialog = Dialog();
  EXPECT_TRUE(dialog->isVisible());
  Click(dialog, "cmdOK");
  EXPECT_EQ(platform_.messages.back().kind, MessageKind::Warning);
  EXPECT_EQ(dialog->focusWidget(), Control<QLineEdit>(dialog, "txtCityName"));
  Type(dialog, "txtCityName", "Hill \"7\"");
  Click(dialog, "cmdOK");
  EXPECT_EQ(platform_.messages.size(), 2U) << "a double quote would break the list";
  Type(dialog, "txtCityName", "Home, hill 7");
  Type(dialog, "txtDegLatitude", "33");
  Type(dialog, "txtDegFrazLatitude", "5");
  Type(dialog, "txtDegLongitude", "181");
  auto* const pages = Control<QTabWidget>(dialog, "SSTab1");
  QTest::mouseClick(pages->tabBar(), Qt::LeftButton, {}, pages->tabBar()->tabRect(1).center());
  EXPECT_EQ(platform_.messages.size(), 3U);
  EXPECT_EQ(pages->currentIndex(), 0) << "the page that is left must be valid";
  EXPECT_EQ(dialog->focusWidget(), Control<QLineEdit>(dialog, "txtDegLongitude"));
  EXPECT_EQ(Control<QLineEdit>(dialog, "txtDegLongitude")->text(), QStringLiteral("181"));
  Type(dialog, "txtDegLongitude", "151");
  QTest::mouseClick(pages->tabBar(), Qt::LeftButton, {}, pages->tabBar()->tabRect(1).center());
  EXPECT_EQ(pages->currentIndex(), 1);
  EXPECT_EQ(Control<QLineEdit>(dialog, "txtDMSSecLatitude")->text(), QStringLiteral("02"));
  Type(dialog, "txtDMSMinLatitude", "30");
  Type(dialog, "txtDMSSecLatitude", "0");
  QTest::keyClick(Control<QComboBox>(dialog, "cmbLatitude"), Qt::Key_Down);
  QTest::keyClick(Control<QComboBox>(dialog, "cmbOffsetHours"), Qt::Key_1);
  QTest::keyClick(Control<QComboBox>(dialog, "cmbOffsetMin"), Qt::Key_Down);
  Click(dialog, "cmdOK");
  EXPECT_TRUE(dialog->isVisible()) << "no is the default answer";
  platform_.answers = {MessageAnswer::Yes};
  Click(dialog, "cmdOK");
  EXPECT_EQ(
      platform_.messages.back().text,
      "Save the place with these values?\nLatitude= -33.500°\nLongitude= 151.000°\nTime zone= 1.5 hours");
  EXPECT_TRUE(dialog == nullptr || !dialog->isVisible());
  EXPECT_EQ(Combo("cmbCity")->currentText(), QStringLiteral("Home, hill 7"));
  EXPECT_EQ(TextOf("lblLatitude"), QStringLiteral("-33.500°"));
  Click(form_, "cmdOK");
  EXPECT_EQ(Site.Latitude, -33.5F);
  EXPECT_EQ(Site.TimeZone, 1.5F);
  EXPECT_TRUE(ProgramFolder::Read(folder_.Path("cities.dat")).ends_with("\"Home, hill 7\",-33.5,151,1.5\n"));
}

TEST_F(LocationWindowTest, AChangedPlaceKeepsItsHeightAndADeletedOneIsAskedForFirst) {
  Open();
  Type(form_, "txtHeight", "122");
  Click(form_, "cmdModifica");
  QWidget* const dialog = Dialog();
  EXPECT_EQ(Control<QLineEdit>(dialog, "txtCityName")->text(), QStringLiteral("Italy: Milano"));
  EXPECT_EQ(Control<QLineEdit>(dialog, "txtDegLatitude")->text(), QStringLiteral("45"));
  Type(dialog, "txtDegLatitude", "46");
  platform_.refuseWriting = true;
  platform_.answers = {MessageAnswer::Yes};
  Click(dialog, "cmdOK");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(platform_.messages.back().kind, MessageKind::Warning) << "nothing was written, and it is told";
  platform_.refuseWriting = false;
  platform_.answers = {MessageAnswer::Yes};
  Click(dialog, "cmdOK");
  EXPECT_TRUE(TextOf("lblLatitude").startsWith(QStringLiteral("46.")));
  EXPECT_EQ(Control<QLineEdit>(form_, "txtHeight")->text(), QStringLiteral("122"));
  EXPECT_EQ(Cities.size(), 4231U);

  Click(form_, "cmdElimina");
  EXPECT_EQ(platform_.messages.back().text, "Delete from the list Italy: Milano ?");
  EXPECT_EQ(platform_.messages.back().buttons, MessageButtons::YesNoDefaultNo);
  EXPECT_EQ(Cities.size(), 4231U);
  platform_.answers = {MessageAnswer::Yes};
  Click(form_, "cmdElimina");
  EXPECT_EQ(Cities.size(), 4230U);
  EXPECT_EQ(FindCity("Italy: Milano"), 0);
  for (const char* const command : {"cmdElimina", "cmdModifica"}) {
    Click(form_, command);
    EXPECT_EQ(platform_.messages.back().kind, MessageKind::Information) << "nothing is selected";
  }
  const ObserverSite before = Site;
  Click(form_, "cmdOK");
  EXPECT_EQ(Site.Place, before.Place);
  EXPECT_EQ(Site.Latitude, before.Latitude);
}

TEST_F(LocationWindowTest, TheComputerZoneIsOnlyTold) {
  Open();
  Click(form_, "cmdFusoOrario");
  EXPECT_EQ(platform_.messages.back().kind, MessageKind::Warning);
  platform_.zone = ZoneBias{-120, true};
  Click(form_, "cmdFusoOrario");
  EXPECT_NE(platform_.messages.back().text.find("+2hr 0min"), std::string::npos);
  EXPECT_EQ(Combo("cmbOffsetHours")->currentText(), QStringLiteral("1"));
}

TEST_F(LocationWindowTest, MinutesThatNoListHoldsStayAndNamesOfAnyLengthFit) {
  folder_.Write("cities.dat", "\"" + std::string(1000, 'w') + "\",1,2,-4.3333\n\"Half\",1,2,3.5\n");
  Open();
  const int width = window_->width();
  Choose("half");
  Choose("www");
  EXPECT_EQ(Combo("cmbOffsetHours")->currentText(), QStringLiteral("4"));
  EXPECT_EQ(Combo("cmbOffsetMin")->currentText(), QStringLiteral("30"));
  Click(form_, "cmdOK");
  EXPECT_EQ(Site.Place.size(), 1000U);
  EXPECT_EQ(Site.TimeZone, -4.5F);
  QCoreApplication::processEvents();
  EXPECT_EQ(window_->width(), width);
}

}  // namespace
}  // namespace halvorine
