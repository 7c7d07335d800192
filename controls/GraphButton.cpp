#include "controls/GraphButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "controls/qtIcons.h"
#include "controls/qtLookStyle.h"

namespace halvorine {

namespace {

constexpr int gap = 5;           // between picture and caption, logical pixels
constexpr int naturalSize = 24;  // of our pictures, logical pixels

}  // namespace

GraphButton::GraphButton(QWidget* parent) : QPushButton(parent) {}

GraphButton::GraphButton(const char* icon, QWidget* parent) : QPushButton(parent), position_(PictureLeft) {
  setIcon(Icon(icon));
}

void GraphButton::Changed() {
  updateGeometry();
  update();
}

void GraphButton::SetCaption(const QString& caption) { setText(caption); }

void GraphButton::SetPicturePosition(int position) {
  if (position < PictureLeft || position > PictureBottom) return;
  position_ = position;
  Changed();
}

void GraphButton::SetPicture(const QIcon& picture) {
  setIcon(picture);
  Changed();
}

void GraphButton::SetPictureWidth(int pixels) {
  width_ = std::max(pixels, 0);
  Changed();
}

void GraphButton::SetPictureHeight(int pixels) {
  height_ = std::max(pixels, 0);
  Changed();
}

void GraphButton::SetPictureSize(int size) {
  size_ = size;
  Changed();
}

void GraphButton::SetColour(QPalette::ColorRole role, const QColor& colour) {
  own_.setColor(role, colour);
  setPalette(own_);
}

QSize GraphButton::DrawnPicture() const {
  if (icon().isNull()) return {0, 0};
  return size_ == 0 ? QSize(width_, height_) : icon().actualSize(QSize(naturalSize, naturalSize));
}

QSize GraphButton::TextSize() const {
  return text().isEmpty() ? QSize(0, 0) : fontMetrics().size(Qt::TextShowMnemonic, text());
}

QSize GraphButton::Content() const {
  const QSize picture = DrawnPicture(), caption = TextSize();
  const int between = picture.isEmpty() || caption.isEmpty() ? 0 : gap;
  if (Lying())
    return {picture.width() + between + caption.width(), std::max(picture.height(), caption.height())};
  return {std::max(picture.width(), caption.width()), picture.height() + between + caption.height()};
}

QSize GraphButton::sizeHint() const {
  ensurePolished();
  QStyleOptionButton option;
  initStyleOption(&option);
  return style()->sizeFromContents(QStyle::CT_PushButton, &option, Content(), this);
}

QPoint GraphButton::Shift() const { return isDown() ? QPoint(1, 1) : QPoint(0, 0); }

QRect GraphButton::PictureRect() const {
  const QSize picture = DrawnPicture();
  if (picture.isEmpty()) return {};
  QRect whole(QPoint(0, 0), Content());
  whole.moveCenter(rect().center());
  QRect drawn(QPoint(0, 0), picture);
  drawn.moveCenter(whole.center());
  if (position_ == PictureLeft) drawn.moveLeft(std::max(whole.left(), 4));
  if (position_ == PictureRight) drawn.moveRight(whole.right());
  if (position_ == PictureTop) drawn.moveTop(whole.top());
  if (position_ == PictureBottom) drawn.moveBottom(whole.bottom());
  return drawn.translated(Shift());
}

QRect GraphButton::CaptionRect() const {
  const QSize caption = TextSize();
  if (caption.isEmpty()) return {};
  QRect whole(QPoint(0, 0), Content());
  whole.moveCenter(rect().center());
  QRect drawn(QPoint(0, 0), caption);
  drawn.moveCenter(whole.center());
  if (position_ == PictureLeft) drawn.moveRight(whole.right());
  if (position_ == PictureRight) drawn.moveLeft(whole.left());
  if (position_ == PictureTop) drawn.moveBottom(whole.bottom());
  if (position_ == PictureBottom) drawn.moveTop(whole.top());
  return drawn.translated(Shift());
}

void GraphButton::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  painter.drawControl(QStyle::CE_PushButtonBevel, option);
  const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
  if (const QRect place = PictureRect(); !place.isEmpty())
    icon().paint(&painter, place, Qt::AlignCenter, mode);
  const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
  painter.drawItemText(CaptionRect(),
                       Qt::AlignCenter | (underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
                       ButtonLabelPalette(option), isEnabled(), text(), QPalette::ButtonText);
}

}  // namespace halvorine
