// A bar that tells a part of a whole in per cent; where it has passed, the text stands inverted.
#pragma once

#include <QWidget>

#include "controls/qtAccessible.h"
#include "controls/qtPointer.h"

namespace halvorine {

class ProgressBar : public QWidget, public ValueTeller {
  Q_OBJECT
  Q_PROPERTY(double Max READ Max WRITE SetMax)
  Q_PROPERTY(double Value READ Value WRITE SetValue)
  Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
  Q_PROPERTY(QIcon MouseIcon READ MouseIcon WRITE SetMouseIcon)
  Q_PROPERTY(int MousePointer READ MousePointer WRITE SetMousePointer)
  Q_PROPERTY(qulonglong hwnd READ hwnd)

 public:
  explicit ProgressBar(QWidget* parent = nullptr);

  double Max() const { return max_; }
  void SetMax(double maximum);
  double Value() const { return value_; }
  void SetValue(double value);

  QIcon MouseIcon() const { return pointer_.Picture(); }
  void SetMouseIcon(const QIcon& picture) { pointer_.SetPicture(*this, picture); }
  int MousePointer() const { return pointer_.Number(); }
  void SetMousePointer(int number) { pointer_.SetNumber(*this, number); }
  /// The handle by which the window system knows the bar.
  qulonglong hwnd() const { return winId(); }

  /// The text of the bar, such as "42%"; empty while Max is 0.
  QString Percentage() const;

  QAccessible::Role Role() const override { return QAccessible::ProgressBar; }
  ToldValue Told() const override { return {Percentage(), Share() * 100, 0, 100}; }

  QSize sizeHint() const override { return {200, 22}; }
  QSize minimumSizeHint() const override { return {60, 22}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Value by Max, 0 to 1; nothing told by Max 0 counts as 0.
  double Share() const;
  double value_ = 0, max_ = 100;
  PointerProperty pointer_;
};

}  // namespace halvorine
