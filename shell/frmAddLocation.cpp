#include "shell/frmAddLocation.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cmath>

#include "controls/GraphButton.h"
#include "controls/qtLook.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmAddLocation";
constexpr int margin = 12;
constexpr const char* unitsOfDecimals[] = {".", "°"};
constexpr const char* unitsOfSixtieths[] = {"°", "'", "\""};

QLabel* Caption(const QString& text) {
  auto* const label = new QLabel(text);
  label->setForegroundRole(MutedRole);
  return label;
}

}  // namespace

void FillZoneLists(QComboBox* offset, QComboBox* hours, QComboBox* minutes) {
  offset->addItem(Text("frmLocation", "dopodiGreenwich"));
  offset->addItem(Text("frmLocation", "primadiGreenwich"));
  for (int hour = 0; hour <= largestZoneHours; ++hour) hours->addItem(QString::number(hour));
  for (const int minute : zoneMinutes) minutes->addItem(QString::number(minute));
  offset->setAccessibleName(Text("Def", "fuso"));
  hours->setAccessibleName(Text("Def", "ore"));
  minutes->setAccessibleName(Text("Def", "min"));
}

void SetZoneLists(QComboBox* offset, QComboBox* hours, QComboBox* minutes, double zone) {
  const ZoneParts parts = PartsOfZone(zone);
  offset->setCurrentIndex(parts.BeforeGreenwich ? 1 : 0);
  if (parts.Hours <= largestZoneHours) hours->setCurrentIndex(parts.Hours);
  const int entry = minutes->findText(QString::number(parts.Minutes));
  if (entry >= 0) minutes->setCurrentIndex(entry);
}

frmAddLocation::frmAddLocation(QWidget* parent, int row, std::function<void(int)> saved)
    : QDialog(parent), row_(row), saved_(std::move(saved)) {
  setObjectName(QString::fromLatin1(section));
  setWindowTitle(Text(section, "nuovalocalita"));
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  txtCityName_ = Named(new QLineEdit(), "txtCityName");
  auto* const name = Caption(Text(section, "nomelocalita"));
  name->setBuddy(txtCityName_);
  auto* const nameRow = new QHBoxLayout();
  nameRow->setSpacing(margin);
  nameRow->addWidget(name);
  nameRow->addWidget(txtCityName_, 1);
  rows->addLayout(nameRow);
  pages_ = Named(new QTabWidget(), "SSTab1");
  pages_->addTab(MakePage(PageDecimal), Text(section, "gradidecimi"));
  pages_->addTab(MakePage(PageSexagesimal), Text(section, "gradiprimi"));
  rows->addWidget(pages_);
  rows->addWidget(MakeHemispheres());
  rows->addWidget(MakeZone());
  rows->addLayout(MakeButtons());
  connect(pages_, &QTabWidget::currentChanged, this, &frmAddLocation::PageChanged);
  if (row_ != 0) ShowCity(CityOf(row_));
  txtCityName_->setFocus();
  resize(std::max(sizeHint().width(), 440), sizeHint().height());
}

QWidget* frmAddLocation::MakePage(PlacePage page) {
  auto* const widget = new QWidget();
  auto* const grid = new QGridLayout(widget);
  grid->setContentsMargins(margin, margin, margin, margin);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(8);
  for (const bool longitude : {false, true}) {
    const int line = longitude ? 1 : 0;
    const QString caption = Text(section, longitude ? "longitudine" : "latitudine");
    grid->addWidget(Caption(caption), line, 0);
    int column = 2;
    const auto* unit = page == PageDecimal ? unitsOfDecimals : unitsOfSixtieths;
    for (std::size_t i = 0; i < placeFieldCount; ++i) {
      const PlaceField& field = PlaceFields.at(i);
      if (field.Page != page || field.Longitude != longitude) continue;
      auto* const edit = fields_.at(i) = Named(new QLineEdit(), field.Control);
      edit->setAlignment(Qt::AlignRight);
      edit->setMaxLength(6);
      edit->setFixedWidth(56);
      edit->setAccessibleName(caption + QLatin1Char(' ') + QString::fromUtf8(*unit));
      connect(edit, &QLineEdit::editingFinished, this,
              [edit, &field] { edit->setText(ToQ(LeftFieldText(field, FromQ(edit->text())))); });
      grid->addWidget(edit, line, column++);
      grid->addWidget(new QLabel(QString::fromUtf8(*unit++)), line, column++);
    }
  }
  grid->setColumnMinimumWidth(1, 6);
  grid->setColumnStretch(9, 1);
  return widget;
}

QWidget* frmAddLocation::MakeHemispheres() {
  auto* const widget = new QWidget();
  auto* const row = new QHBoxLayout(widget);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  const auto make = [row](const char* name, const char* caption, const char* first, const char* second) {
    auto* const list = Named(new QComboBox(), name);
    list->addItem(Text("frmSettings", first));
    list->addItem(Text("frmSettings", second));
    list->setAccessibleName(Text(section, caption));
    auto* const label = Caption(Text(section, caption));
    label->setBuddy(list);
    row->addWidget(label);
    row->addWidget(list);
    return list;
  };
  cmbLatitude_ = make("cmbLatitude", "latitudine", "nord", "sud");
  row->addSpacing(margin);
  cmbLongitude_ = make("cmbLongitude", "longitudine", "est", "ovest");
  row->addStretch();
  return widget;
}

QWidget* frmAddLocation::MakeZone() {
  auto* const frame = Named(new QGroupBox(Text(section, "impostazioneora")), "fraImpostazioneOra");
  auto* const row = new QHBoxLayout(frame);
  row->setContentsMargins(margin, 8, margin, margin);
  row->setSpacing(8);
  cmbOffset_ = Named(new QComboBox(), "cmbOffset");
  cmbOffsetHours_ = Named(new QComboBox(), "cmbOffsetHours");
  cmbOffsetMin_ = Named(new QComboBox(), "cmbOffsetMin");
  FillZoneLists(cmbOffset_, cmbOffsetHours_, cmbOffsetMin_);
  row->addWidget(cmbOffset_);
  row->addSpacing(margin);
  row->addWidget(cmbOffsetHours_);
  row->addWidget(Caption(Text("Def", "ore")));
  row->addSpacing(4);
  row->addWidget(cmbOffsetMin_);
  row->addWidget(Caption(Text("Def", "min")));
  row->addStretch();
  return frame;
}

QLayout* frmAddLocation::MakeButtons() {
  auto* const ok = Named(new GraphButton(this), "cmdOK");
  auto* const cancel = Named(new GraphButton(this), "cmdCancel");
  ok->SetCaption(Text("Buttons", "ok"));
  cancel->SetCaption(Text("Buttons", "cancel"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &frmAddLocation::cmdOK_Click);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* const row = new QHBoxLayout();
  row->setSpacing(8);
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
  return row;
}

PlaceTexts frmAddLocation::Texts() const {
  PlaceTexts texts;
  for (std::size_t i = 0; i < placeFieldCount; ++i) texts.at(i) = FromQ(fields_.at(i)->text());
  return texts;
}

void frmAddLocation::SetTexts(const PlaceTexts& texts) {
  for (std::size_t i = 0; i < placeFieldCount; ++i) fields_.at(i)->setText(ToQ(texts.at(i)));
}

void frmAddLocation::ShowCity(const City& city) {
  txtCityName_->setText(ToQ(city.Name));
  PlaceTexts texts;
  ShowPlaceValues(texts, PageDecimal, city.Latitude, city.Longitude);
  ShowPlaceValues(texts, PageSexagesimal, city.Latitude, city.Longitude);
  SetTexts(texts);
  cmbLatitude_->setCurrentIndex(city.Latitude < 0 ? 1 : 0);
  cmbLongitude_->setCurrentIndex(city.Longitude < 0 ? 1 : 0);
  SetZoneLists(cmbOffset_, cmbOffsetHours_, cmbOffsetMin_, city.Zone);
}

City frmAddLocation::Typed() const {
  const PlaceTexts texts = Texts();
  const auto page = static_cast<PlacePage>(page_);
  const auto value = [&](bool longitude, const QComboBox* side) {
    const double unsignedValue = PlaceValue(texts, page, longitude);
    return side->currentIndex() == 1 ? 0 - unsignedValue : unsignedValue;
  };
  City city;
  city.Name = std::string(Trimmed(FromQ(txtCityName_->text())));
  city.Latitude = value(false, cmbLatitude_);
  city.Longitude = value(true, cmbLongitude_);
  city.Zone = ZoneOfTexts(FromQ(cmbOffsetHours_->currentText()), FromQ(cmbOffsetMin_->currentText()),
                          cmbOffset_->currentIndex() == 1);
  return city;
}

void frmAddLocation::Warn(const PlaceFault& fault) {
  const QPointer<frmAddLocation> self(this);
  Tell(MessageKind::Warning, LookupText(section, fault.Warning));
  if (!self) return;
  auto* const field = Control<QLineEdit>(this, fault.Control.c_str());
  field->setFocus();
  field->selectAll();
}

void frmAddLocation::PageChanged(int page) {
  if (page == page_) return;
  PlaceTexts texts = Texts();
  const auto left = static_cast<PlacePage>(page_);
  if (const std::optional<PlaceFault> fault = FaultOfPage(texts, left)) {
    const QSignalBlocker silent(pages_);
    pages_->setCurrentIndex(page_);
    Warn(*fault);
    return;
  }
  ConvertPlacePage(texts, left);
  SetTexts(texts);
  page_ = page;
}

void frmAddLocation::cmdOK_Click() {
  std::optional<PlaceFault> fault = FaultOfName(FromQ(txtCityName_->text()));
  if (!fault) fault = FaultOfPage(Texts(), static_cast<PlacePage>(page_));
  if (fault) {
    Warn(*fault);
    return;
  }
  const City city = Typed();
  const QPointer<frmAddLocation> self(this);
  if (ThePlatform().ShowMessage(MessageKind::Question, LookupText(section, "nuovalocalita"),
                                PlaceSummary(city), MessageButtons::YesNo) != MessageAnswer::Yes ||
      !self)
    return;
  try {
    saved_(StoreCity(row_, city));
    accept();
  } catch (const FileFailure& failure) {
    Tell(MessageKind::Warning, LookupText("Dialogs", "nonsalvato") + "\n" + failure.what());
  }
}

}  // namespace halvorine
