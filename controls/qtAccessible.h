// What the drawn controls tell programs that read the screen: their kind and their value, beside the
// accessible name that their owner gives them.
#pragma once

#include <QAccessible>
#include <QString>

namespace halvorine {

/// A value as it is told: as text, and as a number between two others where it is one (else all are 0).
struct ToldValue {
  QString text;
  double now = 0, least = 0, most = 0;
};

/// Base of a widget that tells its value.
class ValueTeller {
 public:
  virtual ~ValueTeller() = default;
  virtual QAccessible::Role Role() const = 0;
  virtual ToldValue Told() const = 0;
  /// Takes a value from such a program; nothing where the control shows only.
  virtual void TakeTold(double /*value*/) {}
};

/// To be called in the constructor of every such widget; the first call announces them to the toolkit.
void AnnounceTellers();

/// Tells that the value of a widget, which is a ValueTeller, has changed.
void TellValueChanged(QWidget* widget);

}  // namespace halvorine
