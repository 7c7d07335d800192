// A tour through the real windows: it starts the program at a fixed clock near the sample elements' epoch,
// opens one window after the other and writes a picture of each, named after it, with a line of text.
//   tour FOLDER [LANGUAGE]
#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextStream>
#include <functional>
#include <iostream>
#include <set>
#include <vector>

#include "astro/mConv.h"
#include "catalogue/frmChannel.h"
#include "catalogue/frmFile.h"
#include "catalogue/mCatalogue.h"
#include "catalogue/qtDatabaseList.h"
#include "shell/MDIForm1.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mReg.h"
#include "shell/base/mStore.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"
#include "shell/base/qtPlatform.h"
#include "shell/frmAbout.h"
#include "shell/frmLanguage.h"
#include "shell/mStart.h"
#include "shell/mTick.h"
#include "shell/qtApplication.h"

namespace halvorine {
namespace {

/// The computer as the tour wants it: a clock that stands, settings of its own, no question left open.
class TourPlatform : public QtPlatform {
 public:
  explicit TourPlatform(std::string settings) : settings_(std::move(settings)) {}
  Date ComputerClockUtc() override { return clock_; }
  std::string SettingsFile() override { return settings_; }
  bool FirstInstance() override { return true; }
  std::optional<ZoneBias> GetZoneBias() override { return std::nullopt; }
  std::optional<std::string> ChooseFile(const FileQuestion& /*question*/) override { return std::nullopt; }
  MessageAnswer ShowMessage(MessageKind /*kind*/, const std::string& /*caption*/, const std::string& text,
                            MessageButtons buttons) override {
    std::cout << "    the program tells: " << text << "\n";
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
  }

 private:
  Date clock_ = DateOf(2022, 6, 14) + (20 * 3600 + 8 * 60 + 41) / 86400.0;
  std::string settings_;
};

struct Stop {
  QString name;
  const char* text;
  std::function<QWidget*()> open;
};

void Settle() {
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

/// The satellites that the tour follows, the principal first.
constexpr std::array<const char*, 12> followed = {"25544", "20580", "33591", "28654", "37849", "07530",
                                                  "25860", "27607", "16908", "22220", "28931", "21639"};

/// A list file of the followed satellites, as far as the sample holds them.
std::string ListFile(const std::string& sample) {
  QFile file(ToQ(sample));
  if (!file.open(QIODevice::ReadOnly)) return {};
  const std::vector<std::string> lines = Split(file.readAll().toStdString(), '\n');
  std::string list;
  for (const char* const number : followed)
    for (std::size_t i = 0; i + 2 < lines.size(); i += 3)
      if (Columns(lines[i + 1], 3, 7) == number)
        list.append(lines[i])
            .append("\n")
            .append(lines[i + 1])
            .append("\n")
            .append(lines[i + 2])
            .append("\n");
  return list;
}

QWidget* OpenMap(MDIForm1& window, const char* command, QSize size) {
  window.RunCommand(command);
  auto* const map = window.findChild<QWidget*>(QStringLiteral("frmWorldMap"));
  if (map != nullptr && map->parentWidget() != nullptr) map->parentWidget()->resize(size);
  Settle();
  tmrCentrale_Timer();
  return map != nullptr ? map->parentWidget() : nullptr;
}

std::vector<Stop> Stops(MDIForm1& window) {
  const auto child = [&window](const char* name) {
    auto* const form = window.findChild<QWidget*>(QString::fromLatin1(name));
    return form != nullptr ? form->parentWidget() : nullptr;
  };
  const auto dialog = [](QWidget* made) {
    made->setAttribute(Qt::WA_DeleteOnClose);
    made->show();
    return made;
  };
  return {
      {"frmLanguage", "The language is chosen at the first start", [=] { return dialog(new frmLanguage()); }},
      {"frmAbout", "Who made it and which version it is", [=] { return dialog(new frmAbout()); }},
      {"frmDatabase", "The catalogue: a file of elements, and the satellites that are followed",
       [=, &window] {
         window.RunCommand("mnuSatellitiDatabase");
         Settle();
         return child("frmDatabase");
       }},
      {"frmFile", "Element files are edited as text",
       [=] {
         auto* const file = new frmFile();
         file->Leggi(AppPath + "/elements/sample.txt");
         file->ShowForm();
         return file->Frame();
       }},
      {"frmDetails", "An element file as a table, sorted by any of its columns",
       [=] {
         auto* const details = Load<DetailsCalls>("frmDetails");
         details->Show();
         details->Leggi(AppPath + "/elements/sample.txt");
         return child("frmDetails");
       }},
      {"frmCalc", "A table of positions is asked for",
       [=, &window] {
         window.RunCommand("mnuSatellitiCalcoloEffemeridi");
         auto* const form = child("frmCalc");
         Control<RowList>(form, "lstDatabase", 0)->SelectOnly(0);
         Settle();
         return form;
       }},
      {"frmDetails-Table", "The table of a satellite for the observer",
       [=] {
         auto* const form = child("frmCalc");
         Control<QAbstractButton>(form, "cmdOK")->click();
         Settle();
         return child("frmDetails");
       }},
      {"frmRelative", "Two satellites to compare",
       [=, &window] {
         window.RunCommand("mnuSatellitiMotoRelativo");
         auto* const form = child("frmRelative");
         Control<RowList>(form, "lstDatabase", 0)->SelectOnly(0);
         Control<RowList>(form, "lstDatabase", 1)->SelectOnly(1);
         Settle();
         return form;
       }},
      {"frmDetails-Relative", "Their relative motion, over the places below them",
       [=] {
         auto* const form = child("frmRelative");
         Control<QAbstractButton>(form, "optLLA")->click();
         Control<QAbstractButton>(form, "cmdOK")->click();
         Settle();
         return child("frmDetails");
       }},
      {"frmVisibleSatellites", "The passes of one night, and the report of the chosen one",
       [=, &window] {
         window.RunCommand("mnuSatellitiPrevisioniPassaggi");
         auto* const form = child("frmVisibleSatellites");
         Control<QComboBox>(form, "cmbDurata", 0)->setCurrentIndex(6);
         Control<QAbstractButton>(form, "chkSoloVisibili", 0)->setChecked(true);
         Control<QAbstractButton>(form, "cmdOK", 0)->click();
         Settle();
         return form;
       }},
      {"frmVisibleSatellites-Empty", "The other satellites, before they are computed",
       [=] {
         auto* const form = child("frmVisibleSatellites");
         Control<QTabWidget>(form, "SSTab1")->setCurrentIndex(2);
         return form;
       }},
      {"frmChannel", "The radio channels of a satellite", [=] { return dialog(new frmChannel(1, 0)); }},
      {"frmTime", "The clocks, and a simulation that waits for its start",
       [=, &window] {
         window.RunCommand("mnuOpzioniData");
         auto* const time = Load<TimeCalls>("frmTime");
         time->SetUsesComputerClock(false);
         Settle();
         return child("frmTime");
       }},
      {"frmCalendar", "A month to look at",
       [=, &window] {
         auto* const time = Load<TimeCalls>("frmTime");
         time->SetUsesComputerClock(true);
         window.RunCommand("mnuStrumentiCalendario");
         Settle();
         return child("frmCalendar");
       }},
      {"frmLocation", "The observer's place, found by typing a part of its name",
       [=, &window] {
         if (FormCalls* const database = LoadedForm("frmDatabase")) database->Unload();
         window.RunCommand("mnuOpzioniLocalita");
         Settle();
         return child("frmLocation");
       }},
      {"frmAddLocation", "A place of one's own, in decimals or in minutes and seconds",
       [&window] {
         Control<QAbstractButton>(&window, "cmdModifica")->click();
         return window.findChild<QWidget*>(QStringLiteral("frmAddLocation"));
       }},
      {"frmProgress", "Long work shows how far it is, and can be cancelled",
       [] {
         if (FormCalls* const location = LoadedForm("frmLocation")) location->Unload();
         auto* const progress = Load<ProgressCalls>("frmProgress");
         progress->Begin(FromQ(Text("frmProgress", "letturasatelliti")), 100);
         progress->SetValue(42);
         for (QWidget* const widget : QApplication::topLevelWidgets())
           if (widget->objectName() == QLatin1String("frmProgress")) return widget;
         return static_cast<QWidget*>(nullptr);
       }},
      {"frmWorldMap-Ortho", "The globe, turned to the principal satellite",
       [&window] {
         if (FormCalls* const progress = LoadedForm("frmProgress")) progress->Unload();
         for (const char* const name :
              {"frmDatabase", "frmFile1", "frmDetails", "frmVisibleSatellites", "frmCalendar", "frmTime"})
           if (FormCalls* const form = LoadedForm(name)) form->Unload();
         return OpenMap(window, "mnuTerraMappaOrtografica", QSize(711, 490));
       }},
      {"frmWorldMap-Recta", "The rectangular map with track, circle, night side and the live values",
       [&window] { return OpenMap(window, "mnuTerraMappaRettangolare", QSize(960, 590)); }},
      {"MDIForm1", "The main window with its menus, toolbar and status bar",
       [&window]() -> QWidget* { return &window; }},
  };
}

int Take(const QString& folder, const std::string& language) {
  QTemporaryDir user;
  TourPlatform platform(FromQ(user.filePath(QStringLiteral("settings.txt"))));
  SetPlatform(&platform);
  AppPath = TOUR_PROGRAM_DIR;
  UserFolder = FromQ(user.path());
  RegisterWindows();
  // the tour's list lies in the user's folder, so that the program's own stays as it is
  const std::string sample = AppPath + "/elements/sample.txt";
  platform.WriteFile(UserFolder + "/Halvorine.ini", ListFile(sample));
  SaveRegistryString(settingsApplication, "Generali", "Lingua", language + ".ini");
  SaveRegistryString(settingsApplication, "Database", "Primario", sample);
  SaveRegistryString(settingsApplication, "Osservatore", "Ora legale", "1");
  StartStageOne({.chooseLanguage = [] {}});
  MDIForm1 window;
  window.Load();
  window.resize(1180, 740);
  QDir().mkpath(folder);
  int missing = 0;
  for (const Stop& stop : Stops(window)) {
    QWidget* const shown = stop.open();
    Settle();
    const QString file = folder + QLatin1Char('/') + stop.name + QLatin1String(".png");
    const bool written = shown != nullptr && shown->grab().save(file);
    missing += written ? 0 : 1;
    std::cout << "  " << FromQ(stop.name) << ".png: " << (written ? stop.text : "not to be had") << "\n";
    if (shown != nullptr && shown->isWindow() && shown != &window) shown->close();
  }
  UnloadAllForms("MDIForm1");
  return missing == 0 ? 0 : 1;
}

}  // namespace
}  // namespace halvorine

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: tour FOLDER [LANGUAGE]\n";
    return 2;
  }
  const QString folder = QString::fromLocal8Bit(argv[1]);
  const std::string language = argc > 2 ? argv[2] : "English";
  halvorine::Application application(argc, argv);
  try {
    std::cout << "Pictures of the tour in " << argv[1] << ":\n";
    return halvorine::Take(folder, language);
  } catch (const std::exception& failure) {
    std::cerr << "The tour ended: " << failure.what() << "\n";
    return 1;
  }
}
