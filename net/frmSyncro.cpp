#include "net/frmSyncro.h"

#include <QPointer>
#include <QVBoxLayout>
#include <optional>

#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "net/mDownload.h"
#include "net/mTimeProtocol.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmSyncro";
constexpr int helpTopic = 180;
constexpr int statusLines = 4;

}  // namespace

frmSyncro::frmSyncro() : NetDialog(section, "ServerNTP", "Winsock1", statusLines) {
  setWindowTitle(Text(section, "sincronizzazioneorologio"));
  setWindowIcon(Icon("sync"));
  auto* const caption = Named(new QLabel(Text(section, "nomeserver")), "lblServer");
  caption->setForegroundRole(MutedRole);
  cmbURL_ = MakeList("cmbURL", caption->text());
  FillList(cmbURL_, Options.TimeServers.data(), Options.TimeServers.size());
  caption->setBuddy(cmbURL_);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(8);
  rows->addWidget(caption);
  rows->addWidget(cmbURL_);
  rows->addWidget(chkConnessione_);
  rows->addSpacing(4);
  rows->addWidget(lblStatus_, 1);
  // the button acts here; where the same word opens this window it ends in points
  rows->addLayout(MakeLastRow(Text("Buttons", "sincronizza").remove(QStringLiteral("...")), helpTopic));
  connect(socket_, &TcpTransfer::Connected, this, [this] { RoundTrip_ = TimerSeconds(); });
  connect(socket_, &TcpTransfer::DataArrival, this, &frmSyncro::Winsock1_DataArrival);
  connect(socket_, &TcpTransfer::Closed, this, &frmSyncro::Winsock1_Close);
  connect(socket_, &TcpTransfer::Failed, this, &frmSyncro::Winsock1_Error);
  connect(socket_, &TcpTransfer::TimedOut, this, &frmSyncro::Winsock1_Error);
  resize(sizeHint());
}

void frmSyncro::cmdOK_Click() {
  const QString server = cmbURL_->currentText().trimmed();
  if (server.isEmpty()) return;
  cmdCancel_->setFocus();
  cmdOK_->setEnabled(false);
  if (!MayConnect()) {
    cmdOK_->setEnabled(true);
    return;
  }
  ReplyBuffer_.clear();
  SetStatus(LookupText("frmDownload", "connessioneincorso"));
  socket_->Open(server, TimePort, false);
}

void frmSyncro::Winsock1_DataArrival(const QByteArray& bytes) {
  ReplyBuffer_ += bytes.toStdString();
  // blanks at both ends do not count, but there must be an end
  if (ReplyBuffer_.size() > Limits.Header) GiveUp(LookupText(section, "rispostanonvalida"));
}

void frmSyncro::Winsock1_Close() {
  RoundTrip_ = SecondsBetween(RoundTrip_, TimerSeconds()) / 2;
  const std::optional<Date> instant = InstantOfReply(ReplyBuffer_, RoundTrip_);
  if (!instant) {
    GiveUp(LookupText(section, "rispostanonvalida"));
    return;
  }
  const std::string offset = OffsetText(OffsetSeconds(*instant, ThePlatform().ComputerClockUtc()));
  SetStatus(offset);
  // the service may ask for a password first; until it answers nothing is claimed
  ThePlatform().SetComputerClock(*instant,
                                 [self = QPointer<QObject>(this), this, offset](const ClockAnswer& answer) {
                                   if (self) ClockAnswered(answer, offset);
                                 });
}

void frmSyncro::ClockAnswered(const ClockAnswer& answer, const std::string& offset) {
  if (!answer.set) {
    GiveUp(offset + "\n" + LookupText(section, "nosincronizzazione") + "\n" + answer.reason);
    return;
  }
  SetStatus(offset + "\n" + LookupText(section, "oksincronizzazione"));
  SetCancelCaption("close");
}

void frmSyncro::Winsock1_Error() {
  const std::string text = LookupText(section, "nosincronizzazione");
  GiveUp(text);
  Tell(MessageKind::Warning, text);
}

void frmSyncro::GiveUp(const std::string& status) {
  socket_->Close();
  SetStatus(status);
  cmdOK_->setEnabled(true);
}

}  // namespace halvorine
