#include "controls/RangeTool.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "controls/qtLookStyle.h"

namespace halvorine {

namespace {

constexpr int thumbWidth = 14, thumbHeight = 14, trackHeight = 4, gap = 2;  // logical pixels
constexpr int wholeHeight = 2 * (thumbHeight + gap) + trackHeight;
constexpr double keyStep = 1, pageStep = 10;

/// Between two bounds; what is no number becomes the lower one.
double Within(double value, double least, double most) {
  return value >= least ? std::min(value, most) : least;
}

}  // namespace

RangeThumb::RangeThumb(bool upper, RangeTool* tool) : QWidget(tool), tool_(tool), upper_(upper) {
  AnnounceTellers();
  resize(thumbWidth, thumbHeight);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::SizeHorCursor);
}

ToldValue RangeThumb::Told() const {
  const double value = upper_ ? tool_->UpperValue() : tool_->LowerValue();
  return {QString::number(value), value, upper_ ? tool_->LowerValue() : tool_->Min(),
          upper_ ? tool_->Max() : tool_->UpperValue()};
}

void RangeThumb::TakeTold(double value) {
  if (isEnabled() && !tool_->IsLocked(upper_)) tool_->MoveThumb(upper_, std::nearbyint(value));
}

void RangeThumb::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QStyleOption option;
  option.initFrom(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // each row is a pixel shorter than the one before, from the full width away from the track to its point
  if (upper_) {
    painter.translate(0, thumbHeight);
    painter.scale(1, -1);
  }
  const double half = thumbWidth / 2.0;
  const bool focused = Has(option, QStyle::State_HasFocus) && Has(option, QStyle::State_KeyboardFocusChange);
  painter.setPen(focused ? QPen(palette().color(QPalette::WindowText), 2)
                         : QPen(ColoursOf(palette()).FieldEdge, 1));
  painter.setBrush(isEnabled() ? tool_->Color() : ColoursOf(palette()).FrameEdge);
  painter.drawPolygon(
      QPolygonF(QList<QPointF>{{1, thumbHeight - 1.0}, {thumbWidth - 1.0, thumbHeight - 1.0}, {half, 1}}));
}

void RangeThumb::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || tool_->IsLocked(upper_)) return;
  held_ = true;
  offset_ = event->position().x();
}

void RangeThumb::mouseMoveEvent(QMouseEvent* event) {
  if (held_) tool_->MoveThumb(upper_, tool_->ValueAt(x() + event->position().x() - offset_));
}

void RangeThumb::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) held_ = false;
}

void RangeThumb::keyPressEvent(QKeyEvent* event) {
  const ToldValue told = Told();
  const double value = std::nearbyint(told.now);
  switch (tool_->IsLocked(upper_) ? 0 : event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
      return tool_->MoveThumb(upper_, value - keyStep);
    case Qt::Key_Right:
    case Qt::Key_Up:
      return tool_->MoveThumb(upper_, value + keyStep);
    case Qt::Key_PageDown:
      return tool_->MoveThumb(upper_, value - pageStep);
    case Qt::Key_PageUp:
      return tool_->MoveThumb(upper_, value + pageStep);
    case Qt::Key_Home:
      return tool_->MoveThumb(upper_, told.least);
    case Qt::Key_End:
      return tool_->MoveThumb(upper_, told.most);
    default:
      QWidget::keyPressEvent(event);
  }
}

RangeTool::RangeTool(QWidget* parent)
    : QWidget(parent), picBottom_(new RangeThumb(false, this)), picTop_(new RangeThumb(true, this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  picBottom_->setObjectName(QStringLiteral("picBottom"));
  picTop_->setObjectName(QStringLiteral("picTop"));
}

void RangeTool::SetRange(double minimum, double maximum) {
  if (std::isnan(minimum) || std::isnan(maximum)) return;
  min_ = minimum;
  max_ = std::max(minimum, maximum);
  SetValues(lower_, upper_);
  UpdatePosition();
}

void RangeTool::SetLowerValue(double value) { SetValues(std::min(value, upper_), upper_); }

void RangeTool::SetUpperValue(double value) { SetValues(lower_, std::max(value, lower_)); }

void RangeTool::SetValues(double lower, double upper) {
  lower = Within(lower, min_, max_);
  upper = Within(upper, lower, max_);
  if (lower == lower_ && upper == upper_) return;
  lower_ = lower;
  upper_ = upper;
  UpdatePosition();
  TellValueChanged(picBottom_);
  TellValueChanged(picTop_);
  Q_EMIT Change(lower_, upper_);
}

QColor RangeTool::Color() const { return colour_.isValid() ? colour_ : ColoursOf(palette()).Caption; }

void RangeTool::SetColor(const QColor& colour) {
  colour_ = colour;
  UpdatePosition();
}

void RangeTool::SetVisibleThumb(std::size_t thumb, bool visible) {
  visible_[thumb] = visible;
  (thumb == 0 ? picBottom_ : picTop_)->setVisible(visible);
  update();
}

void RangeTool::SetLockedThumb(std::size_t thumb, bool locked) {
  locked_[thumb] = locked;
  RangeThumb* const moved = thumb == 0 ? picBottom_ : picTop_;
  moved->setFocusPolicy(locked ? Qt::NoFocus : Qt::StrongFocus);
  moved->setCursor(locked ? Qt::ArrowCursor : Qt::SizeHorCursor);
}

void RangeTool::SetBorderStyle(int style) {
  border_ = style;
  update();
}

void RangeTool::SetNames(const QString& lower, const QString& upper) {
  picBottom_->setAccessibleName(lower);
  picTop_->setAccessibleName(upper);
}

double RangeTool::Way() const { return std::max(width() - thumbWidth, 0); }

double RangeTool::LeftOf(double value) const { return perPixel_ > 0 ? (value - min_) / perPixel_ : 0; }

double RangeTool::ValueAt(double left) const {
  return std::nearbyint(min_ + Within(left, 0, Way()) * perPixel_);
}

void RangeTool::UpdatePosition() {
  perPixel_ = Way() > 0 ? (max_ - min_) / Way() : 0;
  const int middle = (height() - trackHeight) / 2;
  picTop_->move(static_cast<int>(std::lround(LeftOf(upper_))), middle - gap - thumbHeight);
  picBottom_->move(static_cast<int>(std::lround(LeftOf(lower_))), middle + trackHeight + gap);
  update();
  picBottom_->update();
  picTop_->update();
}

QSize RangeTool::sizeHint() const { return {240, wholeHeight}; }
QSize RangeTool::minimumSizeHint() const { return {90, wholeHeight}; }

void RangeTool::resizeEvent(QResizeEvent* /*event*/) { UpdatePosition(); }

void RangeTool::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const LookColours colours = ColoursOf(palette());
  const QRect track(thumbWidth / 2, (height() - trackHeight) / 2, width() - thumbWidth, trackHeight);
  DrawBox(&painter, track, colours.FrameEdge, border_ != 0 ? colours.FrameEdge : QColor(), 1, 2);
  const int from = track.left() + static_cast<int>(std::lround(LeftOf(lower_)));
  const int to = track.left() + static_cast<int>(std::lround(LeftOf(upper_)));
  DrawBox(&painter, QRect(from, track.top(), to - from, trackHeight),
          isEnabled() ? colours.FocusEdge : colours.FrameEdge, QColor(), 1, 2);
}

}  // namespace halvorine
