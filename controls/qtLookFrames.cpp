// What the style draws inside of windows: marks, buttons, fields, frames, tabs, headers and rows.
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QGroupBox>
#include <QPushButton>

#include "controls/qtLookStyle.h"

namespace halvorine {

namespace {

/// A polygon of a list of points; named, since the constructors of a polygon cannot be told apart by a list.
QPolygonF Points(const QList<QPointF>& points) { return QPolygonF(points); }

}  // namespace

QRect Middle(const QRect& rect, int width, int height) {
  return {rect.left() + (rect.width() - width) / 2, rect.top() + (rect.height() - height) / 2, width, height};
}

QColor TextColour(const QStyleOption& option, QPalette::ColorRole role) {
  const QPalette::ColorGroup group = !Has(option, QStyle::State_Enabled) ? QPalette::Disabled
                                     : Has(option, QStyle::State_Active) ? QPalette::Active
                                                                         : QPalette::Inactive;
  return option.palette.color(group, role);
}

QPalette ButtonLabelPalette(const QStyleOption& option) {
  QPalette palette(option.palette);
  if (IsNight(palette) && (option.state & (QStyle::State_Sunken | QStyle::State_On)))
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
      palette.setColor(group, QPalette::ButtonText, ColoursOf(palette).FocusEdge);
  return palette;
}

void DrawBox(QPainter* painter, const QRect& rect, const QColor& fill, const QColor& edge, double width,
             double radius) {
  const PainterHold hold(painter);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
  painter->setPen(edge.isValid() ? QPen(edge, width) : QPen(Qt::NoPen));
  const double inset = edge.isValid() ? width / 2 : 0;
  painter->drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), radius, radius);
}

void DrawArrow(QPainter* painter, const QRect& rect, Qt::ArrowType direction, const QColor& colour,
               int size) {
  const PainterHold hold(painter);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(colour);
  painter->translate(QRectF(rect).center());
  constexpr int quarters[] = {0, 180, 0, 90, -90};  // NoArrow, up, down, left, right
  painter->rotate(quarters[direction]);
  const double half = size, height = size * 0.55;
  painter->drawPolygon(Points({{-half, -height}, {half, -height}, {0, height}}));
}

void DrawCheckMark(QPainter* painter, const QRect& rect, const QStyleOption& option, bool round) {
  const PainterHold hold(painter);
  const LookColours colours = ColoursOf(option.palette);
  const bool night = IsNight(option.palette), enabled = Has(option, QStyle::State_Enabled);
  const bool on = Has(option, QStyle::State_On), partly = Has(option, QStyle::State_NoChange);
  const QColor highlight = option.palette.color(QPalette::Active, QPalette::Highlight);
  const QColor disabled =
      night ? colours.FieldEdge : option.palette.color(QPalette::Disabled, QPalette::Text);
  QColor fill = option.palette.color(enabled ? QPalette::Base : QPalette::Window);
  QColor edge = enabled ? colours.FieldEdge : disabled;
  QColor mark = night ? colours.FocusEdge : QColor(Qt::white);
  if (on || partly) {
    fill = night ? colours.Pressed : enabled ? highlight : disabled;
    edge = night ? colours.FieldEdge : fill;
    if (!enabled && night) mark = option.palette.color(QPalette::Window);
  }
  if (Has(option, QStyle::State_Sunken) && !on) fill = colours.Pressed;
  if (Has(option, QStyle::State_MouseOver) && enabled && !on) edge = colours.FocusEdge;
  const QRect box = Middle(rect, 14, 14);
  DrawBox(painter, box, fill, edge, 1, round ? 7 : cornerRadius);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->translate(box.topLeft());
  if (partly || (on && !round)) {
    painter->setPen(QPen(mark, 1.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(partly ? Points({{4, 7}, {10, 7}}) : Points({{3.7, 7.3}, {6, 9.7}, {10.4, 4.6}}));
  } else if (on) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(mark);
    painter->drawEllipse(QRectF(4.2, 4.2, 5.6, 5.6));
  }
}

namespace {

void DrawButtonPanel(const QStyleOption& option, QPainter* painter) {
  const LookColours colours = ColoursOf(option.palette);
  const bool night = IsNight(option.palette), enabled = Has(option, QStyle::State_Enabled);
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  if (button != nullptr && button->features.testFlag(QStyleOptionButton::Flat) &&
      !(option.state & (QStyle::State_Sunken | QStyle::State_On | QStyle::State_MouseOver)))
    return;
  const bool isDefault =
      button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton) && enabled;
  const bool focused =
      Has(option, QStyle::State_HasFocus) && (night || Has(option, QStyle::State_KeyboardFocusChange));
  QColor fill = option.palette.color(enabled ? QPalette::Button : QPalette::Window);
  if (option.state & (QStyle::State_Sunken | QStyle::State_On))
    fill = colours.Pressed;
  else if (enabled && Has(option, QStyle::State_MouseOver))
    fill = colours.Hovered;
  const QColor edge = isDefault || focused ? colours.FocusEdge
                      : enabled            ? colours.FieldEdge
                                           : colours.FrameEdge;
  DrawBox(painter, option.rect, fill, edge, isDefault || focused ? 1.6 : 1);
}

void DrawField(const QStyleOption& option, QPainter* painter, bool filled) {
  const LookColours colours = ColoursOf(option.palette);
  const bool enabled = Has(option, QStyle::State_Enabled);
  const QColor edge = !enabled                              ? colours.FrameEdge
                      : Has(option, QStyle::State_HasFocus) ? colours.FocusEdge
                                                            : colours.FieldEdge;
  DrawBox(painter, option.rect,
          filled ? option.palette.color(enabled ? QPalette::Base : QPalette::Window) : QColor(), edge);
}

/// The sides and the bottom of a child window, below its title bar.
void DrawWindowFrame(const QStyleOption& option, QPainter* painter, int width, int title) {
  const LookColours colours = ColoursOf(option.palette);
  const QColor edge = Has(option, QStyle::State_Active) ? colours.WindowFrame : colours.InactiveWindowFrame;
  const QRect r = option.rect;
  painter->fillRect(r.left(), r.top() + title, width, r.height() - title, edge);
  painter->fillRect(r.right() - width + 1, r.top() + title, width, r.height() - title, edge);
  painter->fillRect(r.left(), r.bottom() - width + 1, r.width(), width, edge);
}

/// Frame of the row that is selected at night, when its fill does not differ from the rest.
void DrawNightRow(const QStyleOptionViewItem& item, QPainter* painter) {
  using Position = QStyleOptionViewItem::ViewItemPosition;
  const PainterHold hold(painter);
  painter->setPen(ColoursOf(item.palette).FieldEdge);
  const QRect r = item.rect.adjusted(0, 0, -1, -1);
  painter->drawLine(r.topLeft(), r.topRight());
  painter->drawLine(r.bottomLeft(), r.bottomRight());
  const Position at = item.viewItemPosition;
  if (at != Position::Middle && at != Position::End) painter->drawLine(r.topLeft(), r.bottomLeft());
  if (at != Position::Middle && at != Position::Beginning) painter->drawLine(r.topRight(), r.bottomRight());
}

}  // namespace

bool LookStyle::DrawFrame(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  const LookColours colours = ColoursOf(option->palette);
  switch (element) {
    case PE_PanelLineEdit:
      if (const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
          frame != nullptr && frame->lineWidth <= 0) {
        // the field inside of a combo or date box: its owner draws the edge
        painter->fillRect(option->rect, option->palette.color(
                                            Has(*option, State_Enabled) ? QPalette::Base : QPalette::Window));
        return true;
      }
      DrawField(*option, painter, true);
      return true;
    case PE_FrameLineEdit:
      return true;
    case PE_Frame:
      if (qobject_cast<const QAbstractScrollArea*>(widget) != nullptr)
        DrawField(*option, painter, true);
      else if (widget != nullptr && widget->inherits("QComboBoxPrivateContainer"))
        painter->fillRect(option->rect, colours.FieldEdge);
      else
        DrawBox(painter, option->rect, QColor(), colours.FrameEdge);
      return true;
    case PE_FrameGroupBox:
    case PE_FrameTabWidget:
      DrawBox(painter, option->rect, colours.Page, colours.FrameEdge);
      return true;
    case PE_FrameTabBarBase:
    case PE_FrameDefaultButton:
    case PE_FrameStatusBarItem:
    case PE_PanelScrollAreaCorner:
      return true;
    case PE_PanelTipLabel:
      painter->fillRect(option->rect, option->palette.color(QPalette::ToolTipBase));
      if (IsNight(option->palette)) DrawBox(painter, option->rect, QColor(), colours.FieldEdge, 1, 0);
      return true;
    case PE_PanelMenu:
      painter->fillRect(option->rect, option->palette.color(QPalette::Base));
      return true;
    case PE_FrameMenu:
      DrawBox(painter, option->rect, QColor(), colours.FieldEdge, 1, 0);
      return true;
    case PE_FrameWindow:
      DrawWindowFrame(*option, painter, pixelMetric(PM_MdiSubWindowFrameWidth, option, widget),
                      pixelMetric(PM_TitleBarHeight, option, widget));
      return true;
    default:
      return false;
  }
}

bool LookStyle::DrawArrowElement(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter) const {
  Qt::ArrowType direction = Qt::NoArrow;
  int size = 4;
  if (element == PE_IndicatorArrowUp) direction = Qt::UpArrow;
  if (element == PE_IndicatorArrowDown) direction = Qt::DownArrow;
  if (element == PE_IndicatorArrowLeft) direction = Qt::LeftArrow;
  if (element == PE_IndicatorArrowRight) direction = Qt::RightArrow;
  if (const auto* const header = qstyleoption_cast<const QStyleOptionHeader*>(option);
      element == PE_IndicatorHeaderArrow && header != nullptr) {
    direction = header->sortIndicator == QStyleOptionHeader::SortUp ? Qt::DownArrow : Qt::UpArrow;
    size = 3;
  }
  if (direction == Qt::NoArrow) return false;
  DrawArrow(painter, option->rect, direction, TextColour(*option, QPalette::ButtonText), size);
  return true;
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (DrawFrame(element, option, painter, widget) || DrawArrowElement(element, option, painter)) return;
  const LookColours colours = ColoursOf(option->palette);
  switch (element) {
    case PE_PanelButtonCommand:
    case PE_PanelButtonBevel:
    case PE_PanelButtonTool:
      DrawButtonPanel(*option, painter);
      return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
    case PE_IndicatorMenuCheckMark:
      DrawCheckMark(painter, option->rect, *option, false);
      return;
    case PE_IndicatorRadioButton:
      DrawCheckMark(painter, option->rect, *option, true);
      return;
    case PE_FrameFocusRect:
      if (Has(*option, State_KeyboardFocusChange) && qobject_cast<const QPushButton*>(widget) == nullptr)
        DrawBox(painter, option->rect, QColor(), colours.FocusEdge, 1, 2);
      return;
    case PE_IndicatorToolBarSeparator: {
      const QRect r = option->rect;
      painter->fillRect(QRect(r.center().x(), r.top() + 5, 1, r.height() - 10), colours.Hairline);
      return;
    }
    case PE_PanelStatusBar:
      painter->fillRect(option->rect, option->palette.color(QPalette::Window));
      painter->fillRect(QRect(option->rect.topLeft(), QSize(option->rect.width(), 1)), colours.Hairline);
      return;
    case PE_PanelItemViewRow:
    case PE_PanelItemViewItem:
      if (const auto* const item = qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
        QStyleOptionViewItem calm(*item);
        calm.state &= ~State_MouseOver;
        QProxyStyle::drawPrimitive(element, &calm, painter, widget);
        if (element == PE_PanelItemViewItem && Has(*item, State_Selected) && IsNight(item->palette))
          DrawNightRow(*item, painter);
        return;
      }
      break;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void LookStyle::DrawTabShape(const QStyleOptionTab& tab, QPainter* painter) const {
  const PainterHold hold(painter);
  const LookColours colours = ColoursOf(tab.palette);
  const bool night = IsNight(tab.palette), selected = Has(tab, State_Selected);
  const bool focused = Has(tab, State_HasFocus) && Has(tab, State_KeyboardFocusChange);
  if (tab.shape == QTabBar::RoundedWest || tab.shape == QTabBar::TriangularWest) {
    const QRect box = tab.rect.adjusted(2, 1, -4, -1);
    const QColor highlight =
        night ? colours.Pressed : tab.palette.color(QPalette::Active, QPalette::Highlight);
    if (selected)
      DrawBox(painter, box, highlight, focused ? tab.palette.color(QPalette::Text) : QColor());
    else if (Has(tab, State_MouseOver))
      DrawBox(painter, box, colours.Hovered, QColor());
    return;
  }
  const bool first =
      tab.position == QStyleOptionTab::Beginning || tab.position == QStyleOptionTab::OnlyOneTab;
  QRect box = tab.rect.adjusted(0, selected ? 0 : 2, 0, 0);
  if (!selected && !first) box.setLeft(box.left() - 1);
  painter->setClipRect(box.adjusted(0, 0, 0, selected ? 0 : -1));
  const QColor rest = night ? colours.Pressed : tab.palette.color(QPalette::Window).darker(106);
  // the lower corners lie outside of the clip
  DrawBox(painter, box.adjusted(0, 0, 0, 6), selected ? colours.Page : rest, colours.FrameEdge);
  if (!selected) return;
  painter->setClipRect(QRect(box.left(), box.top(), box.width(), 3));
  DrawBox(painter, box, colours.FocusEdge, QColor());
  if (!focused) return;
  painter->setClipping(false);
  DrawBox(painter, box.adjusted(4, 6, -4, -3), QColor(), colours.FocusEdge, 1, 2);
}

void LookStyle::DrawTabLabel(const QStyleOptionTab& tab, QPainter* painter, const QWidget* widget) const {
  const bool west = tab.shape == QTabBar::RoundedWest || tab.shape == QTabBar::TriangularWest;
  if (!west) {
    QStyleOptionTab plain(tab);
    plain.state &= ~State_HasFocus;
    QProxyStyle::drawControl(CE_TabBarTabLabel, &plain, painter, widget);
    return;
  }
  const bool light = Has(tab, State_Selected) && !IsNight(tab.palette);
  QPalette palette(tab.palette);
  const QColor text =
      tab.palette.color(QPalette::Active, light ? QPalette::HighlightedText : QPalette::WindowText);
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
    palette.setColor(group, QPalette::WindowText, text);
  drawItemText(painter, tab.rect.adjusted(14, 0, -10, 0),
               Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, palette, Has(tab, State_Enabled),
               tab.text, QPalette::WindowText);
}

void LookStyle::DrawHeaderSection(const QStyleOptionHeader& header, QPainter* painter) const {
  const LookColours colours = ColoursOf(header.palette);
  const QRect r = header.rect;
  const QColor fill = IsNight(header.palette) ? header.palette.color(QPalette::Button)
                                              : header.palette.color(QPalette::Window).darker(103);
  painter->fillRect(r, Has(header, State_Sunken) ? colours.Pressed : fill);
  painter->fillRect(QRect(r.left(), r.bottom(), r.width(), 1), colours.FrameEdge);
  if (header.orientation == Qt::Horizontal && header.section >= 0)
    painter->fillRect(QRect(r.right(), r.top() + 4, 1, r.height() - 8), colours.FrameEdge);
}

void LookStyle::DrawViewItem(const QStyleOptionViewItem& item, QPainter* painter,
                             const QWidget* widget) const {
  QStyleOptionViewItem row(item);
  // a list without the focus shows its selection pale, also in the active window
  if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget);
      view != nullptr && !view->hasFocus())
    row.state &= ~State_Active;
  if (Has(row, State_Selected)) row.state &= ~State_HasFocus;
  QProxyStyle::drawControl(CE_ItemViewItem, &row, painter, widget);
}

}  // namespace halvorine
