#include "shell/base/qtForms.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <string>

#include "shell/base/mFailure.h"
#include "shell/base/mHelp.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

QPointer<QMdiArea> workArea;

}  // namespace

QString Text(std::string_view section, std::string_view key) { return ToQ(LookupText(section, key)); }

QString ControlName(const char* name, int index) {
  const QString base = QString::fromLatin1(name);
  return index < 0 ? base : QStringLiteral("%1(%2)").arg(base).arg(index);
}

QMdiArea* WorkArea() { return workArea; }
void SetWorkArea(QMdiArea* area) { workArea = area; }

namespace {

/// The frame of a child window: its close button asks the window inside, which decides between hide and end.
class ChildFrame : public QMdiSubWindow {
 public:
  using QMdiSubWindow::QMdiSubWindow;

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    if (widget() != nullptr) widget()->close();
  }
};

}  // namespace

namespace {

/// Whether the key of help has been pressed in a window: told first as one that the window may take before
/// the menus do.
bool IsHelpKey(const QEvent& event) {
  return (event.type() == QEvent::ShortcutOverride || event.type() == QEvent::KeyPress) &&
         static_cast<const QKeyEvent&>(event).key() == Qt::Key_F1;
}

QAbstractButton* HelpButton(const QWidget& form) {
  for (QAbstractButton* const button : form.findChildren<QAbstractButton*>())
    if (button->objectName().startsWith(QLatin1String("cmdHelp")) && button->isVisible()) return button;
  return nullptr;
}

}  // namespace

ChildForm::ChildForm(const QString& name) {
  setObjectName(name);
  if (WorkArea() == nullptr) return;
  frame_ = new ChildFrame();
  frame_->setWidget(this);
  WorkArea()->addSubWindow(frame_);
  frame_->setAttribute(Qt::WA_DeleteOnClose, false);
  frame_->hide();
  connect(this, &QWidget::windowTitleChanged, frame_, &QWidget::setWindowTitle);
  connect(this, &QWidget::windowIconChanged, frame_, &QWidget::setWindowIcon);
}

ChildForm::~ChildForm() {
  // after an unload the name may stand for a newer window already
  if (!unloading_) UnregisterForm(FromQ(objectName()));
}

QWidget* ChildForm::Frame() { return frame_ != nullptr ? static_cast<QWidget*>(frame_) : this; }

void ChildForm::ShowForm() {
  if (frame_ != nullptr) {
    show();
    frame_->show();
    WorkArea()->setActiveSubWindow(frame_);
    frame_->raise();
  } else {
    show();
    raise();
    activateWindow();
  }
}

void ChildForm::HideForm() { Frame()->hide(); }

void ChildForm::UnloadForm() {
  if (unloading_) return;
  unloading_ = true;
  std::string fault;
  try {
    BeforeUnload();
  } catch (const RuntimeFailure& failure) {
    fault = failure.what();  // a place that cannot be kept must not keep the window
  }
  UnregisterForm(FromQ(objectName()));
  Frame()->hide();
  if (frame_ != nullptr && WorkArea() != nullptr) WorkArea()->removeSubWindow(frame_);
  // the call may come from one of the window's own handlers, so that the deletion waits for the event loop
  Frame()->deleteLater();
  if (!fault.empty()) Tell(MessageKind::Warning, LookupText("Dialogs", "nonsalvato") + "\n" + fault);
}

void ChildForm::Publish(FormCalls* calls) { RegisterForm(FromQ(objectName()), calls); }

void ChildForm::SetFirstSize(int width, int height) {
  if (frame_ == nullptr) {
    resize(width, height);
    return;
  }
  const QSize border = frame_->size() - frame_->contentsRect().size();
  frame_->resize(width + border.width(), height + border.height());
}

bool ChildForm::event(QEvent* event) {
  QAbstractButton* const help = IsHelpKey(*event) ? HelpButton(*this) : nullptr;
  if (help == nullptr) return QWidget::event(event);
  event->accept();
  if (event->type() == QEvent::KeyPress) help->click();
  return true;
}

ModalForm::ModalForm(const QString& name) : QDialog(WorkArea() != nullptr ? WorkArea()->window() : nullptr) {
  setObjectName(name);
  setModal(true);
  connect(this, &QDialog::finished, this, &ModalForm::UnloadForm);
}

ModalForm::~ModalForm() {
  if (calls_ != nullptr && LoadedForm(FromQ(objectName())) == calls_) UnregisterForm(FromQ(objectName()));
}

void ModalForm::Publish(FormCalls* calls) {
  calls_ = calls;
  RegisterForm(FromQ(objectName()), calls);
}

void ModalForm::ShowForm() {
  show();
  raise();
  activateWindow();
}

bool ModalForm::event(QEvent* event) {
  if (!IsHelpKey(*event)) return QDialog::event(event);
  event->accept();
  if (event->type() != QEvent::KeyPress) return true;
  if (QAbstractButton* const help = HelpButton(*this))
    help->click();
  else
    OpenHelpFile(0);
  return true;
}

void ModalForm::UnloadForm() {
  if (calls_ == nullptr) return;
  if (LoadedForm(FromQ(objectName())) == calls_) UnregisterForm(FromQ(objectName()));
  calls_ = nullptr;
  hide();
  // the call may come from one of the window's own handlers, so that the deletion waits for the event loop
  deleteLater();
}

void ChildForm::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (CloseUnloads())
    UnloadForm();
  else
    HideForm();
}

}  // namespace halvorine
