#include "maps/qtMapPictures.h"

#include "controls/qtIcons.h"
#include "shell/base/mFiles.h"
#include "shell/base/qtForms.h"

namespace halvorine {

const DrawPicture& QtMapPictures::MapFile(std::string_view name) {
  if (name != fileName_) {
    fileName_ = name;
    file_ = QtPicture::Photograph(ToQ(FindProgramFile(name)));
  }
  return file_;
}

const DrawPicture& QtMapPictures::Icon(IconList list, int number) {
  const std::pair<IconList, int> key(list, number);
  const std::map<std::pair<IconList, int>, QtPicture>::iterator found = icons_.find(key);
  if (found != icons_.end()) return found->second;
  const auto load = list == IconList::Main ? MapIconIn : SecondIconIn;
  return icons_
      .emplace(key, QtPicture::Icon(
                        [load, number](bool night, double ratio) { return load(number, night, ratio); }))
      .first->second;
}

}  // namespace halvorine
