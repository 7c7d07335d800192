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

QImage CopiaTrasparente(const QImage& source, std::int32_t key) {
  QImage image = source.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y)
    ClearKeyColour(reinterpret_cast<std::uint32_t*>(image.scanLine(y)),
                   static_cast<std::size_t>(image.width()), key);
  return image;
}

}  // namespace halvorine
