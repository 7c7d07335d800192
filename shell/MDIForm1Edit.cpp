// The commands of the edit menu, which type their keys into the text control that has the keyboard, the
// command Save, and the rules that enable both when their menus open.
#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <optional>

#include "shell/MDIForm1.h"

namespace halvorine {

namespace {

/// What can be done in a text control now.
struct EditState {
  bool undo = false, selection = false, writable = false;
};

template <class TextView>
EditState StateOfView(const TextView& view) {
  const bool writable = !view.isReadOnly();
  return {writable && view.document()->isUndoAvailable(), view.textCursor().hasSelection(), writable};
}

/// Nothing where the widget is no text control.
std::optional<EditState> EditStateOf(const QWidget* widget) {
  if (const auto* const view = qobject_cast<const QPlainTextEdit*>(widget)) return StateOfView(*view);
  if (const auto* const view = qobject_cast<const QTextEdit*>(widget)) return StateOfView(*view);
  const auto* line = qobject_cast<const QLineEdit*>(widget);
  if (const auto* const combo = qobject_cast<const QComboBox*>(widget)) line = combo->lineEdit();
  if (qobject_cast<const QAbstractSpinBox*>(widget) != nullptr) line = widget->findChild<const QLineEdit*>();
  if (line == nullptr) return std::nullopt;
  return EditState{line->isUndoAvailable(), line->hasSelectedText(), !line->isReadOnly()};
}

void TypeKey(QWidget* target, QKeySequence::StandardKey standard) {
  const QKeySequence keys(standard);
  if (target == nullptr || keys.isEmpty()) return;
  const QKeyCombination key = keys[0];
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key.key(), key.keyboardModifiers());
    QApplication::sendEvent(target, &event);
  }
}

}  // namespace

void MDIForm1::FollowFocus() {
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
    // the menu bar takes the keyboard while it is walked through, and gives it back afterwards
    if (qobject_cast<QMenuBar*>(now) != nullptr || qobject_cast<QMenu*>(now) != nullptr) return;
    if (editTarget_ != nullptr) editTarget_->removeEventFilter(this);
    editTarget_ = now;
    if (editTarget_ != nullptr) editTarget_->installEventFilter(this);
  });
  connect(menus_.value(QStringLiteral("mnuFile")), &QMenu::aboutToShow, this, &MDIForm1::EnableFileItems);
  connect(menus_.value(QStringLiteral("mnuModifica")), &QMenu::aboutToShow, this, &MDIForm1::EnableEditItems);
}

bool MDIForm1::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FocusOut || watched != editTarget_) return false;
  if (static_cast<const QFocusEvent*>(event)->reason() != Qt::MenuBarFocusReason) return false;
  // line edits drop their selection for the menu bar, on which the menu's items work, but not for a popup
  QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
  QCoreApplication::sendEvent(watched, &popup);
  return true;
}

void MDIForm1::EnableFileItems() {
  const QMdiSubWindow* const active = area_->currentSubWindow();
  if (active == nullptr || !active->isVisible()) return;
  SetEnabled("mnuFileSalva", dynamic_cast<SaveCalls*>(active->widget()) != nullptr ||
                                 dynamic_cast<SaveCalls*>(editTarget_.data()) != nullptr);
}

void MDIForm1::SaveActive() {
  const QMdiSubWindow* const active = area_->currentSubWindow();
  if (active == nullptr || !active->isVisible()) return;
  auto* window = dynamic_cast<SaveCalls*>(active->widget());
  if (window == nullptr) window = dynamic_cast<SaveCalls*>(editTarget_.data());
  if (window != nullptr) window->Salva();
}

void MDIForm1::EnableEditItems() {
  const std::optional<EditState> found = EditStateOf(editTarget_);
  const EditState state = found.value_or(EditState{});
  SetEnabled("mnuModificaAnnulla", state.undo);
  SetEnabled("mnuModificaTaglia", state.selection && state.writable);
  SetEnabled("mnuModificaCopia", state.selection);
  SetEnabled("mnuModificaCancella", state.selection && state.writable);
  SetEnabled("mnuModificaIncolla", state.writable && !QGuiApplication::clipboard()->text().isEmpty());
}

void MDIForm1::EditUndo() { TypeKey(editTarget_, QKeySequence::Undo); }
void MDIForm1::EditCut() { TypeKey(editTarget_, QKeySequence::Cut); }
void MDIForm1::EditCopy() { TypeKey(editTarget_, QKeySequence::Copy); }
void MDIForm1::EditPaste() { TypeKey(editTarget_, QKeySequence::Paste); }
void MDIForm1::EditDelete() { TypeKey(editTarget_, QKeySequence::Delete); }

}  // namespace halvorine
