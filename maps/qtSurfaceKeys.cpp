// The pointer that keys move over a drawing box: a map or a chart can be used without a mouse.
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "maps/qtSurface.h"
#include "shell/base/mGlobal.h"

namespace halvorine {

namespace {

constexpr double arrowStep = 10, fineArrowStep = 1;  // of an arrow, logical pixels
constexpr double panShare = 0.25;                    // of the view
constexpr double armFrom = 4, armTo = 11;            // of the cross, logical pixels

/// The way of an arrow key, right and down; nothing for another key.
std::optional<QPointF> WayOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return QPointF(-1, 0);
    case Qt::Key_Right:
      return QPointF(1, 0);
    case Qt::Key_Up:
      return QPointF(0, -1);
    case Qt::Key_Down:
      return QPointF(0, 1);
    default:
      return std::nullopt;
  }
}

}  // namespace

void SurfaceWidget::PaintPointer(QPainter& painter) const {
  if (!pointer_) return;
  constexpr std::array<QPointF, 4> ways{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
  painter.setRenderHint(QPainter::Antialiasing);
  // white in black can be seen on every ground
  for (const bool inner : {false, true}) {
    const QColor colour = inner ? Qt::white : Qt::black;
    painter.setPen(QPen(NightColoursActive ? NightShadeOf(colour) : colour, inner ? 1.4 : 3.4));
    for (const QPointF& way : ways) painter.drawLine(*pointer_ + way * armFrom, *pointer_ + way * armTo);
  }
}

void SurfaceWidget::PointTo(double x, double y) {
  if (size().isEmpty() || surface_.ScaleWidth() == 0 || surface_.ScaleHeight() == 0) return;
  const QPointF place = PlaceOf(x, y);
  pointer_ = {std::clamp(place.x(), 0.0, std::max(width() - 1.0, 0.0)),
              std::clamp(place.y(), 0.0, std::max(height() - 1.0, 0.0))};
  update();
  Q_EMIT mouseMoved(PointerX(), PointerY());
  if (pointer_) QToolTip::showText(mapToGlobal(pointer_->toPoint()), toolTip(), this);
}

void SurfaceWidget::PointToNext(const std::vector<QPointF>& places, int step) {
  const auto count = static_cast<int>(places.size());
  if (count == 0) return;
  object_ = object_ < 0 ? (step > 0 ? 0 : count - 1) : (object_ + step + count) % count;
  object_ = std::min(object_, count - 1);  // there were more of them before
  const QPointF& place = places.at(static_cast<std::size_t>(object_));
  PointTo(place.x(), place.y());
}

void SurfaceWidget::MovePointer(const QPointF& way) {
  const QPointF place = pointer_ ? *pointer_ + way : QPointF(rect().center());
  PointTo(UserXOf(place), UserYOf(place));
}

bool SurfaceWidget::HidePointer() {
  if (!pointer_) return false;
  pressed_ = false;
  pointer_.reset();
  update();
  return true;
}

void SurfaceWidget::TurnPress() {
  pressed_ = !pressed_;
  if (pressed_)
    Q_EMIT buttonDown(Qt::LeftButton, PointerX(), PointerY(), mapToGlobal(pointer_->toPoint()));
  else
    Q_EMIT buttonUp(Qt::LeftButton, PointerX(), PointerY());
}

bool SurfaceWidget::PointerKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (event.isAutoRepeat()) return true;
      if (!pointer_) MovePointer({});
      if (pointer_) TurnPress();
      // Space holds on until it is pressed again
      if (event.key() != Qt::Key_Space && pressed_) TurnPress();
      return true;
    case Qt::Key_Escape:
      if (pressed_) Q_EMIT buttonDown(Qt::NoButton, PointerX(), PointerY(), {});
      return HidePointer();
    default:
      break;
  }
  const std::optional<QPointF> way = WayOf(event.key());
  if (way) MovePointer(*way * (event.modifiers().testFlag(Qt::ShiftModifier) ? fineArrowStep : arrowStep));
  return way.has_value();
}

bool SurfaceWidget::ViewKey(const QKeyEvent& event) {
  const QPointF at = pointer_ ? *pointer_ : QPointF(rect().center());
  switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Minus:
      Q_EMIT zoomKey(UserXOf(at), UserYOf(at), event.key() == Qt::Key_Plus ? 1 : -1);
      return true;
    case Qt::Key_0:
      Q_EMIT zoomKey(UserXOf(at), UserYOf(at), 0);
      return true;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
      Q_EMIT objectKey(event.key() == Qt::Key_PageDown ? 1 : -1);
      return true;
    default:
      break;
  }
  const std::optional<QPointF> way = WayOf(event.key());
  if (!way || !event.modifiers().testFlag(Qt::ControlModifier)) return false;
  Q_EMIT panKey(way->x() * panShare, way->y() * panShare);
  return true;
}

void SurfaceWidget::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers().testFlag(Qt::AltModifier) || (!ViewKey(*event) && !PointerKey(*event)))
    QWidget::keyPressEvent(event);
}

void SurfaceWidget::focusOutEvent(QFocusEvent* event) {
  // a menu or another program's window gives the keys back
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
      event->reason() != Qt::MenuBarFocusReason)
    HidePointer();
  QWidget::focusOutEvent(event);
}

}  // namespace halvorine
