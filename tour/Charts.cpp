#include "tour/Charts.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "controls/qtPreview.h"
#include "controls/qtPrint.h"
#include "maps/qtSurface.h"
#include "orbit/mSat.h"
#include "shell/MDIForm1.h"
#include "shell/base/mForms.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"
#include "shell/mTick.h"
#include "sky/mSkySat.h"
#include "sky/qtPage.h"
#include "sky/qtSkyPictures.h"
#include "tests/fakes/FoundPass.h"

namespace halvorine {

namespace {

/// Waits until charts have drawn themselves in a new size.
void SettleBoxes() {
  QElapsedTimer clock;
  for (clock.start(); clock.elapsed() < 150;) QCoreApplication::processEvents();
}

void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button) {
  QMouseEvent event(type, at, widget.mapToGlobal(at), button, button, {});
  QApplication::sendEvent(&widget, &event);
}

void Drag(QWidget& widget, QPoint from, QPoint to) {
  SendMouse(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
  SendMouse(widget, QEvent::MouseMove, to, Qt::LeftButton);
  SendMouse(widget, QEvent::MouseButtonRelease, to, Qt::LeftButton);
}

QWidget* Preview(const SkyPage& page, const QString& title) {
  ThePrinter().setPageOrientation(QPageLayout::Portrait);
  auto* const preview = new frmPreview(nullptr, ThePrinter(), title, [page](QPrinter& printer) {
    PrinterSurface surface(printer);
    PrintSkyPage(surface, page);
    return true;
  });
  preview->setAttribute(Qt::WA_DeleteOnClose);
  preview->resize(820, 1180);
  preview->show();
  SettleBoxes();
  return preview;
}

constexpr SkySwitches pageSwitches{
    .Grid = true, .ConstellationLines = true, .ConstellationNames = true, .SunMoonNames = true};

}  // namespace

Date NextSight(Date utc) {
  for (int step = 0; step < 2000; ++step, utc = AddSeconds(utc, 20)) {
    UpdateSiderealTime(AddSeconds(utc, ZoneShift() * 3600));
    for (int slot = 1; slot <= ActiveCount; ++slot) {
      const SatelliteState& state = SatelliteStates[slot];
      ComputeSatelliteState(slot, ClockFields.JulianDayNow);
      if (state.Elevation < 15 || state.RangeRate > -3 || state.Condition != Visible) continue;
      SwapActive(1, slot);
      return utc;
    }
  }
  return utc;
}

QWidget* OpenLocalSky(MDIForm1& window, bool transit) {
  window.RunCommand("mnuCieloMappaLocale");
  auto* const sky = window.findChild<QWidget*>(QStringLiteral("frmLocalSky"));
  if (sky == nullptr) return nullptr;
  for (const char* const item : {"mnuLocalSkyGriglia", "mnuLocalSkyOggettiCostellazioni",
                                 "mnuLocalSkyEtichetteCostellazioni", "mnuLocalSkyEtichetteSoleLuna"})
    if (!window.IsChecked(item)) window.RunCommand(item);
  if (window.IsChecked("mnuLocalSkyTransitoPrincipale") != transit)
    window.RunCommand("mnuLocalSkyTransitoPrincipale");
  sky->parentWidget()->resize(820, 560);
  SettleBoxes();
  Loaded<LocalSkyCalls>("frmLocalSky")->Genera_mappa();
  tmrCentrale_Timer();
  return sky->parentWidget();
}

QWidget* ZoomLocalSky(MDIForm1& window) {
  QWidget* const frame = OpenLocalSky(window, false);
  if (frame == nullptr) return nullptr;
  for (const char* const item :
       {"mnuLocalSkyPaesaggio", "mnuLocalSkyProiezNormale", "mnuLocalSkyOrientamentoEst", "mnuLocalSkyZoom"})
    window.RunCommand(item);
  dynamic_cast<StarCountCalls&>(*LoadedForm("frmLocalSky")).SetStarCount(9010);
  auto* const picture = Control<QWidget>(frame, "Picture1");
  Drag(*picture, QPoint(picture->width() * 22 / 100, picture->height() * 42 / 100),
       QPoint(picture->width() * 66 / 100, picture->height() * 97 / 100));
  window.RunCommand("mnuLocalSkyZoom");
  SettleBoxes();
  return frame;
}

QWidget* OpenGeneralSky(MDIForm1& window, bool everything) {
  window.RunCommand("mnuCieloMappaGenerale");
  auto* const chart = window.findChild<QWidget*>(QStringLiteral("frmGeneralSky"));
  if (chart == nullptr) return nullptr;
  if (everything) {
    chart->parentWidget()->resize(1100, 620);
    for (const char* const item : {"mnuGeneralSkyGriglia", "mnuGeneralSkyOggettiCostellazioni",
                                   "mnuGeneralSkyEtichetteCostellazioni", "mnuGeneralSkyEtichetteSoleLuna"})
      if (!window.IsChecked(item)) window.RunCommand(item);
  }
  SettleBoxes();
  return chart->parentWidget();
}

QWidget* ZoomGeneralSky(MDIForm1& window) {
  auto* const picture =
      Control<QWidget>(window.findChild<QWidget*>(QStringLiteral("frmGeneralSky")), "Picture1");
  window.RunCommand("mnuGeneralSkyZoom");
  const QSize size = picture->size();
  Drag(*picture, QPoint(size.width() * 72 / 100, size.height() * 30 / 100),
       QPoint(size.width() * 94 / 100, size.height() * 60 / 100));
  SettleBoxes();
  return picture->parentWidget()->parentWidget();
}

QWidget* OpenPassChart() {
  const std::optional<PassChart> pass = FirstPass(1, true);
  auto* const chart = Load<SkySatCalls>("frmSkySat");
  if (!pass || chart == nullptr) return nullptr;
  chart->ShowPass(*pass);
  SettleBoxes();
  const auto* const form = dynamic_cast<QWidget*>(chart);
  return form->parentWidget();
}

QWidget* OpenFullPassChart(MDIForm1& window) {
  QWidget* const frame = OpenPassChart();
  if (frame == nullptr) return nullptr;
  frame->resize(960, 820);
  SettleBoxes();
  auto* const picture = Control<SurfaceWidget>(frame, "Picture1");
  SendMouse(*picture, QEvent::MouseButtonPress, picture->rect().center(), Qt::RightButton);
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  for (const char* const item : {"mnuSkySatGriglia", "mnuSkySatOggettiCostellazioni",
                                 "mnuSkySatEtichetteCostellazioni", "mnuSkySatEtichetteSoleLuna"})
    window.RunCommand(item);
  // times at three points of the track, written towards the middle of the chart
  PassView same = EmptyPassView();
  TakePass(same, *FirstPass(1, true));
  const std::vector<TrackPoint>& points = same.Sky.Track.Points;
  for (std::size_t i = 0; i < 3; ++i) {
    const TrackPoint& point = points[points.size() * (2 * i + 1) / 6];
    const double x = static_cast<double>(point.X), y = static_cast<double>(point.Y);
    const auto at = [picture](double right, double up) {
      return QPoint(qRound((right + 100) / 200 * picture->width()),
                    qRound((100 - up) / 200 * picture->height()));
    };
    Drag(*picture, at(x, y), at(x * 0.55, y * 0.55));
  }
  SettleBoxes();
  return frame;
}

QWidget* PreviewLocalSky() {
  QtSkyPictures pictures;
  PixmapSurface surface;
  surface.Resize(QSize(400, 400), 1);
  SkyView view;
  view.Switches = pageSwitches;
  view.Pictures = &pictures;
  Genera_mappa(surface, view);
  return Preview(LocalSkyPage(view), Text("frmLocalSky", "mappalocale"));
}

QWidget* PreviewPass(int pageNumber) {
  QtSkyPictures pictures;
  PixmapSurface surface;
  surface.Resize(QSize(400, 400), 1);
  PassView view = EmptyPassView();
  view.Sky.Switches = pageSwitches;
  view.Sky.Pictures = &pictures;
  TakePass(view, *FirstPass(1, true));
  const std::vector<TrackPoint>& points = view.Sky.Track.Points;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t at = points.size() * (2 * i + 1) / 6;
    AddTimeMark(view.Sky.Track, static_cast<int>(at), static_cast<double>(points[at].X) * 0.55,
                static_cast<double>(points[at].Y) * 0.55);
  }
  Genera_mappa(surface, view);
  QWidget* const preview = Preview(PassPage(view), Text("frmSkySat", "mappa"));
  if (pageNumber == 2) Control<QToolButton>(preview, "cmdSuccessiva")->click();
  return preview;
}

QWidget* PreviewGeneralSky() {
  GeneralSkyView view;
  view.Switches = {
      .Grid = true, .ConstellationLines = true, .ConstellationNames = true, .SunMoonNames = true};
  return Preview(GeneralSkyPage(view), Text("frmGeneralSky", "mappagenerale"));
}

}  // namespace halvorine
