#include "sky/qtPassPanel.h"

#include <QFontMetrics>
#include <QFrame>
#include <algorithm>

#include "astro/mConv.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int margin = 8, leastWidth = 152, rowHeight = 18;  // logical pixels
const std::string section = "frmSkySat";

QLabel* ValueLabel(const char* name, int index) {
  QLabel* const label = Named(new QLabel(), name, index);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setTextFormat(Qt::PlainText);
  return label;
}

void AddHairline(QGridLayout& rows) {
  QFrame* const line = new QFrame();
  line->setFrameShape(QFrame::HLine);
  line->setFixedHeight(7);
  rows.addWidget(line, rows.rowCount(), 0, 1, 2);
}

QString MagnitudeText(const MagnitudeValue& magnitude) {
  return magnitude.kind == MagnitudeValue::Kind::Number ? ToQ(Format(magnitude.value, "#0.0"))
                                                        : QStringLiteral("-");
}

}  // namespace

PassPanel::PassPanel(QWidget* parent) : QWidget(parent) {
  setAutoFillBackground(true);
  rows_ = new QGridLayout(this);
  rows_->setContentsMargins(margin, margin, margin, margin);
  rows_->setHorizontalSpacing(margin);
  rows_->setVerticalSpacing(1);
  rows_->setColumnStretch(1, 1);
  name_ = Named(new QLabel(), "lblSatellite");
  name_->setFont(LookFont(9, true));
  name_->setTextFormat(Qt::PlainText);
  rows_->addWidget(name_, 0, 0, 1, 2);
  number_ = AddRow(QStringLiteral("Norad #"), "lblNorad", -1);
  constexpr std::array<const char*, 3> keys = {"inizio", "culmine", "fine"};
  for (std::size_t i = 0; i < keys.size(); ++i) AddEvent(static_cast<int>(i), keys[i]);
  rows_->setRowStretch(rows_->rowCount(), 1);
  setFixedWidth(std::max(leastWidth, sizeHint().width()));
}

QLabel* PassPanel::AddRow(const QString& caption, const char* name, int index) {
  const int row = rows_->rowCount();
  QLabel* const label = new QLabel(caption);
  label->setForegroundRole(MutedRole);
  QLabel* const value = ValueLabel(name, index);
  value->setAccessibleName(caption);
  rows_->setRowMinimumHeight(row, rowHeight);
  rows_->addWidget(label, row, 0);
  rows_->addWidget(value, row, 1);
  return value;
}

void PassPanel::AddEvent(int number, const char* key) {
  AddHairline(*rows_);
  Event& event = events_[static_cast<std::size_t>(number)];
  event.time = AddRow(Text(section, key), "lblTime", number);
  event.time->setFont(LookFont(9, true));
  event.azimuth = AddRow(Text("Def", "az"), "lblAzimuth", number);
  event.altitude = AddRow(Text("Def", "alt"), "lblAltitude", number);
  event.magnitude = AddRow(Text("Def", "mag"), "lblMagnitude", number);
  event.state = AddRow(Text("Def", "stato"), "lblState", number);
  // room for the widest texts, so that the panel never changes its width
  event.time->setText(QStringLiteral("00:00:00"));
  event.state->setText(ToQ(ConditionEclipsed));
}

void PassPanel::ShowPass(const PassView& view) {
  const QString name = ToQ(view.Pass.elements.Name);
  const QString shown = QFontMetrics(name_->font()).elidedText(name, Qt::ElideRight, width() - 2 * margin);
  name_->setText(shown);
  name_->setToolTip(shown == name ? QString() : name);
  number_->setText(ToQ(view.Pass.elements.CatalogNumber));
  for (std::size_t i = 0; i < events_.size(); ++i) {
    const Event& event = events_[i];
    const TrackPoint& seen = view.Events[i];
    const bool known = view.HasSatellite();
    const auto show = [known](QLabel* label, const QString& text) {
      label->setText(known ? text : QString());
    };
    show(event.time, ToQ(FormatDate(seen.Time, "hh:mm:ss", LanguageDates)));
    show(event.azimuth, ToQ(Format(seen.Azimuth, "000.0°")));
    show(event.altitude, ToQ(Format(seen.Altitude, "#0.0°")));
    show(event.magnitude, MagnitudeText(seen.Magnitude));
    show(event.state, ToQ(Stato2Stringa(seen.Condition)));
  }
}

}  // namespace halvorine
