// A range between two values: a track with a thumb below it for the lower value and one above it for the
// upper.
#pragma once

#include <QColor>
#include <QWidget>
#include <array>
#include <cstddef>

#include "controls/qtAccessible.h"

namespace halvorine {

class RangeTool;

/// One of the two thumbs; it tells the value that it stands for.
class RangeThumb : public QWidget, public ValueTeller {
  Q_OBJECT
 public:
  RangeThumb(bool upper, RangeTool* tool);

  QAccessible::Role Role() const override { return QAccessible::Slider; }
  ToldValue Told() const override;
  void TakeTold(double value) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  RangeTool* tool_;
  bool upper_;
  bool held_ = false;
  double offset_ = 0;  // of the mouse within the thumb when it was pressed, pixels
};

class RangeTool : public QWidget {
  Q_OBJECT
  Q_PROPERTY(double Min READ Min WRITE SetMin)
  Q_PROPERTY(double Max READ Max WRITE SetMax)
  Q_PROPERTY(double LowerValue READ LowerValue WRITE SetLowerValue NOTIFY Change)
  Q_PROPERTY(double UpperValue READ UpperValue WRITE SetUpperValue NOTIFY Change)
  Q_PROPERTY(QColor Color READ Color WRITE SetColor)
  Q_PROPERTY(bool LowerVisible READ LowerVisible WRITE SetLowerVisible)
  Q_PROPERTY(bool UpperVisible READ UpperVisible WRITE SetUpperVisible)
  Q_PROPERTY(bool LowerLocked READ LowerLocked WRITE SetLowerLocked)
  Q_PROPERTY(bool UpperLocked READ UpperLocked WRITE SetUpperLocked)
  Q_PROPERTY(int BorderStyle READ BorderStyle WRITE SetBorderStyle)

 public:
  explicit RangeTool(QWidget* parent = nullptr);

  double Min() const { return min_; }
  double Max() const { return max_; }
  /// The values follow where they would fall outside; a Max below Min becomes Min.
  void SetMin(double minimum) { SetRange(minimum, max_); }
  void SetMax(double maximum) { SetRange(min_, maximum); }
  void SetRange(double minimum, double maximum);
  double LowerValue() const { return lower_; }
  double UpperValue() const { return upper_; }
  /// Neither value passes the other or leaves the range: it stops there.
  void SetLowerValue(double value);
  void SetUpperValue(double value);
  /// Both at once, so that the former ones stop neither; an upper value below the lower becomes it.
  void SetValues(double lower, double upper);
  /// Colour of the thumbs; unless it is set, that of the caption of the active window.
  QColor Color() const;
  void SetColor(const QColor& colour);
  bool LowerVisible() const { return visible_[0]; }
  bool UpperVisible() const { return visible_[1]; }
  void SetLowerVisible(bool visible) { SetVisibleThumb(0, visible); }
  void SetUpperVisible(bool visible) { SetVisibleThumb(1, visible); }
  /// A locked thumb moves neither by the mouse nor by keys.
  bool LowerLocked() const { return locked_[0]; }
  bool UpperLocked() const { return locked_[1]; }
  void SetLowerLocked(bool locked) { SetLockedThumb(0, locked); }
  void SetUpperLocked(bool locked) { SetLockedThumb(1, locked); }
  int BorderStyle() const { return border_; }
  /// 0 draws the track without an edge, any other number with one.
  void SetBorderStyle(int style);

  /// Puts both thumbs at the places of their values.
  void UpdatePosition();
  /// Accessible names of the two thumbs.
  void SetNames(const QString& lower, const QString& upper);

  /// For the thumbs: the value at a place of a thumb's left edge, pixels, rounded to an integer.
  double ValueAt(double left) const;
  void MoveThumb(bool upper, double value) { upper ? SetUpperValue(value) : SetLowerValue(value); }
  bool IsLocked(bool upper) const { return upper ? UpperLocked() : LowerLocked(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// A value has moved.
  void Change(double lower, double upper);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetVisibleThumb(std::size_t thumb, bool visible);
  void SetLockedThumb(std::size_t thumb, bool locked);
  /// Length of the way of a thumb, pixels.
  double Way() const;
  double LeftOf(double value) const;

  double min_ = 0, max_ = 100, lower_ = 25, upper_ = 75;
  double perPixel_ = 0;  // value to a pixel
  QColor colour_;
  std::array<bool, 2> visible_{true, true}, locked_{false, false};  // lower, upper
  int border_ = 4;
  RangeThumb *picBottom_, *picTop_;
};

}  // namespace halvorine
