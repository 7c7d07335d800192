#include "shell/frmAbout.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <cmath>
#include <cstdint>

#include "controls/qtLook.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int pictureWidth = 440, pictureHeight = 260, textLeft = 170;
constexpr QRect upperTexts(textLeft - 8, 64, 278, 84), lowerTexts(24, 206, 262, 40);  // without stars
constexpr double globeScale = 2.0;  // logical pixels of a unit of the drawing
constexpr const char* productName = "Halvorine";

QString Told(const char* key, const char* fallback) {
  const QString text = Text("frmAbout", key);
  return text.isEmpty() ? QString::fromLatin1(fallback) : text;
}

/// Two land masses on a globe of radius 19 at (30, 36).
QPainterPath Land() {
  QPainterPath land;
  land.moveTo(16, 30);
  land.cubicTo(20, 24, 26, 25, 29, 27);
  land.cubicTo(32, 29, 28, 32, 30, 34);
  land.cubicTo(32, 36, 27, 38, 27, 41);
  land.cubicTo(27, 44, 25, 49, 23, 49);
  land.cubicTo(21, 49, 21, 43, 18, 41);
  land.cubicTo(15, 39, 13, 35, 16, 30);
  land.moveTo(36, 25);
  land.cubicTo(40, 24, 45, 27, 46, 31);
  land.cubicTo(47, 35, 45, 40, 42, 41);
  land.cubicTo(39, 42, 38, 37, 36, 35);
  land.cubicTo(34, 33, 32, 26, 36, 25);
  return land;
}

}  // namespace

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmAbout"));
  setFixedSize(pictureWidth, pictureHeight);
  setWindowTitle(Told("informazioni", "About"));
  setAccessibleName(
      QStringLiteral("%1 %2").arg(QLatin1String(productName), QLatin1String(HALVORINE_VERSION)));
  RegisterForm("frmAbout", this);
}

frmAbout::~frmAbout() {
  if (LoadedForm("frmAbout") == static_cast<FormCalls*>(this)) UnregisterForm("frmAbout");
}

void frmAbout::ShowSplash(const QString& task) {
  splash_ = true;
  setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  if (const QScreen* const screen = QGuiApplication::primaryScreen(); screen != nullptr)
    move(screen->availableGeometry().center() - rect().center());
  show();
  SetTask(task);
}

void frmAbout::SetTask(const QString& task) {
  task_ = task;
  repaint();
}

void frmAbout::ShowAbout() {
  splash_ = false;
  exec();
}

void frmAbout::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  UnregisterForm("frmAbout");
  hide();
  deleteLater();
}

QColor frmAbout::Shade(const QColor& day) const {
  if (!IsNight(palette())) return day;
  const double value = std::max({1.0 * day.red(), 0.8 * day.green(), 0.5 * day.blue()});
  return {qRound(255 * std::pow(value / 255, 1.5)), 0, 0};
}

void frmAbout::DrawSky(QPainter& painter) const {
  QLinearGradient sky(0, 0, 0, height());
  sky.setColorAt(0, Shade(QColor(0x0d1622)));
  sky.setColorAt(1, Shade(QColor(0x1b2d44)));
  painter.fillRect(rect(), sky);
  // the same sky at every start
  std::uint32_t state = 20220614;
  const auto next = [&state](int below) {
    state = state * 1664525U + 1013904223U;
    return static_cast<int>((state >> 8U) % static_cast<std::uint32_t>(below));
  };
  painter.setPen(Qt::NoPen);
  for (int star = 0; star < 150; ++star) {
    const QPoint at(next(width()), next(height()));
    const int brightness = 70 + next(130);
    const double radius = next(12) == 0 ? 1.1 : 0.6;
    if (upperTexts.contains(at) || lowerTexts.contains(at)) continue;
    painter.setBrush(Shade(QColor(brightness, brightness, brightness)));
    painter.drawEllipse(QPointF(at), radius, radius);
  }
}

void frmAbout::DrawGlobe(QPainter& painter) const {
  painter.save();
  painter.translate(21, 34);
  painter.scale(globeScale, globeScale);
  QRadialGradient ocean(QPointF(24.7, 29.2), 30.4);
  ocean.setColorAt(0, Shade(QColor(0x7fb4de)));
  ocean.setColorAt(0.6, Shade(QColor(0x2f6ea6)));
  ocean.setColorAt(1, Shade(QColor(0x12324f)));
  painter.setPen(Qt::NoPen);
  painter.setBrush(ocean);
  painter.drawEllipse(QPointF(30, 36), 19, 19);
  painter.setBrush(Shade(QColor(0x8fbf7c)));
  painter.drawPath(Land());
  QPainterPath orbit(QPointF(4.5, 44));
  orbit.cubicTo(14, 58, 50, 40, 57, 14);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Shade(QColor(0xffd34d)), 3, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(orbit);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Shade(Qt::white));
  painter.drawEllipse(QPointF(56.5, 13), 4.6, 4.6);
  painter.drawEllipse(QPointF(12, 13), 1.5, 1.5);
  painter.drawEllipse(QPointF(24, 8.5), 1, 1);
  painter.drawEllipse(QPointF(38, 9), 1.3, 1.3);
  painter.restore();
}

void frmAbout::DrawTexts(QPainter& painter) const {
  const auto write = [this, &painter](int left, int top, const QFont& font, QRgb colour,
                                      const QString& text) {
    painter.setFont(font);
    painter.setPen(Shade(QColor(colour)));
    const QRect place(left, top, width() - left - 12, painter.fontMetrics().height());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
  };
  write(textLeft - 2, 66, LookFont(22, true), 0xffffff, QLatin1String(productName));
  write(textLeft, 105, LookFont(10), 0xb9c6d3,
        Told("versione", "Version") + QLatin1Char(' ') + QLatin1String(HALVORINE_VERSION));
  write(textLeft, 126, LookFont(10), 0xb9c6d3, Text("frmAbout", "motto"));
  if (splash_) {
    write(30, 226, LookFont(9), 0x8695a4, task_);
    return;
  }
  write(30, 208, LookFont(9), 0x8695a4, Told("autore", "Author") + QStringLiteral("  The Halvorine authors"));
  write(30, 226, LookFont(9), 0x8695a4, Text("frmAbout", "licenza"));
}

void frmAbout::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawSky(painter);
  DrawGlobe(painter);
  DrawTexts(painter);
}

void frmAbout::mousePressEvent(QMouseEvent* /*event*/) {
  if (!splash_) accept();
}

void frmAbout::keyPressEvent(QKeyEvent* event) {
  // the start cannot be left by a key; the about box ends by Escape, Enter and the space bar
  if (splash_) return;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
    accept();
  else
    QDialog::keyPressEvent(event);
}

}  // namespace halvorine
