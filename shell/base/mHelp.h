// The help of the chosen language.
#pragma once

namespace halvorine {

/// Opens the help file at its contents (topic 0), its search (-1) or a topic; tells the user where there is
/// no such file or nothing that shows it.
void OpenHelpFile(int topic);

}  // namespace halvorine
