// The check marks of the sky charts' menus as the options want them.
#pragma once

#include "shell/base/mForms.h"
#include "shell/base/mRecords.h"

namespace halvorine {

/// Sets the checks of mnuLocalSky; of coordinates, projections and orientations one each.
void SetLocalSkyChecks(MainFormCalls& main, const SkyOptions& options);

/// Sets the checks of mnuGeneralSky.
void SetGeneralSkyChecks(MainFormCalls& main, const SkyOptions& options);

}  // namespace halvorine
