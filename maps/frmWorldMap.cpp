#include "maps/frmWorldMap.h"

#include <QHBoxLayout>
#include <array>
#include <optional>
#include <vector>

#include "controls/qtDataBox.h"
#include "controls/qtIcons.h"
#include "maps/mMapList.h"
#include "maps/qtSurface.h"
#include "orbit/mSat.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"

namespace halvorine {

namespace {

const std::string section = "frmWorldMap";

/// A check mark of the popup and the option that it follows when the window is loaded.
struct MapCheck {
  const char* item;
  std::int16_t MapOptions::*option;
};
constexpr std::array<MapCheck, 10> mapChecks{{
    {"mnuWorldmapGriglia", &MapOptions::Grid},
    {"mnuWorldmapNomeCitta", &MapOptions::City},
    {"mnuWorldmapCerchioVisibilita", &MapOptions::Circle},
    {"mnuWorldmapTracciatoOrbita", &MapOptions::Track},
    {"mnuWorldmapDatiSatellite", &MapOptions::MouseData},
    {"mnuWorldmapCoordinateMouse", &MapOptions::MouseCoordinates},
    {"mnuWorldmapRiquadroDati", &MapOptions::DataBox},
    {"mnuWorldmapSole", &MapOptions::Sun},
    {"mnuWorldmapOmbra", &MapOptions::Night},
    {"mnuWorldmapTerminatore", &MapOptions::Night},
}};

void SetChecksFromOptions() {
  MainFormCalls* const main = MainForm();
  if (main == nullptr) return;
  for (const MapCheck& check : mapChecks) main->SetChecked(check.item, Options.Map.*check.option != 0);
}

/// A check mark; the option itself while there is no main window.
bool IsOn(std::string_view item) {
  if (const MainFormCalls* const main = MainForm()) return main->IsChecked(item);
  for (const MapCheck& check : mapChecks)
    if (item == check.item) return Options.Map.*check.option != 0;
  return false;
}

}  // namespace

frmWorldMap::frmWorldMap() : PlacedForm(QString::fromStdString(section), "Mappamondo") {
  view_.Pictures = &pictures_;
  fraSatellitePrincipale_ = Named(new DataBox(section, this), "fraSatellitePrincipale");
  picture1_ = Named(new SurfaceWidget(this), "Picture1");
  QHBoxLayout* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(fraSatellitePrincipale_);
  layout->addWidget(picture1_, 1);
  setFocusProxy(picture1_);
  fraSatellitePrincipale_->setMinimumHeight(1);  // a tiled window may be lower than all rows
  fraSatellitePrincipale_->setAccessibleName(Text(section, "satelliteprincipale"));
  SetChecksFromOptions();
  PlaceDataBox();
  ConnectMouse();
  frmWorldMap::ResetTitle();
  Publish(this);
}

void frmWorldMap::ConnectMouse() {
  connect(picture1_, &SurfaceWidget::redrawWanted, this, [this] { Genera_mappa(); });
  connect(picture1_, &SurfaceWidget::mouseMoved, this, &frmWorldMap::Picture1_MouseMove);
  connect(
      picture1_, &SurfaceWidget::buttonDown, this,
      [this](Qt::MouseButton button, double, double, QPoint screen) { Picture1_MouseDown(button, screen); });
  connect(picture1_, &SurfaceWidget::buttonUp, this,
          [this](Qt::MouseButton button, double, double) { Picture1_MouseUp(button); });
  connect(picture1_, &SurfaceWidget::menuKey, this, [this](QPoint screen) {
    hovered_ = 0;
    Picture1_MouseDown(Qt::RightButton, screen);
  });
  connect(picture1_, &SurfaceWidget::objectKey, this, [this](int step) {
    std::vector<QPointF> places;
    for (int slot = 1; slot <= ActiveCount; ++slot)
      if (const std::optional<MapSpot> spot = SpotOf(view_, slot)) places.emplace_back(spot->X, spot->Y);
    picture1_->PointToNext(places, step);
  });
}

PixmapSurface& frmWorldMap::Surface() { return picture1_->Surface(); }

void frmWorldMap::ShowKind(std::string_view kind) {
  view_.Kind = kind;
  if (ActiveCount > 0) DrawQuietly([] { ComputeSatelliteState(1, ClockFields.JulianDayNow); });
  ResetTitle();
  PlaceWindow();
  if (isVisible()) Genera_mappa();
  ShowForm();
}

void frmWorldMap::showEvent(QShowEvent* event) {
  ChildForm::showEvent(event);
  Genera_mappa();
}

void frmWorldMap::ResetTitle() {
  const QString title = Text(section, view_.IsGlobe() ? "mappaortografica" : "mapparettangolare");
  setWindowTitle(title);
  setWindowIcon(Icon(view_.IsGlobe() ? "ortho" : "recta"));
  picture1_->setAccessibleName(title);
}

void frmWorldMap::PlaceDataBox() {
  fraSatellitePrincipale_->setFixedWidth(IsOn("mnuWorldmapRiquadroDati") ? DataBox::FixedWidth : 0);
  layout()->activate();
}

void frmWorldMap::TakeSwitches() {
  view_.Switches.Grid = IsOn("mnuWorldmapGriglia");
  view_.Switches.City = IsOn("mnuWorldmapNomeCitta");
  view_.Switches.Track = IsOn("mnuWorldmapTracciatoOrbita");
  view_.Switches.Sun = IsOn("mnuWorldmapSole");
  view_.Switches.Night = IsOn("mnuWorldmapOmbra");
}

void frmWorldMap::Genera_mappa() {
  if (!IsOn("mnuWorldmapCoordinateMouse")) ResetTitle();
  if (!isVisible()) return;  // drawn at the next showing
  const QSize former = picture1_->size();
  PlaceDataBox();
  if (picture1_->size() != former) return;  // its new size has had it drawn
  TakeSwitches();
  halvorine::Genera_mappa(Surface(), view_);
  DrawTransient();
  picture1_->update();
}

void frmWorldMap::DrawTransient() {
  Surface().AutoRedraw(false);
  for (int slot = 1; slot <= ActiveCount; ++slot)
    if (SatelliteStates[slot].Condition != 0) halvorine::Disegna_satellite(Surface(), view_, slot);
  if (IsOn("mnuWorldmapCerchioVisibilita")) halvorine::Disegna_visibilita(Surface(), view_);
}

void frmWorldMap::Disegna_satellite(int slot) {
  if (!isVisible()) return;
  if (slot == 1) TakeSwitches();
  halvorine::Disegna_satellite(Surface(), view_, slot);
  picture1_->update();
}

void frmWorldMap::Disegna_visibilita() {
  if (!isVisible()) return;
  halvorine::Disegna_visibilita(Surface(), view_);
  picture1_->update();
}

void frmWorldMap::Disegna_griglia() {
  if (!isVisible()) return;
  Surface().AutoRedraw(true);
  halvorine::Disegna_griglia(Surface(), view_);
  Surface().AutoRedraw(false);
  picture1_->update();
}

void frmWorldMap::Disegna_orbita() {
  if (!isVisible()) return;
  Surface().AutoRedraw(true);
  halvorine::Disegna_orbita(Surface(), view_);
  Surface().AutoRedraw(false);
  picture1_->update();
}

void frmWorldMap::ShowTexts(const LiveTexts& texts) { fraSatellitePrincipale_->SetTexts(texts); }

void frmWorldMap::Azzera_dati() {
  Surface().AutoRedraw(false);
  Surface().Cls();
  picture1_->update();
  fraSatellitePrincipale_->Blank();
}

void frmWorldMap::Applica_opzioni() {
  SetChecksFromOptions();
  ResetTitle();
  Genera_mappa();
}

void frmWorldMap::OfferRemoval(bool offered) {
  if (MainFormCalls* const main = MainForm()) main->SetEnabled("mnuWorldmapRimuovi", offered);
}

void frmWorldMap::Picture1_MouseMove(double x, double y) {
  picture1_->setToolTip({});
  OfferRemoval(false);
  hovered_ = SatelliteAt(view_, x, y);
  if (hovered_ > 0 && IsOn("mnuWorldmapDatiSatellite"))
    picture1_->setToolTip(ToQ(SatelliteTooltip(hovered_)));
  if (IsOn("mnuWorldmapCoordinateMouse")) ShowCoordinates(x, y);
}

void frmWorldMap::ShowCoordinates(double x, double y) {
  std::optional<GeoPoint> place = GeoPoint{x, y};
  if (view_.IsGlobe()) place = InvertGlobe(view_.CentreLongitude, view_.CentreLatitude, x, y);
  if (!place) return;
  const QString title = Text(section, view_.IsGlobe() ? "mappaortografica" : "mapparettangolare");
  setWindowTitle(title + QStringLiteral(" - ") +
                 ToQ(CoordinateReadout(*place, LookupText("Def", "lon"), LookupText("Def", "lat"))));
}

void frmWorldMap::Picture1_MouseDown(Qt::MouseButton button, QPoint screen) {
  if (button != Qt::RightButton) return;
  OfferRemoval(CanChangePlace(hovered_));
  popupHovered_ = hovered_;
  ShowPopup("mnuWorldmap", screen);
}

void frmWorldMap::Picture1_MouseUp(Qt::MouseButton button) {
  if (button != Qt::LeftButton || !CanChangePlace(hovered_)) return;
  PromoteSatellite(hovered_);
  hovered_ = 1;  // the satellite under the pointer is the principal one now
  Genera_mappa();
}

}  // namespace halvorine
