// The mouse pointer over a control as two of its properties: a number, and a picture of the control's own.
#pragma once

#include <QIcon>
#include <QWidget>

namespace halvorine {

class PointerProperty {
 public:
  int Number() const { return number_; }
  QIcon Picture() const { return picture_; }
  /// 0 the usual pointer, 11 the hourglass, 99 the picture; any other number is kept and shows the usual one.
  void SetNumber(QWidget& control, int number) {
    number_ = number;
    Apply(control);
  }
  void SetPicture(QWidget& control, const QIcon& picture) {
    picture_ = picture;
    Apply(control);
  }

 private:
  static constexpr int hourglass = 11, own = 99, ownSize = 24;
  void Apply(QWidget& control) const {
    if (number_ == hourglass)
      control.setCursor(Qt::WaitCursor);
    else if (number_ == own && !picture_.isNull())
      control.setCursor(QCursor(picture_.pixmap(ownSize)));
    else
      control.unsetCursor();
  }
  int number_ = 0;
  QIcon picture_;
};

}  // namespace halvorine
