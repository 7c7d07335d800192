#include "maps/qtMapPictures.h"

#include "controls/qtIcons.h"
#include "shell/base/mFiles.h"
#include "shell/base/qtForms.h"

namespace halvorine {

const DrawPicture& QtMapPictures::MapFile(std::string_view name) {
  // only the picture in use keeps its copy in the size of the window
  for (const std::pair<const std::string, QtPicture>& file : files_)
    if (file.first != name) file.second.ForgetDrawn();
  const std::map<std::string, QtPicture, std::less<>>::iterator found = files_.find(name);
  if (found != files_.end()) return found->second;
  return files_.emplace(std::string(name), QtPicture::Photograph(ToQ(FindProgramFile(name)))).first->second;
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
