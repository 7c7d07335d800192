// Our button: a caption with a picture at one of its four sides. Pressed, both shift by one pixel.
#pragma once

#include <QIcon>
#include <QPushButton>

#include "controls/qtPointer.h"

namespace halvorine {

/// Values of GraphButton's PicturePosition.
enum GraphButtonPicture : int { PictureLeft = 0, PictureTop = 1, PictureRight = 2, PictureBottom = 3 };

class GraphButton : public QPushButton {
  Q_OBJECT
  Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
  Q_PROPERTY(int PicturePosition READ PicturePosition WRITE SetPicturePosition)
  Q_PROPERTY(QIcon Picture READ Picture WRITE SetPicture)
  Q_PROPERTY(int PictureWidth READ PictureWidth WRITE SetPictureWidth)
  Q_PROPERTY(int PictureHeight READ PictureHeight WRITE SetPictureHeight)
  Q_PROPERTY(int PictureSize READ PictureSize WRITE SetPictureSize)
  Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
  Q_PROPERTY(QFont Font READ font WRITE setFont)
  Q_PROPERTY(QIcon MouseIcon READ MouseIcon WRITE SetMouseIcon)
  Q_PROPERTY(int MousePointer READ MousePointer WRITE SetMousePointer)
  Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor)
  Q_PROPERTY(QColor ForeColor READ ForeColor WRITE SetForeColor)

 public:
  explicit GraphButton(QWidget* parent = nullptr);
  /// A button with its picture at the left, as most windows have it.
  GraphButton(const char* icon, QWidget* parent);

  QString Caption() const { return text(); }
  void SetCaption(const QString& caption);
  int PicturePosition() const { return position_; }
  /// 0 left, 1 top, 2 right, 3 bottom; any other number is refused and leaves the property as it was.
  void SetPicturePosition(int position);
  QIcon Picture() const { return icon(); }
  void SetPicture(const QIcon& picture);
  int PictureWidth() const { return width_; }
  void SetPictureWidth(int pixels);
  int PictureHeight() const { return height_; }
  void SetPictureHeight(int pixels);
  int PictureSize() const { return size_; }
  /// 0 draws the picture by its width and height, any other number at its natural size.
  void SetPictureSize(int size);

  QIcon MouseIcon() const { return pointer_.Picture(); }
  void SetMouseIcon(const QIcon& picture) { pointer_.SetPicture(*this, picture); }
  int MousePointer() const { return pointer_.Number(); }
  void SetMousePointer(int number) { pointer_.SetNumber(*this, number); }
  /// Those of the palette unless they are set; what is set stays so by day and at night.
  QColor BackColor() const { return palette().color(QPalette::Button); }
  void SetBackColor(const QColor& colour) { SetColour(QPalette::Button, colour); }
  QColor ForeColor() const { return palette().color(QPalette::ButtonText); }
  void SetForeColor(const QColor& colour) { SetColour(QPalette::ButtonText, colour); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  /// Where picture and caption are drawn now; an absent one is empty.
  QRect PictureRect() const;
  QRect CaptionRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Changed();
  QSize DrawnPicture() const;
  QSize TextSize() const;
  QPoint Shift() const;
  /// Both parts together.
  QSize Content() const;
  bool Lying() const { return position_ == PictureLeft || position_ == PictureRight; }

  void SetColour(QPalette::ColorRole role, const QColor& colour);

  PointerProperty pointer_;
  QPalette own_;  // the colours that were set
  int position_ = PictureTop, width_ = 16, height_ = 16, size_ = 0;
};

}  // namespace halvorine
