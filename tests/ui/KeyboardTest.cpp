// The whole program without a mouse: every command through the menus, every control of every window by Tab
// and the keys that work it, every window closed, left and reached again, and the maps and charts by their
// pointer.
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <map>
#include <set>

#include "maps/qtSurface.h"
#include "shell/base/mGlobal.h"
#include "shell/mTick.h"
#include "tests/fakes/FoundPass.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

std::string NameOf(const QWidget* widget) {
  if (widget == nullptr) return "nothing";
  std::string name = FromQ(widget->objectName());
  if (name.empty()) name = widget->metaObject()->className();
  return name;
}

class KeyboardTest : public RunningProgram {
 protected:
  QWidget* Opened(const std::string& name) {
    FormCalls* const form = LoadForm(name);
    if (form == nullptr) return nullptr;
    Activate();
    form->Show();
    QCoreApplication::processEvents();
    auto* const window = dynamic_cast<QWidget*>(LoadedForm(name));
    if (window != nullptr && window->isWindow()) window->activateWindow();
    QCoreApplication::processEvents();
    return window;
  }
  /// Presses a key where the keyboard is: in a menu, in the focus, or in the main window.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* target = QApplication::activePopupWidget();
    // a menu that has closed leaves the keyboard to the window it was opened from
    const QWidget* const active = QApplication::activeWindow();
    if (target == nullptr && (active == nullptr || !active->isVisible())) Activate();
    if (target == nullptr) target = QApplication::focusWidget();
    if (target == nullptr) target = QApplication::activeWindow();
    QTest::keyClick(target != nullptr ? target : window_.get(), key, modifiers);
    QCoreApplication::processEvents();
  }
  /// What a window manager does when a dialog has closed.
  void Activate() {
    window_->activateWindow();
    QCoreApplication::processEvents();
  }
  /// The Menu key, which the window system turns into an event of its own.
  static void MenuKey() {
    QWidget* const focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), focus->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(focus, &event);
  }
  QMdiSubWindow* Active() { return window_->findChild<QMdiArea*>()->activeSubWindow(); }
  /// Walks to an item of an open menu and chooses it.
  static void Choose(QMenu* menu, const QAction* item) {
    for (int i = 0; i < 60 && menu->activeAction() != item; ++i) QTest::keyClick(menu, Qt::Key_Down);
    ASSERT_EQ(menu->activeAction(), item) << FromQ(item->objectName());
    QTest::keyClick(menu, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
};

/// What the user is to reach with Tab: the enabled controls that act or can be walked in.
std::set<const QWidget*> ControlsOf(const QWidget* window) {
  std::set<const QWidget*> controls;
  for (const QWidget* const control : window->findChildren<QWidget*>()) {
    if (!control->isVisible() || !control->isEnabled() || control->focusProxy() != nullptr ||
        qobject_cast<const QHeaderView*>(control) != nullptr)
      continue;
    const QString parent = control->parentWidget()->objectName();
    const bool inner = qobject_cast<const QAbstractSpinBox*>(control->parentWidget()) != nullptr ||
                       qobject_cast<const QComboBox*>(control->parentWidget()) != nullptr ||
                       parent.startsWith(QLatin1String("qt_")) || parent == QLatin1String("ScrollLeft");
    const bool acts = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                      qobject_cast<const QAbstractItemView*>(control) != nullptr ||
                      qobject_cast<const QAbstractSpinBox*>(control) != nullptr ||
                      qobject_cast<const QComboBox*>(control) != nullptr ||
                      qobject_cast<const QLineEdit*>(control) != nullptr;
    // arrows go from one to the next within a group
    const auto* const radio = qobject_cast<const QRadioButton*>(control);
    if (radio != nullptr && !radio->isChecked()) continue;
    if (!inner && (acts || (control->focusPolicy() & Qt::TabFocus) != 0)) controls.insert(control);
  }
  return controls;
}

/// Works a control by its keys and tells whether that has done something.
bool Works(QWidget* control) {
  if (auto* const button = qobject_cast<QAbstractButton*>(control)) {
    QTest::keyPress(button, Qt::Key_Space);
    const bool down = button->isDown();
    QTest::keyPress(button, Qt::Key_Escape);  // takes the press back
    QTest::keyRelease(button, Qt::Key_Space);
    return down;
  }
  const auto state = [control]() -> QVariant {
    if (const auto* const combo = qobject_cast<const QComboBox*>(control)) return combo->currentText();
    if (const auto* const slider = qobject_cast<const QAbstractSlider*>(control)) return slider->value();
    if (const auto* const spin = qobject_cast<const QAbstractSpinBox*>(control)) return spin->text();
    const auto* const view = qobject_cast<const QAbstractItemView*>(control);
    return view != nullptr && view->model()->rowCount() > 1 ? view->currentIndex().row() : QVariant();
  };
  const QVariant before = state();
  if (!before.isValid()) return true;
  bool worked = false;
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up}) {
    QTest::keyClick(control, key);
    worked = worked || state() != before;
  }
  const auto* const combo = qobject_cast<const QComboBox*>(control);
  return worked || (combo != nullptr && combo->count() < 2);
}

TEST_F(KeyboardTest, EveryCommandIsReachedThroughTheMenus) {
  Start(3);
  Database_satelliti(folder_.Path("elements/sample.txt"));
  const QStringList waiting{"mnuOpzioniLingua", "mnuAiutoInformazioni"};
  const QStringList left{"mnuFileEsci", "mnuFileImpostaStampante"};  // the end, and a printer
  const std::map<std::string, std::string> opens = {
      {"mnuTerraMappaRettangolare", "frmWorldMap"},
      {"mnuTerraMappaOrtografica", "frmWorldMap"},
      {"mnuCieloMappaLocale", "frmLocalSky"},
      {"mnuSatellitiPrevisioniPassaggi", "frmVisibleSatellites"},
      {"mnuCieloMappaGenerale", "frmGeneralSky"},
      {"mnuSatellitiDatabase", "frmDatabase"},
      {"mnuSatellitiCalcoloEffemeridi", "frmCalc"},
      {"mnuSatellitiMotoRelativo", "frmRelative"},
      {"mnuStrumentiCalendario", "frmCalendar"},
      {"mnuOpzioniData", "frmTime"},
      {"mnuOpzioniLocalita", "frmLocation"},
      {"mnuOpzioniColori", "frmSettings"},
      {"mnuStrumentiDownload", "frmDownload"},
      {"mnuStrumentiSincronizzazione", "frmSyncro"},
      {"mnuEffemeridiSatelliti", "frmTrack"},
      {"mnuEffemeridiPianeti", "frmPlanets"},
      {"mnuEffemeridiAlmanacco", "frmRiseSet"},
      {"mnuSatellitiElementiOrbitali", "frmSatellite"}};
  for (QAction* const top : window_->menuBar()->actions()) {
    const QString caption = top->text();
    const QChar letter = caption.at(caption.indexOf('&') + 1);
    ASSERT_TRUE(caption.contains('&')) << FromQ(caption);
    for (QAction* const item : top->menu()->actions()) {
      if (item->isSeparator() || left.contains(item->objectName())) continue;
      UnloadAllForms("MDIForm1");
      Activate();
      Key(static_cast<Qt::Key>(letter.toUpper().unicode()), Qt::AltModifier);
      ASSERT_EQ(QApplication::activePopupWidget(), top->menu()) << FromQ(caption);
      if (!item->isEnabled()) {
        Key(Qt::Key_Escape);
        Key(Qt::Key_Escape);
        continue;
      }
      QSignalSpy given(item, &QAction::triggered);
      if (waiting.contains(item->objectName()))
        QTimer::singleShot(20, [] {
          if (QWidget* const dialog = QApplication::activeModalWidget())
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
      Choose(top->menu(), item);
      EXPECT_EQ(given.size(), 1) << FromQ(item->objectName());
      const auto form = opens.find(FromQ(item->objectName()));
      if (form == opens.end()) continue;
      ASSERT_TRUE(IsFormLoaded(form->second)) << form->first;
      EXPECT_TRUE(Form(form->second.c_str())->isVisible()) << form->first;
    }
  }
}

TEST_F(KeyboardTest, TabGoesRoundEveryWindowAndKeysWorkItsControls) {
  Start(3);
  Database_satelliti(folder_.Path("elements/sample.txt"));
  // what is only looked at is closed as a window, and the progress by what goes on
  const std::set<std::string> views = {"frmDetails", "frmGeneralSky", "frmLocalSky",
                                       "frmSkySat",  "frmWorldMap",   "frmProgress"};
  for (const std::string& name : LoadableForms()) {
    QWidget* const window = Opened(name);
    ASSERT_NE(window, nullptr) << name;
    auto* const pages = window->findChild<QTabWidget*>();
    for (int page = 0; page < (pages == nullptr ? 1 : pages->count()); ++page) {
      if (pages != nullptr) pages->setCurrentIndex(page);
      QCoreApplication::processEvents();
      std::set<const QWidget*> missing = ControlsOf(window);
      const std::size_t count = missing.size();
      QWidget* const first = QApplication::focusWidget();
      EXPECT_TRUE(first != nullptr && (window->isAncestorOf(first) || window == first))
          << name << " " << page;
      for (std::size_t step = 0; step < 2 * count + 4 && !missing.empty(); ++step) {
        QWidget* const focus = QApplication::focusWidget();
        if (focus == nullptr) break;
        missing.erase(focus);
        Key(Qt::Key_Tab);
      }
      for (const QWidget* const control : missing)
        ADD_FAILURE() << name << " page " << page << ": Tab does not reach " << NameOf(control);
      for (const QWidget* const control : ControlsOf(window)) {
        auto* const there = const_cast<QWidget*>(control);
        if (!window->isAncestorOf(control) || !control->isEnabled()) continue;
        EXPECT_TRUE(Works(there)) << name << " page " << page << ": " << NameOf(control);
        const QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(there);
        EXPECT_TRUE(control->objectName().startsWith(QLatin1String("qt_")) ||
                    (told != nullptr && !told->text(QAccessible::Name).isEmpty()))
            << name << " page " << page << " without a name: " << NameOf(control);
      }
    }
    window->setFocus();
    Key(Qt::Key_Escape);
    const QPointer<QWidget> still = dynamic_cast<QWidget*>(LoadedForm(name));
    const bool open = still != nullptr && still->isVisible();
    EXPECT_EQ(open, views.contains(name)) << name;
    if (open) Key(Qt::Key_F4, Qt::ControlModifier);
    FormCalls* const form = LoadedForm(name);
    EXPECT_TRUE(form == nullptr || name == "frmProgress" || !dynamic_cast<QWidget*>(form)->isVisible())
        << name << " stays open";
    if (form != nullptr) form->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  CancelRequested = false;  // by Escape in the progress window
}

TEST_F(KeyboardTest, WindowsAreChangedMovedClosedAndHelpedByKeys) {
  Start(3);
  QWidget* const calendar = Opened("frmCalendar");
  QWidget* const almanac = Opened("frmRiseSet");
  for (const Qt::Key key : {Qt::Key_F6, Qt::Key_Tab}) {
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control, Qt::ControlModifier);
    Key(key, Qt::ControlModifier);
    QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Control);
    QCoreApplication::processEvents();
    EXPECT_EQ(Active()->widget(), key == Qt::Key_F6 ? calendar : almanac) << key;
  }
  Key(Qt::Key_F1);
  Key(Qt::Key_Minus, Qt::AltModifier);
  EXPECT_NE(QApplication::activePopupWidget(), nullptr) << "move, size, minimize";
  Key(Qt::Key_Escape);
  Key(Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(IsFormLoaded("frmRiseSet"));
  Key(Qt::Key_F1);
  Opened("frmSatellite");
  Key(Qt::Key_F1);
  Key(Qt::Key_Escape);
  Opened("frmFloating");
  Key(Qt::Key_F1);
  EXPECT_EQ(platform_.helpTopics, (std::vector<int>{160, 0, 100, 120}));
  Key(Qt::Key_Return);
  EXPECT_TRUE(IsFormLoaded("frmSatellite")) << "what a double click does";
}

TEST_F(KeyboardTest, TablesAndListsDoByKeysWhatTheyDoByClicks) {
  Start(3);
  Database_satelliti(folder_.Path("elements/sample.txt"));
  Load<DetailsCalls>("frmDetails")->Show();
  Load<DetailsCalls>("frmDetails")->Sommario(0);
  for (const auto& [name, list] : {std::pair("frmPlanets", "lvwPlanets"), {"frmDetails", "ListView1"}}) {
    auto* const table = Control<QTreeView>(Opened(name), list);
    table->setFocus();
    const QString before = table->model()->index(0, 1).data().toString();
    for (int times = 0; times < 2; ++times) {
      Key(Qt::Key_F3);
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr) << name;
      EXPECT_EQ(menu->actions().size(), table->model()->columnCount());
      Choose(menu, menu->actions().at(1));
    }
    EXPECT_NE(table->model()->index(0, 1).data().toString(), before) << name;
  }
  Control<QWidget>(Opened("frmDatabase"), "lstDatabase(0)")->setFocus();
  Key(Qt::Key_Down);
  Key(Qt::Key_Return, Qt::AltModifier);
  EXPECT_TRUE(IsFormLoaded("frmSatellite"));
  Key(Qt::Key_Escape);
}

TEST_F(KeyboardTest, MapsAndChartsHaveAPointerOfTheKeys) {
  Start(12);
  platform_.clockUtc = DateOf(2022, 6, 16) + 3.0 / 24;  // Moon and planets are up
  tmrCentrale_Timer();
  Item("mnuTerraMappaRettangolare")->trigger();
  Item("mnuWorldmapCoordinateMouse")->trigger();
  QCoreApplication::processEvents();
  Key(Qt::Key_PageDown);
  Key(Qt::Key_PageDown);
  EXPECT_TRUE(Form("frmWorldMap")->windowTitle().contains(QLatin1String("Lat.")));
  EXPECT_FALSE(Control<QWidget>(Form("frmWorldMap"), "Picture1")->toolTip().isEmpty());
  MenuKey();
  EXPECT_TRUE(Menu("mnuWorldmap")->isVisible() && Item("mnuWorldmapRimuovi")->isEnabled());
  Key(Qt::Key_Escape);
  const std::string principal = ElementSets[1].Name;
  Key(Qt::Key_Return);
  EXPECT_NE(ElementSets[1].Name, principal) << "the pointed satellite is the principal one";
  for (const auto& [command, name] :
       {std::pair("mnuCieloMappaLocale", "frmLocalSky"), {"mnuCieloMappaGenerale", "frmGeneralSky"}}) {
    Item(command)->trigger();
    QCoreApplication::processEvents();
    QTest::qWait(100);
    auto* const picture = Control<SurfaceWidget>(Form(name), "Picture1");
    const auto left = [picture] { return picture->Surface().UserX(0); };
    const double whole = left(), width = std::abs(picture->Surface().ScaleWidth());
    Key(Qt::Key_Plus);
    EXPECT_LT(std::abs(picture->Surface().ScaleWidth()), width) << name;
    const double before = left();
    Key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_NE(left(), before) << name;
    Key(Qt::Key_0);
    EXPECT_EQ(left(), whole) << name;
    Key(Qt::Key_PageDown);
    Key(Qt::Key_Return);
    EXPECT_TRUE(IsFormLoaded("frmObject")) << name;
    Key(Qt::Key_Escape);
    Activate();
    // a zoom box: held by Space, drawn by the arrows
    Item(std::string_view(name) == "frmLocalSky" ? "mnuLocalSkyZoom" : "mnuGeneralSkyZoom")->trigger();
    picture->setFocus();
    Key(Qt::Key_Space);
    for (int i = 0; i < 5; ++i) Key(Qt::Key_Right);
    for (int i = 0; i < 5; ++i) Key(Qt::Key_Down);
    Key(Qt::Key_Space);
    EXPECT_LT(std::abs(picture->Surface().ScaleWidth()), width / 2) << name;
    const double box = std::abs(picture->Surface().ScaleWidth());
    Key(Qt::Key_Space);
    Key(Qt::Key_Left);
    Key(Qt::Key_Down);
    Key(Qt::Key_Escape);
    EXPECT_EQ(std::abs(picture->Surface().ScaleWidth()), box) << "what is held can be given up";
  }
  auto* const chart = Load<SkySatCalls>("frmSkySat");
  chart->ShowPass(FirstPass(2, false).value());  // the former principal one
  QCoreApplication::processEvents();
  auto* const picture = Control<SurfaceWidget>(dynamic_cast<QWidget*>(chart), "Picture1");
  const QImage before = picture->grab().toImage();
  Key(Qt::Key_PageDown);
  Key(Qt::Key_PageDown);
  Key(Qt::Key_Space);
  for (int i = 0; i < 4; ++i) Key(Qt::Key_Left);
  Key(Qt::Key_Space);
  Key(Qt::Key_Escape);
  EXPECT_NE(picture->grab().toImage(), before) << "a mark of time stands there";
}

}  // namespace
}  // namespace halvorine
