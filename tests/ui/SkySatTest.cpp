// Pass charts in the running program, several at once, driven by mouse and menus.
#include "sky/frmSkySat.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTabWidget>
#include <vector>

#include "shell/base/mGlobal.h"
#include "tests/fakes/ChartProgram.h"
#include "tests/fakes/FoundPass.h"

namespace halvorine {
namespace {

class SkySatWindow : public ChartProgram {
 protected:
  SkySatWindow() { Start(3); }
  /// A chart of the next pass of an active satellite, the way a list of passes opens it.
  QWidget* Open(int slot = 1) {
    auto* const calls = Load<SkySatCalls>("frmSkySat");
    calls->ShowPass(FirstPass(slot, false).value());
    QCoreApplication::processEvents();
    return dynamic_cast<QWidget*>(calls);
  }
  static SurfaceWidget* Picture(QWidget* chart) { return Control<SurfaceWidget>(chart, "Picture1"); }
  static QImage Shown(QWidget* chart) { return Picture(chart)->grab().toImage(); }
  void Choose(QWidget* chart, const char* item, const char* submenu = nullptr) {
    Take(chart);
    ChooseIn("mnuSkySat", item, submenu);
  }
  CallLog log_;
};

TEST_F(SkySatWindow, ShowsThePassWithItsDataOnASquare) {
  QWidget* const chart = Open();
  EXPECT_EQ(chart->objectName(), QStringLiteral("frmSkySat1"));
  const PassChart pass = FirstPass(1, false).value();
  const auto label = [chart](const char* name, int index = -1) {
    return FromQ(Control<QLabel>(chart, name, index)->text());
  };
  EXPECT_EQ(label("lblSatellite"), ElementSets[1].Name);
  EXPECT_EQ(label("lblNorad"), ElementSets[1].CatalogNumber);
  EXPECT_EQ(label("lblTime", 0), FormatDate(pass.rise, "hh:mm:ss", {}));
  EXPECT_EQ(label("lblTime", 2), FormatDate(pass.set, "hh:mm:ss", {}));
  EXPECT_EQ(label("lblAltitude", 0), "10.0°");
  EXPECT_TRUE(chart->windowTitle().startsWith(ToQ("Pass chart - " + ElementSets[1].Name + " - ")));
  for (const QSize& size : {QSize(900, 400), QSize(400, 900), QSize(160, 20), QSize(1, 1), QSize(700, 500)}) {
    chart->parentWidget()->resize(size);
    QCoreApplication::processEvents();
    EXPECT_EQ(Picture(chart)->width(), Picture(chart)->height());
    Shown(chart);
  }
}

TEST_F(SkySatWindow, EachItemOfThePopupActsOnTheChartThatAskedForIt) {
  QWidget* const chart = Open();
  QWidget* const other = Open(3);
  const QImage untouched = Shown(other);
  struct Row {
    const char* item;
    const char* submenu;
  };
  const char* const objects = "mnuSkySatOggetti";
  const char* const names = "mnuSkySatEtichette";
  for (const Row& row : {Row{"mnuSkySatGriglia", nullptr},
                         {"mnuSkySatPaesaggio", nullptr},
                         {"mnuSkySatOggettiCostellazioni", objects},
                         {"mnuSkySatEtichetteCostellazioni", names},
                         {"mnuSkySatEtichettePianeti", names},
                         {"mnuSkySatOggettiPianeti", objects},
                         {"mnuSkySatEtichetteSoleLuna", names},
                         {"mnuSkySatOggettiSoleLuna", objects}}) {
    const QImage before = Shown(chart);
    Choose(chart, row.item, row.submenu);
    const bool on = Item(row.item)->isChecked();
    Choose(other, row.item, row.submenu);
    EXPECT_EQ(Item(row.item)->isChecked(), on) << "the other chart had its own state of " << row.item;
    Choose(other, row.item, row.submenu);
    EXPECT_EQ(Shown(other), untouched) << row.item;
    Choose(chart, row.item, row.submenu);
    EXPECT_EQ(Item(row.item)->isChecked(), !on);
    EXPECT_EQ(Shown(chart), before) << row.item;
  }
  const char* const sides = "mnuSkySatOrientamento";
  std::vector<QImage> seen{Shown(chart)};
  for (const Row& row : {Row{"mnuSkySatOrientamentoNord", sides},
                         {"mnuSkySatOrientamentoOvest", sides},
                         {"mnuSkySatOrientamentoEst", sides},
                         {"mnuSkySatProiezStereo", nullptr}}) {
    Choose(chart, row.item, row.submenu);
    for (const QImage& earlier : seen) EXPECT_NE(Shown(chart), earlier) << row.item;
    seen.push_back(Shown(chart));
    EXPECT_TRUE(Item(row.item)->isChecked());
  }
  EXPECT_FALSE(Item("mnuSkySatOrientamentoSud")->isChecked());
  Choose(chart, "mnuSkySatOrientamentoSud", sides);
  Choose(chart, "mnuSkySatOrientamentoSud", sides);
  EXPECT_TRUE(Item("mnuSkySatOrientamentoSud")->isChecked()) << "a chosen side stays chosen";
  Choose(chart, "mnuSkySatProiezNormale");
  EXPECT_EQ(Shown(chart), seen.front());
  EXPECT_EQ(Shown(other), untouched);
}

TEST_F(SkySatWindow, MagnitudeRedrawAndCloseAddressTheChartThatAsked) {
  QWidget* const chart = Open();
  QWidget* const other = Open(3);
  const FakeMagnitude magnitude(log_);
  const QImage before = Shown(chart), untouched = Shown(other);
  Choose(chart, "mnuSkySatMagnitudine");
  EXPECT_EQ(log_, CallLog{"frmMagnitude.ShowFor anteprima"});
  EXPECT_NE(Shown(chart), before);
  EXPECT_EQ(Shown(other), untouched);
  Choose(chart, "mnuSkySatRidisegnaMappa");
  Choose(chart, "mnuSkySatChiudi");
  EXPECT_FALSE(IsFormLoaded("frmSkySat1"));
  EXPECT_TRUE(IsFormLoaded("frmSkySat2"));
  Item("mnuSkySatGriglia")->trigger();
  Item("mnuSkySatChiudi")->trigger();
  EXPECT_EQ(Shown(other), untouched) << "a menu whose chart is gone reaches no other";
}

TEST_F(SkySatWindow, TimeMarkIsDraggedOutOfTheTrack) {
  QWidget* const chart = Open();
  Take(chart);
  PassView same = EmptyPassView();
  TakePass(same, FirstPass(1, false).value());
  const TrackPoint& point = same.Sky.Track.Points[same.Sky.Track.Points.size() / 2];
  const QPoint on = At(static_cast<double>(point.X), static_cast<double>(point.Y)), centre = At(0, 0);
  const QImage before = Shown(chart);
  EXPECT_EQ(Drag(on + QPoint(0, 60), centre), before) << "away from the track nothing is dragged";
  EXPECT_NE(Drag(on, centre), before) << "a line follows the mouse";
  const QImage marked = Shown(chart);
  EXPECT_NE(marked, before);
  Choose(chart, "mnuSkySatRidisegnaMappa");
  EXPECT_EQ(Shown(chart), marked) << "the mark stays";
  Choose(chart, "mnuSkySatOrientamentoNord", "mnuSkySatOrientamento");
  Choose(chart, "mnuSkySatOrientamentoSud", "mnuSkySatOrientamento");
  EXPECT_EQ(Shown(chart), marked) << "and turns with the chart";
}

TEST_F(SkySatWindow, TenChartsStandSideBySideAndCloseInAnyOrder) {
  std::vector<QWidget*> charts;
  for (int i = 0; i < 10; ++i) charts.push_back(Open(1 + i % 2 * 2));
  std::vector<QImage> pictures;
  for (QWidget* const chart : charts) pictures.push_back(Shown(chart));
  for (const std::size_t closed : {std::size_t{4}, std::size_t{0}, std::size_t{9}}) {
    charts[closed]->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  for (const std::size_t left : {std::size_t{1}, std::size_t{5}, std::size_t{8}})
    EXPECT_EQ(Shown(charts[left]), pictures[left]);
  EXPECT_EQ(Open()->objectName(), QStringLiteral("frmSkySat1")) << "a free number is taken again";
  EXPECT_FALSE(IsFormLoaded("frmSkySat5"));
}

TEST_F(SkySatWindow, PassListOpensOneChartForEachPassAndStaysAsItWas) {
  Item("mnuSatellitiPrevisioniPassaggi")->trigger();
  QCoreApplication::processEvents();
  QWidget* const list = Form("frmVisibleSatellites");
  ClickTab(Control<QTabWidget>(list, "SSTab1"), 1);
  Click(list, "cmdOK", 1);
  auto* const passes = Control<QAbstractItemView>(list, "lvwPass", 1);
  auto* const report = Control<QAbstractItemView>(list, "lstPass", 1);
  ASSERT_GE(passes->model()->rowCount(), 2);
  for (const int row : {0, 1}) {
    WorkArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(list->parentWidget()));
    ClickRow(passes, row);
    Click(list, "cmdMappa", 1);
    const auto chart = QStringLiteral("frmSkySat%1").arg(row + 1).toLatin1();
    ASSERT_TRUE(IsFormLoaded(chart.constData()));
    // date, time and the rest of the report's rows, against the panel beside the chart
    for (int event = 0; event < 3; ++event) {
      const QString wanted = report->model()->index(event, 0).data().toString();
      EXPECT_TRUE(wanted.contains(Control<QLabel>(Form(chart.constData()), "lblTime", event)->text()))
          << FromQ(wanted);
    }
  }
  EXPECT_EQ(report->model()->rowCount(), 3);
  Form("frmSkySat1")->close();
  EXPECT_TRUE(Form("frmVisibleSatellites")->isVisible());
}

/// The menu lets events run before the work starts, and any of them may close the chart.
TEST_F(SkySatWindow, ChartMayBeClosedBeforeItsRedraw) {
  QWidget* const chart = Open();
  Item("mnuCieloMappaGenerale")->trigger();
  QTest::mouseClick(Picture(chart), Qt::RightButton, {}, QPoint(9, 9));
  Menu("mnuSkySat")->close();
  platform_.onYield = [] {
    for (const char* const name : {"frmSkySat1", "frmGeneralSky"})
      if (FormCalls* const form = LoadedForm(name)) form->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  };
  Item("mnuSkySatGriglia")->trigger();
  EXPECT_FALSE(IsFormLoaded("frmSkySat1"));
  EXPECT_FALSE(IsFormLoaded("frmGeneralSky"));
  Item("mnuGeneralSkyRidisegnaMappa")->trigger();
}

}  // namespace
}  // namespace halvorine
