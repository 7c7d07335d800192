#include "controls/qtDataBox.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "controls/qtLook.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int margin = 8, titleHeight = 22, rowMinimum = 18, hairlineHeight = 7;
constexpr int captionWidth = 45, valueWidth = 64;

struct RowKey {
  const char* key;      // of sections Def and ToolTips
  const char* caption;  // names of the labels
  const char* value;
  std::string LiveTexts::*text;
  bool endsBlock;
};

constexpr std::array<RowKey, DataBox::RowCount> keys{{
    {"lat", "lblLat", "lblLatitude", &LiveTexts::Latitude, false},
    {"lon", "lblLon", "lblLongitude", &LiveTexts::Longitude, false},
    {"hgt", "lblHgt", "lblHeight", &LiveTexts::Height, true},
    {"alt", "lblAlt", "lblAltitude", &LiveTexts::Altitude, false},
    {"az", "lblAz", "lblAzimuth", &LiveTexts::Azimuth, false},
    {"ar", "lblAr", "lblAscension", &LiveTexts::Ascension, false},
    {"dec", "lblDec", "lblDeclination", &LiveTexts::Declination, false},
    {"dist", "lblDist", "lblRange", &LiveTexts::Range, false},
    {"var", "lblVar", "lblRangeRate", &LiveTexts::RangeRate, true},
    {"stato", "lblStato", "lblState", &LiveTexts::State, false},
    {"mag", "lblMag", "lblMagnitude", &LiveTexts::Magnitude, true},
    {"orb", "lblOrb", "lblOrbitNumber", &LiveTexts::OrbitNumber, false},
    {"apg", "lblApg", "lblApogee", &LiveTexts::Apogee, false},
    {"prg", "lblPrg", "lblPerigee", &LiveTexts::Perigee, false},
    {"prd", "lblPrd", "lblPeriod", &LiveTexts::Period, false},
    {"vel", "lblVel", "lblVelocity", &LiveTexts::Velocity, true},
    {"ricezione", "lblRicezione", "lblRicez", &LiveTexts::Receive, false},
    {"trasmissione", "lblTrasmissione", "lblTrasm", &LiveTexts::Transmit, false},
}};
constexpr int firstFrequencyRow = 16;

}  // namespace

DataBox::DataBox(const std::string& section, QWidget* parent) : QWidget(parent), section_(section) {
  setFixedWidth(FixedWidth);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  setAutoFillBackground(true);
  title_ = Named(new QLabel(this), "fraSatellite");
  title_->setFont(LookFont(9, true));
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    rows_[i].caption = Named(new QLabel(this), keys[i].caption);
    rows_[i].caption->setForegroundRole(MutedRole);
    rows_[i].value = Named(new QLabel(this), keys[i].value);
    rows_[i].value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rows_[i].value->setTextFormat(Qt::PlainText);
    rows_[i].value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    rows_[i].value->setFocusPolicy(Qt::NoFocus);
  }
  ReadCaptions();
  Blank();
}

void DataBox::SetValue(Row& row, const QString& text) {
  if (row.text == text) return;
  row.text = text;
  ShowValue(row);
}

void DataBox::ShowValue(Row& row) {
  const QFontMetrics metrics(row.value->font());
  const bool fits = metrics.horizontalAdvance(row.text) <= valueWidth;
  row.value->setText(fits ? row.text : metrics.elidedText(row.text, Qt::ElideRight, valueWidth));
  row.value->setToolTip(fits ? row.tooltip : row.text);
}

void DataBox::SetTexts(const LiveTexts& texts) {
  for (std::size_t i = 0; i < rows_.size(); ++i) SetValue(rows_[i], ToQ(texts.*keys[i].text));
}

void DataBox::Blank() {
  for (std::size_t i = 0; i < rows_.size(); ++i)
    SetValue(rows_[i], i < firstFrequencyRow ? QStringLiteral("0") : QString());
}

void DataBox::ReadCaptions() {
  const QString title = Text(section_, "satelliteprincipale");
  const QFontMetrics bold(title_->font());
  title_->setText(bold.elidedText(title, Qt::ElideRight, FixedWidth - 2 * margin));
  title_->setToolTip(title_->text() == title ? QString() : title);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    Row& row = rows_[i];
    const QString caption = Text("Def", keys[i].key);
    const QFontMetrics metrics(row.caption->font());
    row.tooltip = Text("ToolTips", keys[i].key);
    row.caption->setText(metrics.elidedText(caption, Qt::ElideRight, captionWidth));
    row.caption->setToolTip(row.tooltip);
    row.value->setAccessibleName(row.tooltip.isEmpty() ? caption : row.tooltip);
    ShowValue(row);
  }
}

QString DataBox::FullText(const char* label) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [label](const Row& row) {
    return row.value->objectName() == QLatin1String(label);
  });
  return found != rows_.end() ? found->text : QString();
}

QSize DataBox::sizeHint() const {
  return {FixedWidth, margin + titleHeight + RowCount * rowMinimum + 4 * hairlineHeight + margin / 2};
}

void DataBox::Place() {
  title_->setGeometry(margin, margin / 2, FixedWidth - 2 * margin, titleHeight);
  const int first = margin / 2 + titleHeight;
  const int room = height() - first - margin / 2 - 4 * hairlineHeight;
  // the rows share the height; in a tall window they do not drift further apart than twice their least height
  const double step = std::clamp(room / double{RowCount}, double{rowMinimum}, 2.0 * rowMinimum);
  std::size_t line = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const int lines = static_cast<int>(line) * hairlineHeight;
    const int top = first + qRound(static_cast<double>(i) * step) + lines;
    const int rowHeight = first + qRound(static_cast<double>(i + 1) * step) + lines - top;
    rows_[i].caption->setGeometry(margin, top, captionWidth, rowHeight);
    rows_[i].value->setGeometry(FixedWidth - margin - valueWidth, top, valueWidth, rowHeight);
    if (keys[i].endsBlock) hairlines_[line++] = top + rowHeight + hairlineHeight / 2;
  }
}

void DataBox::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Place();
}

void DataBox::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  for (Row& row : rows_) ShowValue(row);
}

void DataBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor edge = ColoursOf(palette()).Hairline;
  for (const int y : hairlines_) painter.fillRect(margin, y, FixedWidth - 2 * margin, 1, edge);
}

}  // namespace halvorine
