#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

#include "maps/qtSurface.h"

namespace halvorine {

namespace {

constexpr double twips = 15;  // to a logical pixel

}  // namespace

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

double SurfaceWidget::UserXOf(const QPointF& place) const {
  return size().isEmpty() ? 0 : surface_.UserX(place.x() * twips);
}

double SurfaceWidget::UserYOf(const QPointF& place) const {
  return size().isEmpty() ? 0 : surface_.UserY(place.y() * twips);
}

void SurfaceWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  surface_.PaintOn(painter);
}

void SurfaceWidget::resizeEvent(QResizeEvent* /*event*/) {
  surface_.Resize(size(), devicePixelRatioF());
  Q_EMIT redrawWanted();
}

void SurfaceWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  surface_.ColoursChanged();
  Q_EMIT redrawWanted();
}

void SurfaceWidget::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Keyboard) Q_EMIT menuKey(mapToGlobal(rect().center()));
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) {
  Q_EMIT mouseMoved(UserXOf(event->position()), UserYOf(event->position()));
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
  Q_EMIT buttonDown(event->button(), UserXOf(event->position()), UserYOf(event->position()),
                    event->globalPosition().toPoint());
}

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* event) {
  Q_EMIT buttonUp(event->button(), UserXOf(event->position()), UserYOf(event->position()));
}

}  // namespace halvorine
