// Night colours for dark-adapted eyes: what stands in for each colour of the window system, and the red into
// which pictures and drawings turn.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace halvorine {

/// The colours of the window system by their numbers.
enum class SystemColour : std::uint8_t {
  ScrollBar,
  Desktop,
  ActiveCaption,
  InactiveCaption,
  Menu,
  Window,
  WindowFrame,
  MenuText,
  WindowText,
  CaptionText,
  ActiveBorder,
  InactiveBorder,
  Workspace,
  Highlight,
  HighlightText,
  ButtonFace,
  ButtonShadow,
  GreyText,
  ButtonText,
  InactiveCaptionText,
  ButtonHighlight,
  DarkShadow,
  LightEdge,
  ToolTipText,
  ToolTipGround,
  Unnamed,
  HotLight,
  ActiveCaptionGradient,
  InactiveCaptionGradient
};

/// Their values at night, blue*65536 + green*256 + red: pure red of a few levels, and a grey for what is
/// disabled.
inline constexpr std::array<std::int32_t, 29> nightColours = {
    64,  0, 64,      0, 128, 128, 0, 0, 255, 255, 128, 64,  0,  128, 0,
    128, 0, 8421504, 0, 128, 255, 0, 0, 255, 128, 128, 128, 64, 0};

constexpr std::int32_t NightColour(SystemColour colour) {
  return nightColours[static_cast<std::size_t>(colour)];
}

/// The level of red, 0 to 255, into which a colour of a picture or a drawing turns at night. Green and blue
/// count less than red, and dark tones stay darker than they are by day: with v the largest of red, 0.8 green
/// and 0.5 blue the level is 255 (v/255)^1.5.
int NightLevel(int red, int green, int blue);

}  // namespace halvorine
