// The data beside a pass chart: the satellite, and what is seen of it at rise, culmination and set.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QWidget>
#include <array>

#include "sky/mSkySat.h"

namespace halvorine {

class PassPanel : public QWidget {
 public:
  explicit PassPanel(QWidget* parent);
  void ShowPass(const PassView& view);

 private:
  /// Labels of one event, captions with their values.
  struct Event {
    QLabel *time = nullptr, *azimuth = nullptr, *altitude = nullptr, *magnitude = nullptr, *state = nullptr;
  };
  void AddEvent(int number, const char* key);
  QLabel* AddRow(const QString& caption, const char* name, int index);

  QGridLayout* rows_ = nullptr;
  QLabel *name_ = nullptr, *number_ = nullptr;
  std::array<Event, 3> events_{};
};

}  // namespace halvorine
