// The drawing target of all maps, charts and printed pages: a user coordinate system, a pen, colours and a
// font over a few device operations. Devices (a window's picture, a printed page, a recording) derive from it
// and see device twips only: 15 twips are one logical pixel, x runs right and y runs down.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace halvorine {

/// A colour, blue*65536 + green*256 + red.
using Colour = std::int32_t;

constexpr Colour Rgb(int red, int green, int blue) { return blue * 65536 + green * 256 + red; }
constexpr Colour White = Rgb(255, 255, 255);
constexpr Colour Black = 0;

/// Handle of a picture that a device can paint; how it is held is the device's own affair.
class DrawPicture {
 public:
  virtual ~DrawPicture() = default;
  /// Whether it holds no picture; painting it does nothing.
  virtual bool Empty() const = 0;
  /// Natural size, twips.
  virtual double NaturalWidth() const = 0;
  virtual double NaturalHeight() const = 0;
};

struct DrawFont {
  std::string Family = "Liberation Sans";
  double Points = 9;
  bool Bold = false;
  bool operator==(const DrawFont&) const = default;
};

enum class LineKind : std::uint8_t { Solid, Dashed };
enum class FillKind : std::uint8_t { Transparent, Solid };
enum class DrawLayer : std::uint8_t { Persistent, Transient };

/// A place and a size on the device, twips.
struct DeviceSpot {
  double X = 0, Y = 0;
  bool operator==(const DeviceSpot&) const = default;
};
struct DeviceSize {
  double Width = 0, Height = 0;
};

/// How a line or an edge is drawn. The width is in pixels.
struct DrawStroke {
  Colour Ink = Black;
  double Width = 1;
  LineKind Kind = LineKind::Solid;
};

/// An ellipse or, where both angles are given, a sector of it; angles in radians, counterclockwise from the
/// right, with lines to the centre.
struct DeviceRound {
  DeviceSpot Centre;
  double RadiusX = 0, RadiusY = 0;  // twips
  std::optional<double> Start, End;
};

class DrawSurface {
 public:
  virtual ~DrawSurface() = default;

  // State that the operations below use.
  Colour ForeColor = Black, BackColor = White, FillColor = Black;
  FillKind FillStyle = FillKind::Transparent;
  LineKind DrawStyle = LineKind::Solid;
  double DrawWidth = 1;  // pixels
  DrawFont Font;
  double CurrentX = 0, CurrentY = 0;  // the pen, user units
  std::optional<Colour> TextHalo;     // a rim around texts, where the device can
  double MinimumRadius = 0;           // pixels; smaller circles are drawn so large, on screens only

  /// User coordinates of the top left and the bottom right corner. ArithmeticFailure for an empty range.
  void Scale(double x1, double y1, double x2, double y2);
  /// User units become device twips from the top left corner.
  void ScaleModeTwips();
  double ScaleWidth() const;  // user units; negative where an axis runs against the device's
  double ScaleHeight() const;
  double Width() const { return DeviceExtent().Width; }  // twips
  double Height() const { return DeviceExtent().Height; }
  /// User coordinates of a place on the device, twips.
  double UserX(double deviceX) const;
  double UserY(double deviceY) const;

  /// While on, drawing goes to the persistent layer; while off, to the transient layer above it.
  void AutoRedraw(bool on) { layer_ = on ? DrawLayer::Persistent : DrawLayer::Transient; }
  bool AutoRedraw() const { return layer_ == DrawLayer::Persistent; }
  /// Wipes the transient layer; with AutoRedraw on, fills the persistent one with BackColor as well. The pen
  /// goes to the origin.
  void Cls();

  /// A picture in its natural size or stretched, with its top left corner at (x, y).
  void PaintPicture(const DrawPicture& picture, double x, double y);
  void PaintPicture(const DrawPicture& picture, double x, double y, double width, double height);
  /// A line from the pen or from a point; the pen stands at its end afterwards.
  void Line(double x, double y, Colour colour);
  void Line(double x1, double y1, double x2, double y2, Colour colour);
  /// A rectangle by two corners, drawn or filled in one colour.
  void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled);
  /// A circle, filled with FillColor when FillStyle is solid. The radius counts in units of the x axis; an
  /// aspect other than 1 is height by width, the radius being the longer half axis. The pen stands at the
  /// centre afterwards.
  void Circle(double x, double y, double radius, Colour colour, double aspect = 1);
  /// A sector of such an ellipse between two angles in radians, counterclockwise from the right.
  void Pie(double x, double y, double radius, Colour colour, double start, double end, double aspect = 1);
  void PSet(double x, double y, Colour colour);
  /// Text with its top left corner at the pen; the pen moves on to its right end.
  void Print(std::string_view text);
  double TextWidth(std::string_view text) const;   // user units, not negative
  double TextHeight(std::string_view text) const;  // user units, not negative

  /// From here to EndShade the lines are strokes of one area: a device with pixels fills between neighbouring
  /// strokes and paints the area once, with an opacity of 0 to 1; others draw the lines as they come.
  virtual void BeginShade(Colour /*colour*/, double /*opacity*/) {}
  virtual void EndShade() {}
  /// From here to EndCurve the lines are pieces of one curve, drawn at EndCurve on a dark band that is
  /// `casing` pixels wider (0 for none). Devices without pixels draw the lines as they come.
  virtual void BeginCurve(double /*casing*/) {}
  virtual void EndCurve() {}

 protected:
  DrawLayer Layer() const { return layer_; }

  virtual DeviceSize DeviceExtent() const = 0;
  virtual void DeviceClear(DrawLayer layer, Colour background) = 0;
  virtual void DeviceLine(DeviceSpot from, DeviceSpot to, const DrawStroke& stroke) = 0;
  virtual void DeviceBox(DeviceSpot corner, DeviceSize size, const DrawStroke& stroke, bool filled) = 0;
  virtual void DeviceEllipse(const DeviceRound& round, const DrawStroke& stroke,
                             std::optional<Colour> fill) = 0;
  virtual void DevicePie(const DeviceRound& round, const DrawStroke& stroke, std::optional<Colour> fill) = 0;
  virtual void DevicePoint(DeviceSpot at, const DrawStroke& stroke) = 0;
  virtual void DeviceText(DeviceSpot corner, std::string_view text, Colour colour) = 0;
  virtual DeviceSize DeviceTextExtent(std::string_view text) const = 0;
  virtual void DevicePicture(DeviceSpot corner, DeviceSize size, const DrawPicture& picture) = 0;

 private:
  DeviceSpot ToDevice(double x, double y) const;
  DrawStroke Stroke(Colour colour) const { return {colour, DrawWidth, DrawStyle}; }
  DeviceRound Round(double x, double y, double radius, double aspect) const;
  std::optional<Colour> Fill() const;

  struct UserScale {
    double x1, y1, x2, y2;
  };
  std::optional<UserScale> scale_;  // none: device twips
  DrawLayer layer_ = DrawLayer::Persistent;
};

/// Keeps a shade or a curve open while it lives, so that a failing routine cannot leave it open.
class ShadeScope {
 public:
  ShadeScope(DrawSurface& surface, Colour colour, double opacity) : surface_(surface) {
    surface_.BeginShade(colour, opacity);
  }
  ~ShadeScope() { surface_.EndShade(); }
  ShadeScope(const ShadeScope&) = delete;
  ShadeScope& operator=(const ShadeScope&) = delete;

 private:
  DrawSurface& surface_;
};

class CurveScope {
 public:
  CurveScope(DrawSurface& surface, double casing) : surface_(surface) { surface_.BeginCurve(casing); }
  ~CurveScope() { surface_.EndCurve(); }
  CurveScope(const CurveScope&) = delete;
  CurveScope& operator=(const CurveScope&) = delete;

 private:
  DrawSurface& surface_;
};

/// Runs a drawing routine; any RuntimeFailure ends it silently and the frame stays incomplete.
void DrawQuietly(const std::function<void()>& routine);

}  // namespace halvorine
