#include "maps/qtSurface.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr double twips = 15;             // to a logical pixel
constexpr std::size_t keptTexts = 2000;  // prepared texts, more than satellites and labels together
constexpr int haloRoom = 1;              // logical pixels around a prepared text
constexpr int haloInset = 2;             // logical pixels from the pen to a text with a rim
constexpr double casingOpacity = 0.43;
constexpr double axisParallel = 1e-3;  // pixels off the axis
constexpr double hugeRadius = 1500;    // pixels, from which an ellipse is drawn by its visible part
constexpr double hugePicture = 3;      // times the surface's area, from which only a part is scaled

QColor ToQColor(Colour colour) {
  const QColor day(colour & 255, (colour >> 8) & 255, (colour >> 16) & 255);
  return NightColoursActive ? NightShadeOf(day) : day;
}

QPointF Pixels(DeviceSpot spot) { return {spot.X / twips, spot.Y / twips}; }

QFont ToQFont(const DrawFont& font) {
  QFont result(ToQ(font.Family));
  result.setPointSizeF(font.Points);
  result.setBold(font.Bold);
  return result;
}

QPen ToQPen(const DrawStroke& stroke, double widthAdded = 0) {
  return QPen(ToQColor(stroke.Ink), stroke.Width + widthAdded,
              stroke.Kind == LineKind::Dashed ? Qt::DashLine : Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
}

/// A line along an axis without smoothing, whole pixels of the device wide, so that all of them are equally
/// strong at any ratio of device to logical pixels.
void DrawPlainLine(QPainter& painter, const QPointF& a, const QPointF& b, const DrawStroke& stroke) {
  const bool upright = std::abs(a.x() - b.x()) < axisParallel;
  const bool level = std::abs(a.y() - b.y()) < axisParallel;
  QPen pen = ToQPen(stroke);
  if (!upright && !level) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.drawLine(a, b);
    return;
  }
  const double ratio = painter.device()->devicePixelRatioF();
  const double width = std::max(1.0, std::floor(stroke.Width * ratio));  // device pixels
  const auto centred = [ratio, width](double at) {
    return (std::floor(at * ratio - (width - 1) / 2) + width / 2) / ratio;
  };
  pen.setWidthF(width / ratio);
  painter.setPen(pen);
  const double x = centred(a.x()), y = centred(a.y());
  painter.drawLine(upright ? QPointF(x, a.y()) : QPointF(a.x(), y),
                   upright ? QPointF(x, b.y()) : QPointF(b.x(), y));
}

}  // namespace

PixmapSurface::PixmapSurface() = default;
PixmapSurface::~PixmapSurface() = default;

QPainter& PixmapSurface::OpenPainter(bool smooth) {
  if (!painter_ || painter_->device() != &Target()) {
    painter_.reset();
    painter_ = std::make_unique<QPainter>(&Target());
  }
  painter_->setRenderHint(QPainter::Antialiasing, smooth);
  painter_->setBrush(Qt::NoBrush);
  lastDisc_.reset();
  return *painter_;
}

void PixmapSurface::ClosePainter() const { painter_.reset(); }

void PixmapSurface::Resize(QSize size, double pixelRatio) {
  ClosePainter();
  lastDisc_.reset();
  size_ = size;
  ratio_ = pixelRatio;
  extents_.clear();
  texts_.clear();
  const QSize device(static_cast<int>(std::lround(size.width() * pixelRatio)),
                     static_cast<int>(std::lround(size.height() * pixelRatio)));
  persistent_ = QImage(device, QImage::Format_RGB32);
  transient_ = QImage(device, QImage::Format_ARGB32_Premultiplied);
  for (QImage* const image : {&persistent_, &transient_}) {
    image->setDevicePixelRatio(pixelRatio);
    image->fill(image == &persistent_ ? ToQColor(BackColor) : QColor(Qt::transparent));
  }
  touched_.Resize(device);
}

void PixmapSurface::PaintOn(QPainter& painter) const {
  if (persistent_.isNull()) return;
  ClosePainter();
  painter.drawImage(QPointF(0, 0), persistent_);
  for (const QRect& run : touched_.Runs())
    painter.drawImage(QRectF(run.x() / ratio_, run.y() / ratio_, run.width() / ratio_, run.height() / ratio_),
                      transient_, run);
}

void PixmapSurface::Touched(const QRectF& logicalArea) {
  if (AutoRedraw()) return;
  touched_.Touch(QRectF(logicalArea.topLeft() * ratio_, logicalArea.size() * ratio_));
}

DeviceSize PixmapSurface::DeviceExtent() const { return {size_.width() * twips, size_.height() * twips}; }

void PixmapSurface::DeviceClear(DrawLayer layer, Colour background) {
  ClosePainter();
  lastDisc_.reset();
  if (layer == DrawLayer::Persistent) {
    if (!persistent_.isNull()) persistent_.fill(ToQColor(background));
    return;
  }
  const qsizetype stride = transient_.bytesPerLine();
  for (const QRect& run : touched_.Runs())
    for (int y = run.top(); y <= run.bottom(); ++y) {
      uchar* const row = transient_.bits() + y * stride + qsizetype{4} * run.x();
      std::fill(row, row + qsizetype{4} * run.width(), uchar{0});
    }
  touched_.Clear();
}

void PixmapSurface::DeviceLine(DeviceSpot from, DeviceSpot to, const DrawStroke& stroke) {
  if (shading_) return AddShadeLine(from, to);
  if (curving_) {
    // a piece without length would show as a square
    if (from.X != to.X || from.Y != to.Y) curve_.push_back({Pixels(from), Pixels(to), stroke});
    return;
  }
  if (Target().isNull()) return;
  DrawPlainLine(OpenPainter(false), Pixels(from), Pixels(to), stroke);
  const double room = stroke.Width + 1;
  Touched(QRectF(Pixels(from), Pixels(to)).normalized().adjusted(-room, -room, room, room));
}

void PixmapSurface::DeviceBox(DeviceSpot corner, DeviceSize size, const DrawStroke& stroke, bool filled) {
  if (Target().isNull()) return;
  const QRectF area(Pixels(corner), QSizeF(size.Width / twips, size.Height / twips));
  QPainter& painter = OpenPainter(false);
  if (filled)
    painter.fillRect(area, ToQColor(stroke.Ink));
  else {
    painter.setPen(ToQPen(stroke));
    painter.drawRect(area);
  }
  const double room = stroke.Width + 1;
  Touched(area.adjusted(-room, -room, room, room));
}

void PixmapSurface::DeviceEllipse(const DeviceRound& round, const DrawStroke& stroke,
                                  std::optional<Colour> fill) {
  if (Target().isNull()) return;
  const double rx = std::max(round.RadiusX / twips, MinimumRadius);
  const double ry = std::max(round.RadiusY / twips, MinimumRadius);
  const QPointF centre = Pixels(round.Centre);
  // a filled small disc in its own edge colour needs no edge, which would make it a pixel wider
  const bool disc = fill && *fill == stroke.Ink;
  if (disc && lastDisc_ && lastDisc_->centre == centre && lastDisc_->colour == *fill && rx <= lastDisc_->rx &&
      ry <= lastDisc_->ry && lastDisc_->layer == Layer())
    return;
  if (std::max(rx, ry) > hugeRadius) return DrawHugeEllipse(centre, rx, ry, stroke, fill);
  QPainter& painter = OpenPainter(true);
  painter.setPen(disc ? QPen(Qt::NoPen) : ToQPen(stroke));
  painter.setBrush(fill ? QBrush(ToQColor(*fill)) : QBrush(Qt::NoBrush));
  painter.drawEllipse(centre, rx, ry);
  const double room = stroke.Width + 1;
  Touched(QRectF(centre.x() - rx, centre.y() - ry, 2 * rx, 2 * ry).adjusted(-room, -room, room, room));
  if (disc) lastDisc_ = PlainDisc{centre, rx, ry, *fill, Layer()};
}

// The toolkit's ellipses are curves of a fixed number of pieces, which a zoomed chart shows to be no
// ellipses, and most of such a figure lies outside: what surrounds the surface is a plain fill.
void PixmapSurface::DrawHugeEllipse(const QPointF& centre, double rx, double ry, const DrawStroke& stroke,
                                    std::optional<Colour> fill) {
  const double room = stroke.Width + 1;
  const QRectF seen = QRectF(QPointF(0, 0), size_).adjusted(-room, -room, room, room);
  const auto inside = [&](const QPointF& corner) {
    return std::hypot((corner.x() - centre.x()) / rx, (corner.y() - centre.y()) / ry) < 1;
  };
  QPainter& painter = OpenPainter(true);
  Touched(seen);
  if (inside(seen.topLeft()) && inside(seen.topRight()) && inside(seen.bottomLeft()) &&
      inside(seen.bottomRight())) {
    if (fill) painter.fillRect(seen, ToQColor(*fill));
    return;
  }
  QPolygonF edge;
  constexpr int corners = 7200;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2 * M_PI * i / corners;
    edge.append(QPointF(centre.x() + rx * std::cos(angle), centre.y() + ry * std::sin(angle)));
  }
  if (!edge.boundingRect().intersects(seen)) return;
  painter.setClipRect(seen);
  painter.setPen(fill && *fill == stroke.Ink ? QPen(Qt::NoPen) : ToQPen(stroke));
  painter.setBrush(fill ? QBrush(ToQColor(*fill)) : QBrush(Qt::NoBrush));
  painter.drawPolygon(edge);
  painter.setClipping(false);
}

void PixmapSurface::DevicePie(const DeviceRound& round, const DrawStroke& stroke,
                              std::optional<Colour> fill) {
  if (Target().isNull()) return;
  const double rx = round.RadiusX / twips, ry = round.RadiusY / twips;
  const QPointF centre = Pixels(round.Centre);
  const QRectF area(centre.x() - rx, centre.y() - ry, 2 * rx, 2 * ry);
  const double sixteenths = 16 * 180 / M_PI;
  const double start = round.Start.value_or(0), end = round.End.value_or(2 * M_PI);
  const double span = end >= start ? end - start : end - start + 2 * M_PI;
  QPainter& painter = OpenPainter(true);
  painter.setPen(ToQPen(stroke));
  painter.setBrush(fill ? QBrush(ToQColor(*fill)) : QBrush(Qt::NoBrush));
  painter.drawPie(area, static_cast<int>(std::lround(start * sixteenths)),
                  static_cast<int>(std::lround(span * sixteenths)));
  const double room = stroke.Width + 1;
  Touched(area.adjusted(-room, -room, room, room));
}

void PixmapSurface::DevicePoint(DeviceSpot at, const DrawStroke& stroke) {
  if (Target().isNull()) return;
  const QPointF place = Pixels(at);
  const double size = std::max(1.0, stroke.Width);
  // whole logical pixels, never smoothed
  const QRectF area(std::floor(place.x() - (size - 1) / 2), std::floor(place.y() - (size - 1) / 2), size,
                    size);
  QPainter& painter = OpenPainter(false);
  painter.fillRect(area, ToQColor(stroke.Ink));
  Touched(area);
}

std::string PixmapSurface::FontKey(std::string_view text) const {
  return std::string(text) + '\n' + Font.Family + '\n' +
         std::to_string(static_cast<int>(Font.Points * 100) * 2 + (Font.Bold ? 1 : 0));
}

DeviceSize PixmapSurface::DeviceTextExtent(std::string_view text) const {
  const std::string key = FontKey(text);
  const std::unordered_map<std::string, DeviceSize>::const_iterator found = extents_.find(key);
  if (found != extents_.end()) return found->second;
  if (extents_.size() >= keptTexts) extents_.clear();
  const QFontMetricsF metrics(ToQFont(Font));
  return extents_[key] = {metrics.horizontalAdvance(ToQ(text)) * twips, metrics.height() * twips};
}

const QImage& PixmapSurface::TextImage(std::string_view bytes, Colour colour) {
  const std::string key =
      FontKey(bytes) + '\n' + std::to_string(colour) + '\n' + std::to_string(TextHalo.value_or(-1));
  const std::unordered_map<std::string, QImage>::const_iterator found = texts_.find(key);
  if (found != texts_.end()) return found->second;
  if (texts_.size() >= keptTexts) texts_.clear();

  const QString text = ToQ(bytes);
  const QFont font = ToQFont(Font);
  const QFontMetricsF metrics(font);
  const QSizeF room(std::ceil(metrics.horizontalAdvance(text)) + 2 * haloRoom + 2,
                    std::ceil(metrics.height()) + 2 * haloRoom);
  QImage image((room * ratio_).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio_);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setFont(font);
  const QPointF base(haloRoom, haloRoom + std::round(metrics.ascent()));
  if (TextHalo) {
    QColor halo = ToQColor(*TextHalo);
    for (int dx = -1; dx <= 1; ++dx)
      for (int dy = -1; dy <= 1; ++dy) {
        if (dx == 0 && dy == 0) continue;
        halo.setAlphaF(dx == 0 || dy == 0 ? 0.60F : 0.30F);
        painter.setPen(halo);
        painter.drawText(base + QPointF(dx, dy), text);
      }
  }
  painter.setPen(ToQColor(colour));
  painter.drawText(base, text);
  if (TextHalo) painter.drawText(base, text);  // thin smoothed strokes would let the dark rim through
  painter.end();
  return texts_[key] = image;
}

void PixmapSurface::DeviceText(DeviceSpot corner, std::string_view text, Colour colour) {
  if (Target().isNull() || text.empty()) return;
  const QImage& image = TextImage(text, colour);
  if (image.isNull()) return;
  const double inset = TextHalo ? haloInset - haloRoom : -haloRoom;
  const QPointF place = Pixels(corner) + QPointF(inset, -haloRoom);
  const QPointF snapped(std::round(place.x() * ratio_) / ratio_, std::round(place.y() * ratio_) / ratio_);
  QPainter& painter = OpenPainter(false);
  painter.drawImage(snapped, image);
  Touched(QRectF(snapped, QSizeF(image.size()) / ratio_));
}

void PixmapSurface::DevicePicture(DeviceSpot corner, DeviceSize size, const DrawPicture& picture) {
  const QtPicture* const held = dynamic_cast<const QtPicture*>(&picture);
  if (Target().isNull() || held == nullptr) return;
  const QPointF place = Pixels(corner) * ratio_;
  if (size.Width * size.Height > hugePicture * DeviceExtent().Width * DeviceExtent().Height &&
      std::max(size.Width, size.Height) > std::max(picture.NaturalWidth(), picture.NaturalHeight()))
    return DrawPart(*held, QRectF(Pixels(corner), QSizeF(size.Width, size.Height) / twips));
  const QSize pixels(static_cast<int>(std::lround(size.Width / twips * ratio_)),
                     static_cast<int>(std::lround(size.Height / twips * ratio_)));
  const QImage& image = held->Drawn(pixels, NightColoursActive);
  if (image.isNull()) return;
  const QPointF snapped(std::round(place.x()) / ratio_, std::round(place.y()) / ratio_);
  const QRectF area(snapped, QSizeF(image.size()) / ratio_);
  QPainter& painter = OpenPainter(false);
  painter.drawImage(area, image);
  Touched(area);
}

void PixmapSurface::DrawPart(const QtPicture& picture, const QRectF& area) {
  const QImage& whole = picture.Whole(NightColoursActive);
  const QRectF seen = area & QRectF(QPointF(0, 0), size_);
  if (seen.isEmpty() || whole.isNull()) return;
  const double across = whole.width() / area.width(), down = whole.height() / area.height();
  const QRectF part((seen.x() - area.x()) * across, (seen.y() - area.y()) * down, seen.width() * across,
                    seen.height() * down);
  QPainter& painter = OpenPainter(false);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(seen, whole, part);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  Touched(seen);
}

void PixmapSurface::BeginShade(Colour colour, double opacity) {
  shading_ = true;
  shadeColour_ = colour;
  shadeOpacity_ = opacity;
  strokes_.clear();
}

void PixmapSurface::AddShadeLine(DeviceSpot from, DeviceSpot to) {
  const QPointF a = Pixels(from), b = Pixels(to);
  if (strokes_.empty() || strokes_.back().last() != a) strokes_.push_back(QPolygonF{a});
  strokes_.back().append(b);
}

void PixmapSurface::EndShade() {
  shading_ = false;
  if (Target().isNull()) return;
  QImage mask(Target().size(), QImage::Format_ARGB32_Premultiplied);
  mask.setDevicePixelRatio(ratio_);
  mask.fill(Qt::transparent);
  QPainter painter(&mask);
  const QColor ink = NightColoursActive ? QColor(Qt::black) : ToQColor(shadeColour_);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  for (std::size_t i = 1; i < strokes_.size(); ++i) {
    QPolygonF between = strokes_[i - 1];
    for (qsizetype k = strokes_[i].size(); k-- > 0;) between.append(strokes_[i][k]);
    painter.drawPolygon(between, Qt::WindingFill);
  }
  painter.end();
  QPainter& onto = OpenPainter(false);
  onto.setOpacity(shadeOpacity_);
  onto.drawImage(QPointF(0, 0), mask);
  onto.setOpacity(1);
  Touched(QRectF(QPointF(0, 0), size_));
  strokes_.clear();
}

void PixmapSurface::BeginCurve(double casing) {
  curving_ = true;
  casing_ = casing;
  curve_.clear();
}

// Piece by piece with straight lines, since a whole path is ten times as slow to stroke. The band goes
// through a picture of its own: pieces with an opacity would pile up where they meet.
void PixmapSurface::PaintCasing(const QRect& area) {
  QImage band(area.size() * ratio_, QImage::Format_ARGB32_Premultiplied);
  if (band.isNull()) return;
  band.setDevicePixelRatio(ratio_);
  band.fill(Qt::transparent);
  QPainter painter(&band);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-area.topLeft());
  QPen pen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap);
  for (const CurveLine& line : curve_) {
    pen.setWidthF(line.stroke.Width + casing_);
    painter.setPen(pen);
    painter.drawLine(line.from, line.to);
  }
  painter.end();
  QPainter& onto = OpenPainter(false);
  onto.setOpacity(casingOpacity);
  onto.drawImage(area.topLeft(), band);
  onto.setOpacity(1);
}

void PixmapSurface::EndCurve() {
  curving_ = false;
  if (Target().isNull() || curve_.empty()) return;
  QRectF all;
  for (const CurveLine& line : curve_) {
    const double room = line.stroke.Width + casing_ + 1;
    const QRectF area = QRectF(line.from, line.to).normalized().adjusted(-room, -room, room, room);
    Touched(area);
    all |= area;
  }
  const QRect seen = all.toAlignedRect() & QRect(QPoint(0, 0), size_);
  if (casing_ > 0 && !seen.isEmpty()) PaintCasing(seen);
  QPainter& painter = OpenPainter(true);
  for (const CurveLine& line : curve_) {
    QPen pen = ToQPen(line.stroke);
    pen.setCapStyle(Qt::SquareCap);
    painter.setPen(pen);
    painter.drawLine(line.from, line.to);
  }
  curve_.clear();
}

}  // namespace halvorine
