// The pictures of the sky charts: icons by their agreed numbers, and the landscape of the program folder,
// which is read at its first use.
#pragma once

#include <map>
#include <optional>

#include "maps/qtSurface.h"
#include "sky/mSkyDraw.h"

namespace halvorine {

class QtSkyPictures : public SkyPictures {
 public:
  const DrawPicture& Icon(int number) override;
  const DrawPicture& SunIcon() override;
  const DrawPicture& Landscape() override;

 private:
  std::map<int, QtPicture> icons_;
  std::optional<QtPicture> sun_, landscape_;
};

}  // namespace halvorine
