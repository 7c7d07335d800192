#include "sky/mSkyChecks.h"

#include <array>
#include <string>

namespace halvorine {

namespace {

struct SkyCheck {
  const char* item;  // after the name of the menu
  std::int16_t SkyOptions::*option;
};

constexpr std::array<SkyCheck, 7> commonChecks{{
    {"Griglia", &SkyOptions::Grid},
    {"OggettiCostellazioni", &SkyOptions::ConstellationLines},
    {"OggettiPianeti", &SkyOptions::Planets},
    {"OggettiSoleLuna", &SkyOptions::SunMoon},
    {"EtichetteCostellazioni", &SkyOptions::ConstellationNames},
    {"EtichettePianeti", &SkyOptions::PlanetNames},
    {"EtichetteSoleLuna", &SkyOptions::SunMoonNames},
}};

void SetCommonChecks(MainFormCalls& main, const std::string& menu, const SkyOptions& options) {
  for (const SkyCheck& check : commonChecks) main.SetChecked(menu + check.item, options.*check.option != 0);
}

}  // namespace

void SetLocalSkyChecks(MainFormCalls& main, const SkyOptions& options) {
  SetCommonChecks(main, "mnuLocalSky", options);
  main.SetChecked("mnuLocalSkyPaesaggio", options.Landscape != 0);
  main.SetChecked("mnuLocalSkyRiquadroDati", options.DataBox != 0);
  main.SetChecked("mnuLocalSkyCoordOrizz", options.Altazimuth != 0);
  main.SetChecked("mnuLocalSkyCoordEquat", options.Altazimuth == 0);
  main.SetChecked("mnuLocalSkyProiezStereo", options.Stereographic != 0);
  main.SetChecked("mnuLocalSkyProiezNormale", options.Stereographic == 0);
  constexpr std::array<const char*, 4> orientations = {
      "mnuLocalSkyOrientamentoNord", "mnuLocalSkyOrientamentoSud", "mnuLocalSkyOrientamentoOvest",
      "mnuLocalSkyOrientamentoEst"};
  for (std::size_t i = 0; i < orientations.size(); ++i)
    main.SetChecked(orientations[i], options.Orientation == static_cast<std::int16_t>(i));
}

void SetGeneralSkyChecks(MainFormCalls& main, const SkyOptions& options) {
  SetCommonChecks(main, "mnuGeneralSky", options);
}

}  // namespace halvorine
