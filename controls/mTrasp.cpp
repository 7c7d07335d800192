#include "controls/mTrasp.h"

#include <algorithm>

namespace halvorine {

std::optional<double> OpacityShare(int opacity) {
  if (opacity < 0 || opacity > fullOpacity) return std::nullopt;
  return double{1} * opacity / fullOpacity;
}

void ClearKeyColour(std::uint32_t* pixels, std::size_t count, std::int32_t key) {
  const auto number = static_cast<std::uint32_t>(key);
  const std::uint32_t rgb = (number & 255U) << 16U | (number & 0xFF00U) | (number >> 16U & 255U);
  std::replace_if(
      pixels, pixels + count, [rgb](std::uint32_t pixel) { return (pixel & 0xFFFFFFU) == rgb; },
      std::uint32_t{0});
}

}  // namespace halvorine
