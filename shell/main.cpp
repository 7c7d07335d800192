#include <QCommandLineParser>
#include <cstdio>
#include <exception>
#include <string>

#include "shell/MDIForm1.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtPlatform.h"
#include "shell/frmLanguage.h"
#include "shell/mInstallation.h"
#include "shell/mStart.h"
#include "shell/qtApplication.h"

namespace {

/// Options for those who install the program; true where one of them has been served.
bool ServeOptions(const QCoreApplication& application) {
  QCommandLineParser options;
  options.setApplicationDescription(QStringLiteral("Satellite tracker and sky mapper for amateur observers"));
  options.addHelpOption();
  options.addVersionOption();
  const QCommandLineOption check(QStringLiteral("check"),
                                 QStringLiteral("Reads all data files, tells what they hold, and ends."));
  options.addOption(check);
  options.process(application);
  return options.isSet(check);
}

int Check() {
  const halvorine::InstallationReport report = halvorine::InspectInstallation();
  std::fputs(report.text.c_str(), stdout);
  return report.whole ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  halvorine::Application application(argc, argv);
  halvorine::QtPlatform platform;
  halvorine::SetPlatform(&platform);
  const std::string executableFolder = QCoreApplication::applicationDirPath().toStdString();
  halvorine::AppPath = halvorine::DataFolderOf(executableFolder);
  halvorine::DataIsShared = halvorine::AppPath != executableFolder;
  halvorine::UserFolder = halvorine::UserDataFolder();
  if (ServeOptions(application)) return Check();
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
