// Which routine of the style draws which element.
#include "controls/qtLookStyle.h"

namespace halvorine {

bool LookStyle::DrawGround(ControlElement element, const QStyleOption* option, QPainter* painter) const {
  const LookColours colours = ColoursOf(option->palette);
  const QRect r = option->rect;
  switch (element) {
    case CE_SizeGrip:
    case CE_Splitter:
      return true;
    case CE_HeaderEmptyArea: {
      QStyleOptionHeader header;
      header.QStyleOption::operator=(*option);
      header.section = -1;
      header.state &= ~State_Sunken;
      DrawHeaderSection(header, painter);
      return true;
    }
    case CE_MenuBarEmptyArea:
      painter->fillRect(r, option->palette.color(QPalette::Window));
      return true;
    case CE_MenuEmptyArea:
      painter->fillRect(r, option->palette.color(QPalette::Base));
      return true;
    case CE_ToolBar:
      painter->fillRect(r, option->palette.color(QPalette::Window));
      painter->fillRect(QRect(r.left(), r.bottom(), r.width(), 1), colours.Hairline);
      return true;
    case CE_ShapedFrame: {
      const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      if (frame == nullptr || (frame->frameShape != QFrame::HLine && frame->frameShape != QFrame::VLine))
        return false;
      const bool lying = frame->frameShape == QFrame::HLine;
      painter->fillRect(Middle(r, lying ? r.width() : 1, lying ? 1 : r.height()), colours.Hairline);
      return true;
    }
    default:
      return false;
  }
}

bool LookStyle::DrawTabOrHeader(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
  if (const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option)) {
    if (element == CE_TabBarTabShape) DrawTabShape(*tab, painter);
    if (element == CE_TabBarTabLabel) DrawTabLabel(*tab, painter, widget);
    return element == CE_TabBarTabShape || element == CE_TabBarTabLabel;
  }
  const auto* const header = qstyleoption_cast<const QStyleOptionHeader*>(option);
  if (element != CE_HeaderSection || header == nullptr) return false;
  DrawHeaderSection(*header, painter);
  return true;
}

bool LookStyle::DrawMenuPart(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (item == nullptr) return false;
  if (element == CE_MenuBarItem) DrawMenuBarItem(*item, painter);
  if (element == CE_MenuItem) DrawMenuItem(*item, painter, widget);
  return element == CE_MenuBarItem || element == CE_MenuItem;
}

void LookStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  if (DrawGround(element, option, painter) || DrawTabOrHeader(element, option, painter, widget) ||
      DrawMenuPart(element, option, painter, widget))
    return;
  if (const auto* const item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
      element == CE_ItemViewItem && item != nullptr)
    return DrawViewItem(*item, painter, widget);
  if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
      element == CE_PushButtonLabel && button != nullptr) {
    QStyleOptionButton label(*button);
    label.palette = ButtonLabelPalette(*button);
    return QProxyStyle::drawControl(element, &label, painter, widget);
  }
  if (const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      element == CE_ComboBoxLabel && combo != nullptr) {
    // a box to choose from is a field and not a button
    QStyleOptionComboBox label(*combo);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
      label.palette.setColor(group, QPalette::ButtonText, combo->palette.color(group, QPalette::Text));
    return QProxyStyle::drawControl(element, &label, painter, widget);
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  switch (control) {
    case CC_GroupBox:
      if (const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option))
        return DrawGroup(*group, painter, widget);
      break;
    case CC_ComboBox:
      if (const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option))
        return DrawCombo(*combo, painter, widget);
      break;
    case CC_SpinBox:
      if (const auto* const spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option))
        return DrawSpin(*spin, painter, widget);
      break;
    case CC_Slider:
      if (const auto* const slider = qstyleoption_cast<const QStyleOptionSlider*>(option))
        return DrawSlider(*slider, painter, widget);
      break;
    case CC_ToolButton:
      if (const auto* const button = qstyleoption_cast<const QStyleOptionToolButton*>(option))
        return DrawToolButton(*button, painter, widget);
      break;
    case CC_ScrollBar:
      if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option))
        return DrawScrollBar(*bar, painter, widget);
      break;
    case CC_TitleBar:
      if (const auto* const bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option))
        return DrawTitleBar(*bar, painter, widget);
      break;
    case CC_MdiControls:
      return DrawMdiControls(*option, painter, widget);
    default:
      break;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QPixmap LookStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                       const QStyleOption* option) const {
  if (mode != QIcon::Disabled) return QProxyStyle::generatedIconPixmap(QIcon::Normal, pixmap, option);
  QPixmap faint(pixmap.size());
  faint.setDevicePixelRatio(pixmap.devicePixelRatio());
  faint.fill(Qt::transparent);
  QPainter painter(&faint);
  painter.setOpacity(0.35);
  painter.drawPixmap(0, 0, pixmap);
  return faint;
}

}  // namespace halvorine
