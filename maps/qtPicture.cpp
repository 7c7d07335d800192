#include <QImageReader>
#include <cmath>

#include "maps/qtSurface.h"

namespace halvorine {

namespace {

constexpr double twips = 15;  // to a logical pixel
constexpr double photographAtNight = 0.65;
constexpr int tileSize = 8;  // device pixels

QImage InNightColours(const QImage& day, double strength) {
  QImage image = day.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    QRgb* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel(static_cast<int>(qRed(row[x]) * strength),
                         static_cast<int>(qGreen(row[x]) * strength),
                         static_cast<int>(qBlue(row[x]) * strength));
      row[x] = qRgba(NightShadeOf(pixel).red(), 0, 0, qAlpha(row[x]));
    }
  }
  return image;
}

}  // namespace

QColor NightShadeOf(const QColor& colour) {
  const double v = std::max({1.0 * colour.red(), 0.8 * colour.green(), 0.5 * colour.blue()});
  return QColor(static_cast<int>(std::lround(255 * std::pow(v / 255, 1.5))), 0, 0, colour.alpha());
}

QtPicture QtPicture::Photograph(const QString& path) {
  QtPicture picture;
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);  // the files' ending tells no format
  picture.image_ = reader.read();
  return picture;
}

QtPicture QtPicture::IconNamed(const QString& name) {
  QtPicture picture;
  picture.icon_ = true;
  picture.image_ = QImage(QStringLiteral(":/icons/%1.png").arg(name));
  picture.twice_ = QImage(QStringLiteral(":/icons/%1@2x.png").arg(name));
  return picture;
}

double QtPicture::NaturalWidth() const { return image_.width() * twips; }
double QtPicture::NaturalHeight() const { return image_.height() * twips; }

const QImage& QtPicture::Drawn(QSize devicePixels, bool night) const {
  if (drawn_.size() == devicePixels && drawnAtNight_ == night) return drawn_;
  if (devicePixels.isEmpty()) return drawn_ = QImage();
  const bool larger = devicePixels.width() > image_.width() && !twice_.isNull();
  QImage scaled = (larger ? twice_ : image_);
  scaled.setDevicePixelRatio(1);
  if (scaled.size() != devicePixels)
    scaled = scaled.scaled(devicePixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  if (night) scaled = InNightColours(scaled, icon_ ? 1.0 : photographAtNight);
  drawn_ = scaled.convertToFormat(scaled.hasAlphaChannel() && icon_ ? QImage::Format_ARGB32_Premultiplied
                                                                    : QImage::Format_RGB32);
  drawnAtNight_ = night;
  return drawn_;
}

void TouchedTiles::Resize(QSize size) {
  size_ = size;
  columns_ = (size.width() + tileSize - 1) / tileSize;
  rows_ = (size.height() + tileSize - 1) / tileSize;
  touched_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), 0);
}

void TouchedTiles::Touch(const QRectF& area) {
  const QRectF inside = area & QRectF(QPointF(0, 0), size_);
  if (inside.isEmpty()) return;
  const int left = static_cast<int>(inside.left()) / tileSize;
  const int right = std::min(static_cast<int>(std::ceil(inside.right())) / tileSize, columns_ - 1);
  const int top = static_cast<int>(inside.top()) / tileSize;
  const int bottom = std::min(static_cast<int>(std::ceil(inside.bottom())) / tileSize, rows_ - 1);
  for (int row = top; row <= bottom; ++row) {
    char* const first = touched_.data() + static_cast<std::ptrdiff_t>(row) * columns_;
    std::fill(first + left, first + right + 1, char{1});
  }
}

void TouchedTiles::Clear() { std::fill(touched_.begin(), touched_.end(), char{0}); }

std::vector<QRect> TouchedTiles::Runs() const {
  std::vector<QRect> runs;
  const QRect whole(QPoint(0, 0), size_);
  for (int row = 0; row < rows_; ++row) {
    const char* const tiles = touched_.data() + static_cast<std::ptrdiff_t>(row) * columns_;
    for (int column = 0; column < columns_; ++column) {
      if (tiles[column] == 0) continue;
      const int first = column;
      while (column < columns_ && tiles[column] != 0) ++column;
      runs.push_back(QRect(first * tileSize, row * tileSize, (column - first) * tileSize, tileSize) & whole);
    }
  }
  return runs;
}

}  // namespace halvorine
