#include "sky/frmGeneralSky.h"

#include <QApplication>
#include <QIcon>
#include <QVBoxLayout>
#include <array>
#include <cmath>

#include "controls/qtIcons.h"
#include "maps/qtSurface.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "sky/mStars.h"
#include "sky/qtPage.h"
#include "sky/qtSkyPoints.h"

namespace halvorine {

namespace {

constexpr int redrawPeriod = 60000, resizeDelay = 60;  // ms
const std::string section = "frmGeneralSky";
const char* const zoomItem = "mnuGeneralSkyZoom";

/// A check mark of the popup and the option that it follows when the window is loaded.
struct SkyCheck {
  const char* item;
  std::int16_t SkyOptions::*option;
};
constexpr std::array<SkyCheck, 7> skyChecks{{
    {"mnuGeneralSkyGriglia", &SkyOptions::Grid},
    {"mnuGeneralSkyOggettiCostellazioni", &SkyOptions::ConstellationLines},
    {"mnuGeneralSkyOggettiPianeti", &SkyOptions::Planets},
    {"mnuGeneralSkyOggettiSoleLuna", &SkyOptions::SunMoon},
    {"mnuGeneralSkyEtichetteCostellazioni", &SkyOptions::ConstellationNames},
    {"mnuGeneralSkyEtichettePianeti", &SkyOptions::PlanetNames},
    {"mnuGeneralSkyEtichetteSoleLuna", &SkyOptions::SunMoonNames},
}};

void SetChecksFromOptions() {
  MainFormCalls* const main = MainForm();
  if (main == nullptr) return;
  for (const SkyCheck& check : skyChecks) main->SetChecked(check.item, Options.General.*check.option != 0);
}

bool Zooming() {
  const MainFormCalls* const main = MainForm();
  return main != nullptr && main->IsChecked(zoomItem);
}

}  // namespace

frmGeneralSky::frmGeneralSky()
    : PlacedForm(QString::fromStdString(section), "Cielo generale"),
      baseTitle_(Text(section, "mappagenerale")),
      zoneWord_(Text("Def", "oralocale")),
      rightAscensionLabel_(LookupText("Def", "ar")),
      declinationLabel_(LookupText("Def", "dec")) {
  picture1_ = Named(new SurfaceWidget(this), "Picture1");
  picture1_->StretchWhileResizing(resizeDelay);
  QVBoxLayout* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(picture1_);
  setFocusProxy(picture1_);
  setWindowIcon(Icon("starchart"));
  setWindowTitle(baseTitle_);
  picture1_->setAccessibleName(windowTitle());
  view_.Pictures = &pictures_;
  view_.StarCount = Options.General.StarCount;
  SetChecksFromOptions();
  if (MainFormCalls* const main = MainForm()) main->SetChecked(zoomItem, false);
  ConnectMouse();
  ConnectKeys();
  tmrGeneralSky_ = Named(new QTimer(this), "tmrGeneralSky");
  connect(tmrGeneralSky_, &QTimer::timeout, this, [this] { Genera_mappa(); });
  tmrGeneralSky_->start(redrawPeriod);
  Publish(this);
}

void frmGeneralSky::ConnectMouse() {
  connect(picture1_, &SurfaceWidget::redrawWanted, this, [this] { Genera_mappa(); });
  connect(picture1_, &SurfaceWidget::buttonDown, this, &frmGeneralSky::Picture1_MouseDown);
  connect(picture1_, &SurfaceWidget::mouseMoved, this, &frmGeneralSky::Picture1_MouseMove);
  connect(picture1_, &SurfaceWidget::buttonUp, this, &frmGeneralSky::Picture1_MouseUp);
  connect(picture1_, &SurfaceWidget::doubleClicked, this, [this](double, double) { Picture1_DblClick(); });
  connect(picture1_, &SurfaceWidget::wheelTurned, this, &frmGeneralSky::Picture1_Wheel);
  connect(picture1_, &SurfaceWidget::menuKey, this,
          [this](QPoint screen) { Picture1_MouseDown(Qt::RightButton, 0, 0, screen); });
}

void frmGeneralSky::ConnectKeys() {
  connect(picture1_, &SurfaceWidget::zoomKey, this, [this](double x, double y, double notches) {
    TakeBox(notches == 0 ? GeneralSkyBox{} : ZoomAbout(view_.Box, x, y, notches));
  });
  connect(picture1_, &SurfaceWidget::panKey, this,
          [this](double right, double down) { TakeBox(PanBox(view_.Box, right, down)); });
  connect(picture1_, &SurfaceWidget::objectKey, this, [this](int step) {
    picture1_->PointToNext(PointsOf(PickablePlaces(view_.Box, view_.StarCount)), step);
  });
}

void frmGeneralSky::Show() {
  PlaceWindow();
  ShowForm();
}

void frmGeneralSky::showEvent(QShowEvent* event) {
  ChildForm::showEvent(event);
  Genera_mappa();
}

void frmGeneralSky::TakeSwitches() {
  view_.Switches = GeneralSwitchesOf(Options.General);
  const MainFormCalls* const main = MainForm();
  if (main == nullptr) return;
  SkyOptions checked;
  for (const SkyCheck& check : skyChecks) checked.*check.option = main->IsChecked(check.item) ? -1 : 0;
  view_.Switches = GeneralSwitchesOf(checked);
}

void frmGeneralSky::Genera_mappa() {
  if (!isVisible()) return;  // drawn at the next showing
  const WaitPointerHold wait;
  TakeSwitches();
  halvorine::Genera_mappa(picture1_->Surface(), view_);
  chartTitle_ =
      baseTitle_ + QStringLiteral(" - ") + ToQ(ChartDate(CurrentDate)) + QLatin1Char(' ') + zoneWord_;
  setWindowTitle(chartTitle_);
  picture1_->update();
}

void frmGeneralSky::Applica_opzioni() {
  SetChecksFromOptions();
  view_.StarCount = Options.General.StarCount;
  Genera_mappa();
}

void frmGeneralSky::SetStarCount(int count) {
  view_.StarCount = count;
  Genera_mappa();
}

void frmGeneralSky::TakeBox(const GeneralSkyBox& box) {
  ForgetPress();
  if (box == view_.Box) return;
  view_.Box = box;
  Genera_mappa();
}

void frmGeneralSky::Stampa() {
  PrintChart(this, [this] {
    Genera_mappa();  // the chart, its date and the table are of one moment
    return GeneralSkyPage(view_);
  });
}

void frmGeneralSky::MenuCommand(std::string_view item) {
  if (item == zoomItem) return;  // the mouse reads this check
  if (item == "mnuGeneralSkyChiudi") return UnloadForm();
  if (item == "mnuGeneralSkyStampa") return Stampa();
  if (item == "mnuGeneralSkyRipristina") return Ripristina();
  if (item == "mnuGeneralSkyMagnitudine") {
    if (auto* const magnitude = Load<MagnitudeCalls>("frmMagnitude")) magnitude->ShowFor("generale");
    return;
  }
  Genera_mappa();
}

void frmGeneralSky::ForgetPress() {
  if (!press_) return;
  press_.reset();
  picture1_->HideOverlay();
}

void frmGeneralSky::Picture1_MouseDown(Qt::MouseButton button, double x, double y, QPoint screen) {
  ForgetPress();
  if (button == Qt::LeftButton) press_ = QPointF(x, y);
  if (button == Qt::RightButton) ShowPopup("mnuGeneralSky", screen);
}

void frmGeneralSky::Picture1_MouseMove(double x, double y) {
  const bool zooming = Zooming();
  picture1_->setCursor(zooming ? Qt::CrossCursor : Qt::ArrowCursor);
  if (press_ && zooming) picture1_->ShowRubberBox(press_->x(), press_->y(), x, y);
  const std::string readout = GeneralSkyReadout(x, y, rightAscensionLabel_, declinationLabel_);
  setWindowTitle(readout.empty() ? chartTitle_ : chartTitle_ + QStringLiteral(" -  ") + ToQ(readout));
}

void frmGeneralSky::Picture1_MouseUp(Qt::MouseButton button, double x, double y) {
  if (button != Qt::LeftButton || !press_) return;
  const QPointF press = *press_;
  ForgetPress();
  if (Zooming()) {
    if (const std::optional<GeneralSkyBox> box = ZoomBox(press.x(), press.y(), x, y)) TakeBox(*box);
    return;
  }
  const double right = (x - press.x()) / view_.Box.ScaleWidth() * picture1_->width();
  const double down = (y - press.y()) / view_.Box.ScaleHeight() * picture1_->height();
  if (std::hypot(right, down) < QApplication::startDragDistance()) OpenObject(press.x(), press.y());
}

void frmGeneralSky::Picture1_DblClick() {
  if (Zooming()) Ripristina();
}

void frmGeneralSky::Picture1_Wheel(double x, double y, double notches) {
  if (Zooming()) TakeBox(ZoomAbout(view_.Box, x, y, notches));
}

void frmGeneralSky::OpenObject(double x, double y) {
  const std::optional<SkyPick> pick = PickInGeneralSky(view_.Box, view_.StarCount, x, y);
  if (!pick) return;
  if (pick->Star > 0 && !TakePickedStar(pick->Star)) return;
  if (auto* const object = Load<ObjectCalls>("frmObject")) object->ShowObject(pick->Body);
}

}  // namespace halvorine
