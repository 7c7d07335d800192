#include "shell/base/mHelp.h"

#include <string>

#include "shell/base/mFiles.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

void OpenHelpFile(int topic) {
  const std::string file = FindProgramFile(LookupText("Help", "file"));
  if (file.empty() || !ThePlatform().OpenHelp(file, topic))
    Tell(MessageKind::Information, LookupText("MDIForm1", "nofilehelp"));
}

}  // namespace halvorine
