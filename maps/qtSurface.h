// Drawing surfaces on the screen. PixmapSurface keeps two pictures, the persistent one and a transparent one
// above it; SurfaceWidget shows them and reports the mouse in user units. Night colours are applied here,
// where colours and pictures enter the pixels, so that drawing routines never think of them.
#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QPolygonF>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "maps/DrawSurface.h"

class QPainter;
class QPaintDevice;

namespace halvorine {

/// Deep red of a colour for dark-adapted eyes, keeping its alpha.
QColor NightShadeOf(const QColor& colour);

/// A picture in memory: a photograph, or an icon that is fetched for the pixel ratio and the colours wanted.
class QtPicture : public DrawPicture {
 public:
  QtPicture() = default;
  static QtPicture Photograph(const QString& path);
  /// A picture file of which one colour is transparent.
  static QtPicture Keyed(const QString& path, QRgb key);
  static QtPicture Icon(std::function<QPixmap(bool night, double pixelRatio)> load);

  bool Empty() const override { return image_.isNull(); }
  double NaturalWidth() const override;
  double NaturalHeight() const override;

  /// The picture in device pixels of the wanted size, in night colours where told. The last one is kept.
  const QImage& Drawn(QSize devicePixels, bool night) const;
  /// The picture in its natural size, in night colours where told. The last one is kept.
  const QImage& Whole(bool night) const;

 private:
  QImage Coloured(QImage image, bool night) const;

  QImage image_;
  bool keyed_ = false;
  std::function<QPixmap(bool, double)> load_;  // of an icon
  mutable QImage drawn_;
  mutable bool drawnAtNight_ = false;
};

/// The squares of a picture that hold something, in device pixels.
class TouchedTiles {
 public:
  void Resize(QSize size);
  void Touch(const QRectF& area);
  void Clear();
  /// Disjoint rectangles that cover all touched squares.
  std::vector<QRect> Runs() const;

 private:
  int columns_ = 0, rows_ = 0;
  QSize size_;
  std::vector<char> touched_;
};

class PixmapSurface : public DrawSurface {
 public:
  PixmapSurface();
  ~PixmapSurface() override;
  /// New size in logical pixels; both layers become empty.
  void Resize(QSize size, double pixelRatio);
  /// Paints both layers with their top left corner at the painter's origin.
  void PaintOn(QPainter& painter) const;
  /// Forgets texts that were prepared in other colours.
  void ColoursChanged() { texts_.clear(); }

  void BeginShade(Colour colour, double opacity) override;
  void EndShade() override;
  void BeginCurve(double casing) override;
  void EndCurve() override;

 protected:
  DeviceSize DeviceExtent() const override;
  void DeviceClear(DrawLayer layer, Colour background) override;
  void DeviceLine(DeviceSpot from, DeviceSpot to, const DrawStroke& stroke) override;
  void DeviceBox(DeviceSpot corner, DeviceSize size, const DrawStroke& stroke, bool filled) override;
  void DeviceEllipse(const DeviceRound& round, const DrawStroke& stroke, std::optional<Colour> fill) override;
  void DevicePie(const DeviceRound& round, const DrawStroke& stroke, std::optional<Colour> fill) override;
  void DevicePoint(DeviceSpot at, const DrawStroke& stroke) override;
  void DeviceText(DeviceSpot corner, std::string_view text, Colour colour) override;
  DeviceSize DeviceTextExtent(std::string_view text) const override;
  void DevicePicture(DeviceSpot corner, DeviceSize size, const DrawPicture& picture) override;

 private:
  /// A piece of a curve, logical pixels.
  struct CurveLine {
    QPointF from, to;
    DrawStroke stroke;
  };

  QImage& Target() { return AutoRedraw() ? persistent_ : transient_; }
  /// The painter of the present layer, without brush; it stays open between operations.
  QPainter& OpenPainter(bool smooth);
  void ClosePainter() const;
  std::string FontKey(std::string_view text) const;
  void Touched(const QRectF& logicalArea);
  void AddShadeLine(DeviceSpot from, DeviceSpot to);
  void PaintCasing(const QRect& area);
  const QImage& TextImage(std::string_view text, Colour colour);
  /// Only the part of a picture that lies on the surface, where the whole would be many times larger.
  void DrawPart(const QtPicture& picture, const QRectF& area);
  void DrawHugeEllipse(const QPointF& centre, double rx, double ry, const DrawStroke& stroke,
                       std::optional<Colour> fill);

  QSize size_;  // logical pixels
  double ratio_ = 1;
  QImage persistent_, transient_;
  TouchedTiles touched_;
  std::unordered_map<std::string, QImage> texts_;  // by text, font and colours
  mutable std::unordered_map<std::string, DeviceSize> extents_;
  mutable std::unique_ptr<QPainter> painter_;

  bool shading_ = false;
  Colour shadeColour_ = Black;
  double shadeOpacity_ = 1;
  std::vector<QPolygonF> strokes_;

  bool curving_ = false;
  double casing_ = 0;
  std::vector<CurveLine> curve_;

  /// The last full disc: a smaller one in its colour around the same centre changes nothing.
  struct PlainDisc {
    QPointF centre;
    double rx = 0, ry = 0;
    Colour colour = Black;
    DrawLayer layer = DrawLayer::Persistent;
  };
  std::optional<PlainDisc> lastDisc_;
};

/// A drawing box of a window. Above what is drawn it shows one box or line that follows the mouse.
class SurfaceWidget : public QWidget {
  Q_OBJECT
 public:
  explicit SurfaceWidget(QWidget* parent = nullptr);
  PixmapSurface& Surface() { return surface_; }
  /// While the box is resized, shows the last picture stretched and wants a new one only `milliseconds` after
  /// the last change.
  void StretchWhileResizing(int milliseconds);
  /// Ends the stretching at once where it is under way; true where that has wanted a new picture.
  bool TakePendingSize();
  /// A rectangle or a line between two places, user units; it replaces the one before.
  void ShowRubberBox(double x1, double y1, double x2, double y2);
  void ShowDragLine(double x1, double y1, double x2, double y2);
  void HideOverlay();
  /// Puts the pointer of the keys on a place, user units. Keys move it and press with it, and what it does is
  /// told as if the mouse had done it, until the mouse or another control takes over.
  void PointTo(double x, double y);
  /// Puts it on the place behind the one that this last chose, or on the one before for a step of -1.
  void PointToNext(const std::vector<QPointF>& places, int step);
  /// User units of a place in the box, logical pixels.
  double UserXOf(const QPointF& place) const;
  double UserYOf(const QPointF& place) const;

 Q_SIGNALS:
  /// The box has another size, or the colours of the program have changed: its content is to be drawn anew.
  void redrawWanted();
  void mouseMoved(double x, double y);
  void buttonDown(Qt::MouseButton button, double x, double y, QPoint screen);
  void buttonUp(Qt::MouseButton button, double x, double y);
  /// The wheel has turned, away from the user for positive notches.
  void wheelTurned(double x, double y, double notches);
  /// A second click; it is told as buttonDown as well.
  void doubleClicked(double x, double y);
  /// The keyboard asks for the popup menu without a pointer of its own; the place is the middle of the box on
  /// the screen.
  void menuKey(QPoint screen);
  /// A key asks for another view: magnified by notches as by a wheel, or the whole one for 0 notches.
  void zoomKey(double x, double y, double notches);
  /// A key shifts the view by shares of its width and height, positive ones to the right and downwards.
  void panKey(double right, double down);
  /// A key asks for the next object, or the one before for -1; the owner answers by PointToNext.
  void objectKey(int step);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  enum class Overlay : std::uint8_t { None, Box, Line };

  void TakeSize();
  QPointF PlaceOf(double x, double y) const;
  void ShowOverlay(Overlay kind, double x1, double y1, double x2, double y2);
  void PaintOverlay(QPainter& painter) const;
  void PaintPointer(QPainter& painter) const;
  /// Moves the pointer of the keys, which first comes up in the middle; logical pixels.
  void MovePointer(const QPointF& way);
  /// Presses the pointer of the keys, or lets go what it holds.
  void TurnPress();
  /// Takes the pointer of the keys away; false where there was none.
  bool HidePointer();
  /// Whether the key is one of the pointer.
  bool PointerKey(const QKeyEvent& event);
  bool ViewKey(const QKeyEvent& event);
  double PointerX() const { return UserXOf(*pointer_); }
  double PointerY() const { return UserYOf(*pointer_); }

  PixmapSurface surface_;
  QTimer settled_;  // runs while the box is being resized
  Overlay overlay_ = Overlay::None;
  double x1_ = 0, y1_ = 0, x2_ = 0, y2_ = 0;  // of the overlay, user units
  std::optional<QPointF> pointer_;            // of the keys, logical pixels
  bool pressed_ = false;                      // by a key
  int object_ = -1;                           // that a key chose last
};

}  // namespace halvorine
