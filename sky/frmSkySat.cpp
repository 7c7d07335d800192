#include "sky/frmSkySat.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "controls/qtIcons.h"
#include "maps/qtSurface.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "sky/qtPage.h"
#include "sky/qtPassPanel.h"
#include "sky/qtSkyPoints.h"

namespace halvorine {

namespace {

constexpr int firstSide = 480;   // logical pixels, of the chart
constexpr int resizeDelay = 60;  // ms
const std::string section = "frmSkySat";

/// A check mark of the popup and what it switches.
struct PassCheck {
  const char* item;
  bool SkySwitches::*on;
};
constexpr std::array<PassCheck, 8> passChecks{{
    {"mnuSkySatGriglia", &SkySwitches::Grid},
    {"mnuSkySatPaesaggio", &SkySwitches::Landscape},
    {"mnuSkySatOggettiCostellazioni", &SkySwitches::ConstellationLines},
    {"mnuSkySatOggettiPianeti", &SkySwitches::Planets},
    {"mnuSkySatOggettiSoleLuna", &SkySwitches::SunMoon},
    {"mnuSkySatEtichetteCostellazioni", &SkySwitches::ConstellationNames},
    {"mnuSkySatEtichettePianeti", &SkySwitches::PlanetNames},
    {"mnuSkySatEtichetteSoleLuna", &SkySwitches::SunMoonNames},
}};
constexpr const char* stereographicItem = "mnuSkySatProiezStereo";
constexpr const char* normalItem = "mnuSkySatProiezNormale";
/// By the orientation's number in the settings.
constexpr std::array<const char*, 4> orientationItems{"mnuSkySatOrientamentoNord", "mnuSkySatOrientamentoSud",
                                                      "mnuSkySatOrientamentoOvest",
                                                      "mnuSkySatOrientamentoEst"};

QString FreeName() {
  for (int number = 1;; ++number) {
    QString name = QStringLiteral("frmSkySat%1").arg(number);
    if (!IsFormLoaded(FromQ(name))) return name;
  }
}

}  // namespace

frmSkySat::frmSkySat() : ChildForm(QString::fromStdString(section)), view_(EmptyPassView()) {
  view_.Sky.Pictures = &pictures_;
  panel_ = new PassPanel(this);
  panel_->ShowPass(view_);
  picture1_ = Named(new SurfaceWidget(this), "Picture1");
  picture1_->StretchWhileResizing(resizeDelay);
  setFocusProxy(picture1_);
  setWindowIcon(Icon("localsky"));
  SetTitle();
  ConnectMouse();
  SetFirstSize(panel_->width() + firstSide, firstSide);
  Publish(this);
}

void frmSkySat::ConnectMouse() {
  connect(picture1_, &SurfaceWidget::redrawWanted, this, [this] { Genera_mappa(); });
  connect(picture1_, &SurfaceWidget::buttonDown, this, &frmSkySat::Picture1_MouseDown);
  connect(picture1_, &SurfaceWidget::mouseMoved, this, &frmSkySat::Picture1_MouseMove);
  connect(picture1_, &SurfaceWidget::buttonUp, this, &frmSkySat::Picture1_MouseUp);
  connect(picture1_, &SurfaceWidget::menuKey, this, &frmSkySat::OpenPopup);
  connect(picture1_, &SurfaceWidget::objectKey, this,
          [this](int step) { picture1_->PointToNext(PointsOf(view_.Sky.Track.Points), step); });
}

void frmSkySat::ShowPass(const PassChart& pass) {
  if (objectName() == QString::fromStdString(section)) {
    UnregisterForm(section);
    setObjectName(FreeName());
    Publish(this);
  }
  dragged_.reset();
  picture1_->HideOverlay();
  TakePass(view_, pass);
  panel_->ShowPass(view_);
  SetTitle();
  Genera_mappa();
  ShowForm();
}

void frmSkySat::SetTitle() {
  QString title = Text(section, "anteprima");
  if (view_.HasSatellite()) title += QStringLiteral(" - ") + ToQ(view_.Pass.elements.Name);
  title += QStringLiteral(" - ") + ToQ(ChartDate(view_.Pass.selected)) + QLatin1Char(' ') +
           Text("Def", "oralocale");
  setWindowTitle(title);
  picture1_->setAccessibleName(title);
}

void frmSkySat::Genera_mappa() {
  if (!isVisible()) return;  // drawn at the next showing
  view_.Sky.CompassColour = CompassColourOf([this] {
    const QColor face = palette().color(QPalette::Button);
    return Rgb(face.red(), face.green(), face.blue());
  }());
  halvorine::Genera_mappa(picture1_->Surface(), view_);
  picture1_->update();
}

void frmSkySat::SetStarCount(int count) {
  view_.Sky.StarCount = count;
  Genera_mappa();
}

void frmSkySat::ShowMenuChecks() const {
  MainFormCalls* const main = MainForm();
  if (main == nullptr) return;
  for (const PassCheck& check : passChecks) main->SetChecked(check.item, view_.Sky.Switches.*check.on);
  main->SetChecked(stereographicItem, view_.Sky.Projection.Stereographic);
  main->SetChecked(normalItem, !view_.Sky.Projection.Stereographic);
  for (std::size_t i = 0; i < orientationItems.size(); ++i)
    main->SetChecked(orientationItems[i], view_.Sky.Projection.Orientation == static_cast<std::int16_t>(i));
}

void frmSkySat::Stampa() {
  PrintChart(this, [this] {
    Genera_mappa();  // the chart, its date and the table are of one moment
    return PassPage(view_);
  });
}

void frmSkySat::MenuCommand(std::string_view item) {
  if (item == "mnuSkySatChiudi") return UnloadForm();
  if (item == "mnuSkySatStampa") return Stampa();
  if (item == "mnuSkySatMagnitudine") {
    if (auto* const magnitude = Load<MagnitudeCalls>("frmMagnitude")) magnitude->ShowFor("anteprima");
    return;
  }
  const MainFormCalls* const main = MainForm();
  for (const PassCheck& check : passChecks)
    if (item == check.item && main != nullptr) view_.Sky.Switches.*check.on = main->IsChecked(item);
  if (item == stereographicItem || item == normalItem)
    view_.Sky.Projection.Stereographic = item == stereographicItem;
  for (std::size_t i = 0; i < orientationItems.size(); ++i)
    if (item == orientationItems[i]) view_.Sky.Projection.Orientation = static_cast<std::int16_t>(i);
  ShowMenuChecks();
  Genera_mappa();
}

void frmSkySat::OpenPopup(QPoint screen) {
  AskingPassChart = FromQ(objectName());
  ShowMenuChecks();
  if (MainFormCalls* const main = MainForm()) main->PopupMenu("mnuSkySat", screen.x(), screen.y());
}

void frmSkySat::Picture1_MouseDown(Qt::MouseButton button, double x, double y, QPoint screen) {
  dragged_.reset();
  picture1_->HideOverlay();
  if (button == Qt::LeftButton) dragged_ = PassPointAt(view_, x, y);
  if (button == Qt::RightButton) OpenPopup(screen);
}

void frmSkySat::Picture1_MouseMove(double x, double y) {
  if (!dragged_) {
    // tells where a mark can be drawn from
    picture1_->setCursor(PassPointAt(view_, x, y) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    return;
  }
  const TrackPoint& point = view_.Sky.Track.Points.at(static_cast<std::size_t>(*dragged_));
  picture1_->ShowDragLine(static_cast<double>(point.X), static_cast<double>(point.Y), x, y);
}

void frmSkySat::Picture1_MouseUp(Qt::MouseButton button, double x, double y) {
  if (button != Qt::LeftButton || !dragged_) return;
  AddTimeMark(view_.Sky.Track, *dragged_, x, y);
  dragged_.reset();
  picture1_->HideOverlay();
  Genera_mappa();
}

void frmSkySat::PlaceChart() {
  panel_->setGeometry(0, 0, panel_->width(), height());
  const int room = std::max(width() - panel_->width(), 0);
  const int side = std::min(room, height());
  picture1_->setGeometry(panel_->width() + (room - side) / 2, (height() - side) / 2, side, side);
}

void frmSkySat::resizeEvent(QResizeEvent* event) {
  ChildForm::resizeEvent(event);
  PlaceChart();
}

void frmSkySat::showEvent(QShowEvent* event) {
  ChildForm::showEvent(event);
  Genera_mappa();
}

void frmSkySat::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), Qt::black);  // around the square of the chart
}

}  // namespace halvorine
