#include <exception>

#include "shell/MDIForm1.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtPlatform.h"
#include "shell/frmLanguage.h"
#include "shell/mStart.h"
#include "shell/qtApplication.h"

int main(int argc, char** argv) {
  halvorine::Application application(argc, argv);
  halvorine::QtPlatform platform;
  halvorine::SetPlatform(&platform);
  halvorine::AppPath = QCoreApplication::applicationDirPath().toStdString();
  halvorine::UserFolder = halvorine::UserDataFolder();
  halvorine::RegisterWindows();
  try {
    halvorine::StartStageOne({.chooseLanguage = [] { halvorine::frmLanguage().exec(); }});
    halvorine::MDIForm1 window;
    window.Load();
    return halvorine::Application::exec();
  } catch (const halvorine::StartupEnds&) {
    return 1;  // what there was to say has been said
  } catch (const std::exception& failure) {
    halvorine::Tell(halvorine::MessageKind::Critical, failure.what());
    return 1;
  }
}
