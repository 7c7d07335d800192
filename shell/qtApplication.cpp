#include "shell/qtApplication.h"

#include <clocale>
#include <exception>

#include "astro/frmObject.h"
#include "astro/frmPlanets.h"
#include "astro/frmRiseSet.h"
#include "catalogue/frmChannel.h"
#include "catalogue/frmDatabase.h"
#include "controls/frmFloating.h"
#include "controls/frmProgress.h"
#include "controls/qtLook.h"
#include "maps/frmWorldMap.h"
#include "net/frmDownload.h"
#include "net/frmSyncro.h"
#include "prediction/frmCalc.h"
#include "prediction/frmDetails.h"
#include "prediction/frmRelative.h"
#include "prediction/frmSatellite.h"
#include "prediction/frmTrack.h"
#include "prediction/frmVisibleSatellites.h"
#include "shell/base/mPlatform.h"
#include "shell/base/qtForms.h"
#include "shell/frmCalendar.h"
#include "shell/frmLocation.h"
#include "shell/frmSettings.h"
#include "shell/frmTime.h"
#include "shell/mStart.h"
#include "sky/frmGeneralSky.h"
#include "sky/frmLocalSky.h"
#include "sky/frmMagnitude.h"
#include "sky/frmSkySat.h"

namespace halvorine {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  // the toolkit takes the user's locale over; numbers in files and settings never follow it
  std::setlocale(LC_NUMERIC, "C");
  setApplicationName(QStringLiteral("halvorine"));
  setApplicationDisplayName(QString::fromLatin1(applicationTitle));
  setApplicationVersion(QStringLiteral(HALVORINE_VERSION));
  setDesktopFileName(QStringLiteral("halvorine"));
  ApplyLook(*this);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& failure) {
    Tell(MessageKind::Warning, failure.what());
  }
  return true;
}

void RegisterWindows() {
  MakeLoadable<frmTime>("frmTime");
  MakeLoadable<frmCalc>("frmCalc");
  MakeLoadable<frmRelative>("frmRelative");
  MakeLoadable<frmCalendar>("frmCalendar");
  MakeLoadable<frmDatabase>("frmDatabase");
  MakeLoadable<frmDetails>("frmDetails");
  MakeLoadable<frmGeneralSky>("frmGeneralSky");
  MakeLoadable<frmVisibleSatellites>("frmVisibleSatellites");
  MakeLoadable<frmLocation>("frmLocation");
  MakeLoadable<frmProgress>("frmProgress");
  MakeLoadable<frmSkySat>("frmSkySat");
  MakeLoadable<frmWorldMap>("frmWorldMap");
  MakeLoadable<frmFloating>("frmFloating");
  MakeLoadable<frmSettings>("frmSettings");
  MakeLoadable<frmDownload>("frmDownload");
  MakeLoadable<frmSyncro>("frmSyncro");
  MakeLoadable<frmLocalSky>("frmLocalSky");
  MakeLoadable<frmChannel>("frmChannel");
  MakeLoadable<frmMagnitude>("frmMagnitude");
  MakeLoadable<frmObject>("frmObject");
  MakeLoadable<frmPlanets>("frmPlanets");
  MakeLoadable<frmRiseSet>("frmRiseSet");
  MakeLoadable<frmSatellite>("frmSatellite");
  MakeLoadable<frmTrack>("frmTrack");
}

}  // namespace halvorine
