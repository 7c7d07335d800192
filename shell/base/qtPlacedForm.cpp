#include "shell/base/qtPlacedForm.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QSize>
#include <algorithm>
#include <utility>

#include "shell/base/mGlobal.h"
#include "shell/base/mReg.h"

namespace halvorine {

namespace {

constexpr QSize smallest(160, 120), usualScreen(1920, 1200);  // logical pixels

/// Left, top, width and height in pixels. A picture of the size that somebody typed into the settings might
/// not fit the memory, nor its place any screen.
QRect ReachablePlace(const WindowPlace& place) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  const QSize room = screen != nullptr ? screen->virtualSize().expandedTo(usualScreen) : usualScreen;
  const int width = std::clamp(PixelsOf(place.Width), smallest.width(), room.width());
  const int height = std::clamp(PixelsOf(place.Height), smallest.height(), room.height());
  return {std::clamp(PixelsOf(place.Left), smallest.width() - width, room.width()),
          std::clamp(PixelsOf(place.Top), smallest.height() - height, room.height()), width, height};
}

}  // namespace

PlacedForm::PlacedForm(const QString& name, std::string settings)
    : ChildForm(name), settings_(std::move(settings)) {}

void PlacedForm::PlaceWindow() {
  if (std::exchange(placed_, true)) return;
  const bool kept = Options.WindowPositions != 0;
  const QRect place = ReachablePlace(kept ? LoadWindowPlace(settings_) : WindowPlace{});
  Frame()->resize(place.size());
  if (kept) Frame()->move(place.topLeft());
}

void PlacedForm::BeforeUnload() {
  if (Options.WindowPositions == 0 || !placed_ || Frame()->isMinimized()) return;
  const QRect frame = Frame()->geometry();
  SaveWindowPlace(settings_,
                  {TwipsOf(frame.x()), TwipsOf(frame.y()), TwipsOf(frame.width()), TwipsOf(frame.height())});
}

void PlacedForm::ShowPopup(const char* menu, QPoint screen) {
  if (MainFormCalls* const main = MainForm()) main->PopupMenu(menu, screen.x(), screen.y());
}

}  // namespace halvorine
