// The general sky chart in the running program, driven by mouse and menus.
#include "sky/frmGeneralSky.h"

#include <QMenu>
#include <QMouseEvent>
#include <QTimer>
#include <array>

#include "maps/qtSurface.h"
#include "shell/base/mGlobal.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class FakeObject : public FakeForm<ObjectCalls> {
 public:
  explicit FakeObject(CallLog& log) : FakeForm("frmObject", log) {}
  void ShowObject(int index) override { Note(index == 0 ? PickedStar.Name : std::to_string(index)); }
};

class GeneralSkyWindow : public RunningProgram {
 protected:
  void Open() {
    Start();
    Item("mnuCieloMappaGenerale")->trigger();
    QCoreApplication::processEvents();
    picture_ = Control<SurfaceWidget>(Form("frmGeneralSky"), "Picture1");
  }
  /// Place in the box of an hour and a declination in the present view.
  QPoint At(double hours, double degrees) const {
    const PixmapSurface& surface = picture_->Surface();
    return {qRound((hours - surface.UserX(0)) / surface.ScaleWidth() * picture_->width()),
            qRound((degrees - surface.UserY(0)) / surface.ScaleHeight() * picture_->height())};
  }
  QImage Shown() const { return picture_->grab().toImage(); }
  /// Opens the popup by the right button and chooses an item, in a submenu where it has one.
  void Choose(const char* item, const char* submenu = nullptr) {
    QTest::mouseClick(picture_, Qt::RightButton, {}, QPoint(40, 40));
    QMenu* menu = Menu("mnuGeneralSky");
    ASSERT_TRUE(menu->isVisible());
    if (submenu != nullptr) {
      menu->setActiveAction(Item(submenu));
      QTest::keyClick(menu, Qt::Key_Right);
      menu = Menu(submenu);
    }
    ASSERT_TRUE(menu->isVisible()) << item;
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Item(item)).center());
    QCoreApplication::processEvents();
  }
  void Drag(QPoint from, QPoint to) {
    QTest::mousePress(picture_, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, picture_->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(picture_, &move);
    QTest::mouseRelease(picture_, Qt::LeftButton, {}, to);
  }
  void Wheel(QPoint at, int angle) {
    QWheelEvent event(at, picture_->mapToGlobal(at), {}, QPoint(0, angle), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(picture_, &event);
  }
  /// Left, top, right and bottom of the view.
  std::array<double, 4> View() const {
    const PixmapSurface& surface = picture_->Surface();
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
  SurfaceWidget* picture_ = nullptr;
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
  Wheel(At(12, 0), 120);
  ExpectView(View(), whole_);
  Item("mnuGeneralSkyZoom")->trigger();
  const QImage before = Shown();
  QTest::mousePress(picture_, Qt::LeftButton, {}, At(6, -10));
  QMouseEvent move(QEvent::MouseMove, At(12, 50), picture_->mapToGlobal(At(12, 50)), Qt::NoButton,
                   Qt::LeftButton, {});
  QApplication::sendEvent(picture_, &move);
  EXPECT_NE(Shown(), before) << "the box follows the mouse";
  QTest::mouseRelease(picture_, Qt::LeftButton, {}, At(12, 50));
  ExpectView(View(), {12, 50, 6, -10});
  QTest::mouseClick(picture_, Qt::LeftButton, {}, QPoint(100, 100));
  Drag(QPoint(100, 100), QPoint(100, 200));
  ExpectView(View(), {12, 50, 6, -10});  // a point and a line are no box
  Wheel(At(9, 20), 120);
  ExpectView(View(), {11.4, 44, 6.6, -4});
  for (int notch = 0; notch < 12; ++notch) Wheel(At(9, 20), -120);
  ExpectView(View(), whole_);
  EXPECT_EQ(Shown(), before);
  Drag(At(12, 50), At(6, -10));
  QTest::mouseDClick(picture_, Qt::LeftButton, {}, QPoint(200, 200));
  ExpectView(View(), whole_);
}

TEST_F(GeneralSkyWindow, ClickOpensTheObjectUnderThePointer) {
  Open();
  const FakeObject object(log_);
  const QPoint sirius = At(6.7525, -16.716), nothing = At(12, -88);
  QTest::mouseClick(picture_, Qt::LeftButton, {}, sirius);
  EXPECT_EQ(log_, CallLog{"frmObject.Sirius"});
  log_.clear();
  const SkyObject& mars = SkyObjectTable[Mars];
  QTest::mouseClick(picture_, Qt::LeftButton, {}, At(mars.RightAscension, mars.Declination));
  EXPECT_EQ(log_, CallLog{"frmObject.3"});
  log_.clear();
  QTest::mouseClick(picture_, Qt::LeftButton, {}, nothing);
  QTest::mouseClick(picture_, Qt::MiddleButton, {}, sirius);
  Drag(sirius, sirius + QPoint(60, 40));
  Item("mnuGeneralSkyZoom")->trigger();
  QTest::mouseClick(picture_, Qt::LeftButton, {}, sirius);
  EXPECT_EQ(log_, CallLog{});
}

TEST_F(GeneralSkyWindow, TitleReadsThePlaceUnderThePointer) {
  Open();
  QTest::mouseMove(picture_, At(18, 45) + QPoint(3, 3));
  QTest::mouseMove(picture_, At(18, 45));
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
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return picture_->Surface().Width() == 15.0 * picture_->width(); }, 2000))
      << "drawn anew in its own size a moment later";
  QTest::mouseClick(picture_, Qt::RightButton, {}, QPoint(5, 5));
  EXPECT_TRUE(Menu("mnuGeneralSky")->isVisible());
  Form("frmGeneralSky")->close();
  Menu("mnuGeneralSky")->close();
  EXPECT_FALSE(IsFormLoaded("frmGeneralSky"));
}

}  // namespace
}  // namespace halvorine
