#include "controls/qtNightCaret.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleHints>
#include <utility>

#include "controls/qtLook.h"

namespace halvorine {

namespace {

constexpr int caretWidth = 1;  // logical pixels

/// The text field that has the keyboard, or null: boxes to choose or to step in lend theirs to the field
/// inside.
QWidget* FieldOf(QWidget* focused) {
  if (qobject_cast<QComboBox*>(focused) != nullptr || qobject_cast<QAbstractSpinBox*>(focused) != nullptr)
    focused = focused->findChild<QLineEdit*>();
  const auto* const line = qobject_cast<QLineEdit*>(focused);
  const auto* const text = qobject_cast<QPlainTextEdit*>(focused);
  const bool typing = line != nullptr ? !line->isReadOnly() : text != nullptr && !text->isReadOnly();
  return typing ? focused : nullptr;
}

/// What the cursor of a field is drawn on.
QWidget* GroundOf(QWidget* field) {
  auto* const text = qobject_cast<QPlainTextEdit*>(field);
  if (text == nullptr) return field;
  text->setCursorWidth(IsNight(text->palette()) ? 0 : caretWidth);
  return text->viewport();
}

/// Shows the toolkit's own cursor or leaves it out, as an input method with a cursor of its own asks for it:
/// at a broken scale a cursor without width is a line all the same.
void ShowOwnCursor(QWidget* field, bool shown) {
  QInputMethodEvent event({}, {{QInputMethodEvent::Cursor, 0, shown ? 1 : 0}});
  QCoreApplication::sendEvent(field, &event);
}

class Caret : public QWidget {
 public:
  explicit Caret(QWidget* ground) : QWidget(ground) {
    setObjectName(QStringLiteral("NightCaret"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter(this).fillRect(rect(), palette().color(QPalette::Active, QPalette::Text));
  }
};

}  // namespace

NightCaret::NightCaret(QObject* parent) : QObject(parent) {
  connect(&blink_, &QTimer::timeout, this, &NightCaret::Blink);
  connect(qApp, &QApplication::focusChanged, this, &NightCaret::Follow);
  connect(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged, this, &NightCaret::Follow);
}

void NightCaret::Follow() {
  QWidget* const field = FieldOf(QApplication::focusWidget());
  QWidget* const ground = GroundOf(field);
  const bool night = ground != nullptr && IsNight(ground->palette());
  QWidget* const former = std::exchange(without_, night ? field : nullptr);
  if (former != nullptr && former != without_) ShowOwnCursor(former, true);
  if (without_ != nullptr && former != without_) ShowOwnCursor(without_, false);
  if (!night) {
    delete caret_;
    blink_.stop();
    return;
  }
  if (caret_ == nullptr || caret_->parentWidget() != ground) {
    delete caret_;
    caret_ = new Caret(ground);
  }
  const QRect place = field->inputMethodQuery(Qt::ImCursorRectangle).toRect();
  caret_->setGeometry(place.center().x(), place.top(), caretWidth, place.height());
  caret_->show();
  const int period = QGuiApplication::styleHints()->cursorFlashTime() / 2;
  if (period > 0) blink_.start(period);
}

void NightCaret::Blink() {
  if (caret_ != nullptr) caret_->setVisible(!caret_->isVisible());
}

}  // namespace halvorine
