#include "sky/qtSkyPictures.h"

#include "controls/qtIcons.h"
#include "shell/base/mFiles.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int sunNumber = 6;                    // in the second list of icons
constexpr QRgb landscapeKey = qRgb(0, 255, 0);  // shows the sky

}  // namespace

const DrawPicture& QtSkyPictures::Icon(int number) {
  const std::map<int, QtPicture>::iterator found = icons_.find(number);
  if (found != icons_.end()) return found->second;
  return icons_
      .emplace(number, QtPicture::Icon(
                           [number](bool night, double ratio) { return MapIconIn(number, night, ratio); }))
      .first->second;
}

const DrawPicture& QtSkyPictures::SunIcon() {
  if (!sun_)
    sun_ = QtPicture::Icon([](bool night, double ratio) { return SecondIconIn(sunNumber, night, ratio); });
  return *sun_;
}

const DrawPicture& QtSkyPictures::Landscape() {
  if (!landscape_) landscape_ = QtPicture::Keyed(ToQ(FindProgramFile("\\landscape.dat")), landscapeKey);
  return *landscape_;
}

}  // namespace halvorine
