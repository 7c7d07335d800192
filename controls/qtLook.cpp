#include "controls/qtLook.h"

#include <QToolTip>

#include "controls/qtLookStyle.h"

namespace halvorine {

namespace {

constexpr QRgb dayMuted = 0xff55626e;
const QColor nightWindow(128, 0, 0), nightText(255, 0, 0), nightDark(64, 0, 0), nightInk(0, 0, 0);

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int x, int y) { return qRound(x + (y - x) * share); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

void SetDisabled(QPalette& palette, const QColor& colour) {
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText,
        QPalette::HighlightedText, MutedRole, QPalette::Link})
    palette.setColor(QPalette::Disabled, role, colour);
}

}  // namespace

QPalette DayPalette() {
  const QColor window(0xeceff2), text(0x1b232c), button(0xf8f9fb), highlight(0x2b5f8f);
  QPalette palette;
  const auto set = [&palette](QPalette::ColorRole role, const QColor& colour) {
    palette.setColor(QPalette::All, role, colour);
  };
  set(QPalette::Window, window);
  set(QPalette::WindowText, text);
  set(QPalette::Base, Qt::white);
  set(QPalette::AlternateBase, QColor(0xf3f6f9));
  set(QPalette::Text, text);
  set(QPalette::Button, button);
  set(QPalette::ButtonText, text);
  set(MutedRole, QColor(dayMuted));
  set(QPalette::Highlight, highlight);
  set(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xc8d7e5));
  palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xdde3e9));
  set(QPalette::PlaceholderText, QColor(0x66727e));
  set(QPalette::ToolTipBase, QColor(0x26323e));
  set(QPalette::ToolTipText, QColor(0xf3f6f9));
  set(QPalette::Link, highlight);
  set(QPalette::LinkVisited, QColor(0x5b4a86));
  set(QPalette::Light, Qt::white);
  set(QPalette::Midlight, Mixed(window, Qt::white, 0.5));
  set(QPalette::Dark, QColor(0x7e8a96));
  set(QPalette::Mid, Mixed(window, text, 0.22));
  set(QPalette::Shadow, QColor(0x414e5b));
  SetDisabled(palette, QColor(0x8d98a4));
  return palette;
}

QPalette NightPalette() {
  QPalette palette;
  const auto set = [&palette](QPalette::ColorRole role, const QColor& colour) {
    palette.setColor(QPalette::All, role, colour);
  };
  for (const QPalette::ColorRole role :
       {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button, QPalette::ToolTipBase,
        QPalette::Highlight, QPalette::Midlight})
    set(role, nightWindow);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ToolTipText, QPalette::Light, MutedRole})
    set(role, nightText);
  for (const QPalette::ColorRole role :
       {QPalette::ButtonText, QPalette::HighlightedText, QPalette::PlaceholderText, QPalette::Link,
        QPalette::LinkVisited, QPalette::Dark, QPalette::Mid, QPalette::Shadow})
    set(role, nightInk);
  SetDisabled(palette, QColor(128, 128, 128));
  return palette;
}

bool IsNight(const QPalette& palette) { return palette.color(QPalette::Window) == nightWindow; }

LookColours ColoursOf(const QPalette& palette) {
  LookColours colours;
  colours.FieldEdge = palette.color(QPalette::Dark);
  colours.FrameEdge = palette.color(QPalette::Mid);
  colours.Workspace = palette.color(QPalette::Shadow);
  colours.Hairline = colours.FrameEdge;
  if (IsNight(palette)) {
    colours.Caption = nightDark;
    colours.CaptionText = nightText;
    colours.InactiveCaption = nightInk;
    colours.InactiveCaptionText = nightWindow;
    colours.WindowFrame = nightWindow;
    colours.InactiveWindowFrame = nightDark;
    colours.Page = nightWindow;
    colours.FocusEdge = nightText;
    colours.Hovered = Mixed(nightWindow, nightText, 0.12);
    colours.Pressed = nightDark;
    colours.Track = nightDark;
    colours.Thumb = nightWindow;
    return colours;
  }
  const QColor window = palette.color(QPalette::Window), text = palette.color(QPalette::WindowText);
  colours.Caption = colours.WindowFrame = QColor(0x2a3744);
  colours.CaptionText = Qt::white;
  colours.InactiveCaption = colours.InactiveWindowFrame = QColor(0x596573);
  colours.InactiveCaptionText = QColor(0xe9eef2);
  colours.Page = palette.color(QPalette::Midlight);
  colours.FocusEdge = palette.color(QPalette::Active, QPalette::Highlight);
  colours.Hovered = Qt::white;
  colours.Pressed = Mixed(window, colours.FocusEdge, 0.18);
  colours.Hairline = Mixed(window, text, 0.16);
  colours.Track = Mixed(window, Qt::white, 0.4);
  colours.Thumb = Mixed(window, text, 0.32);
  return colours;
}

QFont LookFont(double points, bool bold) {
  QFont font(QStringLiteral("Liberation Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(points);
  font.setBold(bold);
  return font;
}

QFont ColumnFont() {
  QFont font(QStringLiteral("Liberation Mono"));
  font.setStyleHint(QFont::Monospace);
  font.setPointSizeF(9);
  return font;
}

void ApplyNight(bool on) {
  const QPalette palette = on ? NightPalette() : DayPalette();
  QApplication::setPalette(palette);
  QPalette menus = palette;
  if (on)
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
      for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        menus.setColor(group, role, nightInk);
  QApplication::setPalette(menus, "QMenu");
  QApplication::setPalette(menus, "QMenuBar");
  QToolTip::setPalette(palette);
  // black on dark red is faint: a heavier letter helps
  // black on dark red is faint: a heavier letter helps
  QApplication::setFont(LookFont());
  for (const char* const name : {"QMenu", "QMenuBar", "QPushButton"})
    QApplication::setFont(LookFont(9, on), name);
  QToolTip::setFont(LookFont());
  // open windows are told by posted events; without these two the next picture would still be the old one
  QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationFontChange);
}

void ApplyLook(QApplication& application) {
  application.setStyle(new LookStyle());
  ApplyNight(false);
}

}  // namespace halvorine
