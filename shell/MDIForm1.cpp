#include "shell/MDIForm1.h"

#include <QApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <filesystem>
#include <functional>

#include "catalogue/mCatalogue.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "maps/mMapList.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mReg.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"
#include "shell/frmAbout.h"
#include "shell/frmLanguage.h"
#include "shell/mStart.h"
#include "shell/mTick.h"

namespace halvorine {

namespace {

constexpr int widestPanel = 360;                       // pixels
constexpr int tickPeriod = 1000;                       // ms
constexpr int firstWidth = 11150, firstHeight = 8200;  // twips
constexpr QSize roomySize(1180, 740);                  // pixels, where the screen has room

/// One panel of the status bar: icon and text; a click anywhere on it runs a command.
class StatusPanel : public QWidget {
 public:
  StatusPanel(const char* icon, QLabel* text, bool first, std::function<void()> clicked)
      : icon_(Icon(icon)), first_(first), clicked_(std::move(clicked)) {
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(8 + iconSize + 6, 2, 12, 2);
    layout->addWidget(text);
    setCursor(Qt::PointingHandCursor);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    icon_.paint(&painter, 8, (height() - iconSize) / 2, iconSize, iconSize);
    if (first_) return;
    // a hairline parts the panels
    painter.setPen(ColoursOf(palette()).FrameEdge);
    painter.drawLine(0, 4, 0, height() - 5);
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) clicked_();
  }

 private:
  static constexpr int iconSize = 16;  // pixels
  QIcon icon_;
  bool first_;
  std::function<void()> clicked_;
};

}  // namespace

MDIForm1::MDIForm1() : area_(new QMdiArea(this)), toolbar_(nullptr), tmrCentrale_(new QTimer(this)) {
  setObjectName(QStringLiteral("MDIForm1"));
  setWindowIcon(Icon("app"));
  resize(PixelsOf(firstWidth), PixelsOf(firstHeight));
  area_->setBackground(ColoursOf(palette()).Workspace);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setCentralWidget(area_);
  SetWorkArea(area_);
  RegisterForm("MDIForm1", this);
  MakeMenus();
  FollowFocus();
  MakeToolbar();
  MakeStatusBar();
  MakeWindowKeys();
  tmrCentrale_->setObjectName(QStringLiteral("tmrCentrale"));
  tmrCentrale_->setTimerType(Qt::PreciseTimer);
  // queued, so that ticks go on while a message of the tick itself is open
  connect(
      tmrCentrale_, &QTimer::timeout, this, [] { tmrCentrale_Timer(); }, Qt::QueuedConnection);
}

MDIForm1::~MDIForm1() {
  // the focus still moves while the controls go, after the members of this class have gone
  disconnect(qApp, nullptr, this, nullptr);
  UnregisterForm("MDIForm1");
  SetWorkArea(nullptr);
}

void MDIForm1::MakeWindowKeys() {
  const auto key = [this](const QKeySequence& keys, const std::function<void()>& act) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
  };
  const QKeySequence close(Qt::CTRL | Qt::Key_F4);
  if (!QKeySequence::keyBindings(QKeySequence::Close).contains(close))
    key(close, [this] { area_->closeActiveSubWindow(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_F6), [this] { area_->activateNextSubWindow(); });
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F6), [this] { area_->activatePreviousSubWindow(); });
  key(QKeySequence(Qt::ALT | Qt::Key_Minus), [this] {
    if (QMdiSubWindow* const window = area_->activeSubWindow()) window->showSystemMenu();
  });
}

void MDIForm1::MakeStatusBar() {
  constexpr std::array<const char*, 3> icons = {"time", "sat_main", "place"};
  constexpr std::array<const char*, 3> commands = {"mnuOpzioniData", "mnuSatellitiDatabase",
                                                   "mnuOpzioniLocalita"};
  statusBar()->setObjectName(QStringLiteral("StatusBar1"));
  statusBar()->setSizeGripEnabled(false);
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panelTexts_[i] = Named(new QLabel(), "StatusBar1.Panels", static_cast<int>(i) + 1);
    panels_[i] = new StatusPanel(icons[i], panelTexts_[i], i == 0,
                                 [this, command = commands[i]] { RunCommand(command); });
    panels_[i]->setObjectName(QStringLiteral("StatusBar1.Panel(%1)").arg(i + 1));
    statusBar()->addWidget(panels_[i]);
  }
}

void MDIForm1::Load() {
  setWindowTitle(ToQ(ApplicationCaption()));
  LoadSettings();
  Lingua();
  frmAbout splash;
  splash.ShowSplash(Text("frmAbout", "letturadati"));
  LoadDataTables();
  LoadSatellites();
  TickEnabled = SatelliteTickEnabled = true;
  tmrCentrale_Timer();
  splash.close();
  for (const char* const item : {"mnuFileSalva", "mnuModificaTaglia", "mnuModificaCopia",
                                 "mnuModificaCancella", "mnuModificaAnnulla", "mnuModificaIncolla"})
    SetEnabled(item, false);
  SetStatusPanel(3, Site.Place);
  SetStatusPanel(2, std::string(Trimmed(ElementSets[1].Name)));
  toolbar_->setVisible(Options.Toolbar != 0);
  statusBar()->setVisible(Options.StatusBar != 0);
  SetChecked("mnuVisualizzaBarraPulsanti", Options.Toolbar != 0);
  SetChecked("mnuVisualizzaBarraStato", Options.StatusBar != 0);
  // the agreed size is a small one; where the screen has room the first window is roomier
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen != nullptr && screen->availableSize().width() >= roomySize.width() &&
      screen->availableSize().height() >= roomySize.height())
    resize(roomySize);
  tmrCentrale_->start(tickPeriod);
  show();
  ThePlatform().Yield();
  CheckDaylightSaving();
}

void MDIForm1::Lingua() {
  ConditionEclipsed = LookupText("Conditions", "eclisse");
  ConditionVisible = LookupText("Conditions", "visibile");
  ConditionNotVisible = LookupText("Conditions", "nonvisibile");
  ReadLanguageDates();
  HelpFile = AppPath + "/" + LookupText("Help", "file");
  const std::string section = FromQ(objectName());
  for (auto item = items_.cbegin(); item != items_.cend(); ++item) {
    const QString caption = Text(section, FromQ(item.key()));
    const bool popupRoot =
        menus_.contains(item.key()) && item.key().startsWith(QLatin1String("mnu")) && caption.isEmpty();
    if (!popupRoot) item.value()->setText(caption);
  }
  CaptionToolbar();
  CaptionPanels();
}

void MDIForm1::CaptionPanels() {
  constexpr std::array<const char*, 3> tips = {"data", "satellite", "localita"};
  const std::string section = FromQ(objectName());
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i]->setToolTip(Text(section, tips[i]));
    panelTexts_[i]->setAccessibleName(Text(section, tips[i]));
  }
  QWidget* const satellite = panels_[1];
  const QString warning = oldElements_ ? Text(section, "elementivecchi") : QString();
  if (!warning.isEmpty()) satellite->setToolTip(satellite->toolTip() + QLatin1Char('\n') + warning);
  panelTexts_[1]->setAccessibleDescription(warning);
}

void MDIForm1::WarnOfOldElements(bool old) {
  if (old == oldElements_) return;
  oldElements_ = old;
  CaptionPanels();
}

void MDIForm1::LoadSatellites() {
  try {
    LoadActiveList();
  } catch (const FileFailure& failure) {
    Tell(MessageKind::Warning, LookupText("MDIForm1", "elencoillegibile") + "\n" + failure.what());
  }
  DecodeActiveList();
}

void MDIForm1::Show() {
  show();
  raise();
}

void MDIForm1::SetStatusPanel(int panel, const std::string& text) {
  if (panel < 1 || panel > 3) throw SubscriptFailure("status panel " + std::to_string(panel));
  QLabel* const label = panelTexts_[static_cast<std::size_t>(panel - 1)];
  // a place may have a name of any length; the bar must not widen the window
  const QString shown = label->fontMetrics().elidedText(ToQ(text), Qt::ElideRight, widestPanel);
  if (label->text() != shown) label->setText(shown);
}

QAction* MDIForm1::Item(std::string_view name) const {
  QAction* const item = items_.value(ToQ(name));
  if (item == nullptr) throw SubscriptFailure("menu item " + std::string(name) + " does not exist");
  return item;
}

bool MDIForm1::IsChecked(std::string_view item) const { return Item(item)->isChecked(); }
void MDIForm1::SetChecked(std::string_view item, bool checked) { Item(item)->setChecked(checked); }
void MDIForm1::SetEnabled(std::string_view item, bool enabled) { Item(item)->setEnabled(enabled); }
void MDIForm1::RunCommand(std::string_view item) { Item(item)->trigger(); }

void MDIForm1::SetToolbarPicture(std::string_view key, int number) {
  if (QAction* const button = toolbar_->findChild<QAction*>(ToQ(key)))
    button->setIcon(Icon(IconName(number).toLatin1().constData()));
}

void MDIForm1::PopupMenu(std::string_view menu, int screenX, int screenY) {
  if (QMenu* const popup = menus_.value(ToQ(menu))) popup->popup(QPoint(screenX, screenY));
}

void MDIForm1::OpenFile() {
  if (!LongOperation::Refused()) Apertura_database(Primary, EmptyFile::IsIgnored);
}

void MDIForm1::RestoreSettings() {
  if (LongOperation::Refused()) return;
  const std::string text =
      LookupText("MDIForm1", "ripristinoopzioni1") + "\n" + LookupText("MDIForm1", "ripristinoopzioni2");
  if (Tell(MessageKind::Question, text, MessageButtons::YesNoDefaultNo) == MessageAnswer::Yes)
    Impostazioni_default();
}

bool MDIForm1::TrySaveSettings() {
  try {
    Salva_impostazioni();
    Salva_Ini();
    MakeSavedCopies();
    return true;
  } catch (const RuntimeFailure& failure) {
    Tell(MessageKind::Warning, LookupText("Dialogs", "nonsalvato") + "\n" + failure.what());
    return false;
  }
}

void MDIForm1::FlipDataPanel() {
  if (auto* const panel = halvorine::Load<FloatingCalls>("frmFloating"))
    panel->SetShown(IsChecked("mnuVisualizzaBarraDati"));
}

void MDIForm1::FlipNightColours() { SwitchNightColours(IsChecked("mnuVisualizzaColoriNotte")); }

void MDIForm1::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) area_->setBackground(ColoursOf(palette()).Workspace);
}

void MDIForm1::FlipToolbar() { toolbar_->setVisible(IsChecked("mnuVisualizzaBarraPulsanti")); }
void MDIForm1::FlipStatusBar() { statusBar()->setVisible(IsChecked("mnuVisualizzaBarraStato")); }

void MDIForm1::OpenMap(std::string_view kind) {
  if (ElementSets[1].Name.empty()) {
    if (LongOperation::Refused()) return;
    Database_satelliti(PrimaryDatabasePath);
  }
  if (ElementSets[1].Name.empty()) {
    // without a principal satellite there is no map; the catalogue is where one is chosen
    if (FormCalls* const database = LoadForm("frmDatabase")) database->Show();
    return;
  }
  if (auto* const map = halvorine::Load<WorldMapCalls>("frmWorldMap")) map->ShowKind(kind);
}

void MDIForm1::OpenDatabase() {
  if (ListedRows(Primary)->Count() == 0) {
    if (LongOperation::Refused()) return;
    Database_satelliti(PrimaryDatabasePath);
  }
  if (FormCalls* const database = LoadForm("frmDatabase")) database->Show();
}

void MDIForm1::StartCalculator() { ThePlatform().StartProcess("calc.exe"); }

void MDIForm1::StartExternalProgram() {
  const std::string program(Trimmed(Options.ExternalProgram));
  if (program.empty()) return;
  // a chosen file may have blanks in its path; what is typed may hold words of its own
  std::error_code ignored;
  const bool isFile = program.find(' ') != std::string::npos && std::filesystem::exists(program, ignored);
  ThePlatform().StartProcess((isFile ? '"' + program + '"' : Options.ExternalProgram) + " " +
                             Options.ExternalParameters);
}

void MDIForm1::OpenLanguage() {
  frmLanguage dialog(this);
  // the dialog is not among the windows that a change of language unloads
  if (dialog.exec() != QDialog::Accepted) return;
  UnloadAllForms("MDIForm1");
  Lingua();
}

namespace {

/// Windows of the work area that can be arranged, the oldest first.
QList<QMdiSubWindow*> Arrangeable(const QMdiArea* area) {
  QList<QMdiSubWindow*> windows;
  for (QMdiSubWindow* const window : area->subWindowList(QMdiArea::CreationOrder))
    if (window->isVisible() && !window->isMinimized()) windows.append(window);
  return windows;
}

}  // namespace

void MDIForm1::Cascade() { area_->cascadeSubWindows(); }
void MDIForm1::TileHorizontally() { Tile(true); }
void MDIForm1::TileVertically() { Tile(false); }

void MDIForm1::Tile(bool stacked) {
  const QList<QMdiSubWindow*> windows = Arrangeable(area_);
  if (windows.isEmpty()) return;
  const QRect room = area_->viewport()->rect();
  const auto count = static_cast<int>(windows.size());
  for (int i = 0; i < count; ++i) {
    const int begin = (stacked ? room.height() : room.width()) * i / count;
    const int end = (stacked ? room.height() : room.width()) * (i + 1) / count;
    windows[i]->showNormal();
    windows[i]->setGeometry(stacked ? QRect(0, begin, room.width(), end - begin)
                                    : QRect(begin, 0, end - begin, room.height()));
  }
}

void MDIForm1::CloseAll() { UnloadAllForms("MDIForm1"); }

void MDIForm1::ArrangeAll() {
  int left = 0;
  for (QMdiSubWindow* const window : area_->subWindowList(QMdiArea::CreationOrder)) {
    if (!window->isVisible() || !window->isMinimized()) continue;
    window->move(left, area_->viewport()->height() - window->height());
    left += window->width();
  }
}

void MDIForm1::OpenAbout() {
  frmAbout about(this);
  about.exec();
}

void MDIForm1::MapRedraw() {
  if (!IsFormLoaded("frmWorldMap")) return;
  ThePlatform().Yield();
  if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) map->Genera_mappa();
}

void MDIForm1::MapGrid() {
  auto* const map = Loaded<WorldMapCalls>("frmWorldMap");
  if (map != nullptr && IsChecked("mnuWorldmapGriglia"))
    map->Disegna_griglia();
  else
    MapRedraw();
}

void MDIForm1::MapTrack() {
  auto* const map = Loaded<WorldMapCalls>("frmWorldMap");
  if (map != nullptr && IsChecked("mnuWorldmapTracciatoOrbita"))
    map->Disegna_orbita();
  else
    MapRedraw();
}

void MDIForm1::MapCoordinates() {
  auto* const map = Loaded<WorldMapCalls>("frmWorldMap");
  if (map != nullptr && !IsChecked("mnuWorldmapCoordinateMouse")) map->ResetTitle();
  MapRedraw();
}

void MDIForm1::MapTerminator() {
  if (!IsFormLoaded("frmWorldMap")) return;
  if (!IsChecked("mnuWorldmapTerminatore")) SetChecked("mnuWorldmapOmbra", false);
  MapRedraw();
}

void MDIForm1::MapRemove() {
  auto* const map = Loaded<WorldMapCalls>("frmWorldMap");
  if (map == nullptr) return;
  RemoveMapSatellite(map->HoveredSatellite());
  map->Genera_mappa();
}

void MDIForm1::MapClose() {
  if (FormCalls* const map = LoadedForm("frmWorldMap")) map->Unload();
}

bool MDIForm1::AskExit() {
  if (Options.ConfirmExit != 0 && Tell(MessageKind::Question, LookupText("MDIForm1", "sicuridiuscire"),
                                       MessageButtons::YesNo) != MessageAnswer::Yes)
    return false;
  bool changed = false;
  if (Options.CheckOptions != 0) {
    OptionsChanged(changed);
    changed = changed || ActiveListChanged();
  }
  if (!changed || Tell(MessageKind::Question, LookupText("MDIForm1", "modificheimpostazioni"),
                       MessageButtons::YesNo) != MessageAnswer::Yes)
    return true;
  // what the user wants saved and cannot be is not to be lost with the program
  return TrySaveSettings();
}

void MDIForm1::EndProgram() { close(); }

void MDIForm1::closeEvent(QCloseEvent* event) {
  if (LongOperation::Running()) {
    // a long command is told to stop, and the exit is asked for again when it has
    event->ignore();
    CancelRequested = true;
    AfterLongOperation = [this] { QTimer::singleShot(0, this, [this] { close(); }); };
    return;
  }
  if (closing_ || !AskExit() || !FormsMayUnload("MDIForm1")) {
    event->setAccepted(closing_);
    return;
  }
  closing_ = true;
  SwitchNightColours(false);
  TickEnabled = false;
  tmrCentrale_->stop();
  UnloadAllForms("MDIForm1");
  TickEnabled = false;  // the end of the time window has set the clock going again
  event->accept();
  QCoreApplication::quit();
}

}  // namespace halvorine
