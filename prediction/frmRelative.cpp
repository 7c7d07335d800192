#include "prediction/frmRelative.h"

#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "prediction/mRelative.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmRelative";
constexpr int helpTopic = 140;
enum Satellite : int { satelliteA = 0, satelliteB = 1 };

}  // namespace

frmRelative::frmRelative() : TableForm(section) {
  setWindowTitle(Text("motorelativosatelliti"));
  setWindowIcon(Icon("relative"));
  pages_ = Named(new QTabWidget(), "SSTab1");
  pages_->addTab(MakePage(satelliteA), Text("satellitea"));
  pages_->addTab(MakePage(satelliteB), Text("satelliteb"));
  auto* const info = Named(new QLabel(Text("informazione")), "lblInfo");
  info->setWordWrap(true);
  info->setForegroundRole(MutedRole);
  Compose(pages_, helpTopic, info);
  Publish(this);
}

QWidget* frmRelative::MakePage(int index) {
  auto* const page = new QWidget();
  auto* const database = Named(new QComboBox(), "cmbDatabase", index);
  database->addItem(Text("dbprincipale"));
  database->addItem(Text("dbsecondario"));
  const QString caption = Text(index == satelliteA ? "satellitea" : "satelliteb");
  database->setAccessibleName(caption);
  auto* const rows = new QVBoxLayout(page);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(8);
  rows->addWidget(database);
  rows->addLayout(ListOf(index).Make(index, caption), 1);
  ListOf(index).Fill(Primary);
  connect(database, &QComboBox::currentIndexChanged, this,
          [this, index](int chosen) { ListOf(index).Fill(chosen); });
  return page;
}

void frmRelative::Show() {
  for (EntryList& list : lists_) list.Fill(list.Database());
  ListOf(pages_->currentIndex()).SetFocus();
  ShowForm();
}

void frmRelative::cmdOK_Click() {
  if (LongOperation::Refused()) return;
  const int a = ListOf(satelliteA).Chosen();
  const int b = ListOf(satelliteB).Chosen();
  if (a == 0 || b == 0) {
    pages_->setCurrentIndex(a == 0 ? satelliteA : satelliteB);
    Tell(MessageKind::Information, LookupText(section, "selezionaresatelliti"));
    return;
  }
  const int databaseA = ListOf(satelliteA).Database();
  const int databaseB = ListOf(satelliteB).Database();
  if (databaseA == databaseB && a == b) {
    Tell(MessageKind::Information, LookupText(section, "satelliticoincidenti"));
    return;
  }
  auto* const details = Load<DetailsCalls>("frmDetails");
  if (details == nullptr) return;
  const TableRequest request = Request();
  TakeEntry(ScratchSlot, databaseA, a);
  TakeEntry(RelativeSlot, databaseB, b);
  details->Show();
  const QPointer<frmRelative> self(this);  // a yield may close the window
  details->Genera_relativo(request.start, request.end, request.step, request.code);
  if (self != nullptr) HideForm();
}

}  // namespace halvorine
