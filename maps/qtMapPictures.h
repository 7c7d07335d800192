// The pictures of the world map: the file of the program folder that is in use, for a globe takes five MiB
// and a day of the principal satellite shows them all, and icons by their agreed numbers.
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
  std::string fileName_;
  QtPicture file_;
  std::map<std::pair<IconList, int>, QtPicture> icons_;
};

}  // namespace halvorine
