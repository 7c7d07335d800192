// MDIForm1: the main window. It holds all menus, the toolbar and the status bar, shows the child windows in
// its work area, runs the central tick and ends the program.
#pragma once

#include <QAction>
#include <QCloseEvent>
#include <QHash>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QToolBar>
#include <array>

#include "shell/base/mForms.h"
#include "shell/base/mHelp.h"

namespace halvorine {

class frmAbout;

class MDIForm1 : public QMainWindow, public MainFormCalls {
 public:
  MDIForm1();
  ~MDIForm1() override;

  /// Stage two of start-up, up to the visible window; raises StartupEnds when a data table cannot be read.
  void Load();
  /// Captions of menus, toolbar and status bar in the language now chosen.
  void Lingua();

  void Unload() override { close(); }
  void Show() override;
  void SetStatusPanel(int panel, const std::string& text) override;
  void WarnOfOldElements(bool old) override;
  bool IsChecked(std::string_view item) const override;
  void SetChecked(std::string_view item, bool checked) override;
  void SetEnabled(std::string_view item, bool enabled) override;
  void RunCommand(std::string_view item) override;
  void SetToolbarPicture(std::string_view key, int number) override;
  void PopupMenu(std::string_view menu, int screenX, int screenY) override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  friend struct MenuTable;
  using Handler = void (MDIForm1::*)();

  void MakeMenus();
  void MakeToolbar();
  void MakeStatusBar();
  /// Keys that the work area does not have by itself.
  void MakeWindowKeys();
  void CaptionToolbar();
  void CaptionPanels();
  void LoadSatellites();
  QAction* Item(std::string_view name) const;
  void RunRow(const QString& name);
  /// Tells the window to which a popup menu belongs; without it the item keeps its check mark.
  void PopupCommand(const char* form, QAction& item);
  void ShowDialog(QDialog& dialog);
  bool AskExit();
  void EndProgram();

  void FollowFocus();
  void EnableFileItems();
  void EnableEditItems();
  void SaveActive();
  void EditUndo();
  void EditCut();
  void EditCopy();
  void EditPaste();
  void EditDelete();

  void OpenFile();
  void ViewFile();
  void NewFile();
  void EditFile();
  void FormatFile();
  void SetUpPrinter();
  void PrintActive();
  void RestoreSettings();
  void SaveSettings() { TrySaveSettings(); }
  /// False, after a message, where the settings could not be written.
  bool TrySaveSettings();
  void FlipToolbar();
  void FlipStatusBar();
  void FlipDataPanel();
  void FlipNightColours();
  void OpenMap(std::string_view kind);
  void OpenRecta() { OpenMap("Recta"); }
  void OpenOrtho() { OpenMap("Ortho"); }
  void OpenDatabase();
  void StartCalculator();
  void StartExternalProgram();
  void OpenLanguage();
  void Cascade();
  void TileHorizontally();
  void TileVertically();
  void Tile(bool stacked);
  void CloseAll();
  void ArrangeAll();
  void HelpContents() { halvorine::OpenHelpFile(0); }
  void HelpSearch() { halvorine::OpenHelpFile(-1); }
  void OpenAbout();
  void MapGrid();
  void MapCoordinates();
  void MapTerminator();
  void OnlyChecked() {}  // the tick and the mouse read these checks
  void MapTrack();
  void MapRemove();
  void MapRedraw();
  void MapClose();

  QMdiArea* area_;
  QToolBar* toolbar_;
  QTimer* tmrCentrale_;
  QHash<QString, QAction*> items_;
  QHash<QString, QMenu*> menus_;
  QHash<QString, QAction*> toolbarItems_;  // by the command they run
  std::array<QWidget*, 3> panels_{};
  std::array<QLabel*, 3> panelTexts_{};
  int newFiles_ = 0;              // texts begun so far; each is captioned with its number
  QPointer<QWidget> editTarget_;  // what has, or had before a menu took it, the keyboard
  bool closing_ = false, oldElements_ = false;
};

}  // namespace halvorine
