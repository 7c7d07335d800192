// Transparency: which opacities a window may have, and the copy of a picture that leaves out a key colour.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace halvorine {

/// What the scroll bar of the floating panel offers; below the least of them a window could get lost.
constexpr int leastOpacity = 90, fullOpacity = 255, firstOpacity = 180;

/// An opacity, 0 to 255, as a share of full opacity; nothing for a number outside of that.
std::optional<double> OpacityShare(int opacity);

/// Makes the pixels of a key colour (blue*65536 + green*256 + red) clear and leaves the others alone. Pixels
/// are 0xAARRGGBB.
void ClearKeyColour(std::uint32_t* pixels, std::size_t count, std::int32_t key);

}  // namespace halvorine
