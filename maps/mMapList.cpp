#include "maps/mMapList.h"

#include <string>

#include "catalogue/mCatalogue.h"
#include "maps/DrawSurface.h"
#include "orbit/mSat.h"
#include "shell/base/mForms.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mText.h"

namespace halvorine {

bool CanChangePlace(int slot) { return ActiveCount > 1 && slot > 1 && slot <= ActiveCount; }

void PromoteSatellite(int slot) {
  if (!CanChangePlace(slot)) return;
  SwapActive(1, slot);
  if (MainFormCalls* const main = MainForm())
    main->SetStatusPanel(2, std::string(Trimmed(ElementSets[1].Name)));
  ShowPrincipalAge();
  // the states do not move with the sets
  for (const int changed : {1, slot})
    DrawQuietly([changed] { ComputeSatelliteState(changed, ClockFields.JulianDayNow); });
}

void RemoveMapSatellite(int slot) {
  if (!CanChangePlace(slot)) return;
  RemoveActive(slot);
  DrawQuietly([] { ComputeSatelliteState(1, ClockFields.JulianDayNow); });
}

}  // namespace halvorine
