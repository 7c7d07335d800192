// Night colours over the whole program, and the floating panel.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTimer>

#include "LookSampler.h"
#include "controls/mNight.h"
#include "controls/qtDataBox.h"
#include "controls/qtLook.h"
#include "controls/qtNightCaret.h"
#include "controls/qtPreview.h"
#include "controls/qtTrasp.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/mTick.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class NightTest : public RunningProgram {
 protected:
  void Night() { Item("mnuVisualizzaColoriNotte")->trigger(); }
  /// A window that is waited for is looked at while it stands, and left.
  static void LookAtModal(int* looked) {
    QTimer::singleShot(0, [looked] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      SwitchNightColours(true);
      EXPECT_EQ(PixelsNotRed(dialog, dialog->objectName() + QStringLiteral("-night")), 0)
          << FromQ(dialog->objectName());
      ++*looked;
      dialog->reject();
    });
  }
  static void ExpectRed(QWidget* window) {
    QCoreApplication::processEvents();
    const QList<QTabWidget*> tabs = window->findChildren<QTabWidget*>();
    for (int page = 0; page < (tabs.isEmpty() ? 1 : tabs.first()->count()); ++page) {
      for (QTabWidget* const tab : tabs) tab->setCurrentIndex(std::min(page, tab->count() - 1));
      QCoreApplication::processEvents();
      const QString name = QStringLiteral("%1-night-%2").arg(window->objectName()).arg(page);
      EXPECT_EQ(PixelsNotRed(window, name), 0) << FromQ(name);
    }
  }
};

TEST_F(NightTest, EveryWindowIsRedAndBlackWhetherItIsOpenOrOpenedLater) {
  Start(5);
  int looked = 0;
  for (const bool before : {false, true}) {
    for (const std::string& name : LoadableForms()) {
      SwitchNightColours(!before);
      LookAtModal(&looked);
      FormCalls* const form = LoadForm(name);
      ASSERT_NE(form, nullptr) << name;
      if (auto* const map = dynamic_cast<WorldMapCalls*>(form))
        map->ShowKind("Ortho");
      else
        form->Show();
      QCoreApplication::processEvents();
      SwitchNightColours(true);
      if (auto* const window = dynamic_cast<QWidget*>(LoadedForm(name)); window != nullptr) {
        auto* const child = dynamic_cast<ChildForm*>(window);
        if (child != nullptr) child->Frame()->setObjectName(window->objectName());
        ExpectRed(child != nullptr ? child->Frame() : window);
      }
      if (FormCalls* const open = LoadedForm(name)) open->Unload();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    ExpectRed(window_.get());
  }
  CancelRequested = false;
}

TEST_F(NightTest, FieldsWithACursorAndTheToolkitsFileDialogAreRedToo) {
  Start();
  Night();
  QFileDialog dialog;  // its name has the keyboard
  dialog.setObjectName(QStringLiteral("QFileDialog"));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setDirectory(ToQ(folder_.Path("")));
  QPlainTextEdit text(QStringLiteral("1 25544U"));
  text.setObjectName(QStringLiteral("text"));
  QComboBox combo;
  combo.setObjectName(QStringLiteral("combo"));
  combo.setEditable(true);
  Menu("mnuFile")->popup(QPoint(0, 0));
  ExpectRed(Menu("mnuFile"));
  Menu("mnuFile")->close();
  combo.addItems({QStringLiteral("one"), QStringLiteral("two")});
  combo.show();
  combo.showPopup();
  ExpectRed(combo.view()->window());
  combo.hidePopup();
  QWidget* const shown[] = {&dialog, &text, &combo};
  for (QWidget* const window : shown) {
    window->show();
    window->activateWindow();
    if (window != &dialog) window->setFocus();
    QTest::qWait(50);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("ab"));
    auto* const caret = qApp->findChild<NightCaret*>();
    caret->Follow();
    ExpectRed(window);
    const auto* const mark = QApplication::focusWidget()->findChild<QWidget*>(QStringLiteral("NightCaret"));
    ASSERT_NE(mark, nullptr);
    EXPECT_TRUE(mark->isVisible() && mark->parentWidget()->rect().contains(mark->geometry()));
    EXPECT_GT(mark->x(), 10) << "behind what was typed";
  }
  Night();
  text.activateWindow();
  QTest::qWait(20);
  EXPECT_EQ(text.findChild<QWidget*>(QStringLiteral("NightCaret")), nullptr);
  EXPECT_EQ(text.cursorWidth(), 1);
}

TEST_F(NightTest, AWindowOpenedAtNightHasItsDayColoursByDay) {
  Start();
  Night();
  Item("mnuStrumentiCalendario")->trigger();
  Night();
  QCoreApplication::processEvents();
  const QImage calendar = dynamic_cast<ChildForm*>(LoadedForm("frmCalendar"))->Frame()->grab().toImage();
  EXPECT_EQ(calendar.pixelColor(calendar.width() / 2, 4), ColoursOf(QApplication::palette()).Caption);
}

TEST_F(NightTest, ThePagesOfAPreviewAreRedAtNight) {
  Start();
  QPrinter printer;
  frmPreview preview(window_.get(), printer, {}, [](QPrinter& page) {
    QPainter painter(&page);
    painter.fillRect(QRect(0, 0, page.width(), page.height() / 2), Qt::blue);
    return true;
  });
  preview.show();
  QCoreApplication::processEvents();
  EXPECT_GT(PixelsNotRed(&preview, QStringLiteral("preview-day")), 10000);
  Night();
  ExpectRed(&preview);
  Night();
  EXPECT_GT(PixelsNotRed(&preview, QStringLiteral("preview-day")), 10000);
}

TEST_F(NightTest, FiftySwitchesLeaveEverythingAsItWas) {
  Start(3);
  Item("mnuTerraMappaRettangolare")->trigger();
  tmrCentrale_Timer();
  const auto picture = [this] {
    QCoreApplication::processEvents();
    return window_->grab().toImage();
  };
  const QImage day = picture();
  const QPalette palette = QApplication::palette(), menus = QApplication::palette("QMenu");
  Night();
  EXPECT_TRUE(NightColoursActive);
  const QImage night = picture();
  EXPECT_NE(day, night);
  for (int i = 0; i < 50; ++i) {
    Night();
    EXPECT_EQ(NightColoursActive, i % 2 == 1);
    if (i <= 47) continue;
    EXPECT_EQ(picture(), i % 2 == 1 ? night : day);
  }
  Night();
  EXPECT_EQ(picture(), day);
  EXPECT_EQ(QApplication::palette(), palette);
  EXPECT_EQ(QApplication::palette("QMenu"), menus);
}

TEST_F(NightTest, TheSwitchWorksInTheMiddleOfThings) {
  Start(3);
  Item("mnuTerraMappaOrtografica")->trigger();
  {
    LongOperation work;
    ASSERT_TRUE(work.Started());
    work.ShowProgress("Reading", 100);
    Night();
    QCoreApplication::processEvents();
    EXPECT_EQ(PixelsNotRed(window_.get(), "during-work-night"), 0);
    for (QWidget* const top : QApplication::topLevelWidgets())
      if (top->objectName() == QLatin1String("frmProgress")) ExpectRed(top);
  }
  ChooseLanguage("Français");
  window_->Lingua();
  EXPECT_TRUE(Item("mnuVisualizzaColoriNotte")->isChecked());
  Item("mnuOpzioniColori")->trigger();
  ExpectRed(Form("frmSettings"));
  platform_.onMessage = [this] { Night(); };
  Tell(MessageKind::Information, "text");
  EXPECT_FALSE(NightColoursActive);
  Night();
  window_->close();
  EXPECT_FALSE(NightColoursActive) << "the exit puts the colours back";
  EXPECT_FALSE(IsNight(QApplication::palette()));
}

TEST_F(NightTest, TheFloatingPanelFollowsItsCommandItsBarAndTheTick) {
  Start(2);
  CallLog log;
  const FakeSatellite satellite(log);
  QAction* const command = Item("mnuVisualizzaBarraDati");
  command->trigger();
  auto* const panel = Control<QWidget>(window_.get(), "frmFloating");
  EXPECT_TRUE(panel->isWindow() && panel->isVisible());
  EXPECT_EQ(panel->windowTitle(), QStringLiteral("Satellite"));
  const auto* const box = Control<DataBox>(panel, "fraSatellitePrincipale");
  const QString first = box->FullText("lblLatitude");
  EXPECT_NE(first, QStringLiteral("0")) << "the last tick's values at once";
  platform_.clockUtc += 120 / 86400.0;
  tmrCentrale_Timer();
  EXPECT_NE(box->FullText("lblLatitude"), first);

  auto* const bar = Control<QScrollBar>(panel, "hscrTrasparenza");
  EXPECT_EQ(std::tuple(bar->minimum(), bar->maximum(), bar->value()), std::tuple(90, 255, 180));
  EXPECT_NEAR(panel->windowOpacity(), 180 / 255.0, 0.005);
  QTest::keyClick(bar, Qt::Key_End);
  EXPECT_EQ(panel->windowOpacity(), 1);
  QTest::keyClick(bar, Qt::Key_Home);
  EXPECT_NEAR(panel->windowOpacity(), 90 / 255.0, 0.005);
  for (const int odd : {-1, 256}) EXPECT_FALSE(ImpostaOpacita(*panel, odd));
  EXPECT_NEAR(panel->windowOpacity(), 90 / 255.0, 0.005);

  for (QWidget* const place : {panel, static_cast<QWidget*>(Control<QLabel>(panel, "lblLatitude"))})
    QTest::mouseDClick(place, Qt::LeftButton, {}, QPoint(3, 3));
  QCoreApplication::processEvents();
  EXPECT_EQ(log, (CallLog{"frmSatellite.ShowSlot 1", "frmSatellite.ShowSlot 1"}));

  command->trigger();
  EXPECT_FALSE(panel->isVisible());
  command->trigger();
  EXPECT_EQ(bar->value(), 90) << "hidden it keeps its opacity";
  panel->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(command->isChecked());
  EXPECT_FALSE(IsFormLoaded("frmFloating"));
  command->trigger();
  EXPECT_TRUE(command->isChecked());
  QTest::keyClick(Form("frmFloating"), Qt::Key_Escape);
  EXPECT_FALSE(command->isChecked());
}

TEST(KeyedCopy, LeavesOutTheKeyAndNothingElse) {
  QImage source(2, 1, QImage::Format_RGB32);
  source.setPixelColor(0, 0, QColor(10, 255, 30));
  source.setPixelColor(1, 0, QColor(11, 255, 30));
  const QImage copy = CopiaTrasparente(source, 30 * 65536 + 255 * 256 + 10);
  EXPECT_EQ(copy.pixelColor(0, 0).alpha(), 0);
  EXPECT_EQ(copy.pixelColor(1, 0), QColor(11, 255, 30));
}

}  // namespace
}  // namespace halvorine
