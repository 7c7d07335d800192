#include "sky/frmLocalSky.h"

#include <QHBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>

#include "controls/qtDataBox.h"
#include "controls/qtIcons.h"
#include "maps/qtSurface.h"
#include "orbit/mSatTexts.h"
#include "shell/base/mGlobal.h"
#include "sky/mStars.h"
#include "sky/qtPage.h"
#include "sky/qtSkyPoints.h"

namespace halvorine {

namespace {

constexpr int rebuildPeriod = 60000, settleTime = 60;  // ms
constexpr double dragPixels = 3;                       // that a hand trembles
constexpr int transitOff = 16, transitOn = 17;         // pictures of the toolbar's button
const std::string section = "frmLocalSky";

/// A check mark of the popup and the option that it follows when the window is loaded.
struct SkyCheck {
  std::string_view item;
  std::int16_t SkyOptions::*option;
};
constexpr std::array<SkyCheck, 9> skyChecks{{
    {"mnuLocalSkyGriglia", &SkyOptions::Grid},
    {"mnuLocalSkyPaesaggio", &SkyOptions::Landscape},
    {"mnuLocalSkyRiquadroDati", &SkyOptions::DataBox},
    {"mnuLocalSkyOggettiCostellazioni", &SkyOptions::ConstellationLines},
    {"mnuLocalSkyOggettiPianeti", &SkyOptions::Planets},
    {"mnuLocalSkyOggettiSoleLuna", &SkyOptions::SunMoon},
    {"mnuLocalSkyEtichetteCostellazioni", &SkyOptions::ConstellationNames},
    {"mnuLocalSkyEtichettePianeti", &SkyOptions::PlanetNames},
    {"mnuLocalSkyEtichetteSoleLuna", &SkyOptions::SunMoonNames},
}};

/// Items of which one is checked, in the order of the setting.
constexpr std::array<std::string_view, 4> orientations{
    {"mnuLocalSkyOrientamentoNord", "mnuLocalSkyOrientamentoSud", "mnuLocalSkyOrientamentoOvest",
     "mnuLocalSkyOrientamentoEst"}};
constexpr std::array<std::string_view, 2> projections{
    {"mnuLocalSkyProiezNormale", "mnuLocalSkyProiezStereo"}};
constexpr std::array<std::string_view, 2> coordinates{{"mnuLocalSkyCoordEquat", "mnuLocalSkyCoordOrizz"}};

constexpr std::string_view transitItem = "mnuLocalSkyTransitoPrincipale";
constexpr std::string_view timesItem = "mnuLocalSkyTempi";
constexpr std::string_view zoomItem = "mnuLocalSkyZoom";

bool IsOn(std::string_view item) {
  const MainFormCalls* const main = MainForm();
  return main != nullptr && main->IsChecked(item);
}

void SetOn(std::string_view item, bool on) {
  if (MainFormCalls* const main = MainForm()) main->SetChecked(item, on);
}

template <std::size_t N>
void CheckOne(const std::array<std::string_view, N>& group, std::size_t chosen) {
  for (std::size_t i = 0; i < N; ++i) SetOn(group[i], i == chosen);
}

/// Keeps one item of a group checked; false where `item` is none of them.
template <std::size_t N>
bool CheckIfMember(const std::array<std::string_view, N>& group, std::string_view item) {
  const auto* const found = std::find(group.begin(), group.end(), item);
  if (found == group.end()) return false;
  CheckOne(group, static_cast<std::size_t>(found - group.begin()));
  return true;
}

void SetChecksFromOptions() {
  const SkyOptions& options = Options.Local;
  for (const SkyCheck& check : skyChecks) SetOn(check.item, options.*check.option != 0);
  CheckOne(orientations, static_cast<std::size_t>(ProjectionOf(options).Orientation));
  CheckOne(projections, options.Stereographic != 0 ? 1 : 0);
  CheckOne(coordinates, options.Altazimuth != 0 ? 1 : 0);
}

}  // namespace

frmLocalSky::frmLocalSky() : PlacedForm(QString::fromStdString(section), "Cielo locale") {
  view_.Pictures = &pictures_;
  view_.StarCount = Options.Local.StarCount;
  fraSatellitePrincipale_ = Named(new DataBox(section, this), "fraSatellitePrincipale");
  picture1_ = Named(new SurfaceWidget(this), "Picture1");
  picture1_->StretchWhileResizing(settleTime);
  QHBoxLayout* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(fraSatellitePrincipale_);
  layout->addWidget(picture1_, 1);
  setFocusProxy(picture1_);
  fraSatellitePrincipale_->setMinimumHeight(1);  // a tiled window may be lower than all rows
  fraSatellitePrincipale_->setAccessibleName(Text(section, "satelliteprincipale"));
  setWindowIcon(Icon("localsky"));
  setWindowTitle(Text(section, "mappalocale"));
  picture1_->setAccessibleName(windowTitle());
  SetChecksFromOptions();
  PlaceDataBox();
  ConnectMouse();
  ConnectKeys();
  tmrLocalSky_ = Named(new QTimer(this), "tmrLocalSky");
  connect(tmrLocalSky_, &QTimer::timeout, this, [this] { Genera_mappa(); });
  tmrLocalSky_->start(rebuildPeriod);
  Publish(this);
}

void frmLocalSky::ConnectMouse() {
  connect(picture1_, &SurfaceWidget::redrawWanted, this, [this] { Genera_mappa(); });
  connect(picture1_, &SurfaceWidget::buttonDown, this, &frmLocalSky::Picture1_MouseDown);
  connect(picture1_, &SurfaceWidget::mouseMoved, this, &frmLocalSky::Picture1_MouseMove);
  connect(picture1_, &SurfaceWidget::buttonUp, this, &frmLocalSky::Picture1_MouseUp);
  connect(picture1_, &SurfaceWidget::wheelTurned, this, &frmLocalSky::Picture1_Wheel);
  connect(picture1_, &SurfaceWidget::doubleClicked, this, &frmLocalSky::Picture1_DoubleClick);
  connect(picture1_, &SurfaceWidget::menuKey, this, [](QPoint screen) { ShowPopup("mnuLocalSky", screen); });
}

void frmLocalSky::ConnectKeys() {
  connect(picture1_, &SurfaceWidget::zoomKey, this, [this](double x, double y, double notches) {
    notches == 0 ? ShowWhole() : ZoomAbout(x, y, notches);
  });
  connect(picture1_, &SurfaceWidget::panKey, this, &frmLocalSky::Pan);
  connect(picture1_, &SurfaceWidget::objectKey, this, [this](int step) {
    const bool marking = !IsOn(zoomItem) && IsOn(timesItem);
    picture1_->PointToNext(
        marking ? PointsOf(view_.Track.Points) : PointsOf(PickablePlaces(view_.Places, view_.Box)), step);
  });
}

PixmapSurface& frmLocalSky::Surface() { return picture1_->Surface(); }

void frmLocalSky::Show() {
  PlaceWindow();
  if (ActiveCount > 0 && SatelliteStates[1].Condition != 0)
    ShowTexts(BuildLiveTexts(SatelliteStates[1], ElementSets[1], Options.RadioChannel[0]));
  ShowForm();
}

void frmLocalSky::showEvent(QShowEvent* event) {
  ChildForm::showEvent(event);
  Genera_mappa();
}

void frmLocalSky::BeforeUnload() {
  tmrLocalSky_->stop();
  EndTransit();
  SetOn(zoomItem, false);
  PlacedForm::BeforeUnload();
}

void frmLocalSky::PlaceDataBox() {
  fraSatellitePrincipale_->setFixedWidth(IsOn("mnuLocalSkyRiquadroDati") ? DataBox::FixedWidth : 0);
  layout()->activate();
}

void frmLocalSky::TakeSwitches() {
  const auto chosen = [](const auto& group) {
    const auto* const found = std::find_if(group.begin(), group.end(), IsOn);
    return static_cast<std::int16_t>(found == group.end() ? 1 : found - group.begin());
  };
  view_.Projection = {IsOn("mnuLocalSkyProiezStereo"), chosen(orientations)};
  SkyOptions options = Options.Local;
  for (const SkyCheck& check : skyChecks) options.*check.option = IsOn(check.item) ? -1 : 0;
  view_.Switches = SwitchesOf(options);
  view_.CompassColour = CompassColourOf(NumberOf(palette().color(QPalette::Button)));
}

void frmLocalSky::Genera_mappa() {
  if (!isVisible()) return;  // drawn at the next showing
  PlaceDataBox();
  if (picture1_->TakePendingSize()) return;  // its new size has had it drawn
  TakeSwitches();
  halvorine::Genera_mappa(Surface(), view_);
  DrawTransient();
  MakeTitle();
  picture1_->setCursor(IsOn(zoomItem) ? Qt::CrossCursor : Qt::ArrowCursor);
  picture1_->update();
}

void frmLocalSky::DrawTransient() {
  const int last = IsOn("mnuLocalSkySoloPrincipale") ? std::min<int>(ActiveCount, 1) : ActiveCount;
  for (int slot = 1; slot <= last; ++slot)
    if (SatelliteStates[slot].Condition != 0) halvorine::Disegna_satellite_in_cielo(Surface(), view_, slot);
}

void frmLocalSky::MakeTitle() {
  title_ = Text(section, "mappalocale") + QStringLiteral(" - ") + ToQ(ChartDate(CurrentDate)) +
           QLatin1Char(' ') + Text("Def", "oralocale");
  setWindowTitle(title_);
}

void frmLocalSky::Disegna_satellite_in_cielo(int slot) {
  if (!isVisible()) return;
  halvorine::Disegna_satellite_in_cielo(Surface(), view_, slot);
  picture1_->update();
}

void frmLocalSky::ShowTexts(const LiveTexts& texts) { fraSatellitePrincipale_->SetTexts(texts); }

void frmLocalSky::Azzera_dati() {
  Surface().AutoRedraw(false);
  Surface().Cls();
  picture1_->update();
  fraSatellitePrincipale_->Blank();
}

void frmLocalSky::Applica_opzioni() {
  SetChecksFromOptions();
  view_.StarCount = Options.Local.StarCount;
  Genera_mappa();
}

void frmLocalSky::SetStarCount(int count) {
  view_.StarCount = count;
  Genera_mappa();
}

void frmLocalSky::Stampa() {
  PrintChart(this, [this] {
    Genera_mappa();  // the chart, its date and the table are of one moment
    return LocalSkyPage(view_);
  });
}

void frmLocalSky::MenuCommand(std::string_view item) {
  if (item == "mnuLocalSkyChiudi") return Unload();
  if (item == "mnuLocalSkyStampa") return Stampa();
  if (item == "mnuLocalSkySoloPrincipale") return;  // the tick reads it
  if (item == "mnuLocalSkyMagnitudine") {
    if (auto* const window = Load<MagnitudeCalls>("frmMagnitude")) window->ShowFor("locale");
    return;
  }
  if (item == zoomItem) return ZoomSwitched();
  if (item == transitItem) return SwitchTransit();
  if (item == "mnuLocalSkyRipristina") view_.Zoomed = false;
  if (!CheckIfMember(orientations, item) && !CheckIfMember(projections, item))
    CheckIfMember(coordinates, item);
  Genera_mappa();
}

void frmLocalSky::ZoomSwitched() {
  press_.reset();
  picture1_->HideOverlay();
  picture1_->setCursor(IsOn(zoomItem) ? Qt::CrossCursor : Qt::ArrowCursor);
}

void frmLocalSky::SwitchTransit() {
  if (!IsOn(transitItem)) {
    EndTransit();
  } else {
    SetOn(timesItem, true);
    if (MainFormCalls* const main = MainForm()) main->SetToolbarPicture("Transit", transitOn);
    TakeSwitches();
    ComputeTransit(view_.Track, view_.Projection);
  }
  Genera_mappa();
}

void frmLocalSky::ResetModeButton() {
  view_.Track.Clear();
  press_.reset();
  picture1_->HideOverlay();
  if (MainFormCalls* const main = MainForm()) main->SetToolbarPicture("Transit", transitOff);
}

void frmLocalSky::EndTransit() {
  SetOn(transitItem, false);
  SetOn(timesItem, false);
  ResetModeButton();
}

void frmLocalSky::Picture1_MouseDown(Qt::MouseButton button, double x, double y, QPoint screen) {
  if (button == Qt::RightButton) return ShowPopup("mnuLocalSky", screen);
  press_.reset();
  picture1_->HideOverlay();
  if (button != Qt::LeftButton) return;
  press_ = Press{x, y, std::nullopt};
  if (!IsOn(zoomItem) && IsOn(timesItem))
    press_->trackPoint = NearestTrackPoint(view_.Track, view_.Box, x, y);
}

void frmLocalSky::Picture1_MouseMove(double x, double y) {
  if (press_ && IsOn(zoomItem)) picture1_->ShowRubberBox(press_->x, press_->y, x, y);
  if (press_ && press_->trackPoint) {
    const TrackPoint& point = view_.Track.Points.at(static_cast<std::size_t>(*press_->trackPoint));
    picture1_->ShowDragLine(static_cast<double>(point.X), static_cast<double>(point.Y), x, y);
  }
  const QString readout = ToQ(SkyReadout(view_.Projection, IsOn("mnuLocalSkyCoordEquat"), x, y));
  setWindowTitle(readout.isEmpty() ? title_ : title_ + QStringLiteral(" -  ") + readout);
}

bool frmLocalSky::IsDrag(const Press& press, double x, double y) const {
  const PixmapSurface& surface = picture1_->Surface();
  const double across = (x - press.x) / surface.ScaleWidth() * picture1_->width();
  const double down = (y - press.y) / surface.ScaleHeight() * picture1_->height();
  return std::hypot(across, down) > dragPixels;
}

void frmLocalSky::Picture1_MouseUp(Qt::MouseButton button, double x, double y) {
  if (button != Qt::LeftButton || !press_) return;
  const Press press = *press_;
  press_.reset();
  picture1_->HideOverlay();
  if (IsOn(zoomItem)) {
    if (IsDrag(press, x, y)) ZoomTo(press, x, y);
  } else if (IsOn(timesItem)) {
    if (press.trackPoint) PlaceTimeMark(*press.trackPoint, x, y);
  } else if (!IsDrag(press, x, y)) {
    ShowPicked(x, y);
  }
}

void frmLocalSky::ZoomTo(const Press& press, double x, double y) {
  const std::optional<ChartBox> box = ZoomDiscBox(press.x, press.y, x, y);
  if (!box) return;
  view_.Box = *box;
  view_.Zoomed = true;
  Genera_mappa();
}

void frmLocalSky::PlaceTimeMark(int point, double x, double y) {
  AddTimeMark(view_.Track, point, x, y);
  Genera_mappa();
}

void frmLocalSky::ShowPicked(double x, double y) {
  const std::optional<SkyPick> pick = PickInSky(view_.Places, view_.Box, x, y);
  auto* const window = pick ? Load<ObjectCalls>("frmObject") : nullptr;
  if (window == nullptr) return;
  if (pick->Star > 0 && !TakePickedStar(pick->Star)) return;
  press_.reset();  // the window takes the mouse over
  window->ShowObject(pick->Body);
}

void frmLocalSky::Picture1_Wheel(double x, double y, double notches) {
  if (IsOn(zoomItem)) ZoomAbout(x, y, notches);
}

std::optional<ChartBox> frmLocalSky::FullBox() const {
  const PixmapSurface& surface = picture1_->Surface();
  if (surface.Width() <= 0 || surface.Height() <= 0) return std::nullopt;
  return FullDiscBox(surface.Width() / surface.Height());
}

void frmLocalSky::ZoomAbout(double x, double y, double notches) {
  const std::optional<ChartBox> full = FullBox();
  if (!full) return;
  const std::optional<ChartBox> box = ZoomDiscAbout(view_.Box, *full, x, y, notches);
  if (!box && !view_.Zoomed) return;
  view_.Zoomed = box.has_value();
  if (box) view_.Box = *box;
  Genera_mappa();
}

void frmLocalSky::Picture1_DoubleClick() {
  if (IsOn(zoomItem)) ShowWhole();
}

void frmLocalSky::ShowWhole() {
  if (!view_.Zoomed) return;
  view_.Zoomed = false;
  Genera_mappa();
}

void frmLocalSky::Pan(double right, double down) {
  const std::optional<ChartBox> full = FullBox();
  if (!view_.Zoomed || !full) return;
  view_.Box = PanDiscBox(view_.Box, *full, right, down);
  Genera_mappa();
}

}  // namespace halvorine
