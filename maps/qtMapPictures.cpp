#include "maps/qtMapPictures.h"

#include "shell/base/mFiles.h"
#include "shell/base/qtForms.h"

namespace halvorine {

const char* MapIconName(IconList list, int number) {
  if (list == IconList::Second) return number == IconSun ? "sun" : "";
  switch (number) {
    case IconSatellite:
      return "map_sat";
    case IconTelescope:
      return "map_telescope_sat";
    case IconStation:
      return "map_station";
    case IconPrincipal:
      return "map_sat_main";
    case IconRocket:
      return "map_rocket";
    default:
      return "";
  }
}

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
  return icons_.emplace(key, QtPicture::IconNamed(QString::fromLatin1(MapIconName(list, number))))
      .first->second;
}

}  // namespace halvorine
