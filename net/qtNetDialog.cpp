#include "net/qtNetDialog.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <algorithm>

#include "catalogue/mElementFile.h"
#include "net/mDownload.h"
#include "shell/base/mHelp.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "shell/base/mStore.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr const char* checkKey = "Verifica connessione";
constexpr const char *on = "-1", *off = "0";
constexpr int listedEntries = 16;   // that a drop-down list shows at once
constexpr int shortestList = 52;    // characters
constexpr int longestEntry = 2000;  // characters

QWidget* MainWindow() { return WorkArea() != nullptr ? WorkArea()->window() : nullptr; }

/// Whether the check was on when it was last changed; a store that cannot be read counts as off.
bool KeptCheck(const std::string& section) {
  try {
    return GetRegistryString(settingsApplication, section, checkKey, off) != off;
  } catch (const SettingsFailure&) {
    return false;
  }
}

/// A line that can be wrapped between its words as it is; one with a word wider than the label is cut in the
/// middle.
QString Fitted(const QString& line, const QFontMetrics& metrics, int width) {
  const QStringList words = line.split(QLatin1Char(' '));
  const bool fits = std::all_of(words.begin(), words.end(), [&](const QString& word) {
    return metrics.horizontalAdvance(word) <= width;
  });
  return fits ? line : metrics.elidedText(line, Qt::ElideMiddle, width);
}

}  // namespace

NetDialog::NetDialog(const char* name, const char* settings, const char* socketName, int lines)
    : QDialog(MainWindow()), section_(name), settings_(settings) {
  setObjectName(QString::fromLatin1(name));
  setWindowModality(Qt::ApplicationModal);
  socket_ = Named(new TcpTransfer(this), socketName);
  chkConnessione_ = Named(new QCheckBox(Text(section_, "verificaconnessione")), "chkConnessione");
  chkConnessione_->setChecked(KeptCheck(settings_));
  connect(chkConnessione_, &QCheckBox::toggled, this, &NetDialog::KeepCheck);
  lblStatus_ = Named(new QLabel(), "lblStatus");
  lblStatus_->setWordWrap(true);
  // what a server sent is text, whatever it looks like
  lblStatus_->setTextFormat(Qt::PlainText);
  lblStatus_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lblStatus_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblStatus_->setMinimumHeight(lblStatus_->fontMetrics().lineSpacing() * lines);
  RegisterForm(section_, this);
}

NetDialog::~NetDialog() {
  if (!unloaded_) UnregisterForm(section_);
}

QComboBox* NetDialog::MakeList(const char* name, const QString& caption) {
  auto* const list = Named(new QComboBox(), name);
  list->setEditable(true);
  list->setInsertPolicy(QComboBox::NoInsert);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(shortestList);
  list->setMaxVisibleItems(listedEntries);
  list->setCompleter(nullptr);
  list->lineEdit()->setMaxLength(longestEntry);
  list->setAccessibleName(caption);
  return list;
}

void NetDialog::FillList(QComboBox* list, const std::string* first, std::size_t count) {
  std::for_each(first, first + count, [list](const std::string& entry) {
    if (!Trimmed(entry).empty()) list->addItem(ToQ(entry));
  });
  list->lineEdit()->setCursorPosition(0);
}

QLayout* NetDialog::MakeLastRow(const QString& ok, int helpTopic) {
  auto* const help = Named(new GraphButton(), "cmdHelp");
  help->SetCaption(Text("Buttons", "help"));
  cmdOK_ = Named(new GraphButton(), "cmdOK");
  cmdOK_->SetCaption(ok);
  cmdCancel_ = Named(new GraphButton(), "cmdCancel");
  SetCancelCaption("cancel");
  for (GraphButton* const button : {help, cmdOK_, cmdCancel_}) button->setAutoDefault(false);
  cmdOK_->setDefault(true);
  connect(help, &QPushButton::clicked, this, [helpTopic] { OpenHelpFile(helpTopic); });
  connect(cmdOK_, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
  connect(cmdCancel_, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
  auto* const row = new QHBoxLayout();
  row->setSpacing(8);
  row->addWidget(help);
  row->addStretch();
  row->addWidget(cmdOK_);
  row->addWidget(cmdCancel_);
  return row;
}

void NetDialog::Show() {
  show();
  raise();
  activateWindow();
}

void NetDialog::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  socket_->Close();
  UnregisterForm(section_);
  hide();
  // the call may come from one of the window's own handlers
  deleteLater();
}

void NetDialog::closeEvent(QCloseEvent* event) {
  event->accept();
  Leave();
}

void NetDialog::KeepCheck(bool checked) {
  try {
    SaveRegistryString(settingsApplication, settings_, checkKey, checked ? on : off);
  } catch (const RuntimeFailure& failure) {
    TellNotSaved(failure);
  }
}

bool NetDialog::MayConnect() {
  if (!chkConnessione_->isChecked() || IsConnected()) return true;
  SetStatus(LookupText(section_, "noconnessione"));
  return false;
}

void NetDialog::SetCancelCaption(const char* key) { cmdCancel_->SetCaption(Text("Buttons", key)); }

void NetDialog::SetStatus(const std::string& text) {
  status_ = text;
  ShowStatus();
}

void NetDialog::ShowStatus() {
  const QString text = ToQ(status_);
  QStringList lines = text.split(QLatin1Char('\n'));
  for (QString& line : lines) line = Fitted(line, lblStatus_->fontMetrics(), lblStatus_->width());
  const QString shown = lines.join(QLatin1Char('\n'));
  lblStatus_->setText(shown);
  lblStatus_->setToolTip(shown == text ? QString() : text.toHtmlEscaped());
}

void NetDialog::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  layout()->activate();
  ShowStatus();
}

}  // namespace halvorine
