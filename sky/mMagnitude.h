// The limiting magnitudes that the user can choose for a sky chart. Stars are stored in the order of their
// brightness, so that each limit stands for a count of them.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace halvorine {

struct MagnitudeLimit {
  const char* text;
  int stars;
};

constexpr std::array<MagnitudeLimit, 12> MagnitudeLimits = {{{"mag. > 6.5", 9010},
                                                             {"mag. 6.5", 8523},
                                                             {"mag. 6.0", 5146},
                                                             {"mag. 5.5", 2906},
                                                             {"mag. 5.0", 1639},
                                                             {"mag. 4.5", 921},
                                                             {"mag. 4.0", 521},
                                                             {"mag. 3.5", 293},
                                                             {"mag. 3.0", 176},
                                                             {"mag. 2.5", 94},
                                                             {"mag. 2.0", 50},
                                                             {"mag. 1.5", 23}}};

/// Position of the limit with that count of stars, or -1.
int LimitOf(int stars);

/// Name of the window that a tag of frmMagnitude stands for: "locale", "generale", or "anteprima" for the
/// pass chart that asked last. The empty text for any other tag.
std::string ChartOfTag(std::string_view tag);

}  // namespace halvorine
