#include "sky/mMagnitude.h"

#include "shell/base/mForms.h"

namespace halvorine {

int LimitOf(int stars) {
  for (std::size_t i = 0; i < MagnitudeLimits.size(); ++i)
    if (MagnitudeLimits[i].stars == stars) return static_cast<int>(i);
  return -1;
}

std::string ChartOfTag(std::string_view tag) {
  if (tag == "locale") return "frmLocalSky";
  if (tag == "generale") return "frmGeneralSky";
  return tag == "anteprima" ? AskingPassChart : std::string();
}

}  // namespace halvorine
