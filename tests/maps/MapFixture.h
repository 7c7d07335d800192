// What the map tests share: records of a few satellites, pictures without content and a platform.
#pragma once

#include <map>
#include <string>

#include "astro/mAstro.h"
#include "maps/mMapDraw.h"
#include "shell/base/mForms.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/RecordingSurface.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {

class FakeMapPictures : public MapPictures {
 public:
  std::map<std::string, FakePicture> files;
  std::map<int, FakePicture> icons;
  std::vector<int> iconsAsked;

  const DrawPicture& MapFile(std::string_view name) override { return files[std::string(name)]; }
  const DrawPicture& Icon(IconList list, int number) override {
    iconsAsked.push_back(number);
    return icons[list == IconList::Second ? 100 + number : number];
  }
};

class MapDrawTest : public OrbitTest {
 protected:
  MapDrawTest() {
    ResetForms();
    Options.Colours = {};
    Options.Colours.MapGrid = 8553090;
    Options.Colours.CityName = 16777215;
    Options.Colours.Satellite = 65535;
    Options.Colours.TrackBehind = 255;
    Options.Colours.TrackAhead = 65280;
    view.Pictures = &pictures;
  }

  /// The sample set in slot 1, at its epoch plus some minutes.
  void FollowSample(double minutes) {
    ActiveCount = 1;
    Estrai_Dati_Satellite(1, issName, issLine1, issLine2);
    CurrentDate = DateOf(2018, 1, 20) + 0.89808844 + minutes / 1440;
    UpdateSiderealTime(CurrentDate);
    ComputeSun();
    ComputeSatelliteState(1, ClockFields.JulianDayNow);
  }

  void PutSatellite(int slot, double latitude, double longitudeEast) {
    ActiveCount = std::max<std::int16_t>(ActiveCount, static_cast<std::int16_t>(slot));
    SatelliteState& state = SatelliteStates[slot];
    state.LatitudeSigned = state.GeocentricLatitude = latitude;
    state.LongitudeEast = longitudeEast;
    state.Longitude360 = longitudeEast < 0 ? longitudeEast + 360 : longitudeEast;
    state.GeocentricRadius = 7000;
    state.Condition = NotVisible;
    ElementSets[slot].Name = "Sat " + std::to_string(slot);
    ElementSets[slot].CatalogNumber = std::to_string(10000 + slot);
  }

  void TakeGlobe(float longitude, float latitude) {
    view.Kind = kindOrtho;
    view.CentreLongitude = longitude;
    view.CentreLatitude = latitude;
    SetMapScale(surface, view.Kind);
  }

  FakePlatform platform;
  FakeMapPictures pictures;
  RecordingSurface surface{6000, 3000};
  MapView view;
};

}  // namespace halvorine
