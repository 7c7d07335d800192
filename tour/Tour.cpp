// A tour through the real windows: it starts the program at a fixed clock near the sample elements' epoch,
// opens one window after the other and writes a picture of each, named after it, with a line of text.
//   tour FOLDER [LANGUAGE [night]]
#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTextStream>
#include <fstream>
#include <functional>
#include <iostream>
#include <set>
#include <vector>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "catalogue/frmChannel.h"
#include "catalogue/frmFile.h"
#include "catalogue/mCatalogue.h"
#include "catalogue/qtDatabaseList.h"
#include "controls/qtPreview.h"
#include "controls/qtPrint.h"
#include "orbit/mSat.h"
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
#include "tour/Charts.h"

namespace halvorine {
namespace {

/// The instant of the tour, Universal Time.
const Date firstEvening = DateOf(2022, 6, 14) + (20 * 3600 + 8 * 60 + 41) / 86400.0;
Date tourClock = firstEvening;

/// The computer as the tour wants it: a clock that stands, settings of its own, no question left open.
class TourPlatform : public QtPlatform {
 public:
  explicit TourPlatform(std::string settings) : settings_(std::move(settings)) {}
  Date ComputerClockUtc() override { return tourClock; }
  std::string SettingsFile() override { return settings_; }
  bool FirstInstance() override { return true; }
  std::optional<ZoneBias> GetZoneBias() override { return std::nullopt; }
  std::optional<std::string> ChooseFile(const FileQuestion& question) override {
    if (!question.saving) return std::nullopt;
    return UserFolder + "/visual.txt";
  }
  void SetComputerClock(Date /*utc*/, const ClockAnswered& answered) override { answered({}); }
  MessageAnswer ShowMessage(MessageKind /*kind*/, const std::string& /*caption*/, const std::string& text,
                            MessageButtons buttons) override {
    std::cout << "    the program tells: " << text << "\n";
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
  }

 private:
  std::string settings_;
};

constexpr double minutesToAPass = 56;

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

/// The download window with an answer of a server on loopback, a second after it began.
QWidget* Download(MDIForm1& window, const QByteArray& answer, bool closes) {
  QTcpServer server;
  server.listen(QHostAddress::LocalHost);
  QObject::connect(&server, &QTcpServer::newConnection, [&] {
    QTcpSocket* const socket = server.nextPendingConnection();
    socket->setParent(&window);
    socket->write(answer);
    if (closes) socket->disconnectFromHost();
  });
  // the window of the stop before has ended, but is deleted only now
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  std::ofstream(UserFolder + "/visual.txt") << "the file of last week\n";
  window.RunCommand("mnuStrumentiDownload");
  auto* const form = window.findChild<QWidget*>(QStringLiteral("frmDownload"));
  auto* const entry = Control<QComboBox>(form, "cmbFileRemoto");
  entry->setEditText(QStringLiteral("127.0.0.1:%1/NORAD/elements/visual.txt").arg(server.serverPort()));
  Control<QAbstractButton>(form, "cmdOK")->click();
  entry->setEditText(QStringLiteral("celestrak.org/NORAD/elements/visual.txt"));
  QElapsedTimer clock;
  for (clock.start(); clock.elapsed() < 1500;)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  return form;
}

/// Sets the computer's clock and lets the program follow it.
void GoTo(Date utc) {
  tourClock = AddSeconds(utc, 0);
  tmrCentrale_Timer();
}

/// Moves the satellites of the live panel to where they stand some minutes later.
void ShowLater(double minutes) {
  UpdateSiderealTime(AddSeconds(CurrentDate, minutes * 60));
  for (int slot = 1; slot <= ActiveCount; ++slot) ComputeSatelliteState(slot, ClockFields.JulianDayNow);
  if (auto* const panel = Loaded<RefreshCalls>("frmTrack")) panel->Aggiorna_dati();
  UpdateSiderealTime(CurrentDate);
}

/// The main window with the map in front of the sky, at the evening of the beginning.
QWidget* ArrangeMainWindow(MDIForm1& window) {
  for (const char* const name : {"frmFloating", "frmSkySat1", "frmSkySat2", "frmLocalSky"})
    if (FormCalls* const form = LoadedForm(name)) form->Unload();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  for (int slot = 2; slot <= ActiveCount; ++slot)
    if (ElementSets[slot].CatalogNumber == followed.front()) SwapActive(1, slot);
  GoTo(firstEvening);
  const auto place = [](QWidget* frame, const QRect& at) {
    if (frame != nullptr) frame->setGeometry(at);
  };
  place(OpenLocalSky(window, false), {560, 206, 610, 430});
  place(OpenMap(window, "mnuTerraMappaRettangolare", {800, 460}), {10, 10, 800, 460});
  Settle();
  tmrCentrale_Timer();
  return &window;
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
  const auto modal = [&window](const char* name) {
    Settle();
    return window.findChild<QWidget*>(QString::fromLatin1(name));
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
      {"frmPreview", "Its pages, before they are printed",
       [=, &window] {
         QStringList rows;
         const QAbstractItemModel* const model = Control<RowList>(child("frmDetails"), "List1")->model();
         for (int row = 0; row < model->rowCount(); ++row) rows << model->index(row, 0).data().toString();
         ThePrinter().setPageOrientation(QPageLayout::Landscape);
         return dialog(new frmPreview(&window, ThePrinter(), child("frmDetails")->windowTitle(),
                                      [rows](QPrinter& printer) { return PrintRows(printer, rows); }));
       }},
      {"frmChannel", "The radio channels of a satellite",
       [=] {
         auto* const channel = new frmChannel();
         channel->Fill(1, 0);
         return dialog(channel);
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
      {"frmTrack", "Ten satellites a page, every second: here as they are seen from the place",
       [=, &window] {
         window.RunCommand("mnuEffemeridiSatelliti");
         ShowLater(minutesToAPass);
         Settle();
         return child("frmTrack");
       }},
      {"frmTrack-Radio", "Their radio channels with the Doppler shift of this second",
       [=, &window] {
         Control<QTabWidget>(window.findChild<QWidget*>(QStringLiteral("frmTrack")), "SSTab1")
             ->setCurrentIndex(3);
         Settle();
         return child("frmTrack");
       }},
      {"frmSatellite", "Everything about one element set",
       [=] {
         ShowSatellite(1);
         return modal("frmSatellite");
       }},
      {"frmPlanets", "Planets, Sun and Moon, every second",
       [=, &window] {
         window.RunCommand("mnuEffemeridiPianeti");
         Settle();
         return child("frmPlanets");
       }},
      {"frmRiseSet", "Rise and set of Sun and Moon, and the Moon's phase",
       [=, &window] {
         window.RunCommand("mnuEffemeridiAlmanacco");
         // six days on, so that the Moon has a phase to show
         for (int day = 0; day < 6; ++day) Control<QAbstractButton>(&window, "cmdGiornoDopo")->click();
         Settle();
         return child("frmRiseSet");
       }},
      {"frmObject", "A planet that was clicked in the sky",
       [=] {
         if (auto* const object = Load<ObjectCalls>("frmObject")) object->ShowObject(Saturn);
         return modal("frmObject");
       }},
      {"frmMagnitude", "How faint the stars of a chart may be",
       [=] {
         Load<GeneralSkyCalls>("frmGeneralSky");
         if (auto* const magnitude = Load<MagnitudeCalls>("frmMagnitude")) magnitude->ShowFor("generale");
         return modal("frmMagnitude");
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
      {"frmDownload", "A file of elements comes from a server",
       [&window] {
         return Download(window, "HTTP/1.1 200 OK\r\nContent-Length: 34000\r\n\r\n" + QByteArray(14280, '1'),
                         false);
       }},
      {"frmDownload-End",
       "Nothing is lost when the file has moved: the old one stays, the new address is told",
       [&window] {
         return Download(
             window,
             "HTTP/1.1 301 Moved Permanently\r\nLocation: "
             "https://celestrak.org/NORAD/elements/gp.php?GROUP=visual&FORMAT=TLE&from=short-address\r\n"
             "\r\nmoved",
             true);
       }},
      {"frmSyncro", "The clock is set from a time server",
       [&window] {
         window.RunCommand("mnuStrumentiSincronizzazione");
         return window.findChild<QWidget*>(QStringLiteral("frmSyncro"));
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
         for (const char* const name : {"frmDatabase", "frmFile1", "frmDetails", "frmCalendar", "frmTime",
                                        "frmTrack", "frmPlanets", "frmRiseSet", "frmVisibleSatellites"})
           if (FormCalls* const form = LoadedForm(name)) form->Unload();
         return OpenMap(window, "mnuTerraMappaOrtografica", QSize(711, 490));
       }},
      {"frmWorldMap-Recta", "The rectangular map with track, circle, night side and the live values",
       [&window] { return OpenMap(window, "mnuTerraMappaRettangolare", QSize(960, 590)); }},
      {"frmLocalSky", "The observer's sky with the principal satellite's transit",
       [&window] {
         if (FormCalls* const map = LoadedForm("frmWorldMap")) map->Unload();
         GoTo(NextSight(DateOf(2022, 6, 14) + 20.5 / 24));
         return OpenLocalSky(window, true);
       }},
      {"frmLocalSky-Day", "The sky by day",
       [&window] {
         GoTo(DateOf(2022, 6, 15) + 13.0 / 24);
         return OpenLocalSky(window, false);
       }},
      {"frmLocalSky-Twilight", "The sky in twilight",
       [&window] {
         GoTo(DateOf(2022, 6, 15) + 19.9 / 24);
         return OpenLocalSky(window, false);
       }},
      {"frmLocalSky-Zoom", "A part of the night sky, with all stars and without the landscape",
       [&window] {
         GoTo(DateOf(2022, 6, 16) + 0.5 / 24);
         return ZoomLocalSky(window);
       }},
      {"frmSettings-Filters", "Options: which passes a list keeps",
       [=, &window] {
         window.RunCommand("mnuOpzioniFiltri");
         Settle();
         return child("frmSettings");
       }},
      {"frmSettings-Colours", "Options: the colours of maps and charts",
       [=, &window] {
         window.RunCommand("mnuOpzioniColori");
         Settle();
         return child("frmSettings");
       }},
      {"frmFloating", "The live values in a window of their own",
       [&window] {
         if (FormCalls* const settings = LoadedForm("frmSettings")) settings->Unload();
         window.RunCommand("mnuVisualizzaBarraDati");
         return window.findChild<QWidget*>(QStringLiteral("frmFloating"));
       }},
      {"frmGeneralSky", "The whole sphere: stars to magnitude 6, the planets and the Moon",
       [&window] { return OpenGeneralSky(window, false); }},
      {"frmGeneralSky-All", "With grid, figures and all names",
       [&window] { return OpenGeneralSky(window, true); }},
      {"frmGeneralSky-Zoom", "A part of it, dragged out by the mouse",
       [&window] { return ZoomGeneralSky(window); }},
      {"frmSkySat", "A predicted pass among the stars, with its data",
       [] {
         if (FormCalls* const sky = LoadedForm("frmGeneralSky")) sky->Unload();
         return OpenPassChart();
       }},
      {"frmSkySat-All", "Another chart of it with grid, figures, names and times",
       [&window] { return OpenFullPassChart(window); }},
      {"frmPreview-LocalSky", "The local sky on paper", [] { return PreviewLocalSky(); }},
      {"frmPreview-Pass", "A pass on paper, with its times", [] { return PreviewPass(1); }},
      {"frmPreview-Pass-2", "Its second page: room for notes, and the bodies", [] { return PreviewPass(2); }},
      {"frmPreview-GeneralSky", "The whole sky on paper", [] { return PreviewGeneralSky(); }},
      {"MDIForm1-Night", "Night colours for eyes that are used to the dark",
       [&window] { return ArrangeMainWindow(window); }},
      {"MDIForm1", "The main window with its menus, toolbar and status bar",
       [&window]() -> QWidget* { return &window; }},
  };
}

int Take(const QString& folder, const std::string& language, bool atNight) {
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
    if (NightColoursActive != (atNight || stop.name.endsWith(QLatin1String("-Night"))))
      window.RunCommand("mnuVisualizzaColoriNotte");
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
    std::cerr << "usage: tour FOLDER [LANGUAGE [night]]\n";
    return 2;
  }
  const QString folder = QString::fromLocal8Bit(argv[1]);
  const std::string language = argc > 2 ? argv[2] : "English";
  const bool atNight = argc > 3 && QString::fromLocal8Bit(argv[3]) == QLatin1String("night");
  halvorine::Application application(argc, argv);
  try {
    std::cout << "Pictures of the tour in " << argv[1] << ":\n";
    return halvorine::Take(folder, language, atNight);
  } catch (const std::exception& failure) {
    std::cerr << "The tour ended: " << failure.what() << "\n";
    return 1;
  }
}
