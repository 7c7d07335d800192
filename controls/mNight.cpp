#include "controls/mNight.h"

#include <algorithm>
#include <cmath>

namespace halvorine {

int NightLevel(int red, int green, int blue) {
  const double v = std::max({1.0 * red, 0.8 * green, 0.5 * blue});
  return static_cast<int>(std::lround(255 * std::pow(v / 255, 1.5)));
}

}  // namespace halvorine
