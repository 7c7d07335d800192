#include "astro/mMoonDraw.h"

#include <cmath>

#include "astro/mMate.h"

namespace halvorine {

namespace {

constexpr Colour moonGrey = Rgb(180, 180, 180);

/// Puts the fill of a surface back at its end.
class FillHold {
 public:
  explicit FillHold(DrawSurface& surface)
      : surface_(surface), style_(surface.FillStyle), colour_(surface.FillColor) {}
  ~FillHold() {
    surface_.FillStyle = style_;
    surface_.FillColor = colour_;
  }
  FillHold(const FillHold&) = delete;
  FillHold& operator=(const FillHold&) = delete;

 private:
  DrawSurface& surface_;
  FillKind style_;
  Colour colour_;
};

}  // namespace

void DrawMoon(DrawSurface& surface, double x, double y, double radius, double phaseAngle) {
  const FillHold hold(surface);
  const double phase = ModFloor(phaseAngle, 360);
  const bool rightIsLit = phase < 180;
  const auto fill = [&surface](Colour colour) { return surface.FillColor = colour; };
  surface.FillStyle = FillKind::Solid;
  surface.Circle(x, y, radius, fill(moonGrey));
  surface.Pie(x, y, radius, fill(rightIsLit ? White : Black), 3 * Pi / 2, Pi / 2);
  surface.Pie(x, y, radius, fill(rightIsLit ? Black : White), Pi / 2, 3 * Pi / 2);
  // half of the terminator's ellipse lies over the lit side or over the dark one; at the quarters there is
  // none
  const double cosine = std::cos(phase * DegToRad);
  if (phase != 90 && phase != 270 && cosine != 0)
    surface.Circle(x, y, radius, fill(cosine > 0 ? Black : White), 1 / std::fabs(cosine));
  // a rim, so that the dark side is seen on a black sky
  surface.FillStyle = FillKind::Transparent;
  surface.Circle(x, y, radius, moonGrey);
}

}  // namespace halvorine
