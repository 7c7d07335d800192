// The world map window, driven offscreen by real mouse and key events.
#include "maps/frmWorldMap.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <memory>

#include "astro/mAstro.h"
#include "controls/qtDataBox.h"
#include "controls/qtLook.h"
#include "maps/qtSurface.h"
#include "orbit/mSat.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "shell/base/mStore.h"
#include "tests/fakes/FakeMainForm.h"
#include "tests/fakes/FakePlatform.h"

namespace halvorine {
namespace {

class WorldMapTest : public testing::Test {
 protected:
  WorldMapTest() {
    ResetSharedRecords();
    ResetForms();
    main = std::make_unique<FakeMainForm>();
    AppPath = TEST_PROGRAM_DIR;
    UserFolder = FromQ(folder.path());
    platform.settingsFile = UserFolder + "/settings";
    ForgetSettings();
    LanguageFile = "English.ini";
    LanguageLoaded = false;
    Impostazioni_default();
    Site.Place = "Italy: Milano";
    Site.Latitude = 45.4667F;
    Site.Longitude = 9.2F;
    MagnitudeTable.assign(100000, "");
    MakeLoadable<frmWorldMap>("frmWorldMap");
    area.resize(1300, 800);
    area.show();
    SetWorkArea(&area);
    ReadSample();
  }

  ~WorldMapTest() override {
    if (form != nullptr) form->UnloadForm();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SetWorkArea(nullptr);
    if (NightColoursActive) ApplyNight(false);
    ResetForms();
    ResetSharedRecords();
    LanguageLoaded = false;
    ForgetSettings();
  }

  /// Some sets of the sample, the space station first, computed near their epoch.
  void ReadSample() {
    const std::string text = ReadWholeFile(std::string(TEST_SOURCE_DIR) + "/data/elements/sample.txt");
    LineReader lines(text);
    int number = 0;
    for (std::string_view name, line1, line2; lines.Next(name) && lines.Next(line1) && lines.Next(line2);) {
      const bool station = line1.substr(2, 5) == "25544";
      if (!station && number++ % 17 != 0) continue;
      if (!station && ActiveCount < 1) ActiveCount = 1;  // the first place waits for the station
      const int slot = station ? 1 : ++ActiveCount;
      Estrai_Dati_Satellite(slot, std::string(name), std::string(line1), std::string(line2));
    }
    const double julianDay = ElementSets[1].EpochJulianDay + 0.3;
    CurrentDate = JulianDayToLocalDate(julianDay);
    UpdateSiderealTime(CurrentDate);
    ComputeSun();
    for (int slot = 1; slot <= ActiveCount; ++slot) ComputeSatelliteState(slot, ClockFields.JulianDayNow);
  }

  frmWorldMap& Open(std::string_view kind) {
    WorldMapCalls* const calls = Load<WorldMapCalls>("frmWorldMap");
    form = dynamic_cast<frmWorldMap*>(calls);
    calls->ShowKind(kind);
    QCoreApplication::processEvents();
    picture = Control<SurfaceWidget>(form, "Picture1");
    return *form;
  }

  /// Place in the picture box of a place in map units.
  QPoint At(double x, double y) const {
    const PixmapSurface& surface = picture->Surface();
    return {qRound((x - picture->UserXOf({0, 0})) / surface.ScaleWidth() * picture->width()),
            qRound((y - picture->UserYOf({0, 0})) / surface.ScaleHeight() * picture->height())};
  }
  QPoint At(int slot) const {
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
  void MovePointer(QPoint place) {
    QTest::mouseMove(picture, place + QPoint(5, 5));
    QTest::mouseMove(picture, place);
  }
  void SavePicture(const QString& name) const {
    const QString pictures = qEnvironmentVariable("HALVORINE_TEST_PICTURES");
    if (pictures.isEmpty()) return;
    QTest::qWait(250);  // for a while after a resize a child window paints its title bar as it was
    form->Frame()->grab().save(pictures + QLatin1Char('/') + name + QStringLiteral(".png"));
  }

  const QTemporaryDir folder;
  FakePlatform platform;
  std::unique_ptr<FakeMainForm> main;
  QMdiArea area;
  frmWorldMap* form = nullptr;
  SurfaceWidget* picture = nullptr;
};

TEST_F(WorldMapTest, OpensAtItsFirstSizeWithChecksFromTheOptions) {
  Options.Map.Grid = 0;
  Options.Map.Night = 0;
  Open("Recta");
  EXPECT_EQ(form->Frame()->size(), QSize(711, 458));
  EXPECT_FALSE(main->IsChecked("mnuWorldmapGriglia"));
  EXPECT_FALSE(main->IsChecked("mnuWorldmapTerminatore"));
  EXPECT_TRUE(main->IsChecked("mnuWorldmapSole"));
  EXPECT_EQ(form->windowTitle(), QStringLiteral("Rectangular map"));
  EXPECT_EQ(picture->accessibleName(), QStringLiteral("Rectangular map"));
  EXPECT_EQ(Control<DataBox>(form, "fraSatellitePrincipale")->width(), 129);
  EXPECT_EQ(picture->width() + 129, form->width());
}

TEST_F(WorldMapTest, PicturesOfBothKindsAndColours) {
  for (const bool night : {false, true}) {
    NightColoursActive = night;
    ApplyNight(night);
    for (const char* const kind : {"Recta", "Ortho"}) {
      for (const QSize& size : {QSize(711, 458), QSize(1180, 700)}) {
        Open(kind);
        form->Frame()->resize(size);
        QCoreApplication::processEvents();
        SavePicture(QStringLiteral("map-%1-%2-%3")
                        .arg(QLatin1String(kind))
                        .arg(size.width())
                        .arg(night ? QStringLiteral("night") : QStringLiteral("day")));
        const QImage shown = picture->grab().toImage();
        int otherColours = 0;
        for (int y = 0; y < shown.height(); y += 3)
          for (int x = 0; x < shown.width(); x += 3)
            if (qGreen(shown.pixel(x, y)) != 0 || qBlue(shown.pixel(x, y)) != 0) ++otherColours;
        if (night)
          EXPECT_EQ(otherColours, 0);
        else
          EXPECT_GT(otherColours, 10000);
      }
    }
  }
}

TEST_F(WorldMapTest, PointerOverASatelliteShowsItsDataAndAnEmptyPlaceShowsNone) {
  Open("Recta");
  const int slot = LonelySatellite();
  ASSERT_GT(slot, 1);
  MovePointer(At(slot));
  EXPECT_TRUE(
      picture->toolTip().startsWith(QStringLiteral("Norad# ") + ToQ(ElementSets[slot].CatalogNumber)));
  MovePointer(At(-20, -85));
  EXPECT_EQ(picture->toolTip(), QString());
  main->SetChecked("mnuWorldmapDatiSatellite", false);
  MovePointer(At(slot));
  EXPECT_EQ(picture->toolTip(), QString());
  QTest::mouseClick(picture, Qt::RightButton, {}, At(slot));
  EXPECT_EQ(form->HoveredSatellite(), slot) << "hovering does not depend on the tooltip";
}

TEST_F(WorldMapTest, LeftButtonPromotesTheHoveredSatelliteOnce) {
  Open("Recta");
  const int slot = LonelySatellite();
  ASSERT_GT(slot, 1);
  const std::string promoted = ElementSets[slot].Name, former = ElementSets[1].Name;
  const double latitude = SatelliteStates[slot].LatitudeSigned;
  MovePointer(At(slot));
  const QPoint place = At(slot);
  QTest::mouseClick(picture, Qt::LeftButton, {}, place);
  QTest::mouseClick(picture, Qt::LeftButton, {}, place);
  EXPECT_EQ(ElementSets[1].Name, promoted);
  EXPECT_EQ(ElementSets[slot].Name, former);
  EXPECT_NEAR(SatelliteStates[1].LatitudeSigned, latitude, 1e-9);
  EXPECT_EQ(main->panels[2], promoted);
  EXPECT_TRUE(main->popups.empty());
}

TEST_F(WorldMapTest, RightButtonOpensThePopupAndNeverPromotes) {
  Open("Recta");
  const int slot = LonelySatellite();
  const std::string first = ElementSets[1].Name;
  MovePointer(At(slot));
  EXPECT_FALSE(main->enabled["mnuWorldmapRimuovi"]);
  QTest::mouseClick(picture, Qt::RightButton, {}, At(slot));
  ASSERT_EQ(main->popups.size(), 1U);
  EXPECT_EQ(main->popups[0].menu, "mnuWorldmap");
  EXPECT_EQ(QPoint(main->popups[0].x, main->popups[0].y), picture->mapToGlobal(At(slot)));
  EXPECT_TRUE(main->enabled["mnuWorldmapRimuovi"]);
  EXPECT_EQ(ElementSets[1].Name, first);
  MovePointer(At(-20, -85));
  EXPECT_FALSE(main->enabled["mnuWorldmapRimuovi"]);
  EXPECT_EQ(form->HoveredSatellite(), slot) << "the popup keeps the satellite of its opening";
}

TEST_F(WorldMapTest, PrincipalOffersNeitherPromotionNorRemoval) {
  Open("Recta");
  const std::string first = ElementSets[1].Name;
  for (const std::int16_t count : {std::int16_t{2}, std::int16_t{1}}) {
    ActiveCount = count;
    MovePointer(At(1) + QPoint(count, 0));
    QTest::mouseClick(picture, Qt::RightButton, {}, At(1));
    EXPECT_EQ(form->HoveredSatellite(), 1);
    EXPECT_FALSE(main->enabled["mnuWorldmapRimuovi"]) << count;
    QTest::mouseClick(picture, Qt::LeftButton, {}, At(1));
    EXPECT_EQ(ElementSets[1].Name, first);
  }
}

TEST_F(WorldMapTest, MenuKeyOpensThePopupInTheMiddleWithoutRemoval) {
  Open("Recta");
  MovePointer(At(LonelySatellite()));
  QContextMenuEvent key(QContextMenuEvent::Keyboard, {1, 1}, picture->mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(picture, &key);
  ASSERT_EQ(main->popups.size(), 1U);
  EXPECT_EQ(QPoint(main->popups[0].x, main->popups[0].y), picture->mapToGlobal(picture->rect().center()));
  EXPECT_EQ(form->HoveredSatellite(), 0);
  EXPECT_FALSE(main->enabled["mnuWorldmapRimuovi"]);
}

TEST_F(WorldMapTest, TitleReadsTheCoordinatesAndIsPutBack) {
  main->SetChecked("mnuWorldmapCoordinateMouse", true);
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
  main->SetChecked("mnuWorldmapRiquadroDati", false);
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
  const int asked = platform.waitDepth;
  SatelliteStates[1].LatitudeSigned = 0;
  form->Genera_mappa();
  form->Disegna_satellite(1);
  EXPECT_EQ(SatelliteStates[1].LatitudeSigned, 0) << "no track was computed";
  EXPECT_EQ(platform.waitDepth, asked);
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
  platform.refuseWriting = true;
  form->UnloadForm();
  form = nullptr;
  EXPECT_FALSE(IsFormLoaded("frmWorldMap")) << "a place that cannot be kept is told and ends nothing";
  EXPECT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(LoadWindowPlace("Mappamondo").Width, 9600);
  platform.refuseWriting = false;
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
