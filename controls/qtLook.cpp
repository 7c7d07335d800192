#include "controls/qtLook.h"

#include <QToolTip>
#include <initializer_list>

#include "controls/mNight.h"
#include "controls/qtLookStyle.h"
#include "controls/qtNightCaret.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr QRgb dayMuted = 0xff55626e;

QColor NightOf(SystemColour colour) { return ColourOf(NightColour(colour)); }

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
  using Night = SystemColour;
  QPalette palette;
  const auto set = [&palette](Night colour, std::initializer_list<QPalette::ColorRole> roles) {
    for (const QPalette::ColorRole role : roles) palette.setColor(QPalette::All, role, NightOf(colour));
  };
  set(Night::ButtonFace, {QPalette::Window, QPalette::Button, QPalette::Midlight});
  set(Night::Window, {QPalette::Base, QPalette::AlternateBase});
  set(Night::Highlight, {QPalette::Highlight});
  set(Night::ToolTipGround, {QPalette::ToolTipBase});
  set(Night::WindowText, {QPalette::WindowText, QPalette::Text, MutedRole});
  set(Night::ToolTipText, {QPalette::ToolTipText});
  set(Night::ButtonHighlight, {QPalette::Light});
  // a hot light is as dark as what it would stand on: links and hints are as black as a button's text
  set(Night::ButtonText,
      {QPalette::ButtonText, QPalette::PlaceholderText, QPalette::Link, QPalette::LinkVisited});
  set(Night::HighlightText, {QPalette::HighlightedText});
  set(Night::ButtonShadow, {QPalette::Dark, QPalette::Mid});
  set(Night::Workspace, {QPalette::Shadow});
  SetDisabled(palette, NightOf(Night::GreyText));
  return palette;
}

bool IsNight(const QPalette& palette) {
  return palette.color(QPalette::Window) == NightOf(SystemColour::ButtonFace);
}

namespace {

void SetNightColours(LookColours& colours) {
  using Night = SystemColour;
  const QColor window = NightOf(Night::Window), light = NightOf(Night::ButtonHighlight);
  colours.Caption = NightOf(Night::ActiveCaption);
  colours.CaptionText = NightOf(Night::CaptionText);
  colours.InactiveCaption = NightOf(Night::InactiveCaption);
  colours.InactiveCaptionText = NightOf(Night::InactiveCaptionText);
  colours.WindowFrame = NightOf(Night::ActiveBorder);
  colours.InactiveWindowFrame = NightOf(Night::InactiveBorder);
  colours.Page = window;
  colours.FocusEdge = light;
  colours.Hovered = Mixed(window, light, 0.12);
  colours.Pressed = colours.Track = NightOf(Night::ScrollBar);
  colours.Thumb = window;
}

}  // namespace

LookColours ColoursOf(const QPalette& palette) {
  LookColours colours;
  colours.FieldEdge = palette.color(QPalette::Dark);
  colours.FrameEdge = palette.color(QPalette::Mid);
  colours.Workspace = palette.color(QPalette::Shadow);
  colours.Hairline = colours.FrameEdge;
  if (IsNight(palette)) {
    SetNightColours(colours);
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
        menus.setColor(group, role, NightOf(SystemColour::MenuText));
  QApplication::setPalette(menus, "QMenu");
  QApplication::setPalette(menus, "QMenuBar");
  QToolTip::setPalette(palette);
  // black on dark red is faint: a heavier letter helps
  QApplication::setFont(LookFont());
  for (const char* const name : {"QMenu", "QMenuBar", "QPushButton"})
    QApplication::setFont(LookFont(9, on), name);
  QToolTip::setFont(LookFont());
  // open windows are told by posted events; without these two the next picture would still be the old one
  QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationFontChange);
  if (auto* const caret = qApp->findChild<NightCaret*>()) caret->Follow();
}

void SwitchNightColours(bool on) {
  if (on == NightColoursActive) return;
  NightColoursActive = on;
  ApplyNight(on);
}

void ApplyLook(QApplication& application) {
  application.setStyle(new LookStyle());
  new NightCaret(&application);
  ApplyNight(false);
}

}  // namespace halvorine
