// Two clock faces side by side, each with hour, minute and second hand.
#pragma once

#include <QColor>
#include <QPointF>
#include <QString>
#include <QWidget>
#include <array>

#include "controls/qtAccessible.h"
#include "shell/base/mRecords.h"

namespace halvorine {

class AnalogClock : public QWidget, public ValueTeller {
  Q_OBJECT
  Q_PROPERTY(double Value READ Value WRITE SetValue)
  Q_PROPERTY(double SecondValue READ SecondValue WRITE SetSecondValue)

 public:
  explicit AnalogClock(QWidget* parent = nullptr);

  /// The dates whose times of day the two faces show.
  Date Value() const { return faces_[0].value; }
  void SetValue(Date value) { Set(0, value); }
  Date SecondValue() const { return faces_[1].value; }
  void SetSecondValue(Date value) { Set(1, value); }
  /// What stands below the faces.
  void SetCaptions(const QString& first, const QString& second);

  /// A hand: its tip from the centre of the dial (x right, y down), width in pixels.
  struct Hand {
    QPointF tip;
    double width;
    QColor colour;
  };
  /// Hour, minute and second hand at a date, for a dial of a radius.
  static std::array<Hand, 3> HandsOf(Date value, double radius);

  QAccessible::Role Role() const override { return QAccessible::Clock; }
  ToldValue Told() const override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Face {
    Date value = 0;
    QString caption;
  };
  void Set(std::size_t face, Date value);
  int CaptionHeight() const;

  std::array<Face, 2> faces_;
};

}  // namespace halvorine
