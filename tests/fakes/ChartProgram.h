// The running program with a map or a chart in it, and the hands that work on its picture.
#pragma once

#include <QMouseEvent>
#include <QWheelEvent>
#include <string>

#include "maps/qtSurface.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {

/// Notes the object that a chart wants shown: a star by its name, a body by its number.
class FakeObject : public FakeForm<ObjectCalls> {
 public:
  explicit FakeObject(CallLog& log) : FakeForm("frmObject", log) {}
  void ShowObject(int index) override { Note(index == 0 ? PickedStar.Name : std::to_string(index)); }
};

class ChartProgram : public RunningProgram {
 protected:
  /// Takes the picture of a window to work on.
  void Take(QWidget* window) { picture = Control<SurfaceWidget>(window, "Picture1"); }
  /// Place in the picture of a place in user units.
  QPoint At(double x, double y) const {
    const PixmapSurface& surface = picture->Surface();
    return {qRound((x - surface.UserX(0)) / surface.ScaleWidth() * picture->width()),
            qRound((y - surface.UserY(0)) / surface.ScaleHeight() * picture->height())};
  }
  QImage Shown() const { return picture->grab().toImage(); }
  void MovePointer(QPoint place) const {
    QTest::mouseMove(picture, place + QPoint(5, 5));
    QTest::mouseMove(picture, place);
  }
  /// Draws with the left button held and gives what was seen before it was let go.
  QImage Drag(QPoint from, QPoint to) const {
    QTest::mousePress(picture, Qt::LeftButton, {}, from);
    for (const QPoint& at : {(from + to) / 2, to}) {
      QMouseEvent move(QEvent::MouseMove, at, picture->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
      QCoreApplication::sendEvent(picture, &move);
    }
    const QImage shown = Shown();
    QTest::mouseRelease(picture, Qt::LeftButton, {}, to);
    return shown;
  }
  void Wheel(QPoint at, int notches) const {
    QWheelEvent event(at, picture->mapToGlobal(at), {}, QPoint(0, 120 * notches), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(picture, &event);
  }
  /// Opens a popup by the right button and chooses an item, in a submenu where it has one.
  void ChooseIn(const char* popup, const char* item, const char* submenu = nullptr) {
    QTest::mouseClick(picture, Qt::RightButton, {}, QPoint(9, 9));
    QMenu* menu = Menu(popup);
    ASSERT_TRUE(menu->isVisible());
    if (submenu != nullptr) {
      menu->setActiveAction(Item(submenu));
      QTest::keyClick(menu, Qt::Key_Right);
      menu = Menu(submenu);
    }
    ASSERT_TRUE(menu->isVisible()) << item;
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Item(item)).center());
    QCoreApplication::processEvents();
  }

  SurfaceWidget* picture = nullptr;
};

}  // namespace halvorine
