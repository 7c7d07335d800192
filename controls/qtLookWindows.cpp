// What the style draws of compound controls and around windows: group titles, combo and spin boxes, menus,
// tool buttons, scroll bars and the title bars of child windows.
#include <QComboBox>
#include <QMenuBar>

#include "controls/qtLookStyle.h"

namespace halvorine {

namespace {

enum class Glyph { Close, Maximise, Restore, Minimise };

void DrawGlyph(QPainter* painter, const QRect& rect, Glyph glyph, const QColor& colour) {
  const PainterHold hold(painter);
  painter->translate(Middle(rect, 10, 10).topLeft());
  QPen pen(colour, 1.5);
  pen.setJoinStyle(Qt::MiterJoin);
  painter->setPen(pen);
  painter->setBrush(Qt::NoBrush);
  painter->setRenderHint(QPainter::Antialiasing);
  switch (glyph) {
    case Glyph::Close:
      painter->drawLine(QPointF(1, 1), QPointF(9, 9));
      painter->drawLine(QPointF(9, 1), QPointF(1, 9));
      return;
    case Glyph::Maximise:
      painter->drawRect(QRectF(1, 1, 8, 8));
      return;
    case Glyph::Restore:
      painter->drawRect(QRectF(0.5, 3, 6.5, 6.5));
      painter->drawPolyline(QPolygonF({{3, 3}, {3, 0.5}, {9.5, 0.5}, {9.5, 7}, {7, 7}}));
      return;
    case Glyph::Minimise:
      painter->drawLine(QPointF(1, 8.25), QPointF(9, 8.25));
      return;
  }
}

}  // namespace

void LookStyle::DrawGroup(const QStyleOptionGroupBox& group, QPainter* painter, const QWidget* widget) const {
  const PainterHold hold(painter);
  if (!group.features.testFlag(QStyleOptionFrame::Flat)) {
    QStyleOption frame(group);
    frame.rect = subControlRect(CC_GroupBox, &group, SC_GroupBoxFrame, widget);
    DrawFrame(PE_FrameGroupBox, &frame, painter, widget);
  }
  if (group.subControls.testFlag(SC_GroupBoxCheckBox)) {
    QStyleOption mark(group);
    DrawCheckMark(painter, subControlRect(CC_GroupBox, &group, SC_GroupBoxCheckBox, widget), mark, false);
  }
  QFont font(painter->font());
  font.setBold(true);
  painter->setFont(font);
  // a title that is wider than its frame, such as a path, shows its middle as dots
  const QRect title = subControlRect(CC_GroupBox, &group, SC_GroupBoxLabel, widget) & group.rect;
  const QString text =
      painter->fontMetrics().elidedText(group.text, Qt::ElideMiddle, title.width(), Qt::TextShowMnemonic);
  drawItemText(painter, title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, group.palette,
               Has(group, State_Enabled), text, QPalette::WindowText);
}

namespace {

void DrawFieldBox(const QStyleOption& option, QPainter* painter) {
  const LookColours colours = ColoursOf(option.palette);
  const bool enabled = Has(option, QStyle::State_Enabled);
  const QColor edge = !enabled                              ? colours.FrameEdge
                      : Has(option, QStyle::State_HasFocus) ? colours.FocusEdge
                                                            : colours.FieldEdge;
  DrawBox(painter, option.rect, option.palette.color(enabled ? QPalette::Base : QPalette::Window), edge);
}

QColor ArrowColour(const QStyleOption& option) {
  const bool enabled = Has(option, QStyle::State_Enabled);
  if (!enabled) return option.palette.color(QPalette::Disabled, QPalette::Text);
  return option.palette.color(IsNight(option.palette) ? QPalette::Text : MutedRole);
}

}  // namespace

void LookStyle::DrawCombo(const QStyleOptionComboBox& combo, QPainter* painter, const QWidget* widget) const {
  if (combo.frame) DrawFieldBox(combo, painter);
  const QRect arrow = subControlRect(CC_ComboBox, &combo, SC_ComboBoxArrow, widget);
  if (combo.editable)
    painter->fillRect(QRect(arrow.left(), combo.rect.top() + 1, 1, combo.rect.height() - 2),
                      ColoursOf(combo.palette).FrameEdge);
  DrawArrow(painter, arrow, Qt::DownArrow, ArrowColour(combo));
}

void LookStyle::DrawSpin(const QStyleOptionSpinBox& spin, QPainter* painter, const QWidget* widget) const {
  if (spin.frame) DrawFieldBox(spin, painter);
  if (spin.buttonSymbols == QAbstractSpinBox::NoButtons) return;
  const LookColours colours = ColoursOf(spin.palette);
  for (const SubControl part : {SC_SpinBoxUp, SC_SpinBoxDown}) {
    const bool up = part == SC_SpinBoxUp;
    const QRect rect = subControlRect(CC_SpinBox, &spin, part, widget);
    if (Has(spin, State_Sunken) && spin.activeSubControls.testFlag(part))
      painter->fillRect(rect.adjusted(1, 1, -1, -1), colours.Pressed);
    QStyleOption state(spin);
    if (!spin.stepEnabled.testFlag(up ? QAbstractSpinBox::StepUpEnabled : QAbstractSpinBox::StepDownEnabled))
      state.state &= ~State_Enabled;
    DrawArrow(painter, rect, up ? Qt::UpArrow : Qt::DownArrow, ArrowColour(state), 3);
  }
}

void LookStyle::DrawSlider(const QStyleOptionSlider& slider, QPainter* painter, const QWidget* widget) const {
  const LookColours colours = ColoursOf(slider.palette);
  const bool lying = slider.orientation == Qt::Horizontal;
  const QRect groove = subControlRect(CC_Slider, &slider, SC_SliderGroove, widget);
  const QRect handle = subControlRect(CC_Slider, &slider, SC_SliderHandle, widget);
  const QRect track = lying ? Middle(groove, groove.width(), 4) : Middle(groove, 4, groove.height());
  DrawBox(painter, track, colours.FrameEdge, QColor(), 1, 2);
  const bool focused = Has(slider, State_HasFocus) && Has(slider, State_KeyboardFocusChange);
  const QColor fill = Has(slider, State_Enabled) ? slider.palette.color(QPalette::Button) : colours.FrameEdge;
  DrawBox(painter, Middle(handle, 14, 14), fill, focused ? colours.FocusEdge : colours.FieldEdge,
          focused ? 1.6 : 1, 7);
}

void LookStyle::DrawMenuBarItem(const QStyleOptionMenuItem& item, QPainter* painter) const {
  painter->fillRect(item.rect, item.palette.color(QPalette::Window));
  const LookColours colours = ColoursOf(item.palette);
  const bool night = IsNight(item.palette);
  const bool chosen = Has(item, State_Selected) && Has(item, State_Enabled);
  QPalette palette(item.palette);
  QColor text = item.palette.color(QPalette::Active, QPalette::ButtonText);
  if (chosen) {
    const QColor fill = night ? colours.FieldEdge : item.palette.color(QPalette::Active, QPalette::Highlight);
    DrawBox(painter, item.rect, fill, QColor());
    text = night ? colours.FocusEdge : item.palette.color(QPalette::Active, QPalette::HighlightedText);
  }
  palette.setColor(QPalette::Active, QPalette::ButtonText, text);
  palette.setColor(QPalette::Inactive, QPalette::ButtonText, text);
  drawItemText(painter, item.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, palette,
               Has(item, State_Enabled), item.text, QPalette::ButtonText);
}

namespace {

/// Check mark or picture at the left of a menu item.
void DrawMenuSide(const QStyleOptionMenuItem& item, QPainter* painter, const QRect& side) {
  if (item.checkType != QStyleOptionMenuItem::NotCheckable) {
    QStyleOption mark(item);
    mark.state.setFlag(QStyle::State_On, item.checked);
    mark.state &= ~(QStyle::State_Sunken | QStyle::State_MouseOver | QStyle::State_NoChange);
    DrawCheckMark(painter, side, mark, item.checkType == QStyleOptionMenuItem::Exclusive);
  } else if (!item.icon.isNull()) {
    item.icon.paint(painter, Middle(side, 16, 16), Qt::AlignCenter,
                    Has(item, QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled);
  }
}

}  // namespace

void LookStyle::DrawMenuItem(const QStyleOptionMenuItem& item, QPainter* painter,
                             const QWidget* widget) const {
  const PainterHold hold(painter);
  const LookColours colours = ColoursOf(item.palette);
  const QRect r = item.rect;
  const bool night = IsNight(item.palette), enabled = Has(item, State_Enabled);
  if (item.menuItemType == QStyleOptionMenuItem::Separator) {
    painter->fillRect(QRect(r.left() + 4, r.center().y(), r.width() - 8, 1), colours.Hairline);
    return;
  }
  const bool chosen = Has(item, State_Selected) && enabled;
  QColor text = item.palette.color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::Text);
  if (chosen) {
    painter->fillRect(r,
                      night ? colours.FieldEdge : item.palette.color(QPalette::Active, QPalette::Highlight));
    text = night ? colours.FocusEdge : item.palette.color(QPalette::Active, QPalette::HighlightedText);
  }
  DrawMenuSide(item, painter, QRect(r.left() + 4, r.top(), 22, r.height()));
  painter->setPen(text);
  QFont font(item.font);
  if (item.menuItemType == QStyleOptionMenuItem::DefaultItem) font.setBold(true);
  painter->setFont(font);
  const int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip |
                    (styleHint(SH_UnderlineShortcut, &item, widget, nullptr) != 0 ? Qt::TextShowMnemonic
                                                                                  : Qt::TextHideMnemonic);
  const qsizetype tab = item.text.indexOf(QLatin1Char('\t'));
  const QRect inner = r.adjusted(30, 0, -16, 0);
  painter->drawText(inner, flags | Qt::AlignLeft, tab < 0 ? item.text : item.text.left(tab));
  if (tab >= 0) {
    if (!chosen && enabled && !night) painter->setPen(item.palette.color(MutedRole));
    painter->drawText(inner, flags | Qt::AlignRight, item.text.mid(tab + 1));
  }
  if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
    DrawArrow(painter, QRect(r.right() - 16, r.top(), 12, r.height()), Qt::RightArrow, text, 3);
}

void LookStyle::DrawToolButton(const QStyleOptionToolButton& button, QPainter* painter,
                               const QWidget* widget) const {
  const LookColours colours = ColoursOf(button.palette);
  const bool hovered = Has(button, State_MouseOver) && Has(button, State_Enabled);
  const bool down = Has(button, State_Sunken) || Has(button, State_On);
  const QRect face = subControlRect(CC_ToolButton, &button, SC_ToolButton, widget);
  const QRect menu = subControlRect(CC_ToolButton, &button, SC_ToolButtonMenu, widget);
  const bool split = button.subControls.testFlag(SC_ToolButtonMenu);
  const bool focused = Has(button, State_HasFocus) && Has(button, State_KeyboardFocusChange);
  const bool framed = !Has(button, State_AutoRaise);
  if (down || hovered || focused || framed) {
    const QColor fill = down      ? colours.Pressed
                        : hovered ? colours.Hovered
                                  : button.palette.color(QPalette::Button);
    DrawBox(painter, split ? face.united(menu) : face, fill, focused ? colours.FocusEdge : colours.FieldEdge);
  }
  QStyleOptionToolButton label(button);
  label.rect = face;
  label.state &= ~State_Sunken;
  QProxyStyle::drawControl(CE_ToolButtonLabel, &label, painter, widget);
  const bool corner = !split && button.features.testFlag(QStyleOptionToolButton::HasMenu);
  if (split)
    DrawArrow(painter, menu, Qt::DownArrow, ArrowColour(button));
  else if (corner) {
    // beside a text it stands in the middle of the line, in the corner of a picture otherwise
    const int top = button.icon.isNull() ? face.center().y() - 3 : face.bottom() - 8;
    DrawArrow(painter, QRect(face.right() - 9, top, 8, 8), Qt::DownArrow, ArrowColour(button),
              button.icon.isNull() ? 3 : 2);
  }
}

void LookStyle::DrawScrollBar(const QStyleOptionSlider& bar, QPainter* painter, const QWidget* widget) const {
  const LookColours colours = ColoursOf(bar.palette);
  painter->fillRect(bar.rect, colours.Track);
  if (bar.maximum <= bar.minimum) return;
  const QRect thumb = subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget).adjusted(2, 2, -2, -2);
  const bool held =
      bar.activeSubControls.testFlag(SC_ScrollBarSlider) && (bar.state & (State_Sunken | State_MouseOver));
  const QColor fill = held && !IsNight(bar.palette) ? colours.Thumb.darker(115) : colours.Thumb;
  const bool focused = Has(bar, State_HasFocus) && Has(bar, State_KeyboardFocusChange);
  DrawBox(painter, thumb, fill, focused ? colours.FocusEdge : QColor(), 1.6, 4);
}

void LookStyle::DrawTitleBar(const QStyleOptionTitleBar& bar, QPainter* painter,
                             const QWidget* widget) const {
  const PainterHold hold(painter);
  // the palette of the bar is the one of the time when its window was made
  const QPalette palette = widget != nullptr ? widget->palette() : bar.palette;
  const LookColours colours = ColoursOf(palette);
  const bool active = (bar.titleBarState & Qt::WindowActive) != 0 || Has(bar, State_Active);
  painter->fillRect(bar.rect, active ? colours.Caption : colours.InactiveCaption);
  if (IsNight(palette))
    DrawBox(painter, bar.rect, QColor(), active ? colours.Caption : colours.InactiveWindowFrame, 1, 0);
  const QColor text = active ? colours.CaptionText : colours.InactiveCaptionText;
  const auto place = [this, &bar, widget](SubControl part) {
    return subControlRect(CC_TitleBar, &bar, part, widget);
  };
  if (const QRect icon = place(SC_TitleBarSysMenu); !icon.isEmpty())
    bar.icon.paint(painter, Middle(icon, 16, 16));
  painter->setPen(text);
  const QRect label = place(SC_TitleBarLabel);
  painter->drawText(label, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                    bar.fontMetrics.elidedText(bar.text, Qt::ElideRight, label.width()));
  const bool minimised = (bar.titleBarState & Qt::WindowMinimized) != 0;
  const std::pair<SubControl, Glyph> buttons[] = {{SC_TitleBarCloseButton, Glyph::Close},
                                                  {SC_TitleBarMaxButton, Glyph::Maximise},
                                                  {SC_TitleBarNormalButton, Glyph::Restore},
                                                  {SC_TitleBarMinButton, Glyph::Minimise}};
  for (const auto& [part, glyph] : buttons) {
    const QRect rect = place(part);
    if (rect.isEmpty() || (glyph == Glyph::Minimise && minimised)) continue;
    if (bar.activeSubControls.testFlag(part) && (bar.state & (State_MouseOver | State_Sunken))) {
      QColor glow(text);
      glow.setAlpha(Has(bar, State_Sunken) ? 90 : 45);
      DrawBox(painter, rect, glow, QColor());
    }
    DrawGlyph(painter, rect, glyph, text);
  }
}

void LookStyle::DrawMdiControls(const QStyleOptionComplex& option, QPainter* painter,
                                const QWidget* widget) const {
  const std::pair<SubControl, Glyph> buttons[] = {{SC_MdiCloseButton, Glyph::Close},
                                                  {SC_MdiNormalButton, Glyph::Restore},
                                                  {SC_MdiMinButton, Glyph::Minimise}};
  for (const auto& [part, glyph] : buttons) {
    if (!option.subControls.testFlag(part)) continue;
    const QRect rect = subControlRect(CC_MdiControls, &option, part, widget);
    if (option.activeSubControls.testFlag(part) && (option.state & (State_MouseOver | State_Sunken)))
      DrawBox(painter, rect, ColoursOf(option.palette).Pressed, QColor());
    DrawGlyph(painter, rect, glyph, option.palette.color(QPalette::ButtonText));
  }
}

}  // namespace halvorine
