// A surface that lists what is drawn on it, in user and device units, with text metrics of its own.
#pragma once

#include <string>
#include <vector>

#include "maps/DrawSurface.h"

namespace halvorine {

struct Primitive {
  enum class Kind { Line, Box, Ellipse, Pie, Point, Text, Picture, Clear } kind;
  DrawLayer layer;
  Colour colour = 0;
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // user units; centre and radii in twips for round ones
  DeviceSpot from, to;                    // twips
  DrawStroke stroke;
  std::string text;
  const DrawPicture* picture = nullptr;
  bool filled = false, shaded = false, curve = false;
  Colour fill = -1;           // of round ones, -1 for none
  double start = 0, end = 0;  // of sectors
};

class RecordingSurface : public DrawSurface {
 public:
  static constexpr double CharacterWidth = 90, LineHeight = 180;  // twips

  explicit RecordingSurface(double width = 5400, double height = 2700) : size_{width, height} {}

  std::vector<Primitive> drawn;

  std::vector<Primitive> Of(Primitive::Kind kind) const {
    std::vector<Primitive> found;
    for (const Primitive& item : drawn)
      if (item.kind == kind) found.push_back(item);
    return found;
  }
  std::vector<Primitive> Lines(Colour colour) const {
    std::vector<Primitive> found;
    for (const Primitive& item : drawn)
      if (item.kind == Primitive::Kind::Line && item.colour == colour) found.push_back(item);
    return found;
  }

  void BeginShade(Colour, double) override { shading_ = true; }
  void EndShade() override { shading_ = false; }
  void BeginCurve(double) override { curving_ = true; }
  void EndCurve() override { curving_ = false; }
  bool Open() const { return shading_ || curving_; }

 protected:
  DeviceSize DeviceExtent() const override { return size_; }
  void DeviceClear(DrawLayer layer, Colour background) override {
    Primitive& item = Add(Primitive::Kind::Clear, background);
    item.layer = layer;
  }
  void DeviceLine(DeviceSpot from, DeviceSpot to, const DrawStroke& stroke) override {
    Place(Add(Primitive::Kind::Line, stroke.Ink), from, to).stroke = stroke;
  }
  void DeviceBox(DeviceSpot corner, DeviceSize size, const DrawStroke& stroke, bool filled) override {
    Place(Add(Primitive::Kind::Box, stroke.Ink), corner, {corner.X + size.Width, corner.Y + size.Height})
        .filled = filled;
  }
  void DeviceEllipse(const DeviceRound& round, const DrawStroke& stroke,
                     std::optional<Colour> fill) override {
    AddRound(Primitive::Kind::Ellipse, round, stroke, fill);
  }
  void DevicePie(const DeviceRound& round, const DrawStroke& stroke, std::optional<Colour> fill) override {
    AddRound(Primitive::Kind::Pie, round, stroke, fill);
  }
  void DevicePoint(DeviceSpot at, const DrawStroke& stroke) override {
    Place(Add(Primitive::Kind::Point, stroke.Ink), at, at);
  }
  void DeviceText(DeviceSpot corner, std::string_view text, Colour colour) override {
    Place(Add(Primitive::Kind::Text, colour), corner, corner).text = text;
  }
  DeviceSize DeviceTextExtent(std::string_view text) const override {
    return {CharacterWidth * static_cast<double>(text.size()), LineHeight};
  }
  void DevicePicture(DeviceSpot corner, DeviceSize size, const DrawPicture& picture) override {
    Place(Add(Primitive::Kind::Picture, 0), corner, {corner.X + size.Width, corner.Y + size.Height}).picture =
        &picture;
  }

 private:
  Primitive& Add(Primitive::Kind kind, Colour colour) {
    Primitive& item = drawn.emplace_back();
    item.kind = kind;
    item.layer = Layer();
    item.colour = colour;
    item.shaded = shading_;
    item.curve = curving_;
    return item;
  }
  Primitive& Place(Primitive& item, DeviceSpot from, DeviceSpot to) {
    item.from = from;
    item.to = to;
    item.x1 = UserX(from.X);
    item.y1 = UserY(from.Y);
    item.x2 = UserX(to.X);
    item.y2 = UserY(to.Y);
    return item;
  }
  void AddRound(Primitive::Kind kind, const DeviceRound& round, const DrawStroke& stroke,
                std::optional<Colour> fill) {
    Primitive& item = Place(Add(kind, stroke.Ink), round.Centre, round.Centre);
    item.x2 = round.RadiusX;
    item.y2 = round.RadiusY;
    item.filled = fill.has_value();
    item.fill = fill.value_or(-1);
    item.start = round.Start.value_or(0);
    item.end = round.End.value_or(0);
  }

  DeviceSize size_;
  bool shading_ = false, curving_ = false;
};

/// A picture of a size without content.
class FakePicture : public DrawPicture {
 public:
  explicit FakePicture(double width = 360, double height = 360, bool empty = false)
      : width_(width), height_(height), empty_(empty) {}
  bool Empty() const override { return empty_; }
  double NaturalWidth() const override { return width_; }
  double NaturalHeight() const override { return height_; }

 private:
  double width_, height_;
  bool empty_;
};

}  // namespace halvorine
