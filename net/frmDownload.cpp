#include "net/frmDownload.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <filesystem>
#include <optional>

#include "catalogue/mCatalogue.h"
#include "catalogue/mElementFile.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmDownload";
constexpr int helpTopic = 170;
constexpr int statusLines = 5;
constexpr int timerPeriod = 1000;  // ms
constexpr double wholeBar = 100;
constexpr const char* noTime = "00:00:00";

QLabel* Caption(const char* key) {
  auto* const label = new QLabel(Text(section, key));
  label->setForegroundRole(MutedRole);
  return label;
}

/// A chooser starts in the folder of the primary file, with the name of the remote one.
std::string FirstChoice(const std::string& entry) {
  const std::filesystem::path start = ChooserStart();
  std::error_code ignored;
  const std::filesystem::path folder =
      std::filesystem::is_directory(start, ignored) ? start : start.parent_path();
  return (folder / RemoteFileName(entry)).string();
}

}  // namespace

frmDownload::frmDownload() : NetDialog(section, "Download", "wscHTTP", statusLines) {
  setWindowTitle(Text(section, "trasferimentofile"));
  setWindowIcon(Icon("net"));
  auto* const caption = Caption("fileremoto");
  cmbFileRemoto_ = MakeList("cmbFileRemoto", caption->text());
  FillList(cmbFileRemoto_, Options.RemoteFiles.data(), Options.RemoteFiles.size());
  caption->setBuddy(cmbFileRemoto_);
  cmdDownload_ = Named(new GraphButton(), "cmdDownload");
  cmdDownload_->SetCaption(Text(section, "modificaelenco"));
  cmdDownload_->setAutoDefault(false);
  cmdDownload_->setEnabled(CanLoadForm("frmSettings"));
  ProgressBar1_ = Named(new ProgressBar(), "ProgressBar1");
  ProgressBar1_->SetMax(wholeBar);
  tmrTimeLeft_ = Named(new QTimer(this), "tmrTimeLeft");
  auto* const check = new QHBoxLayout();
  check->setSpacing(12);
  check->addWidget(chkConnessione_);
  check->addStretch();
  check->addWidget(cmdDownload_);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(8);
  rows->addWidget(caption);
  rows->addWidget(cmbFileRemoto_);
  rows->addLayout(check);
  rows->addSpacing(4);
  rows->addWidget(MakeValues());
  rows->addWidget(ProgressBar1_);
  rows->addWidget(lblStatus_, 1);
  rows->addLayout(MakeLastRow(Text("Buttons", "download"), helpTopic));
  Connect();
  resize(sizeHint());
}

frmDownload::~frmDownload() = default;

QWidget* frmDownload::MakeValues() {
  struct Row {
    const char *key, *name;
    QLabel** label;
    int line, column;
  };
  const Row values[] = {{"dimensione", "lblSize", &lblSize_, 0, 0},
                        {"ricevuti", "lblReceive", &lblReceive_, 1, 0},
                        {"velocita", "lblSpeed", &lblSpeed_, 2, 0},
                        {"tempotrascorso", "lblElapsed", &lblElapsed_, 0, 3},
                        {"temporimasto", "lblRemaining", &lblRemaining_, 1, 3}};
  auto* const frame = new QWidget();
  auto* const grid = new QGridLayout(frame);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(6);
  for (const Row& row : values) {
    QLabel* const label = *row.label = Named(new QLabel(), row.name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAccessibleName(Text(section, row.key));
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("67108864 bytes")));
    grid->addWidget(Caption(row.key), row.line, row.column);
    grid->addWidget(label, row.line, row.column + 1);
  }
  lblElapsed_->setText(QString::fromLatin1(noTime));
  lblRemaining_->setText(QString::fromLatin1(noTime));
  for (const int column : {1, 4}) grid->setColumnStretch(column, 1);
  grid->setColumnMinimumWidth(2, 24);
  return frame;
}

void frmDownload::Connect() {
  connect(cmdDownload_, &QPushButton::clicked, this, &frmDownload::cmdDownload_Click);
  connect(tmrTimeLeft_, &QTimer::timeout, this, &frmDownload::tmrTimeLeft_Timer);
  connect(socket_, &TcpTransfer::Connected, this, &frmDownload::wscHTTP_Connect);
  connect(socket_, &TcpTransfer::SendProgress, this,
          [this] { SetStatus(LookupText(section, "richiestaincorso")); });
  connect(socket_, &TcpTransfer::SendComplete, this,
          [this] { SetStatus(LookupText(section, "richiestainoltrata")); });
  connect(socket_, &TcpTransfer::DataArrival, this, &frmDownload::wscHTTP_DataArrival);
  connect(socket_, &TcpTransfer::Closed, this, &frmDownload::wscHTTP_Close);
  connect(socket_, &TcpTransfer::Failed, this, &frmDownload::wscHTTP_Error);
  connect(socket_, &TcpTransfer::TimedOut, this, &frmDownload::wscHTTP_Silence);
}

void frmDownload::cmdOK_Click() {
  const std::string entry(Trimmed(FromQ(cmbFileRemoto_->currentText())));
  if (entry.empty() || !MayConnect()) return;
  const std::optional<RemoteAddress> address = ReadAddress(entry);
  if (!address) {
    SetStatus(LookupText(section, "indirizzononvalido"));
    return;
  }
  address_ = *address;
  for (QLabel* const label : {lblReceive_, lblSize_, lblSpeed_}) label->clear();
  for (QLabel* const label : {lblElapsed_, lblRemaining_}) label->setText(QString::fromLatin1(noTime));
  if (ChooseTarget(entry)) Begin();
}

bool frmDownload::ChooseTarget(const std::string& entry) {
  const QPointer<QObject> self(this);
  const std::optional<std::string> chosen = ThePlatform().ChooseFile(
      {LookupText("Dialogs", "salvaconnome"), LookupText("Dialogs", "filtrotle"), FirstChoice(entry), true});
  if (!self || !chosen || chosen->empty()) return false;
  try {
    file_ = std::make_unique<TransferFile>(*chosen);
  } catch (const FileFailure& failure) {
    TellNotSaved(failure);
  }
  return self && file_;
}

void frmDownload::Begin() {
  cmdCancel_->setFocus();
  cmdOK_->setEnabled(false);
  cmbFileRemoto_->setEnabled(false);
  cmdDownload_->setEnabled(false);
  SetCancelCaption("cancel");
  transfer_ = {};
  ProgressBar1_->SetValue(0);
  SetStatus(LookupText(section, "connessioneincorso"));
  tmrTimeLeft_->start(timerPeriod);
  socket_->Open(ToQ(address_.Name), address_.Port, address_.Secure);
}

void frmDownload::End() {
  tmrTimeLeft_->stop();
  socket_->Close();
  file_.reset();
  transfer_.Buffer = {};
  cmdOK_->setEnabled(true);
  cmbFileRemoto_->setEnabled(true);
  cmdDownload_->setEnabled(CanLoadForm("frmSettings"));
}

void frmDownload::Interrupt() {
  End();
  SetStatus(InterruptedText());
}

void frmDownload::cmdCancel_Click() {
  if (!file_)
    Leave();
  else if (IsWhole(transfer_))
    wscHTTP_Close();  // the button says so by now
  else
    Interrupt();
}

void frmDownload::Leave() {
  const bool finished = finished_;
  Unload();
  if (finished) OfferReread();
}

void frmDownload::Unload() {
  file_.reset();
  finished_ = false;
  tmrTimeLeft_->stop();
  NetDialog::Unload();
}

void frmDownload::cmdDownload_Click() {
  Leave();
  if (MainFormCalls* const main = MainForm()) main->RunCommand("mnuOpzioniDownload");
}

void frmDownload::wscHTTP_Connect() {
  transfer_.StartTimer = TimerSeconds();
  socket_->Send(QByteArray::fromStdString(RequestText(address_)));
}

void frmDownload::ShowCounts() {
  const auto show = [](QLabel* label, std::int32_t bytes) {
    label->setText(QStringLiteral("%1 bytes").arg(bytes));
    label->setToolTip(ToQ(FormatSize(bytes)));
  };
  show(lblReceive_, transfer_.BytesReceived);
  if (transfer_.ContentLength <= 0) return;
  show(lblSize_, transfer_.ContentLength);
  ProgressBar1_->SetValue(transfer_.BytesReceived / (transfer_.ContentLength / wholeBar));
}

void frmDownload::wscHTTP_DataArrival(const QByteArray& bytes) {
  const Arrival arrival = TakeBytes(transfer_, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  if (arrival == Arrival::TooMuch) {
    Interrupt();
    return;
  }
  SetStatus(LookupText(section, "ricezioneincorso"));
  if (arrival == Arrival::Body) ShowCounts();
}

void frmDownload::wscHTTP_Close() {
  const std::optional<HttpAnswer> answer = ReadAnswer(transfer_.Buffer);
  if (!answer) {
    Interrupt();
    return;
  }
  try {
    file_->Write(answer->Body, IsWanted(*answer));
  } catch (const FileFailure& failure) {
    Interrupt();
    TellNotSaved(failure);
    return;
  }
  finished_ = true;
  ShowCounts();
  ProgressBar1_->SetValue(wholeBar);
  const std::string kept = file_->Kept();
  End();
  SetStatus(CompletionText(*answer, kept));
  SetCancelCaption("close");
}

void frmDownload::wscHTTP_Silence() {
  // some servers keep the connection open behind an answer that is whole
  const std::optional<HttpAnswer> answer = ReadAnswer(transfer_.Buffer);
  if (IsWhole(transfer_) || (answer && answer->Ended))
    wscHTTP_Close();
  else
    Interrupt();
}

void frmDownload::wscHTTP_Error(int number, const QString& description, bool certificate) {
  End();
  std::string text = "Error #: " + std::to_string(number) + "\r\n";
  if (certificate) text += LookupText(section, "certificatorifiutato") + "\r\n";
  Tell(MessageKind::Warning, text + FromQ(description));
}

void frmDownload::tmrTimeLeft_Timer() {
  const TransferTexts texts = TickTransfer(transfer_, TimerSeconds());
  const auto show = [](QLabel* label, const std::string& text) {
    if (!text.empty()) label->setText(ToQ(text));
  };
  show(lblSpeed_, texts.Speed);
  show(lblElapsed_, texts.Elapsed);
  show(lblRemaining_, texts.Remaining);
  if (texts.Complete) SetCancelCaption("close");
  if (texts.Over) wscHTTP_Silence();
}

}  // namespace halvorine
