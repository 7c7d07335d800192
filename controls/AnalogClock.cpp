#include "controls/AnalogClock.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "astro/mConv.h"
#include "controls/qtLook.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr double degree = 0.0174532925;                    // truncated on purpose
constexpr int usualRadius = 62, gap = 16, captionGap = 4;  // logical pixels
constexpr double rimGap = 3;                               // between the two circles of a dial

/// The dial and, around it, its rim.
void DrawDial(QPainter& painter, const QPalette& palette, double radius) {
  painter.setPen(QPen(ColoursOf(palette).FieldEdge, 1));
  painter.setBrush(palette.color(QPalette::Base));
  painter.drawEllipse(QPointF(0, 0), radius + rimGap - 0.5, radius + rimGap - 0.5);
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QPointF(0, 0), radius, radius);
  painter.setPen(palette.color(QPalette::Text));
  const QFontMetricsF metrics(painter.font());
  for (int hour = 1; hour <= 12; ++hour) {
    const QString text = ToQ(Format(hour, "00"));
    const QSizeF size(metrics.horizontalAdvance(text), metrics.height());
    const double reach = radius - size.width() / 1.3;
    const double a = (180 - hour * 30) * degree;
    const QPointF centre(std::sin(a) * reach, std::cos(a) * reach);
    painter.drawText(QRectF(centre - QPointF(size.width(), size.height()) / 2, size), Qt::AlignCenter, text);
  }
}

}  // namespace

AnalogClock::AnalogClock(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  AnnounceTellers();
}

void AnalogClock::Set(std::size_t face, Date value) {
  if (faces_[face].value == value) return;
  faces_[face].value = value;
  update();
}

void AnalogClock::SetCaptions(const QString& first, const QString& second) {
  faces_[0].caption = first;
  faces_[1].caption = second;
  setAccessibleName(first + QStringLiteral(", ") + second);
  updateGeometry();
  update();
}

ToldValue AnalogClock::Told() const {
  const auto told = [](const Face& face) {
    return face.caption + QLatin1Char(' ') + ToQ(FormatDate(face.value, "hh:mm:ss", {}));
  };
  return {told(faces_[0]) + QStringLiteral(", ") + told(faces_[1])};
}

std::array<AnalogClock::Hand, 3> AnalogClock::HandsOf(Date value, double radius) {
  const DateParts parts = PartsOf(value);
  const double total = parts.hour * 3600.0 + parts.minute * 60.0 + parts.second;
  double H = std::fabs(total / 3600);
  const double M = std::fabs((total - Fix(H) * 3600) / 60);
  const double S = total - Fix(H) * 3600 - Fix(M) * 60;
  if (H > 12) H -= 12;
  // what each hand is shorter than the radius
  const double hour = radius * 0.5, minute = radius * 0.25, second = radius * 0.15;
  const auto hand = [radius](double angle, double length, double width, const QColor& colour) {
    const double a = (180 - angle) * degree;
    const double L = radius - length;
    return Hand{QPointF(std::sin(a) * L, std::cos(a) * L), width, colour};
  };
  return {hand(H * 30, hour, 3, Qt::black), hand(M * 6, minute, 2, Qt::black),
          hand(S * 6, second, 1, QColor(255, 0, 0))};
}

int AnalogClock::CaptionHeight() const { return fontMetrics().height() + captionGap; }

QSize AnalogClock::sizeHint() const {
  int column = 2 * usualRadius + 2;
  for (const Face& face : faces_)
    column = std::max(column, fontMetrics().horizontalAdvance(face.caption) + captionGap);
  return QSize(2 * column + gap, 2 * usualRadius + 2 + CaptionHeight());
}

void AnalogClock::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double column = (width() - gap) / 2.0;
  const double radius = std::min(column, static_cast<double>(height() - CaptionHeight())) / 2 - 1;
  if (radius <= rimGap) return;
  const double top = (height() - CaptionHeight() - 2 * radius) / 2;
  for (std::size_t i = 0; i < faces_.size(); ++i) {
    const double left = (column + gap) * static_cast<double>(i);
    painter.save();
    painter.translate(left + column / 2, top + radius);
    painter.setFont(LookFont(8));
    DrawDial(painter, palette(), radius - rimGap);
    for (const Hand& hand : HandsOf(faces_[i].value, radius - rimGap)) {
      painter.setPen(QPen(hand.colour, hand.width, Qt::SolidLine, Qt::RoundCap));
      painter.drawLine(QPointF(0, 0), hand.tip);
    }
    painter.restore();
    painter.setPen(palette().color(MutedRole));
    painter.drawText(QRectF(left, top + 2 * radius + captionGap, column, fontMetrics().height()),
                     Qt::AlignHCenter | Qt::AlignTop, faces_[i].caption);
  }
}

}  // namespace halvorine
