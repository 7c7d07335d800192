#include "shell/frmTime.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtDates.h"
#include "shell/mTick.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmTime";

struct ValueRow {
  const char *captionName, *key;
  const char* valueName;
  QLabel** value;
  const char* widest;  // the longest text, so that the window keeps its size
};

QWidget* MakeFrame(const char* name, const char* key, std::initializer_list<ValueRow> rows) {
  auto* const frame = Named(new QGroupBox(Text(section, key)), name);
  auto* const grid = new QGridLayout(frame);
  grid->setContentsMargins(12, 8, 12, 12);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(6);
  grid->setColumnStretch(1, 1);
  int at = 0;
  for (const ValueRow& row : rows) {
    auto* const caption = Named(new QLabel(Text(section, row.key)), row.captionName);
    caption->setForegroundRole(MutedRole);
    QLabel* const value = *row.value = Named(new QLabel(), row.valueName);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setAccessibleName(caption->text());
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QString::fromLatin1(row.widest)) + 2);
    grid->addWidget(caption, at, 0);
    grid->addWidget(value, at, 1);
    ++at;
  }
  grid->setRowStretch(at, 1);
  return frame;
}

}  // namespace

frmTime::frmTime() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "datatempo"));
  setWindowIcon(Icon("time"));
  AnalogClock1_ = Named(new AnalogClock(), "AnalogClock1");
  AnalogClock1_->SetCaptions(Text(section, "oralocale"), Text(section, "oragreenwich"));
  auto* const grid = new QGridLayout();
  grid->setSpacing(12);
  grid->addWidget(MakeTimes(), 0, 0);
  grid->addWidget(MakeDates(), 0, 1);
  grid->addWidget(AnalogClock1_, 1, 0);
  grid->addWidget(MakeSettings(), 1, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(1, 1);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addLayout(grid, 1);
  rows->addLayout(MakeLastRow());
  chkUsaOraPc_->setChecked(true);
  ShowInstant(ComputerDate());
  ShowState(TimeState::RealTime);
  Connect();
  const QSize fitting = sizeHint();
  SetFirstSize(fitting.width(), fitting.height());
  Publish(this);
}

QWidget* frmTime::MakeTimes() {
  const char* const time = "00:00:00";
  return MakeFrame("fraTempo1", "tempo",
                   {{"lblOraLocale", "oralocale", "lblLOCALTIME", &lblLOCALTIME_, time},
                    {"lblOraGreenwich", "oragreenwich", "lblUTTIME", &lblUTTIME_, time},
                    {"lblOraSideraleLocale", "orasidlocale", "lblLST", &lblLST_, "00.-00.-00"},
                    {"lblOraSideraleGreenwich", "orasidgreenwich", "lblGST", &lblGST_, "00.-00.-00"},
                    {"lblGiornoGiuliano", "giornogiuliano", "lblJD", &lblJD_, "0000000.00000"}});
}

QWidget* frmTime::MakeDates() {
  const char* const date = "00 MMM 0000";
  return MakeFrame("fraTempo2", "data",
                   {{"lblDataLocale", "datalocale", "lblLOCALDATE", &lblLOCALDATE_, date},
                    {"lblGiornoAnno1", "giornoanno", "lblLOCALYear", &lblLOCALYear_, "000"},
                    {"lblDataGreenwich", "datagreenwich", "lblUTDATE", &lblUTDATE_, date},
                    {"lblGiornoAnno2", "giornoanno", "lblUTCYear", &lblUTCYear_, "000"}});
}

QWidget* frmTime::MakeSettings() {
  auto* const frame = Named(new QGroupBox(Text(section, "impostazioni")), "fraImpostazioni");
  chkUsaOraPc_ = Named(new QCheckBox(Text(section, "usaorapc")), "chkUsaOraPc");
  lblStato_ = Named(new QLabel(), "lblStato");
  lblOraInizioSimulazione_ =
      Named(new QLabel(Text(section, "orainiziosimulazione")), "lblOraInizioSimulazione");
  lblOraInizioSimulazione_->setForegroundRole(MutedRole);
  QSizePolicy keepsItsRoom = lblOraInizioSimulazione_->sizePolicy();
  keepsItsRoom.setRetainSizeWhenHidden(true);
  lblOraInizioSimulazione_->setSizePolicy(keepsItsRoom);
  DTPicker1_ = Named(new QDateTimeEdit(), "DTPicker1");
  DressPicker(*DTPicker1_, CurrentDate);
  DTPicker1_->setAccessibleName(lblOraInizioSimulazione_->text());
  cmdPlay_ = MakeButton("cmdPlay", section, "play");
  cmdPlay_->setToolTip(Text(section, "attivasimulazione"));
  cmdStop_ = MakeButton("cmdStop", section, "stop");
  cmdStop_->setToolTip(Text(section, "arrestasimulazione"));
  GraphButton* const synchronise = MakeButton("cmdSincronizza", "Buttons", "sincronizza");
  synchronise->setEnabled(CanLoadForm("frmSyncro"));
  connect(synchronise, &QPushButton::clicked, this, [] {
    if (FormCalls* const dialog = LoadForm("frmSyncro")) dialog->Show();
  });
  auto* const commands = new QHBoxLayout();
  commands->setSpacing(8);
  commands->addWidget(cmdPlay_, 1);
  commands->addWidget(cmdStop_, 1);
  auto* const rows = new QVBoxLayout(frame);
  rows->setContentsMargins(12, 8, 12, 12);
  rows->setSpacing(6);
  rows->addWidget(chkUsaOraPc_);
  rows->addWidget(lblOraInizioSimulazione_);
  rows->addWidget(DTPicker1_);
  rows->addWidget(lblStato_);
  rows->addLayout(commands);
  rows->addStretch();
  rows->addWidget(synchronise);
  return frame;
}

QLayout* frmTime::MakeLastRow() {
  GraphButton* const help = MakeButton("cmdHelp", "Buttons", "help");
  GraphButton* const ok = MakeButton("cmdOK", "Buttons", "ok");
  ok->setDefault(true);
  connect(help, &QPushButton::clicked, this, [] {
    if (MainFormCalls* const main = MainForm()) main->RunCommand("mnuAiutoSommario");
  });
  connect(ok, &QPushButton::clicked, this, &frmTime::HideForm);
  auto* const row = new QHBoxLayout();
  row->addWidget(help);
  row->addStretch();
  row->addWidget(ok);
  return row;
}

GraphButton* frmTime::MakeButton(const char* name, const char* textSection, const char* key) {
  auto* const button = Named(new GraphButton(), name);
  button->SetCaption(Text(textSection, key));
  button->setAutoDefault(true);
  return button;
}

void frmTime::Connect() {
  connect(chkUsaOraPc_, &QCheckBox::toggled, this, &frmTime::chkUsaOraPc_Click);
  connect(DTPicker1_, &QDateTimeEdit::dateTimeChanged, this, &frmTime::DTPicker1_Change);
  connect(cmdPlay_, &QPushButton::clicked, this, &frmTime::cmdPlay_Click);
  connect(cmdStop_, &QPushButton::clicked, this, &frmTime::cmdStop_Click);
  if (const auto* const frame = qobject_cast<QMdiSubWindow*>(Frame()))
    connect(frame, &QMdiSubWindow::aboutToActivate, this, &frmTime::Aggiorna_dati);
}

void frmTime::Show() {
  Aggiorna_dati();
  ShowForm();
}

void frmTime::Aggiorna_dati() {
  const TimeTexts texts = TimeTextsOf(ClockFields, CurrentDate, LanguageDates);
  lblJD_->setText(ToQ(texts.Jd));
  lblUTTIME_->setText(ToQ(texts.UtTime));
  lblUTDATE_->setText(ToQ(texts.UtDate));
  lblLOCALTIME_->setText(ToQ(texts.LocalTime));
  lblLOCALDATE_->setText(ToQ(texts.LocalDate));
  lblGST_->setText(ToQ(texts.Gst));
  lblGST_->setToolTip(ToQ(texts.GstPlain));
  lblLST_->setText(ToQ(texts.Lst));
  lblLST_->setToolTip(ToQ(texts.LstPlain));
  lblUTCYear_->setText(ToQ(texts.UtcYear));
  lblLOCALYear_->setText(ToQ(texts.LocalYear));
  AnalogClock1_->SetValue(CurrentDate);
  AnalogClock1_->SetSecondValue(ClockFields.UtcDate);
}

void frmTime::ShowState(TimeState state) {
  const TimeControls controls = TimeControlsOf(state);
  lblStato_->setText(Text(section, controls.stateKey));
  lblOraInizioSimulazione_->setVisible(controls.startCaption);
  // what becomes enabled comes first, so that the keyboard never leaves the window
  for (const bool enabled : {true, false}) {
    if (controls.play == enabled) cmdPlay_->setEnabled(enabled);
    if (controls.stop == enabled) cmdStop_->setEnabled(enabled);
    if (controls.picker == enabled) DTPicker1_->setEnabled(enabled);
    if (controls.play && enabled) cmdPlay_->setFocus();
    if (controls.stop && enabled) cmdStop_->setFocus();
  }
}

void frmTime::ShowInstant(Date date) {
  const QSignalBlocker quiet(DTPicker1_);
  DTPicker1_->setDateTime(DateTimeOf(date));
}

void frmTime::chkUsaOraPc_Click(bool on) {
  ShowInstant(on ? EnterRealTime() : EnterSimulation());
  ShowState(on ? TimeState::RealTime : TimeState::Stopped);
}

void frmTime::DTPicker1_Change() {
  ChooseInstant(DateOf(DTPicker1_->dateTime()));
  Aggiorna_dati();
}

void frmTime::cmdPlay_Click() {
  ShowState(TimeState::Running);
  StartSimulation(DateOf(DTPicker1_->dateTime()));
}

void frmTime::cmdStop_Click() {
  StopSimulation();
  ShowState(TimeState::Stopped);
}

void frmTime::BeforeUnload() {
  // nobody could set a standing clock going again
  EnterRealTime();
}

void frmTime::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    HideForm();
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
