// What windows let others call, and the registry of the windows that are loaded. A window publishes its calls
// under its name when it is loaded and withdraws them when it is unloaded; callers ask IsFormLoaded first.
// No window includes another window's header, and the engine can be run without any window.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/base/mRecords.h"

namespace halvorine {

/// What every loaded window answers to.
class FormCalls {
 public:
  virtual ~FormCalls() = default;
  /// Ends the window for real, after it has stored what it keeps.
  virtual void Unload() = 0;
  /// Brings the window to the front.
  virtual void Show() = 0;
  /// Asks the user what becomes of unsaved work, where there is any; false keeps the window.
  virtual bool MayUnload() { return true; }
};

/// MDIForm1.
class MainFormCalls : public FormCalls {
 public:
  /// Text of a status bar panel, 1 to 3.
  virtual void SetStatusPanel(int panel, const std::string& text) = 0;
  /// Whether the tooltip of panel 2 warns that the elements of the principal satellite are old.
  virtual void WarnOfOldElements(bool old) = 0;
  /// Check mark of a menu item by its name; raises SubscriptFailure for an unknown name.
  virtual bool IsChecked(std::string_view item) const = 0;
  virtual void SetChecked(std::string_view item, bool checked) = 0;
  virtual void SetEnabled(std::string_view item, bool enabled) = 0;
  /// Runs the command of a menu item by its name, as a click on it would.
  virtual void RunCommand(std::string_view item) = 0;
  /// Picture of a toolbar button by its key ("Transit"), from the numbered list of icons.
  virtual void SetToolbarPicture(std::string_view key, int number) = 0;
  /// Opens one of the popup menus (mnuWorldmap, ...) at a place of the screen, in pixels.
  virtual void PopupMenu(std::string_view menu, int screenX, int screenY) = 0;
};

/// frmWorldMap.
class WorldMapCalls : public FormCalls {
 public:
  /// Opens the map of a kind, "Recta" or "Ortho".
  virtual void ShowKind(std::string_view kind) = 0;
  virtual void Genera_mappa() = 0;
  virtual void Disegna_satellite(int slot) = 0;
  virtual void Disegna_visibilita() = 0;
  virtual void Disegna_griglia() = 0;
  virtual void Disegna_orbita() = 0;
  virtual void ShowTexts(const LiveTexts& texts) = 0;
  /// Wipes the satellites off and blanks the data box.
  virtual void Azzera_dati() = 0;
  /// Takes over the options of the map: menu checks, toolbar, data box, then a rebuild.
  virtual void Applica_opzioni() = 0;
  /// Puts the plain title back, after the coordinate read-out.
  virtual void ResetTitle() = 0;
  /// The satellite under the pointer when the popup was opened, 0 for none.
  virtual int HoveredSatellite() const = 0;
};

/// frmLocalSky.
class LocalSkyCalls : public FormCalls {
 public:
  virtual void Genera_mappa() = 0;
  virtual void Disegna_satellite_in_cielo(int slot) = 0;
  /// Ends the transit display: forgets its track and gives its button the picture of a chart without it.
  virtual void ResetModeButton() = 0;
  virtual void ShowTexts(const LiveTexts& texts) = 0;
  virtual void Azzera_dati() = 0;
  /// Takes over the options of the chart: menu checks, star count, data box, then a rebuild.
  virtual void Applica_opzioni() { Genera_mappa(); }
};

/// frmGeneralSky.
class GeneralSkyCalls : public FormCalls {
 public:
  virtual void Genera_mappa() = 0;
  /// Likewise.
  virtual void Applica_opzioni() { Genera_mappa(); }
};

/// frmFloating.
class FloatingCalls : public FormCalls {
 public:
  virtual void ShowTexts(const LiveTexts& texts) = 0;
  /// Shows the panel or hides it; hidden it keeps its place and its opacity.
  virtual void SetShown(bool shown) = 0;
};

/// frmSettings.
class SettingsCalls : public FormCalls {
 public:
  /// Shows the window with one of its tabs, from 0.
  virtual void ShowTab(int tab) = 0;
};

/// frmTime: real time or simulation, and its labels.
class TimeCalls : public FormCalls {
 public:
  /// Value of chkUsaOraPc.
  virtual bool UsesComputerClock() const = 0;
  virtual void SetUsesComputerClock(bool on) = 0;
  virtual void Aggiorna_dati() = 0;
};

/// frmTrack, frmPlanets: windows that the tick only refreshes.
class RefreshCalls : public FormCalls {
 public:
  virtual void Aggiorna_dati() = 0;
};

/// frmTrack: the live panel.
class TrackCalls : public RefreshCalls {
 public:
  /// Takes over the channel that the options now hold for a row, from 0.
  virtual void SetChannel(int panelRow) = 0;
};

/// frmDatabase.
class DatabaseCalls : public FormCalls {
 public:
  /// Empties lists and labels before a read (the window is disabled until ReadEnded).
  virtual void ReadBegins(int index) = 0;
  /// Shows rows, statistics and the active list as they stand now.
  virtual void ReadEnded(int index) = 0;
  /// Selects only the row of lstActive at a position from 0.
  virtual void SelectActive(int position) = 0;
  /// The command of cmdRemove: removes the selected active satellites.
  virtual void RemoveSelected() = 0;
  /// Takes the rows of lstActive from the element sets again.
  virtual void ActiveListChanged() = 0;
  /// Whether the statistics warn that the elements of the principal satellite are old.
  virtual void WarnOfOldElements(bool old) = 0;
};

/// frmSatellite: everything about one element set.
class SatelliteCalls : public FormCalls {
 public:
  /// Shows a slot, an active one or the scratch slot.
  virtual void ShowSlot(int slot) = 0;
};

/// frmChannel: the choice of a radio channel for a row of the live panel.
class ChannelCalls : public FormCalls {
 public:
  /// Asks for the channel of a row (from 0) that shows a slot. The choice goes into the options, and frmTrack
  /// is told. SubscriptFailure for a row or a slot that does not exist.
  virtual void Choose(int slot, int panelRow) = 0;
};

/// frmObject: everything about one object of the sky.
class ObjectCalls : public FormCalls {
 public:
  /// Shows PickedStar (0) or a body of SkyObjectTable (1 to 9). SubscriptFailure for any other number.
  virtual void ShowObject(int index) = 0;
};

/// A sky chart whose stars are limited by their count.
class StarCountCalls {
 public:
  virtual ~StarCountCalls() = default;
  virtual int StarCount() const = 0;
  /// Takes a count over and draws the chart anew.
  virtual void SetStarCount(int count) = 0;
};

/// frmMagnitude: the limiting magnitude of a sky chart.
class MagnitudeCalls : public FormCalls {
 public:
  /// Asks for the limit of the chart that a tag stands for: "locale", "generale", or "anteprima" for the pass
  /// chart named AskingPassChart. The chart takes the choice over.
  virtual void ShowFor(std::string_view tag) = 0;
};

/// Name of the pass chart whose popup menu was opened last; several of them can stand open.
inline std::string AskingPassChart;

/// frmDetails: tables of fixed-width rows, and the summary of an element file or a database.
class DetailsCalls : public FormCalls {
 public:
  /// Tabulates an element file, or tells that it is none.
  virtual void LeggiDiretto(const std::string& path) = 0;
  /// Reads an element file as a database of its own and tabulates it.
  virtual void Leggi(const std::string& path) = 0;
  /// Tabulates the primary (0) or the secondary (1) database.
  virtual void Sommario(int index) = 0;
  /// Empties List1 and shows it in the place of ListView1.
  virtual void BeginRows(const std::string& title) = 0;
  /// Appends a row to List1.
  virtual void AddRow(const std::string& row) = 0;
  /// Shows rows in List1 that are made when they are looked at, by their number from 0.
  virtual void ShowRows(const std::string& title, int count, std::function<std::string(int)> row) = 0;
  /// Shows the table of a slot in the coordinates of a code: 1 the observer's, 2 inertial, 3 latitude,
  /// longitude and height, 4 right ascension and declination. Dates are the observer's civil ones. A step of
  /// 0 seconds is chosen by the length of the span and written back. Comes back when the table has ended.
  virtual void Genera_elenco(int slot, Date start, Date end, double& step, int code) = 0;
  /// Likewise the table that compares the satellites of slots 201 and 202.
  virtual void Genera_relativo(Date start, Date end, double step, int code) = 0;
  /// Whether tables in the observer's coordinates list only what stands above the horizon, from now on.
  virtual void SetOnlyAboveHorizon(bool on) = 0;
};

/// A pass as its chart shows it. All of it by value, so that the chart outlives the list it came from. Dates
/// are civil local ones, to the second.
struct PassChart {
  Date rise = 0, culmination = 0, set = 0;
  Date selected = 0;  // that of the three which is chosen: the moment of the chart
  std::string riseRow, culminationRow, setRow;
  ElementSet elements;
  DatabaseEntry lines;
};

/// frmSkySat: the sky chart of one pass. Several can stand open; one that shows a pass goes by its name and a
/// number, so that the plain name always loads a new one.
class SkySatCalls : public FormCalls {
 public:
  /// Shows the chart of a pass, computed on the scratch slot, and brings it to the front.
  virtual void ShowPass(const PassChart& pass) = 0;
};

/// frmProgress.
class ProgressCalls : public FormCalls {
 public:
  virtual void Begin(const std::string& task, double maximum) = 0;
  /// Names another task; the bar goes on.
  virtual void SetTask(const std::string& task) = 0;
  virtual void SetValue(double value) = 0;
};

/// A window with a popup menu of its own on the main window. An item that has a check mark has flipped it
/// before the window is told.
class PopupCalls {
 public:
  virtual ~PopupCalls() = default;
  virtual void MenuCommand(std::string_view item) = 0;
};

/// A window that can save what it shows. The command Save asks the active child window for it, so that
/// windows of which several stand open need no name for it.
class SaveCalls {
 public:
  virtual ~SaveCalls() = default;
  virtual void Salva() = 0;
};

/// Likewise a window that can print what it shows.
class PrintCalls {
 public:
  virtual ~PrintCalls() = default;
  virtual void Stampa() = 0;
};

/// Whether a window of that name is loaded, compared without regard to case. Creates nothing.
bool IsFormLoaded(std::string_view name);

/// The calls of a loaded window, or null.
FormCalls* LoadedForm(std::string_view name);

/// The calls of a loaded window as its own type, or null.
template <class Calls>
Calls* Loaded(std::string_view name) {
  return dynamic_cast<Calls*>(LoadedForm(name));
}

/// Loads a window hidden if it is not loaded yet; null where no such window can be made.
FormCalls* LoadForm(std::string_view name);

template <class Calls>
Calls* Load(std::string_view name) {
  return dynamic_cast<Calls*>(LoadForm(name));
}

/// Publishes or withdraws the calls of a window.
void RegisterForm(const std::string& name, FormCalls* calls);
void UnregisterForm(std::string_view name);

/// Tells how a window is made at its first use; the maker registers it.
void SetFormMaker(const std::string& name, std::function<void()> maker);

/// Whether a maker for that window is known.
bool CanLoadForm(std::string_view name);

/// Names of the windows that can be loaded, in the order of the alphabet.
std::vector<std::string> LoadableForms();

/// Asks all windows but the named one whether they may be unloaded; false at the first that stays.
bool FormsMayUnload(std::string_view except);

/// Unloads all windows but the named one, from the last loaded to the first. A window that keeps unsaved work
/// stays.
void UnloadAllForms(std::string_view except);

/// Forgets all windows and makers; serves tests.
void ResetForms();

/// The main window, or null before it is made.
MainFormCalls* MainForm();

}  // namespace halvorine
