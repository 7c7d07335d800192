#include "prediction/frmCalc.h"

#include <QPointer>
#include <QVBoxLayout>

#include "controls/qtIcons.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmCalc";
constexpr int helpTopic = 130;

}  // namespace

frmCalc::frmCalc() : TableForm(section) {
  setWindowTitle(Text("calcoloeffemeridisatelliti"));
  setWindowIcon(Icon("table"));
  pages_ = Named(new QTabWidget(), "SSTab1");
  for (const int index : {Primary, Secondary}) {
    const QString caption = Text(index == Primary ? "dbprincipale" : "dbsecondario");
    EntryList& list = lists_.at(static_cast<std::size_t>(index));
    auto* const page = new QWidget();
    auto* const rows = new QVBoxLayout(page);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->addLayout(list.Make(index, caption));
    pages_->addTab(page, caption);
    list.Fill(index);
  }
  Compose(pages_, helpTopic);
  Publish(this);
}

void frmCalc::Show() {
  for (const int index : {Primary, Secondary}) lists_.at(static_cast<std::size_t>(index)).Fill(index);
  lists_.at(static_cast<std::size_t>(pages_->currentIndex())).SetFocus();
  ShowForm();
}

void frmCalc::cmdOK_Click() {
  if (LongOperation::Refused()) return;
  const int index = pages_->currentIndex();
  const int number = lists_.at(static_cast<std::size_t>(index)).Chosen();
  if (number == 0) {
    Tell(MessageKind::Information, LookupText(section, "selezionaresatellite"));
    return;
  }
  auto* const details = Load<DetailsCalls>("frmDetails");
  if (details == nullptr) return;
  TableRequest request = Request();
  TakeEntry(ScratchSlot, index, number);
  details->SetOnlyAboveHorizon(onlyAboveHorizon_);
  details->Show();
  const QPointer<frmCalc> self(this);  // a yield may close the window
  details->Genera_elenco(ScratchSlot, request.start, request.end, request.step, request.code);
  if (self != nullptr) HideForm();
}

// by the key of menus; the mouse has told its press
void frmCalc::contextMenuEvent(QContextMenuEvent* /*event*/) { onlyAboveHorizon_ = true; }

void frmCalc::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) onlyAboveHorizon_ = true;
  TableForm::mousePressEvent(event);
}

}  // namespace halvorine
