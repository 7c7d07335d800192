#include "shell/base/mHelp.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "shell/base/mFiles.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

void OpenHelpFile(int topic) {
  const std::string file = FindProgramFile(LookupText("Help", "file"));
  std::error_code failed;
  const bool hasContent = !file.empty() && std::filesystem::file_size(file, failed) > 0 && !failed;
  if (!hasContent || !ThePlatform().OpenHelp(file, topic))
    Tell(MessageKind::Information, LookupText("MDIForm1", "nofilehelp"));
}

}  // namespace halvorine
