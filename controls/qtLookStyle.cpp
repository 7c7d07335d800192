#include "controls/qtLookStyle.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QToolBar>
#include <algorithm>
#include <iterator>
#include <utility>

#include "controls/qtIcons.h"

namespace halvorine {

namespace {

constexpr int titleButtonWidth = 22, scrollThumbMinimum = 24, westTabHeight = 28;
constexpr int fieldMargin = 3;  // logical pixels between the edge of a field and its text, beyond the usual

QFont Bold(const QFont& font) {
  QFont bold(font);
  bold.setBold(true);
  return bold;
}

int GroupTitleHeight(const QStyleOptionGroupBox& group) {
  return group.text.isEmpty() && !group.subControls.testFlag(QStyle::SC_GroupBoxCheckBox)
             ? 0
             : group.fontMetrics.height() + 6;
}

QRect GroupPart(const QStyleOptionGroupBox& group, QStyle::SubControl part, const QWidget* widget) {
  const int title = GroupTitleHeight(group);
  const bool checkable = group.subControls.testFlag(QStyle::SC_GroupBoxCheckBox);
  const QFontMetrics metrics(Bold(widget != nullptr ? widget->font() : QApplication::font()));
  switch (part) {
    case QStyle::SC_GroupBoxCheckBox:
      return Middle(QRect(group.rect.left(), group.rect.top(), 14, title - 4), 14, 14);
    case QStyle::SC_GroupBoxLabel:
      return {group.rect.left() + (checkable ? 20 : 0), group.rect.top(),
              metrics.size(Qt::TextShowMnemonic, group.text).width() + 2, std::max(title - 4, 0)};
    case QStyle::SC_GroupBoxFrame:
      return group.rect.adjusted(0, title, 0, 0);
    default:
      return group.rect.adjusted(1, title + 1, -1, -1);
  }
}

QRect ScrollPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
  const bool lying = bar.orientation == Qt::Horizontal;
  const int length = lying ? bar.rect.width() : bar.rect.height();
  const int range = bar.maximum - bar.minimum;
  int thumb = length;
  if (range > 0) {
    const qint64 wanted = qint64{bar.pageStep} * length / (qint64{range} + bar.pageStep);
    thumb = std::min(length, std::max(static_cast<int>(wanted), scrollThumbMinimum));
  }
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    length - thumb, bar.upsideDown);
  const auto along = [&bar, lying](int from, int to) {
    return lying ? QRect(bar.rect.left() + from, bar.rect.top(), to - from, bar.rect.height())
                 : QRect(bar.rect.left(), bar.rect.top() + from, bar.rect.width(), to - from);
  };
  switch (part) {
    case QStyle::SC_ScrollBarSubPage:
      return along(0, start);
    case QStyle::SC_ScrollBarAddPage:
      return along(start + thumb, length);
    case QStyle::SC_ScrollBarSlider:
      return along(start, start + thumb);
    case QStyle::SC_ScrollBarGroove:
      return bar.rect;
    default:
      return {};
  }
}

/// Place of a title bar button counted from the right, 0 is the close button; only buttons that the window
/// has take a place.
QRect TitleButton(const QStyleOptionTitleBar& bar, int place) {
  return {bar.rect.right() + 1 - 4 - (place + 1) * titleButtonWidth, bar.rect.top() + 2, titleButtonWidth,
          bar.rect.height() - 4};
}

QRect TitlePart(const QStyleOptionTitleBar& bar, QStyle::SubControl part) {
  const bool hasMaximum = bar.titleBarFlags.testFlag(Qt::WindowMaximizeButtonHint);
  const bool hasMinimum = bar.titleBarFlags.testFlag(Qt::WindowMinimizeButtonHint);
  const bool isMinimised = (bar.titleBarState & Qt::WindowMinimized) != 0;
  const bool isMaximised = (bar.titleBarState & Qt::WindowMaximized) != 0;
  const int buttons = 1 + (hasMaximum ? 1 : 0) + (hasMinimum ? 1 : 0);
  const bool hasIcon = !bar.icon.isNull();
  switch (part) {
    case QStyle::SC_TitleBarCloseButton:
      return TitleButton(bar, 0);
    case QStyle::SC_TitleBarMaxButton:
      return hasMaximum && !isMaximised ? TitleButton(bar, 1) : QRect();
    case QStyle::SC_TitleBarMinButton:
      return hasMinimum && !isMinimised ? TitleButton(bar, hasMaximum ? 2 : 1) : QRect();
    case QStyle::SC_TitleBarNormalButton:
      if (isMinimised && hasMinimum) return TitleButton(bar, hasMaximum ? 2 : 1);
      return isMaximised && hasMaximum ? TitleButton(bar, 1) : QRect();
    case QStyle::SC_TitleBarSysMenu:
      return hasIcon ? QRect(bar.rect.left() + 7, bar.rect.top(), 16, bar.rect.height()) : QRect();
    case QStyle::SC_TitleBarLabel:
      return bar.rect.adjusted(hasIcon ? 26 : 9, 0, -buttons * titleButtonWidth - 6, 0);
    default:
      return {};
  }
}

bool IsWest(const QStyleOption* option) {
  const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option);
  return tab != nullptr && (tab->shape == QTabBar::RoundedWest || tab->shape == QTabBar::TriangularWest);
}

QSize ButtonSize(const QStyleOptionButton& button, const QSize& size) {
  if (button.text.isEmpty()) return {size.width() + 12, std::max(size.height() + 8, 28)};
  const int arrow = button.features.testFlag(QStyleOptionButton::HasMenu) ? 12 : 0;
  return {std::max(size.width() + 28 + arrow, 84), std::max(size.height() + 8, 28)};
}

QSize MenuItemSize(const QStyleOptionMenuItem& item, const QSize& size) {
  if (item.menuItemType == QStyleOptionMenuItem::Separator) return {size.width(), 9};
  // check mark or picture, text, room before a shortcut or an arrow
  return {size.width() + 28 + 28, std::max(size.height() + 6, 24)};
}

/// Lengths that differ from those of the style below, logical pixels.
constexpr std::pair<QStyle::PixelMetric, int> metrics[] = {
    {QStyle::PM_LayoutLeftMargin, 12},
    {QStyle::PM_LayoutTopMargin, 12},
    {QStyle::PM_LayoutRightMargin, 12},
    {QStyle::PM_LayoutBottomMargin, 12},
    {QStyle::PM_LayoutHorizontalSpacing, 8},
    {QStyle::PM_LayoutVerticalSpacing, 8},
    {QStyle::PM_IndicatorWidth, 14},
    {QStyle::PM_IndicatorHeight, 14},
    {QStyle::PM_ExclusiveIndicatorWidth, 14},
    {QStyle::PM_ExclusiveIndicatorHeight, 14},
    {QStyle::PM_CheckBoxLabelSpacing, 6},
    {QStyle::PM_RadioButtonLabelSpacing, 6},
    {QStyle::PM_HeaderMargin, 6},
    {QStyle::PM_FocusFrameHMargin, 5},
    {QStyle::PM_ScrollBarExtent, 12},
    {QStyle::PM_ScrollBarSliderMin, scrollThumbMinimum},
    {QStyle::PM_ToolBarIconSize, 24},
    {QStyle::PM_ToolBarItemSpacing, 2},
    {QStyle::PM_ToolBarItemMargin, 2},
    {QStyle::PM_ToolBarFrameWidth, 2},
    {QStyle::PM_ToolBarSeparatorExtent, 9},
    {QStyle::PM_MenuButtonIndicator, 14},
    {QStyle::PM_SmallIconSize, 16},
    {QStyle::PM_ButtonIconSize, 16},
    {QStyle::PM_ListViewIconSize, 16},
    {QStyle::PM_TitleBarButtonIconSize, 16},
    {QStyle::PM_TitleBarHeight, 26},
    {QStyle::PM_MdiSubWindowFrameWidth, 3},
    {QStyle::PM_TabBarTabHSpace, 22},
    {QStyle::PM_TabBarTabVSpace, 10},
    {QStyle::PM_TabBarTabShiftVertical, 0},
    {QStyle::PM_TabBarTabShiftHorizontal, 0},
    {QStyle::PM_TabBarTabOverlap, 0},
    {QStyle::PM_ButtonShiftHorizontal, 0},
    {QStyle::PM_ButtonShiftVertical, 0},
    {QStyle::PM_TabBarBaseOverlap, 1},
    {QStyle::PM_MenuBarItemSpacing, 2},
    {QStyle::PM_MenuBarPanelWidth, 0},
    {QStyle::PM_MenuBarHMargin, 4},
    {QStyle::PM_MenuBarVMargin, 1},
    {QStyle::PM_MenuPanelWidth, 1},
    {QStyle::PM_MenuHMargin, 0},
    {QStyle::PM_MenuVMargin, 0},
    {QStyle::PM_ToolTipLabelFrameWidth, 4},
};

}  // namespace

LookStyle::LookStyle() : QProxyStyle(QStringLiteral("fusion")) {}

QRect LookStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
  if (element == SE_TabBarTabText && IsWest(option)) return option->rect.adjusted(10, 0, -10, 0);
  const QRect told = QProxyStyle::subElementRect(element, option, widget);
  if (const auto* const field = qstyleoption_cast<const QStyleOptionFrame*>(option);
      element == SE_LineEditContents && field != nullptr && field->lineWidth > 0 && widget != nullptr) {
    const bool ofSpinBox = qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) != nullptr;
    return ofSpinBox ? told.adjusted(fieldMargin + 1, 0, 0, 0)
                     : told.adjusted(fieldMargin, 0, -fieldMargin, 0);
  }
  return told;
}

QRect LookStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
  if (const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
      control == CC_GroupBox && group != nullptr)
    return GroupPart(*group, part, widget);
  if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      control == CC_ScrollBar && bar != nullptr)
    return ScrollPart(*bar, part);
  if (const auto* const title = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
      control == CC_TitleBar && title != nullptr)
    return TitlePart(*title, part);
  const QRect told = QProxyStyle::subControlRect(control, option, part, widget);
  if (const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      control == CC_ComboBox && part == SC_ComboBoxEditField && box != nullptr)
    return told.adjusted(box->editable ? fieldMargin + 1 : fieldMargin, 0, 0, 0);
  return told;
}

QSize LookStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
  const QSize told = QProxyStyle::sizeFromContents(type, option, size, widget);
  switch (type) {
    case CT_PushButton:
      if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option))
        return ButtonSize(*button, size);
      return told;
    case CT_MenuItem:
      if (const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
        return MenuItemSize(*item, size);
      return told;
    case CT_GroupBox:
      if (const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option)) {
        const int title = GroupPart(*group, SC_GroupBoxLabel, widget).right() + 4;
        return {std::max(size.width(), title), size.height() + GroupTitleHeight(*group)};
      }
      return told;
    case CT_TabBarTab:
      if (const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option);
          tab != nullptr && IsWest(option))
        return {tab->fontMetrics.size(Qt::TextShowMnemonic, tab->text).width() + 28, westTabHeight};
      return told;
    case CT_MenuBarItem:
      return {size.width() + 16, std::max(size.height() + 6, 22)};
    case CT_ToolButton:
      return size + QSize(6, 6);
    case CT_LineEdit:
    case CT_ComboBox:
      return {told.width() + 2 * fieldMargin, std::max(size.height() + 6, 26)};
    case CT_SpinBox:  // the size of the line inside, which has its edges already
      return {told.width(), std::max(size.height(), 26)};
    case CT_HeaderSection:
      return {told.width(), std::max(told.height(), 26)};
    case CT_ItemViewItem:
      return {told.width(), std::max(told.height(), 22)};
    case CT_SizeGrip:
      return {0, 0};
    default:
      return told;
  }
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_DefaultFrameWidth) {
    if (widget != nullptr && widget->inherits("QLineEdit")) return 3;
    return widget != nullptr && widget->inherits("QComboBoxPrivateContainer") ? 1 : 2;
  }
  if (metric == PM_TextCursorWidth && IsNight(QApplication::palette())) return 0;  // see NightCaret
  const auto* const told = std::find_if(std::begin(metrics), std::end(metrics),
                                        [metric](const auto& row) { return row.first == metric; });
  return told != std::end(metrics) ? told->second : QProxyStyle::pixelMetric(metric, option, widget);
}

QIcon LookStyle::standardIcon(StandardPixmap standard, const QStyleOption* option,
                              const QWidget* widget) const {
  if (standard == SP_ArrowLeft) return ArrowIcon(Qt::LeftArrow);
  if (standard == SP_ArrowRight) return ArrowIcon(Qt::RightArrow);
  return NightIcon(QProxyStyle::standardIcon(standard, option, widget));
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* back) const {
  switch (hint) {
    case SH_ToolTip_WakeUpDelay:
      return 500;
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_Widget_Animation_Duration:
    case SH_MessageBox_CenterButtons:
      return 0;
    case SH_ItemView_ShowDecorationSelected:
      return 1;
    case SH_TabBar_Alignment:
      return Qt::AlignLeft;
    case SH_TabBar_ElideMode:
      return Qt::ElideNone;
    case SH_FormLayoutLabelAlignment:
      return Qt::AlignLeft | Qt::AlignVCenter;
    case SH_DialogButtonLayout:
      return 0;
    default:
      return QProxyStyle::styleHint(hint, option, widget, back);
  }
}

}  // namespace halvorine
