// The edit menu on real text controls, the command Save, and the arrangement of child windows.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QVBoxLayout>

#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

/// A child window with one of each kind of text control, which can be saved.
class Sheet : public QWidget, public SaveCalls {
 public:
  Sheet() : line(new QLineEdit()), text(new QPlainTextEdit()), spin(new QSpinBox()), combo(new QComboBox()) {
    auto* const rows = new QVBoxLayout(this);
    combo->setEditable(true);
    for (QWidget* const part : {static_cast<QWidget*>(line), static_cast<QWidget*>(text),
                                static_cast<QWidget*>(spin), static_cast<QWidget*>(combo)})
      rows->addWidget(part);
  }
  void Salva() override { ++saved; }
  QLineEdit* line;
  QPlainTextEdit* text;
  QSpinBox* spin;
  QComboBox* combo;
  int saved = 0;
};

class EditMenu : public RunningProgram {
 protected:
  Sheet* OpenSheet() {
    auto* const sheet = new Sheet();
    QMdiSubWindow* const frame = WorkArea()->addSubWindow(sheet);
    frame->show();
    QCoreApplication::processEvents();
    return sheet;
  }
  /// Opens the menu by its key, as a user does, and closes it again.
  void OpenMenu() {
    QTest::keyClick(window_.get(), Qt::Key_E, Qt::AltModifier);
    QTest::qWait(1);
    ASSERT_TRUE(Menu("mnuModifica")->isVisible());
    QTest::keyClick(Menu("mnuModifica"), Qt::Key_Escape);
    QTest::keyClick(window_.get(), Qt::Key_Escape);
    QCoreApplication::processEvents();
  }
  /// Which items the menu enables: undo, cut, copy, paste, delete.
  std::string Enabled() {
    OpenMenu();
    std::string found;
    for (const char* const item : {"mnuModificaAnnulla", "mnuModificaTaglia", "mnuModificaCopia",
                                   "mnuModificaIncolla", "mnuModificaCancella"})
      found += Item(item)->isEnabled() ? 'x' : '-';
    return found;
  }
  void Run(const char* item) {
    Enabled();
    ASSERT_TRUE(Item(item)->isEnabled()) << item;
    Item(item)->trigger();
  }
};

TEST_F(EditMenu, WithoutATextControlAllItemsAreOff) {
  QGuiApplication::clipboard()->setText(QStringLiteral("text"));
  Start();
  EXPECT_EQ(Enabled(), "-----");
  Item("mnuOpzioniData")->trigger();
  Control<QWidget>(Form("frmTime"), "chkUsaOraPc")->setFocus();
  EXPECT_EQ(Enabled(), "-----");
}

TEST_F(EditMenu, ItemsFollowSelectionClipboardAndHistory) {
  Start();
  Sheet* const sheet = OpenSheet();
  QGuiApplication::clipboard()->clear();
  for (QWidget* const control : {static_cast<QWidget*>(sheet->line), static_cast<QWidget*>(sheet->text)}) {
    control->setFocus();
    EXPECT_EQ(Enabled(), "-----");
    QTest::keyClicks(control, "abc");
    EXPECT_EQ(Enabled(), "x----");
    QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Enabled(), "xxx-x");
    QGuiApplication::clipboard()->setText(QStringLiteral("text"));
    EXPECT_EQ(Enabled(), "xxxxx");
    QGuiApplication::clipboard()->clear();
  }
  QGuiApplication::clipboard()->setText(QStringLiteral("text"));
  sheet->text->setReadOnly(true);
  EXPECT_EQ(Enabled(), "--x--");
}

TEST_F(EditMenu, CommandsWorkInEveryKindOfTextControl) {
  Start();
  Sheet* const sheet = OpenSheet();
  sheet->line->setText(QStringLiteral("one two"));
  sheet->line->setFocus();
  sheet->line->setSelection(0, 4);
  Run("mnuModificaTaglia");
  EXPECT_EQ(sheet->line->text(), QStringLiteral("two"));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("one "));
  Run("mnuModificaAnnulla");
  EXPECT_EQ(sheet->line->text(), QStringLiteral("one two"));
  sheet->line->setSelection(4, 3);
  Run("mnuModificaIncolla");
  EXPECT_EQ(sheet->line->text(), QStringLiteral("one one "));
  sheet->text->setPlainText(QStringLiteral("first\nsecond"));
  sheet->text->setFocus();
  sheet->text->selectAll();
  Run("mnuModificaCopia");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("first\nsecond"));
  Run("mnuModificaCancella");
  EXPECT_TRUE(sheet->text->toPlainText().isEmpty());
  sheet->spin->setValue(42);
  sheet->spin->setFocus();
  sheet->spin->selectAll();
  Run("mnuModificaCopia");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("42"));
  sheet->combo->setEditText(QStringLiteral("x"));
  sheet->combo->setFocus();
  sheet->combo->lineEdit()->selectAll();
  Run("mnuModificaIncolla");
  EXPECT_EQ(sheet->combo->currentText(), QStringLiteral("42"));
}

TEST_F(EditMenu, AControlThatHasGoneIsForgotten) {
  Start();
  Sheet* const sheet = OpenSheet();
  sheet->line->setText(QStringLiteral("gone"));
  sheet->line->setFocus();
  sheet->line->selectAll();
  Enabled();
  delete sheet->parentWidget();
  Item("mnuModificaTaglia")->trigger();
  EXPECT_EQ(Enabled(), "-----");
}

TEST_F(EditMenu, SaveIsForWindowsThatCanSave) {
  Start();
  const auto enabled = [this] {
    Menu("mnuFile")->popup(QPoint(0, 0));
    Menu("mnuFile")->close();
    return Item("mnuFileSalva")->isEnabled();
  };
  EXPECT_FALSE(enabled());
  Sheet* const sheet = OpenSheet();
  EXPECT_TRUE(enabled());
  Item("mnuFileSalva")->trigger();
  EXPECT_EQ(sheet->saved, 1);
  Item("mnuOpzioniData")->trigger();
  EXPECT_FALSE(enabled());
  Item("mnuFileSalva")->trigger();
  EXPECT_EQ(sheet->saved, 1);
}

class Arranging : public RunningProgram {
 protected:
  QList<QMdiSubWindow*> OpenThree() {
    for (const char* const item : {"mnuOpzioniData", "mnuStrumentiCalendario", "mnuSatellitiDatabase"})
      Item(item)->trigger();
    QCoreApplication::processEvents();
    QList<QMdiSubWindow*> shown;
    for (QMdiSubWindow* const frame : WorkArea()->subWindowList())
      if (frame->isVisible()) shown.append(frame);
    return shown;
  }
};

TEST_F(Arranging, TilesFillTheWorkAreaWithoutOverlap) {
  Start();
  const QList<QMdiSubWindow*> frames = OpenThree();
  ASSERT_EQ(frames.size(), 3);
  const QRect room = WorkArea()->viewport()->rect();
  for (const char* const item : {"mnuFinestreDisponiOrizzontale", "mnuFinestreDisponiVerticale"}) {
    Item(item)->trigger();
    const bool stacked = std::string_view(item) == "mnuFinestreDisponiOrizzontale";
    for (const QMdiSubWindow* const frame : frames) {
      EXPECT_EQ(stacked ? frame->x() : frame->y(), 0) << item;
      for (const QMdiSubWindow* const other : frames)
        EXPECT_TRUE(other == frame || other->pos() != frame->pos()) << item;
    }
  }
  Item("mnuFinestreDiscesa")->trigger();
  for (const QMdiSubWindow* const frame : frames)
    for (const QMdiSubWindow* const other : frames)
      EXPECT_TRUE(other == frame || (other->x() - frame->x()) * (other->y() - frame->y()) > 0);
  EXPECT_TRUE(room.isValid());
}

TEST_F(Arranging, MinimizedWindowsStandInARowAtTheBottom) {
  Start();
  const QList<QMdiSubWindow*> frames = OpenThree();
  frames[0]->showMinimized();
  frames[2]->showMinimized();
  QCoreApplication::processEvents();
  frames[0]->move(30, 30);
  frames[2]->move(60, 60);
  Item("mnuFinestreDisponiTutto")->trigger();
  EXPECT_EQ(frames[0]->geometry().bottom() + 1, WorkArea()->viewport()->height());
  EXPECT_EQ(frames[0]->y(), frames[2]->y());
  EXPECT_EQ(std::abs(frames[0]->x() - frames[2]->x()), frames[0]->width());
  Item("mnuFinestreDisponiVerticale")->trigger();
  EXPECT_TRUE(frames[0]->isMinimized()) << "tiles leave minimized windows alone";
}

}  // namespace
}  // namespace halvorine
