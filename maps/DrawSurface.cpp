#include "maps/DrawSurface.h"

#include <cmath>

#include "astro/mMate.h"

namespace halvorine {

void DrawQuietly(const std::function<void()>& routine) {
  try {
    routine();
  } catch (const RuntimeFailure&) {
    // the next frame draws again
  }
}

void DrawSurface::Scale(double x1, double y1, double x2, double y2) {
  if (!(Finite(x2 - x1) != 0)) FailDivision(x2 - x1);
  if (!(Finite(y2 - y1) != 0)) FailDivision(y2 - y1);
  scale_ = UserScale{x1, y1, x2, y2};
}

void DrawSurface::ScaleModeTwips() { scale_.reset(); }

double DrawSurface::ScaleWidth() const { return scale_ ? scale_->x2 - scale_->x1 : Width(); }
double DrawSurface::ScaleHeight() const { return scale_ ? scale_->y2 - scale_->y1 : Height(); }

double DrawSurface::UserX(double deviceX) const {
  return scale_ ? scale_->x1 + Div(deviceX * ScaleWidth(), Width()) : deviceX;
}

double DrawSurface::UserY(double deviceY) const {
  return scale_ ? scale_->y1 + Div(deviceY * ScaleHeight(), Height()) : deviceY;
}

DeviceSpot DrawSurface::ToDevice(double x, double y) const {
  if (!scale_) return {Finite(x), Finite(y)};
  return {Finite(Div((x - scale_->x1) * Width(), ScaleWidth())),
          Finite(Div((y - scale_->y1) * Height(), ScaleHeight()))};
}

std::optional<Colour> DrawSurface::Fill() const {
  if (FillStyle == FillKind::Solid) return FillColor;
  return std::nullopt;
}

void DrawSurface::Cls() {
  if (AutoRedraw()) DeviceClear(DrawLayer::Persistent, BackColor);
  DeviceClear(DrawLayer::Transient, BackColor);
  CurrentX = 0;
  CurrentY = 0;
}

void DrawSurface::PaintPicture(const DrawPicture& picture, double x, double y) {
  if (picture.Empty()) return;
  DevicePicture(ToDevice(x, y), {picture.NaturalWidth(), picture.NaturalHeight()}, picture);
}

void DrawSurface::PaintPicture(const DrawPicture& picture, double x, double y, double width, double height) {
  if (picture.Empty()) return;
  const DeviceSpot a = ToDevice(x, y);
  const DeviceSpot b = ToDevice(x + width, y + height);
  DevicePicture({std::min(a.X, b.X), std::min(a.Y, b.Y)}, {std::abs(b.X - a.X), std::abs(b.Y - a.Y)},
                picture);
}

void DrawSurface::Line(double x, double y, Colour colour) { Line(CurrentX, CurrentY, x, y, colour); }

void DrawSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
  DeviceLine(ToDevice(x1, y1), ToDevice(x2, y2), Stroke(colour));
  CurrentX = x2;
  CurrentY = y2;
}

void DrawSurface::Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) {
  const DeviceSpot a = ToDevice(x1, y1);
  const DeviceSpot b = ToDevice(x2, y2);
  DeviceBox({std::min(a.X, b.X), std::min(a.Y, b.Y)}, {std::abs(b.X - a.X), std::abs(b.Y - a.Y)},
            Stroke(colour), filled);
  CurrentX = x2;
  CurrentY = y2;
}

DeviceRound DrawSurface::Round(double x, double y, double radius, double aspect) const {
  const double longer = std::abs(Div(radius * Width(), ScaleWidth()));
  DeviceRound round;
  round.Centre = ToDevice(x, y);
  round.RadiusX = Finite(aspect > 1 ? Div(longer, aspect) : longer);
  round.RadiusY = Finite(aspect > 1 ? longer : longer * aspect);
  return round;
}

void DrawSurface::Circle(double x, double y, double radius, Colour colour, double aspect) {
  DeviceEllipse(Round(x, y, radius, aspect), Stroke(colour), Fill());
  CurrentX = x;
  CurrentY = y;
}

void DrawSurface::Pie(double x, double y, double radius, Colour colour, double start, double end,
                      double aspect) {
  DeviceRound round = Round(x, y, radius, aspect);
  round.Start = Finite(start);
  round.End = Finite(end);
  DevicePie(round, Stroke(colour), Fill());
  CurrentX = x;
  CurrentY = y;
}

void DrawSurface::PSet(double x, double y, Colour colour) {
  DevicePoint(ToDevice(x, y), Stroke(colour));
  CurrentX = x;
  CurrentY = y;
}

void DrawSurface::Print(std::string_view text) {
  DeviceText(ToDevice(CurrentX, CurrentY), text, ForeColor);
  CurrentX += Div(DeviceTextExtent(text).Width * ScaleWidth(), Width());
}

double DrawSurface::TextWidth(std::string_view text) const {
  return std::abs(Div(DeviceTextExtent(text).Width * ScaleWidth(), Width()));
}

double DrawSurface::TextHeight(std::string_view text) const {
  return std::abs(Div(DeviceTextExtent(text).Height * ScaleHeight(), Height()));
}

}  // namespace halvorine
