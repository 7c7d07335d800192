// The local sky's window, driven by its popup menu, the toolbar and real mouse and wheel events.
#include <QLabel>
#include <QMdiSubWindow>

#include "astro/mAstro.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/mTick.h"
#include "sky/mSky.h"
#include "sky/mSkyDraw.h"
#include "tests/fakes/ChartProgram.h"

namespace halvorine {
namespace {

class LocalSkyTest : public ChartProgram {
 protected:
  /// The chart over Milan on an evening, as the menu opens it.
  void Open(Date utc = DateOf(2022, 6, 15) + 20.5 / 24) {
    Start(3);
    platform_.clockUtc = utc;
    tmrCentrale_Timer();
    Item("mnuCieloMappaLocale")->trigger();
    QCoreApplication::processEvents();
    form = Form("frmLocalSky");
    Take(form);
  }
  QPoint AtStar(int number) const {
    SkyPlaces places;
    ProjectObjects(places, ProjectionOf(Options.Local), number);
    const StarRow& star = places.Stars.back();
    return At(static_cast<double>(star.X), static_cast<double>(star.Y));
  }
  bool IsOn(const char* item) { return Item(item)->isChecked(); }
  /// The principal satellite high in the sky at a time, whatever its elements say.
  static void RaisePrincipal() {
    SatelliteStates[1].Elevation = 50;
    SatelliteStates[1].Azimuth = 120;
    SatelliteStates[1].Condition = Visible;
  }

  QWidget* form = nullptr;
};

TEST_F(LocalSkyTest, OpensAtItsFirstSizeWithChecksOfTheOptions) {
  Open();
  EXPECT_EQ(form->parentWidget()->size(), QSize(711, 458));
  EXPECT_EQ(form->windowTitle(), "Local sky - 15 Jun 2022 21:30 local time");
  for (const char* const on :
       {"mnuLocalSkyPaesaggio", "mnuLocalSkyRiquadroDati", "mnuLocalSkyCoordOrizz", "mnuLocalSkyProiezStereo",
        "mnuLocalSkyOrientamentoSud", "mnuLocalSkyOggettiPianeti", "mnuLocalSkyEtichettePianeti"})
    EXPECT_TRUE(IsOn(on)) << on;
  for (const char* const off :
       {"mnuLocalSkyGriglia", "mnuLocalSkyCoordEquat", "mnuLocalSkyProiezNormale",
        "mnuLocalSkyOrientamentoNord", "mnuLocalSkyTransitoPrincipale", "mnuLocalSkyZoom"})
    EXPECT_FALSE(IsOn(off)) << off;
  EXPECT_EQ(Control<QWidget>(form, "fraSatellitePrincipale")->width(), 129);
  EXPECT_GE(platform_.waitDepth, 0);
}

TEST_F(LocalSkyTest, EveryItemOfThePopupActs) {
  Open(DateOf(2022, 6, 16) + 3.0 / 24);  // Moon and planets are up
  // each switch changes the picture, and switched again brings it back
  for (const char* const item :
       {"mnuLocalSkyGriglia", "mnuLocalSkyPaesaggio", "mnuLocalSkyRiquadroDati",
        "mnuLocalSkyOggettiCostellazioni", "mnuLocalSkyOggettiPianeti", "mnuLocalSkyOggettiSoleLuna",
        "mnuLocalSkyEtichetteCostellazioni", "mnuLocalSkyEtichettePianeti", "mnuLocalSkyEtichetteSoleLuna"}) {
    const QImage before = Shown();
    Item(item)->trigger();
    EXPECT_NE(Shown(), before) << item;
    Item(item)->trigger();
    EXPECT_EQ(Shown(), before) << item;
  }
  // of a group one is checked, also when it is chosen again
  const std::vector<std::vector<const char*>> groups = {
      {"mnuLocalSkyOrientamentoNord", "mnuLocalSkyOrientamentoOvest", "mnuLocalSkyOrientamentoEst",
       "mnuLocalSkyOrientamentoSud"},
      {"mnuLocalSkyProiezNormale", "mnuLocalSkyProiezStereo"},
      {"mnuLocalSkyCoordEquat", "mnuLocalSkyCoordOrizz"}};
  for (const std::vector<const char*>& group : groups)
    for (const char* const chosen : group) {
      const QImage before = Shown();
      for (int times = 0; times < 2; ++times) Item(chosen)->trigger();
      for (const char* const item : group) EXPECT_EQ(IsOn(item), item == chosen) << item;
      EXPECT_TRUE(group.size() < 4 || Shown() != before) << chosen;
    }
  CallLog log;
  const FakeMagnitude magnitude(log);
  Item("mnuLocalSkyMagnitudine")->trigger();
  EXPECT_EQ(log, CallLog{"frmMagnitude.ShowFor locale"});
  auto* const stars = Loaded<StarCountCalls>("frmLocalSky");
  EXPECT_EQ(stars->StarCount(), 1639);
  const QImage before = Shown();
  for (const int count : {0, 9010, 30000}) stars->SetStarCount(count);
  EXPECT_NE(Shown(), before);
  platform_.clockUtc += 1;
  tmrCentrale_Timer();
  Item("mnuLocalSkyRidisegnaMappa")->trigger();
  EXPECT_TRUE(form->windowTitle().startsWith("Local sky - 17 Jun 2022")) << FromQ(form->windowTitle());
  Item("mnuLocalSkyChiudi")->trigger();
  EXPECT_FALSE(IsFormLoaded("frmLocalSky"));
  Item("mnuLocalSkyTransitoPrincipale")->trigger();  // without the window nothing is switched
  EXPECT_FALSE(IsOn("mnuLocalSkyTransitoPrincipale"));
}

TEST_F(LocalSkyTest, RightButtonAndMenuKeyOpenThePopup) {
  Open();
  QMenu* const menu = Menu("mnuLocalSky");
  QTest::mouseClick(picture, Qt::RightButton, {}, QPoint(200, 100));
  EXPECT_TRUE(menu->isVisible());
  menu->close();
  QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), picture->mapToGlobal(QPoint(10, 10)));
  QCoreApplication::sendEvent(picture, &key);
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

TEST_F(LocalSkyTest, MouseZoomsByBoxAndWheelAndADoubleClickRestores) {
  Open();
  const double width = std::abs(picture->Surface().ScaleWidth());
  const QImage whole = Shown();
  Drag(At(40, -40), At(-20, 20));  // not in zoom mode
  EXPECT_EQ(Shown(), whole);
  Item("mnuLocalSkyZoom")->trigger();
  EXPECT_TRUE(IsOn("mnuLocalSkyZoom"));
  EXPECT_NE(Drag(At(40, -40), At(-20, 20)), whole) << "the rubber box is seen";
  EXPECT_NEAR(picture->Surface().ScaleWidth(), 60, 1);
  EXPECT_NEAR(picture->Surface().ScaleHeight(), -60, 1);
  const QImage zoomed = Shown();
  QTest::mouseClick(picture, Qt::LeftButton, {}, QPoint(100, 100));  // to a point
  EXPECT_EQ(Shown(), zoomed);
  Loaded<LocalSkyCalls>("frmLocalSky")->Genera_mappa();
  EXPECT_EQ(Shown(), zoomed);
  QTest::mouseDClick(picture, Qt::LeftButton, {}, QPoint(100, 100));
  QTest::mouseRelease(picture, Qt::LeftButton, {}, QPoint(100, 100));
  EXPECT_EQ(Shown(), whole);
  const QPoint middle(150, 120);
  const double x = picture->UserXOf(middle), y = picture->UserYOf(middle);
  Wheel(middle, 3);
  EXPECT_LT(std::abs(picture->Surface().ScaleWidth()), width * 0.6);
  EXPECT_NEAR(picture->UserXOf(middle), x, 1e-3);
  EXPECT_NEAR(picture->UserYOf(middle), y, 1e-3);
  Wheel(middle, -4);
  EXPECT_EQ(Shown(), whole);
  for (int i = 0; i < 4; ++i) Drag(QPoint(100, 100), QPoint(110, 112));
  EXPECT_GT(std::abs(picture->Surface().ScaleWidth()), 0.09);
  Item("mnuLocalSkyRipristina")->trigger();
  EXPECT_EQ(Shown(), whole);
}

TEST_F(LocalSkyTest, TitleReadsThePlaceUnderTheMouse) {
  Open();
  MovePointer(At(0, 45));
  const std::string title = FromQ(form->windowTitle());
  EXPECT_NE(title.find("local time -  Az. "), std::string::npos) << title;
  EXPECT_NE(title.find("Alt. 3"), std::string::npos) << title;
  Item("mnuLocalSkyCoordEquat")->trigger();
  MovePointer(AtStar(5));
  EXPECT_TRUE(form->windowTitle().contains("local time -  RA 18h 3")) << FromQ(form->windowTitle());
  QTest::mouseMove(picture, QPoint(2, 2));
  EXPECT_EQ(form->windowTitle(), "Local sky - 15 Jun 2022 21:30 local time");
}

TEST_F(LocalSkyTest, ClickOpensTheInspectorForTheNearestObject) {
  Open(DateOf(2022, 6, 16) + 3.0 / 24);
  CallLog log;
  const FakeObject object(log);
  QTest::mouseClick(picture, Qt::LeftButton, {}, AtStar(5));
  EXPECT_EQ(log, CallLog{"frmObject.Vega"});
  log.clear();
  SkyPlaces places;
  ProjectObjects(places, {}, 0);
  const QPoint saturn =
      At(static_cast<double>(places.Bodies[Saturn].X), static_cast<double>(places.Bodies[Saturn].Y));
  QTest::mouseClick(picture, Qt::LeftButton, {}, saturn);
  EXPECT_EQ(log, CallLog{"frmObject." + std::to_string(Saturn)});
  log.clear();
  Drag(saturn, saturn + QPoint(20, 20));
  QTest::mouseClick(picture, Qt::LeftButton, {}, QPoint(3, 3));
  Item("mnuLocalSkyZoom")->trigger();
  QTest::mouseClick(picture, Qt::LeftButton, {}, saturn);
  EXPECT_TRUE(log.empty());
  Item("mnuLocalSkyZoom")->trigger();
  folder_.Write("stars.bin", "short");
  QTest::mouseClick(picture, Qt::LeftButton, {}, AtStar(5));
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(platform_.messages.size(), 1U);
}

TEST_F(LocalSkyTest, TransitTakesTimeMarksAndEndsWithItsSatellite) {
  Open();
  const QImage plain = Shown();
  Item("mnuLocalSkyTransitoPrincipale")->trigger();  // below the horizon: checks, and nothing to draw
  EXPECT_TRUE(IsOn("mnuLocalSkyTransitoPrincipale") && IsOn("mnuLocalSkyTempi"));
  EXPECT_EQ(Shown(), plain);
  Item("mnuLocalSkyTransitoPrincipale")->trigger();
  EXPECT_FALSE(IsOn("mnuLocalSkyTempi"));
  for (Date utc = DateOf(2022, 6, 15); SatelliteStates[1].Elevation < 20; utc = AddSeconds(utc, 60)) {
    platform_.clockUtc = utc;
    tmrCentrale_Timer();
  }
  Loaded<LocalSkyCalls>("frmLocalSky")->Genera_mappa();
  const QImage before = Shown();
  Control<QAction>(window_.get(), "Transit")->trigger();
  EXPECT_TRUE(IsOn("mnuLocalSkyTransitoPrincipale"));
  const QImage track = Shown();
  EXPECT_NE(track, before);
  EXPECT_TRUE(TickEnabled);
  const double elevation = SatelliteStates[1].Elevation;
  EXPECT_NE(Drag(At(10, 10), At(60, -60)), track) << "the line is seen";
  const QImage marked = Shown();
  EXPECT_NE(marked, track);
  Item("mnuLocalSkyOrientamentoNord")->trigger();
  Item("mnuLocalSkyOrientamentoSud")->trigger();
  EXPECT_EQ(Shown(), marked) << "points and marks come back";
  EXPECT_EQ(SatelliteStates[1].Elevation, elevation);
  Azzera(1);  // a decay blanks what is shown
  RotateActive();
  EXPECT_FALSE(IsOn("mnuLocalSkyTransitoPrincipale") || IsOn("mnuLocalSkyTempi"));
  RaisePrincipal();
  Control<QAction>(window_.get(), "Transit")->trigger();
  Item("mnuLocalSkyChiudi")->trigger();
  EXPECT_FALSE(IsOn("mnuLocalSkyTransitoPrincipale") || IsOn("mnuLocalSkyTempi"));
}

TEST_F(LocalSkyTest, SatellitesStayOverARebuildWhileTheClockStands) {
  Open();
  RaisePrincipal();
  auto* const sky = Loaded<LocalSkyCalls>("frmLocalSky");
  for (int slot = 1; slot <= ActiveCount; ++slot) sky->Disegna_satellite_in_cielo(slot);
  const QImage with = Shown();
  sky->Genera_mappa();
  EXPECT_EQ(Shown(), with);
  sky->Azzera_dati();
  EXPECT_NE(Shown(), with);
}

TEST_F(LocalSkyTest, ResizingStretchesAndDrawsAnewSoonAfter) {
  Open();
  QTest::qWait(100);
  const double former = picture->Surface().Width();
  form->parentWidget()->resize(900, 500);
  QCoreApplication::processEvents();
  EXPECT_EQ(picture->Surface().Width(), former);
  EXPECT_NEAR(picture->UserXOf({picture->width() / 2.0, 1}), 0, 1);
  QTest::qWait(120);
  EXPECT_EQ(picture->Surface().Width(), picture->width() * 15.0);
  for (const QSize size : {QSize(129, 60), QSize(140, 3), QSize(0, 0), QSize(700, 400)}) {
    form->parentWidget()->resize(size);
    form->resize(size);
    QTest::qWait(80);
  }
  EXPECT_GT(picture->Surface().Width(), 0);
}

TEST_F(LocalSkyTest, LandscapeThatIsNoPictureOrAllKeyLeavesTheSky) {
  QImage green(8, 8, QImage::Format_RGB32);
  green.fill(qRgb(0, 255, 0));
  green.save(ToQ(folder_.Path("green.png")));
  folder_.Write("landscape.dat", ProgramFolder::Read(folder_.Path("green.png")));
  Open();
  const QImage keyed = Shown();
  Item("mnuLocalSkyPaesaggio")->trigger();
  EXPECT_EQ(Shown(), keyed);
  Item("mnuLocalSkyChiudi")->trigger();
  folder_.Write("landscape.dat", "no picture");
  Item("mnuCieloMappaLocale")->trigger();
  QCoreApplication::processEvents();
  EXPECT_TRUE(IsFormLoaded("frmLocalSky"));
}

}  // namespace
}  // namespace halvorine
