// The world map window, driven offscreen by real mouse and key events.
#include "maps/frmWorldMap.h"

#include <QApplication>
#include <QLabel>

#include "controls/qtDataBox.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mReg.h"
#include "tests/fakes/ChartProgram.h"

namespace halvorine {
namespace {

class WorldMapTest : public ChartProgram {
 protected:
  WorldMapTest() { Start(12); }
  frmWorldMap& Open(std::string_view kind) {
    auto* const calls = Load<WorldMapCalls>("frmWorldMap");
    form = dynamic_cast<frmWorldMap*>(calls);
    calls->ShowKind(kind);
    QCoreApplication::processEvents();
    Take(form);
    return *form;
  }

  QPoint AtSatellite(int slot) const {
    return At(SatelliteStates[slot].LongitudeEast, SatelliteStates[slot].LatitudeSigned);
  }
  /// A satellite that no other one hides, so that the pointer finds it alone.
  int LonelySatellite() const {
    for (int slot = 2; slot <= ActiveCount; ++slot) {
      MapView flat;
      const SatelliteState& state = SatelliteStates[slot];
      if (std::abs(state.LatitudeSigned) < 75 && std::abs(state.LongitudeEast) < 160 &&
          SatelliteAt(flat, state.LongitudeEast + 2, state.LatitudeSigned) == slot &&
          SatelliteAt(flat, state.LongitudeEast - 2, state.LatitudeSigned) == slot)
        return slot;
    }
    return 0;
  }
  frmWorldMap* form = nullptr;
};

TEST_F(WorldMapTest, OpensAtItsFirstSizeWithChecksFromTheOptions) {
  Options.Map.Grid = 0;
  Options.Map.Night = 0;
  Open("Recta");
  EXPECT_EQ(form->Frame()->size(), QSize(711, 458));
  EXPECT_FALSE(Item("mnuWorldmapGriglia")->isChecked());
  EXPECT_FALSE(Item("mnuWorldmapTerminatore")->isChecked());
  EXPECT_TRUE(Item("mnuWorldmapSole")->isChecked());
  EXPECT_EQ(form->windowTitle(), QStringLiteral("Rectangular map"));
  EXPECT_EQ(picture->accessibleName(), QStringLiteral("Rectangular map"));
  EXPECT_EQ(Control<DataBox>(form, "fraSatellitePrincipale")->width(), 129);
  EXPECT_EQ(picture->width() + 129, form->width());
}

TEST_F(WorldMapTest, PointerOverASatelliteShowsItsDataAndAnEmptyPlaceShowsNone) {
  Open("Recta");
  const int slot = LonelySatellite();
  ASSERT_GT(slot, 1);
  MovePointer(AtSatellite(slot));
  EXPECT_TRUE(
      picture->toolTip().startsWith(QStringLiteral("Norad# ") + ToQ(ElementSets[slot].CatalogNumber)));
  MovePointer(At(-20, -85));
  EXPECT_EQ(picture->toolTip(), QString());
  Item("mnuWorldmapDatiSatellite")->setChecked(false);
  MovePointer(AtSatellite(slot));
  EXPECT_EQ(picture->toolTip(), QString());
  QTest::mouseClick(picture, Qt::RightButton, {}, AtSatellite(slot));
  Menu("mnuWorldmap")->close();
  EXPECT_EQ(form->HoveredSatellite(), slot) << "hovering does not depend on the tooltip";
}

TEST_F(WorldMapTest, LeftButtonPromotesTheHoveredSatelliteOnce) {
  Open("Recta");
  const int slot = LonelySatellite();
  ASSERT_GT(slot, 1);
  const std::string promoted = ElementSets[slot].Name, former = ElementSets[1].Name;
  const double latitude = SatelliteStates[slot].LatitudeSigned;
  MovePointer(AtSatellite(slot));
  const QPoint place = AtSatellite(slot);
  QTest::mouseClick(picture, Qt::LeftButton, {}, place);
  QTest::mouseClick(picture, Qt::LeftButton, {}, place);
  EXPECT_EQ(ElementSets[1].Name, promoted);
  EXPECT_EQ(ElementSets[slot].Name, former);
  EXPECT_NEAR(SatelliteStates[1].LatitudeSigned, latitude, 1e-9);
  EXPECT_EQ(FromQ(Panel(2)), promoted);
  EXPECT_FALSE(Menu("mnuWorldmap")->isVisible());
}

TEST_F(WorldMapTest, RightButtonOpensThePopupAndNeverPromotes) {
  Open("Recta");
  const int slot = LonelySatellite();
  const std::string first = ElementSets[1].Name;
  MovePointer(AtSatellite(slot));
  EXPECT_FALSE(Item("mnuWorldmapRimuovi")->isEnabled());
  QTest::mouseClick(picture, Qt::RightButton, {}, AtSatellite(slot));
  EXPECT_TRUE(Menu("mnuWorldmap")->isVisible());
  Menu("mnuWorldmap")->close();
  EXPECT_TRUE(Item("mnuWorldmapRimuovi")->isEnabled());
  EXPECT_EQ(ElementSets[1].Name, first);
  MovePointer(At(-20, -85));
  EXPECT_FALSE(Item("mnuWorldmapRimuovi")->isEnabled());
  EXPECT_EQ(form->HoveredSatellite(), slot) << "the popup keeps the satellite of its opening";
}

TEST_F(WorldMapTest, PrincipalOffersNeitherPromotionNorRemoval) {
  Open("Recta");
  const std::string first = ElementSets[1].Name;
  for (const std::int16_t count : {std::int16_t{2}, std::int16_t{1}}) {
    ActiveCount = count;
    MovePointer(AtSatellite(1) + QPoint(count, 0));
    QTest::mouseClick(picture, Qt::RightButton, {}, AtSatellite(1));
    Menu("mnuWorldmap")->close();
    EXPECT_EQ(form->HoveredSatellite(), 1);
    EXPECT_FALSE(Item("mnuWorldmapRimuovi")->isEnabled()) << count;
    QTest::mouseClick(picture, Qt::LeftButton, {}, AtSatellite(1));
    EXPECT_EQ(ElementSets[1].Name, first);
  }
}

TEST_F(WorldMapTest, MenuKeyOpensThePopupInTheMiddleWithoutRemoval) {
  Open("Recta");
  MovePointer(AtSatellite(LonelySatellite()));
  QContextMenuEvent key(QContextMenuEvent::Keyboard, {1, 1}, picture->mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(picture, &key);
  EXPECT_TRUE(Menu("mnuWorldmap")->isVisible());
  Menu("mnuWorldmap")->close();
  EXPECT_EQ(form->HoveredSatellite(), 0);
  EXPECT_FALSE(Item("mnuWorldmapRimuovi")->isEnabled());
}

TEST_F(WorldMapTest, TitleReadsTheCoordinatesAndIsPutBack) {
  Item("mnuWorldmapCoordinateMouse")->setChecked(true);
  Options.Map.MouseCoordinates = -1;
  Open("Recta");
  MovePointer(At(-90, 45));
  EXPECT_TRUE(form->windowTitle().startsWith(QStringLiteral("Rectangular map - Lon. -")))
      << FromQ(form->windowTitle());
  form->ResetTitle();
  EXPECT_EQ(form->windowTitle(), QStringLiteral("Rectangular map"));
  form->ShowKind("Ortho");
  MovePointer(QPoint(3, 3));
  EXPECT_EQ(form->windowTitle(), QStringLiteral("Orthographic map")) << "no read-out outside the globe";
  MovePointer(picture->rect().center());
  EXPECT_TRUE(form->windowTitle().contains(QStringLiteral("Lat. ")));
}

TEST_F(WorldMapTest, DataBoxTakesItsWidthFromTheSwitchAndThePictureTheRest) {
  Open("Recta");
  Item("mnuWorldmapRiquadroDati")->setChecked(false);
  form->Genera_mappa();
  EXPECT_EQ(Control<DataBox>(form, "fraSatellitePrincipale")->width(), 0);
  EXPECT_EQ(picture->width(), form->width());
  Options.Map.DataBox = -1;
  form->Applica_opzioni();
  EXPECT_EQ(picture->width(), form->width() - 129);
  LiveTexts texts;
  texts.Height = "418.6";
  form->ShowTexts(texts);
  EXPECT_EQ(Control<QLabel>(form, "lblHeight")->text(), QStringLiteral("418.6"));
  form->Azzera_dati();
  EXPECT_EQ(Control<QLabel>(form, "lblHeight")->text(), QStringLiteral("0"));
}

TEST_F(WorldMapTest, GlobeShowsAnotherFaceWhenThePrincipalMovesOn) {
  Open("Ortho");
  SatelliteStates[1].GeocentricLatitude = 0;
  SatelliteStates[1].Longitude360 = 10;
  form->Disegna_satellite(1);
  const QImage first = picture->grab().toImage();
  SatelliteStates[1].Longitude360 = 180;
  SatelliteStates[1].LongitudeEast = 180;
  form->Disegna_satellite(1);
  const QImage second = picture->grab().toImage();
  int changed = 0;
  for (int y = 0; y < first.height(); ++y)
    for (int x = 0; x < first.width(); ++x)
      if (first.pixel(x, y) != second.pixel(x, y)) ++changed;
  EXPECT_GT(changed, first.width() * first.height() / 10);
}

TEST_F(WorldMapTest, TickRepaintsMarksAndLeavesNoTraceOfTheFormerOnes) {
  Open("Recta");
  form->Azzera_dati();
  const QImage bare = picture->grab().toImage();
  const auto tick = [&](double latitude) {
    SatelliteStates[1].LatitudeSigned = latitude;
    for (int slot = 1; slot <= ActiveCount; ++slot) form->Disegna_satellite(slot);
    form->Disegna_visibilita();
    return picture->grab().toImage();
  };
  const QImage first = tick(10);
  EXPECT_NE(first, bare);
  EXPECT_NE(tick(40), first);
  EXPECT_EQ(tick(10), first);
  form->Azzera_dati();
  EXPECT_EQ(picture->grab().toImage(), bare);
  form->Genera_mappa();
  EXPECT_EQ(picture->grab().toImage(), tick(SatelliteStates[1].LatitudeSigned));
}

TEST_F(WorldMapTest, HiddenWindowDrawsNothingAndCatchesUpWhenShown) {
  Open("Recta");
  form->HideForm();
  QCoreApplication::processEvents();
  const int asked = platform_.waitDepth;
  SatelliteStates[1].LatitudeSigned = 0;
  form->Genera_mappa();
  form->Disegna_satellite(1);
  EXPECT_EQ(SatelliteStates[1].LatitudeSigned, 0) << "no track was computed";
  EXPECT_EQ(platform_.waitDepth, asked);
  form->ShowForm();
  EXPECT_NE(SatelliteStates[1].LatitudeSigned, 0);
}

TEST_F(WorldMapTest, PlaceIsKeptWhenTheOptionIsOn) {
  Options.WindowPositions = -1;
  SaveWindowPlace("Mappamondo", {300, 450, 9000, 6000});
  Open("Recta");
  EXPECT_EQ(form->Frame()->geometry(), QRect(20, 30, 600, 400));
  form->Frame()->setGeometry(10, 15, 640, 420);
  form->UnloadForm();
  form = nullptr;
  EXPECT_FALSE(IsFormLoaded("frmWorldMap"));
  EXPECT_EQ(LoadWindowPlace("Mappamondo").Width, 9600);
  EXPECT_EQ(LoadWindowPlace("Mappamondo").Left, 150);
  Open("Recta").Frame()->setGeometry(0, 0, 600, 400);
  platform_.refuseWriting = true;
  form->UnloadForm();
  form = nullptr;
  EXPECT_FALSE(IsFormLoaded("frmWorldMap")) << "a place that cannot be kept is told and ends nothing";
  EXPECT_EQ(platform_.messages.size(), 1U);
  EXPECT_EQ(LoadWindowPlace("Mappamondo").Width, 9600);
  platform_.refuseWriting = false;
  SaveWindowPlace("Mappamondo", {2147483647, -2147483647, 2147483647, 2147483647});
  const QRect far = Open("Recta").Frame()->geometry();
  EXPECT_TRUE(far.width() < 10000 && far.height() < 10000 && far.left() < 10000 && far.bottom() > 0);
}

TEST_F(WorldMapTest, EmptyListAndTinyWindowAreNoTrouble) {
  ActiveCount = 0;
  Open("Ortho");
  for (const QSize& size : {QSize(200, 60), QSize(130, 30), QSize(0, 0), QSize(500, 900)}) {
    form->Frame()->resize(size);
    QCoreApplication::processEvents();
    form->Genera_mappa();
  }
  EXPECT_FALSE(picture->grab().isNull());
}

}  // namespace
}  // namespace halvorine
