#include "controls/ProgressBar.h"

#include <algorithm>

#include "controls/qtLookStyle.h"

namespace halvorine {

ProgressBar::ProgressBar(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  AnnounceTellers();
}

void ProgressBar::SetMax(double maximum) {
  max_ = maximum;
  update();
}

void ProgressBar::SetValue(double value) {
  value_ = value;
  TellValueChanged(this);
  update();
}

double ProgressBar::Share() const {
  const double share = max_ != 0 ? value_ / max_ : 0;
  return share > 0 ? std::min(share, 1.0) : 0;  // also what is no number
}

QString ProgressBar::Percentage() const {
  return max_ != 0 ? QStringLiteral("%1%").arg(qRound(Share() * 100)) : QString();
}

void ProgressBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const LookColours colours = ColoursOf(palette());
  const bool night = IsNight(palette());
  const QRect inside = rect().adjusted(1, 1, -1, -1);
  DrawBox(&painter, rect(), palette().color(QPalette::Base), QColor());
  painter.setPen(palette().color(QPalette::Active, QPalette::Text));
  painter.drawText(rect(), Qt::AlignCenter, Percentage());
  QRect passed(inside);
  passed.setWidth(qRound(inside.width() * Share()));
  painter.setClipRect(passed);
  DrawBox(&painter, rect(),
          night ? colours.FocusEdge : palette().color(QPalette::Active, QPalette::Highlight), QColor());
  painter.setPen(palette().color(QPalette::Active, QPalette::HighlightedText));
  painter.drawText(rect(), Qt::AlignCenter, Percentage());
  painter.setClipping(false);
  DrawBox(&painter, rect(), QColor(), colours.FieldEdge);
}

}  // namespace halvorine
