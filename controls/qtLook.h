// How every window looks: one style over Fusion, a palette for the day and one for the night. All colours
// come from the palette, so that the night colours reach every window; no window uses style sheets.
#pragma once

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QPalette>

namespace halvorine {

/// The palettes of the program, complete for all roles and groups.
QPalette DayPalette();
QPalette NightPalette();

/// Whether a palette is the night palette.
bool IsNight(const QPalette& palette);

/// Role of muted text: captions at the left of values, hints in empty lists. Used by setForegroundRole.
constexpr QPalette::ColorRole MutedRole = QPalette::BrightText;

/// Colours for which a palette has no role.
struct LookColours {
  QColor Workspace;                                                   // behind the child windows
  QColor Caption, CaptionText, InactiveCaption, InactiveCaptionText;  // title bars
  QColor WindowFrame, InactiveWindowFrame;                            // around child windows
  QColor FieldEdge;                                                   // fields, buttons, check boxes
  QColor Hairline;                                                    // between rows and blocks
  QColor FrameEdge;                                                   // groups, tab pages, hairlines
  QColor Page;                                                        // inside of groups and tab pages
  QColor FocusEdge;                                                   // focus and default button
  QColor Hovered, Pressed;                                            // inside of a button
  QColor Track, Thumb;                                                // scroll bars
};
LookColours ColoursOf(const QPalette& palette);

/// Sets style, day palette, the interface font (Liberation Sans 9 pt) and the tooltips' colours.
void ApplyLook(QApplication& application);

/// Changes all windows to the night colours or back to the day's. The background of a work area (Workspace)
/// and pictures are for their owners to change; they get a PaletteChange event.
void ApplyNight(bool on);

/// The command of the night colours: NightColoursActive first, then all windows, since maps and charts look
/// at it when they draw themselves anew. What is so already is left alone.
void SwitchNightColours(bool on);

/// The interface font with another size in points or weight.
QFont LookFont(double points = 9, bool bold = false);
/// The font of report rows, tables by columns and element lines: Liberation Mono 9 pt.
QFont ColumnFont();

}  // namespace halvorine
