// The text cursor at night. The toolkit draws it by inverting what lies below, which turns dark red into a
// bright blue; at night it is left out by the style, and this one, red, stands in its place.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace halvorine {

class NightCaret : public QObject {
  Q_OBJECT
 public:
  /// One for the program; it follows the keyboard from text field to text field.
  explicit NightCaret(QObject* parent);

  /// Looks again where the cursor stands and whether it is night.
  void Follow();

 private:
  void Blink();

  QPointer<QWidget> caret_;
  QPointer<QWidget> without_;  // the field whose own cursor is left out
  QTimer blink_;
};

}  // namespace halvorine
