#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "maps/qtSurface.h"
#include "shell/base/mGlobal.h"

namespace halvorine {

namespace {

constexpr double twips = 15;  // to a logical pixel

QColor NightShadeFor(const QColor& colour) { return NightColoursActive ? NightShadeOf(colour) : colour; }

}  // namespace

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  settled_.setSingleShot(true);
  connect(&settled_, &QTimer::timeout, this, &SurfaceWidget::TakeSize);
}

// Both follow the picture that is shown, which may be a stretched one.
double SurfaceWidget::UserXOf(const QPointF& place) const {
  return size().isEmpty() ? 0 : surface_.UserX(place.x() / width() * surface_.Width());
}

double SurfaceWidget::UserYOf(const QPointF& place) const {
  return size().isEmpty() ? 0 : surface_.UserY(place.y() / height() * surface_.Height());
}

QPointF SurfaceWidget::PlaceOf(double x, double y) const {
  return {(x - surface_.UserX(0)) / surface_.ScaleWidth() * width(),
          (y - surface_.UserY(0)) / surface_.ScaleHeight() * height()};
}

void SurfaceWidget::StretchWhileResizing(int milliseconds) { settled_.setInterval(milliseconds); }

void SurfaceWidget::ShowOverlay(Overlay kind, double x1, double y1, double x2, double y2) {
  overlay_ = kind;
  x1_ = x1;
  y1_ = y1;
  x2_ = x2;
  y2_ = y2;
  update();
}

void SurfaceWidget::ShowRubberBox(double x1, double y1, double x2, double y2) {
  ShowOverlay(Overlay::Box, x1, y1, x2, y2);
}

void SurfaceWidget::ShowDragLine(double x1, double y1, double x2, double y2) {
  ShowOverlay(Overlay::Line, x1, y1, x2, y2);
}

void SurfaceWidget::HideOverlay() { ShowOverlay(Overlay::None, 0, 0, 0, 0); }

void SurfaceWidget::PaintOverlay(QPainter& painter) const {
  if (overlay_ == Overlay::None || size().isEmpty()) return;
  const QPointF from = PlaceOf(x1_, y1_), to = PlaceOf(x2_, y2_);
  // white and black in turn can be seen on every ground
  for (const bool dashes : {false, true}) {
    QPen pen(NightShadeFor(dashes ? Qt::black : Qt::white), 1, dashes ? Qt::DashLine : Qt::SolidLine);
    painter.setPen(pen);
    if (overlay_ == Overlay::Box) {
      const QRectF box = QRectF(from, to).normalized();
      painter.drawRect(QRectF(box.toRect()).adjusted(0.5, 0.5, -0.5, -0.5));
    } else if (!dashes) {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.drawLine(from, to);
    }
  }
}

void SurfaceWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (settled_.isActive() && !size().isEmpty()) {
    painter.save();
    painter.scale(width() * twips / surface_.Width(), height() * twips / surface_.Height());
    surface_.PaintOn(painter);
    painter.restore();
  } else {
    surface_.PaintOn(painter);
  }
  PaintOverlay(painter);
  PaintPointer(painter);
}

void SurfaceWidget::TakeSize() {
  surface_.Resize(size(), devicePixelRatioF());
  Q_EMIT redrawWanted();
}

bool SurfaceWidget::TakePendingSize() {
  if (!settled_.isActive()) return false;
  settled_.stop();
  TakeSize();
  return true;
}

void SurfaceWidget::resizeEvent(QResizeEvent* /*event*/) {
  const bool hasPicture = isVisible() && surface_.Width() > 0 && surface_.Height() > 0;
  if (settled_.interval() > 0 && hasPicture)
    settled_.start();
  else
    TakeSize();
}

void SurfaceWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  surface_.ColoursChanged();
  Q_EMIT redrawWanted();
}

void SurfaceWidget::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() != QContextMenuEvent::Keyboard) return;
  if (pointer_)
    Q_EMIT buttonDown(Qt::RightButton, PointerX(), PointerY(), mapToGlobal(pointer_->toPoint()));
  else
    Q_EMIT menuKey(mapToGlobal(rect().center()));
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) {
  HidePointer();
  Q_EMIT mouseMoved(UserXOf(event->position()), UserYOf(event->position()));
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
  Q_EMIT buttonDown(event->button(), UserXOf(event->position()), UserYOf(event->position()),
                    event->globalPosition().toPoint());
}

void SurfaceWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  Q_EMIT doubleClicked(UserXOf(event->position()), UserYOf(event->position()));
  mousePressEvent(event);
}

void SurfaceWidget::wheelEvent(QWheelEvent* event) {
  event->accept();
  constexpr double notch = 120;  // eighths of a degree
  if (event->angleDelta().y() != 0)
    Q_EMIT wheelTurned(UserXOf(event->position()), UserYOf(event->position()),
                       event->angleDelta().y() / notch);
}

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* event) {
  Q_EMIT buttonUp(event->button(), UserXOf(event->position()), UserYOf(event->position()));
}

}  // namespace halvorine
