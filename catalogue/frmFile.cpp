#include "catalogue/frmFile.h"

#include <QCloseEvent>
#include <QMenu>
#include <QPointer>
#include <QVBoxLayout>
#include <memory>

#include "catalogue/mElementFile.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "controls/qtPrint.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

QString FreeName() {
  for (int number = 1;; ++number) {
    QString name = QStringLiteral("frmFile%1").arg(number);
    if (!IsFormLoaded(FromQ(name))) return name;
  }
}

/// The text as it is: the control's plain text would turn hard blanks into blanks.
std::string RawText(const QPlainTextEdit& view) {
  QString text = view.document()->toRawText();
  text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
  text.replace(QChar::LineSeparator, QLatin1Char('\n'));
  return FromQ(text);
}

void OpenEditMenu(QPlainTextEdit& view, const QPoint& at) {
  view.setFocus();
  if (MainFormCalls* const main = MainForm()) {
    main->PopupMenu("mnuModifica", at.x(), at.y());
    return;
  }
  const std::unique_ptr<QMenu> menu(view.createStandardContextMenu());
  menu->exec(at);
}

}  // namespace

frmFile::frmFile(const QString& caption) : ChildForm(FreeName()) {
  setWindowTitle(caption);
  setWindowIcon(Icon("elements"));
  txtFile_ = Named(new QPlainTextEdit(), "txtFile");
  txtFile_->setFont(ColumnFont());
  txtFile_->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtFile_->setFrameShape(QFrame::NoFrame);
  txtFile_->setTabChangesFocus(false);
  txtFile_->setContextMenuPolicy(Qt::CustomContextMenu);
  txtFile_->setAccessibleName(caption);
  connect(txtFile_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& at) { OpenEditMenu(*txtFile_, txtFile_->viewport()->mapToGlobal(at)); });
  connect(this, &QWidget::windowTitleChanged, txtFile_, &QWidget::setAccessibleName);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(txtFile_);
  setFocusProxy(txtFile_);
  SetFirstSize(600, 400);
  Publish(this);
}

bool frmFile::Leggi(const std::string& path) {
  try {
    const EditorText read = ReadEditorText(path);
    txtFile_->setPlainText(ToQ(read.text));
    latin1_ = read.latin1;
  } catch (const RuntimeFailure&) {
    TellNoElementFile(path);
    return false;
  }
  path_ = path;
  untitled_ = false;
  txtFile_->document()->setModified(false);
  setWindowTitle(ToQ(path));
  return true;
}

void frmFile::Salva() {
  std::string path = path_;
  if (untitled_) {
    const QPointer<frmFile> self(this);
    const std::optional<std::string> chosen =
        ThePlatform().ChooseFile({LookupText("Dialogs", "salvaconnome"), LookupText("Dialogs", "filtrotle"),
                                  FromQ(windowTitle()), true});
    if (self == nullptr || !chosen || chosen->empty()) return;
    path = *chosen;
  }
  try {
    ThePlatform().WriteFile(path, EditorBytes({RawText(*txtFile_), latin1_}));
  } catch (const RuntimeFailure& failure) {
    TellNotSaved(failure);
    return;
  }
  path_ = path;
  untitled_ = false;
  txtFile_->document()->setModified(false);
  setWindowTitle(ToQ(path));
}

void frmFile::Stampa() {
  QPrinter& printer = ThePrinter();
  const QPointer<frmFile> self(this);
  if (!AskPrinter(printer, this, txtFile_->textCursor().hasSelection()) || self == nullptr) return;
  PaintOn(printer, [this](QPrinter& printed) {
    txtFile_->print(&printed);
    return true;
  });
}

bool frmFile::MayUnload() {
  if (asking_) return false;
  if (!txtFile_->document()->isModified()) return true;
  ShowForm();
  const QPointer<frmFile> self(this);
  asking_ = true;
  const MessageAnswer answer =
      ThePlatform().ShowMessage(MessageKind::Question, FromQ(windowTitle()),
                                LookupText("frmFile", "salvamodifiche"), MessageButtons::YesNoCancel);
  if (self == nullptr) return true;
  asking_ = false;
  if (answer == MessageAnswer::Cancel) return false;
  if (answer == MessageAnswer::Yes) {
    Salva();
    return self == nullptr || !txtFile_->document()->isModified();
  }
  // at once, so that nobody asks a second time
  UnloadForm();
  return true;
}

void frmFile::closeEvent(QCloseEvent* event) {
  event->ignore();
  const QPointer<frmFile> self(this);
  if (MayUnload() && self != nullptr) UnloadForm();
}

}  // namespace halvorine
