#include "controls/qtTrasp.h"

#include <optional>

#include "controls/mTrasp.h"

namespace halvorine {

bool ImpostaOpacita(QWidget& window, int opacity) {
  const std::optional<double> share = OpacityShare(opacity);
  if (!share) return false;
  window.setWindowOpacity(*share);
  return true;
}

QImage WithoutKeyColour(const QImage& picture, std::int32_t key) {
  QImage image = picture.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y)
    ClearKeyColour(reinterpret_cast<std::uint32_t*>(image.scanLine(y)),
                   static_cast<std::size_t>(image.width()), key);
  return image;
}

void CopiaTrasparente(QPainter& destination, const QImage& source, const QRect& rect, std::int32_t key) {
  destination.setRenderHint(QPainter::SmoothPixmapTransform);
  destination.drawImage(rect, WithoutKeyColour(source, key));
}

}  // namespace halvorine
