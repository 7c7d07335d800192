#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/mNight.h"
#include "controls/qtIcons.h"
#include "controls/qtTrasp.h"
#include "maps/qtSurface.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr double twips = 15;                // to a logical pixel
constexpr double photographDimming = 0.35;  // taken off a photograph before it turns red
constexpr int tileSize = 16;                // device pixels

QImage Dimmed(const QImage& picture, double opacity) {
  QImage image = picture.convertToFormat(QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setOpacity(opacity);
  painter.fillRect(image.rect(), Qt::black);
  return image;
}

}  // namespace

QColor NightShadeOf(const QColor& colour) {
  return {NightLevel(colour.red(), colour.green(), colour.blue()), 0, 0, colour.alpha()};
}

QtPicture QtPicture::Photograph(const QString& path) {
  QtPicture picture;
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);  // the files' ending tells no format
  picture.image_ = reader.read();
  return picture;
}

QtPicture QtPicture::Keyed(const QString& path, QRgb key) {
  QtPicture picture = Photograph(path);
  if (picture.image_.isNull()) return picture;
  picture.keyed_ = true;
  picture.image_ = CopiaTrasparente(picture.image_, NumberOf(QColor(key)));
  picture.image_ = std::move(picture.image_).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  return picture;
}

QtPicture QtPicture::Icon(std::function<QPixmap(bool night, double pixelRatio)> load) {
  QtPicture picture;
  picture.image_ = load(false, 1).toImage();
  picture.load_ = std::move(load);
  return picture;
}

double QtPicture::NaturalWidth() const { return image_.width() * twips; }
double QtPicture::NaturalHeight() const { return image_.height() * twips; }

const QImage& QtPicture::Drawn(QSize devicePixels, bool night) const {
  if (drawn_.size() == devicePixels && drawnAtNight_ == night) return drawn_;
  drawnAtNight_ = night;
  if (devicePixels.isEmpty() || image_.isNull()) return drawn_ = QImage();
  drawn_ = load_ ? load_(night, double{1} * devicePixels.width() / image_.width()).toImage() : image_;
  drawn_.setDevicePixelRatio(1);
  if (drawn_.size() != devicePixels)
    drawn_ = drawn_.scaled(devicePixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return drawn_ = Coloured(std::move(drawn_), night);
}

const QImage& QtPicture::Whole(bool night) const {
  if (drawn_.size() == image_.size() && drawnAtNight_ == night) return drawn_;
  drawnAtNight_ = night;
  return drawn_ = Coloured(image_, night);
}

QImage QtPicture::Coloured(QImage image, bool night) const {
  if (night && keyed_) image = NightMapImage(image);
  if (night && !keyed_ && !load_) image = NightMapImage(Dimmed(image, photographDimming));
  return std::move(image).convertToFormat(load_ || keyed_ ? QImage::Format_ARGB32_Premultiplied
                                                          : QImage::Format_RGB32);
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
