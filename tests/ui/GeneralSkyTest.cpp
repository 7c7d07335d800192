// The general sky chart in the running program, driven by mouse and menus.
#include "sky/frmGeneralSky.h"

#include <QMenu>
#include <QTimer>
#include <array>

#include "shell/base/mGlobal.h"
#include "tests/fakes/ChartProgram.h"

namespace halvorine {
namespace {

class GeneralSkyWindow : public ChartProgram {
 protected:
  void Open() {
    Start();
    Item("mnuCieloMappaGenerale")->trigger();
    QCoreApplication::processEvents();
    Take(Form("frmGeneralSky"));
  }
  void Choose(const char* item, const char* submenu = nullptr) { ChooseIn("mnuGeneralSky", item, submenu); }
  /// Left, top, right and bottom of the view.
  std::array<double, 4> View() const {
    const PixmapSurface& surface = picture->Surface();
    return {surface.UserX(0), surface.UserY(0), surface.UserX(surface.Width()),
            surface.UserY(surface.Height())};
  }
  static void ExpectView(const std::array<double, 4>& view, const std::array<double, 4>& wanted) {
    EXPECT_NEAR(view[0], wanted[0], 0.06);
    EXPECT_NEAR(view[1], wanted[1], 0.7);
    EXPECT_NEAR(view[2], wanted[2], 0.06);
    EXPECT_NEAR(view[3], wanted[3], 0.7);
  }

  const std::array<double, 4> whole_{24, 90, 0, -90};
  CallLog log_;
};

TEST_F(GeneralSkyWindow, OpensAtItsFirstSizeWithTheChecksOfTheOptions) {
  Open();
  EXPECT_EQ(Form("frmGeneralSky")->parentWidget()->size(), QSize(711, 458));
  EXPECT_FALSE(Item("mnuGeneralSkyGriglia")->isChecked());
  EXPECT_FALSE(Item("mnuGeneralSkyOggettiCostellazioni")->isChecked());
  EXPECT_TRUE(Item("mnuGeneralSkyOggettiPianeti")->isChecked());
  EXPECT_TRUE(Item("mnuGeneralSkyEtichettePianeti")->isChecked());
  EXPECT_EQ(Form("frmGeneralSky")->windowTitle(), QStringLiteral("Whole sky - 14 Jun 2022 13:00 local time"));
  EXPECT_EQ(Loaded<StarCountCalls>("frmGeneralSky")->StarCount(), 5146);
  ExpectView(View(), whole_);
  const auto* const timer = Control<QTimer>(Form("frmGeneralSky"), "tmrGeneralSky");
  EXPECT_TRUE(timer->isActive() && timer->interval() == 60000);
}

TEST_F(GeneralSkyWindow, EachItemOfThePopupDoesItsWork) {
  Open();
  const FakeMagnitude magnitude(log_);
  struct Row {
    const char* item;
    const char* submenu;
  };
  const char* const objects = "mnuGeneralSkyOggetti";
  const char* const names = "mnuGeneralSkyEtichette";
  for (const Row& row : {Row{"mnuGeneralSkyGriglia", nullptr},
                         {"mnuGeneralSkyOggettiCostellazioni", objects},
                         {"mnuGeneralSkyEtichetteCostellazioni", names},
                         {"mnuGeneralSkyEtichetteSoleLuna", names},
                         {"mnuGeneralSkyEtichettePianeti", names},
                         {"mnuGeneralSkyOggettiPianeti", objects},
                         {"mnuGeneralSkyOggettiSoleLuna", objects}}) {
    const bool checked = Item(row.item)->isChecked();
    const QImage before = Shown();
    Choose(row.item, row.submenu);
    EXPECT_EQ(Item(row.item)->isChecked(), !checked) << row.item;
    EXPECT_NE(Shown(), before) << row.item;
    Choose(row.item, row.submenu);
    EXPECT_EQ(Shown(), before) << row.item;
  }
  const QImage before = Shown();
  Choose("mnuGeneralSkyMagnitudine");
  EXPECT_EQ(log_, CallLog{"frmMagnitude.ShowFor generale"});
  EXPECT_NE(Shown(), before) << "fewer stars";
  CurrentDate += 1;
  Choose("mnuGeneralSkyRidisegnaMappa");
  EXPECT_EQ(Form("frmGeneralSky")->windowTitle(), QStringLiteral("Whole sky - 15 Jun 2022 13:00 local time"));
  Choose("mnuGeneralSkyZoom");
  EXPECT_TRUE(Item("mnuGeneralSkyZoom")->isChecked());
  Drag(At(12, 50), At(6, -10));
  ExpectView(View(), {12, 50, 6, -10});
  Choose("mnuGeneralSkyRipristina");
  ExpectView(View(), whole_);
  Choose("mnuGeneralSkyChiudi");
  EXPECT_FALSE(IsFormLoaded("frmGeneralSky"));
}

TEST_F(GeneralSkyWindow, BoxWheelAndDoubleClickZoomWhileTheItemIsChecked) {
  Open();
  Drag(At(12, 50), At(6, -10));
  Wheel(At(12, 0), 1);
  ExpectView(View(), whole_);
  Item("mnuGeneralSkyZoom")->trigger();
  const QImage before = Shown();
  EXPECT_NE(Drag(At(6, -10), At(12, 50)), before) << "the box follows the mouse";
  ExpectView(View(), {12, 50, 6, -10});
  QTest::mouseClick(picture, Qt::LeftButton, {}, QPoint(100, 100));
  Drag(QPoint(100, 100), QPoint(100, 200));
  ExpectView(View(), {12, 50, 6, -10});  // a point and a line are no box
  Wheel(At(9, 20), 1);
  ExpectView(View(), {11.4, 44, 6.6, -4});
  for (int notch = 0; notch < 12; ++notch) Wheel(At(9, 20), -1);
  ExpectView(View(), whole_);
  EXPECT_EQ(Shown(), before);
  Drag(At(12, 50), At(6, -10));
  QTest::mouseDClick(picture, Qt::LeftButton, {}, QPoint(200, 200));
  ExpectView(View(), whole_);
}

TEST_F(GeneralSkyWindow, ClickOpensTheObjectUnderThePointer) {
  Open();
  const FakeObject object(log_);
  const QPoint sirius = At(6.7525, -16.716), nothing = At(12, -88);
  QTest::mouseClick(picture, Qt::LeftButton, {}, sirius);
  EXPECT_EQ(log_, CallLog{"frmObject.Sirius"});
  log_.clear();
  const SkyObject& mars = SkyObjectTable[Mars];
  QTest::mouseClick(picture, Qt::LeftButton, {}, At(mars.RightAscension, mars.Declination));
  EXPECT_EQ(log_, CallLog{"frmObject.3"});
  log_.clear();
  QTest::mouseClick(picture, Qt::LeftButton, {}, nothing);
  QTest::mouseClick(picture, Qt::MiddleButton, {}, sirius);
  Drag(sirius, sirius + QPoint(60, 40));
  Item("mnuGeneralSkyZoom")->trigger();
  QTest::mouseClick(picture, Qt::LeftButton, {}, sirius);
  EXPECT_EQ(log_, CallLog{});
}

TEST_F(GeneralSkyWindow, TitleReadsThePlaceUnderThePointer) {
  Open();
  MovePointer(At(18, 45));
  const QString title = Form("frmGeneralSky")->windowTitle();
  EXPECT_TRUE(title.startsWith(QStringLiteral("Whole sky - 14 Jun 2022 13:00 local time -  RA 1")))
      << FromQ(title);
  EXPECT_TRUE(title.contains(QStringLiteral("s  Dec. +4"))) << FromQ(title);
}

TEST_F(GeneralSkyWindow, TinyAndGrowingWindowsAreNoTrouble) {
  Open();
  QWidget* const frame = Form("frmGeneralSky")->parentWidget();
  for (const QSize& size : {QSize(130, 30), QSize(1, 1), QSize(0, 0), QSize(400, 700), QSize(900, 500)}) {
    frame->resize(size);
    QCoreApplication::processEvents();
    Loaded<GeneralSkyCalls>("frmGeneralSky")->Genera_mappa();
    Shown();
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return picture->Surface().Width() == 15.0 * picture->width(); }, 2000))
      << "drawn anew in its own size a moment later";
  QTest::mouseClick(picture, Qt::RightButton, {}, QPoint(5, 5));
  EXPECT_TRUE(Menu("mnuGeneralSky")->isVisible());
  Form("frmGeneralSky")->close();
  Menu("mnuGeneralSky")->close();
  EXPECT_FALSE(IsFormLoaded("frmGeneralSky"));
}

}  // namespace
}  // namespace halvorine
