// The one style of all windows, over Fusion: flat, with one-pixel edges, and without a colour of its own.
// Metrics, sizes and places stand in qtLookStyle.cpp, what is drawn in qtLookFrames.cpp (marks, fields, tabs,
// headers, rows) and qtLookWindows.cpp (menus, bars, title bars, scroll bars), shared out by
// qtLookDispatch.cpp.
#pragma once

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

#include "controls/qtLook.h"

namespace halvorine {

class LookStyle : public QProxyStyle {
 public:
  LookStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* back) const override;
  QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                     const QWidget* widget) const override;
  QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                              const QStyleOption* option) const override;

 private:
  bool DrawFrame(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                 const QWidget* widget) const;
  bool DrawGround(ControlElement element, const QStyleOption* option, QPainter* painter) const;
  bool DrawTabOrHeader(ControlElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const;
  bool DrawMenuPart(ControlElement element, const QStyleOption* option, QPainter* painter,
                    const QWidget* widget) const;
  bool DrawArrowElement(PrimitiveElement element, const QStyleOption* option, QPainter* painter) const;
  void DrawTabShape(const QStyleOptionTab& tab, QPainter* painter) const;
  void DrawTabLabel(const QStyleOptionTab& tab, QPainter* painter, const QWidget* widget) const;
  void DrawHeaderSection(const QStyleOptionHeader& header, QPainter* painter) const;
  void DrawViewItem(const QStyleOptionViewItem& item, QPainter* painter, const QWidget* widget) const;
  void DrawGroup(const QStyleOptionGroupBox& group, QPainter* painter, const QWidget* widget) const;
  void DrawCombo(const QStyleOptionComboBox& combo, QPainter* painter, const QWidget* widget) const;
  void DrawSpin(const QStyleOptionSpinBox& spin, QPainter* painter, const QWidget* widget) const;
  void DrawSlider(const QStyleOptionSlider& slider, QPainter* painter, const QWidget* widget) const;
  void DrawMenuBarItem(const QStyleOptionMenuItem& item, QPainter* painter) const;
  void DrawMenuItem(const QStyleOptionMenuItem& item, QPainter* painter, const QWidget* widget) const;
  void DrawToolButton(const QStyleOptionToolButton& button, QPainter* painter, const QWidget* widget) const;
  void DrawScrollBar(const QStyleOptionSlider& bar, QPainter* painter, const QWidget* widget) const;
  void DrawTitleBar(const QStyleOptionTitleBar& bar, QPainter* painter, const QWidget* widget) const;
  void DrawMdiControls(const QStyleOptionComplex& option, QPainter* painter, const QWidget* widget) const;
};

/// Keeps the painter's state while it lives.
class PainterHold {
 public:
  explicit PainterHold(QPainter* painter) : painter_(painter) { painter_->save(); }
  ~PainterHold() { painter_->restore(); }
  PainterHold(const PainterHold&) = delete;
  PainterHold& operator=(const PainterHold&) = delete;

 private:
  QPainter* painter_;
};

constexpr double cornerRadius = 3.5;

/// A box with round corners and an edge inside its rectangle; an invalid colour leaves its part out.
void DrawBox(QPainter* painter, const QRect& rect, const QColor& fill, const QColor& edge, double width = 1,
             double radius = cornerRadius);
/// A small filled arrow in the middle of a rectangle.
void DrawArrow(QPainter* painter, const QRect& rect, Qt::ArrowType direction, const QColor& colour,
               int size = 4);
/// A check mark box, as in windows and menus.
void DrawCheckMark(QPainter* painter, const QRect& rect, const QStyleOption& option, bool round);
/// Text of a role in the colours of an option's state.
QColor TextColour(const QStyleOption& option, QPalette::ColorRole role);
/// Palette for the caption of a button: at night a pressed or checked one is dark and its caption red.
QPalette ButtonLabelPalette(const QStyleOption& option);
/// The rectangle of a size in the middle of another.
QRect Middle(const QRect& rect, int width, int height);

inline bool Has(const QStyleOption& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

}  // namespace halvorine
