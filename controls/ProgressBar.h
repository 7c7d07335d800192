// A bar that tells a part of a whole in per cent; where it has passed, the text stands inverted.
#pragma once

#include <QWidget>

namespace halvorine {

class ProgressBar : public QWidget {
  Q_OBJECT
  Q_PROPERTY(double Max READ Max WRITE SetMax)
  Q_PROPERTY(double Value READ Value WRITE SetValue)

 public:
  explicit ProgressBar(QWidget* parent = nullptr);

  double Max() const { return max_; }
  void SetMax(double maximum);
  double Value() const { return value_; }
  void SetValue(double value);

  /// The text of the bar, such as "42%"; empty while Max is 0.
  QString Percentage() const;

  QSize sizeHint() const override { return {200, 22}; }
  QSize minimumSizeHint() const override { return {60, 22}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Value by Max, 0 to 1; nothing told by Max 0 counts as 0.
  double Share() const;
  double value_ = 0, max_ = 100;
};

}  // namespace halvorine
