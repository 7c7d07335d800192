#include "controls/qtAccessible.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QWidget>

namespace halvorine {

namespace {

class TellerInterface : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  TellerInterface(QWidget* widget, ValueTeller* teller)
      : QAccessibleWidget(widget, teller->Role()), teller_(teller) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? teller_->Told().text : QAccessibleWidget::text(kind);
  }
  QVariant currentValue() const override { return teller_->Told().now; }
  QVariant minimumValue() const override { return teller_->Told().least; }
  QVariant maximumValue() const override { return teller_->Told().most; }
  QVariant minimumStepSize() const override { return 1.0; }
  void setCurrentValue(const QVariant& value) override { teller_->TakeTold(value.toDouble()); }

 private:
  ValueTeller* teller_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  auto* const teller = dynamic_cast<ValueTeller*>(widget);
  return teller != nullptr ? new TellerInterface(widget, teller) : nullptr;
}

}  // namespace

void AnnounceTellers() {
  static const bool once = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  static_cast<void>(once);
}

void TellValueChanged(QWidget* widget) {
  const auto* const teller = dynamic_cast<const ValueTeller*>(widget);
  if (teller == nullptr || !QAccessible::isActive()) return;
  QAccessibleValueChangeEvent event(widget, teller->Told().now);
  QAccessible::updateAccessibility(&event);
}

}  // namespace halvorine
