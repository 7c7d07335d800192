// The pictures of the world map: files of the program folder, decoded once, and icons by their agreed
// numbers.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "maps/mMapDraw.h"
#include "maps/qtSurface.h"

namespace halvorine {

class QtMapPictures : public MapPictures {
 public:
  const DrawPicture& MapFile(std::string_view name) override;
  const DrawPicture& Icon(IconList list, int number) override;

 private:
  std::map<std::string, QtPicture, std::less<>> files_;
  std::map<std::pair<IconList, int>, QtPicture> icons_;
};

}  // namespace halvorine
