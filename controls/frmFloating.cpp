#include "controls/frmFloating.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTimer>
#include <QVBoxLayout>

#include "controls/mTrasp.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "controls/qtTrasp.h"
#include "orbit/mSatTexts.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mHelp.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmFloating";
constexpr int helpTopic = 120;
constexpr int margin = 8;        // logical pixels
constexpr int opacityStep = 15;  // of a page of the scroll bar

QWidget* MainWindow() { return WorkArea() != nullptr ? WorkArea()->window() : nullptr; }

}  // namespace

frmFloating::frmFloating() : QWidget(MainWindow(), Qt::Tool) {
  setObjectName(QString::fromLatin1(section));
  setWindowTitle(Text(section, "satellite"));
  setWindowIcon(Icon("panel"));
  fraSatellitePrincipale_ = Named(new DataBox(section), "fraSatellitePrincipale");
  fraSatellitePrincipale_->setAccessibleName(Text(section, "satelliteprincipale"));
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(6);
  rows->setSizeConstraint(QLayout::SetFixedSize);
  rows->addWidget(fraSatellitePrincipale_);
  rows->addLayout(MakeOpacity());
  connect(hscrTrasparenza_, &QScrollBar::valueChanged, this, &frmFloating::hscrTrasparenza_Change);
  hscrTrasparenza_->setValue(firstOpacity);
  for (QLabel* const label : fraSatellitePrincipale_->findChildren<QLabel*>())
    label->installEventFilter(this);
  RegisterForm(section, this);
}

QLayout* frmFloating::MakeOpacity() {
  auto* const caption = Named(new QLabel(Text(section, "opacita")), "lblTrasparenza");
  caption->setForegroundRole(MutedRole);
  hscrTrasparenza_ = Named(new QScrollBar(Qt::Horizontal), "hscrTrasparenza");
  hscrTrasparenza_->setRange(leastOpacity, fullOpacity);
  hscrTrasparenza_->setPageStep(opacityStep);
  hscrTrasparenza_->setFocusPolicy(Qt::StrongFocus);
  hscrTrasparenza_->setAccessibleName(caption->text());
  hscrTrasparenza_->setToolTip(caption->text());
  lblOpacity_ = Named(new QLabel(), "lblOpacita");
  lblOpacity_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* const last = new QGridLayout();
  last->setContentsMargins(margin, 0, margin, margin);
  last->setVerticalSpacing(4);
  last->addWidget(caption, 0, 0);
  last->addWidget(lblOpacity_, 0, 1);
  last->addWidget(hscrTrasparenza_, 1, 0, 1, 2);
  return last;
}

frmFloating::~frmFloating() {
  if (LoadedForm(section) == static_cast<FormCalls*>(this)) UnregisterForm(section);
}

void frmFloating::Place() {
  if (placed_ || WorkArea() == nullptr) return;
  placed_ = true;
  const QWidget* const area = WorkArea();
  const QPoint corner = area->mapToGlobal(QPoint(area->width(), 0));
  move(corner + QPoint(-sizeHint().width() - 2 * margin, 2 * margin));
}

void frmFloating::ShowLastTick() {
  const SatelliteState& state = SatelliteStates[1];
  if (ElementSets[1].Name.empty() || state.Condition == 0) return;
  ShowTexts(BuildLiveTexts(state, ElementSets[1], Options.RadioChannel[0]));
}

void frmFloating::SetShown(bool shown) {
  if (shown) {
    Place();
    ShowLastTick();
    show();
    raise();
    activateWindow();
  } else {
    hide();
  }
  if (MainFormCalls* const main = MainForm()) main->SetChecked("mnuVisualizzaBarraDati", shown);
}

void frmFloating::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  UnregisterForm(section);
  if (MainFormCalls* const main = MainForm()) main->SetChecked("mnuVisualizzaBarraDati", false);
  hide();
  deleteLater();
}

void frmFloating::hscrTrasparenza_Change(int opacity) {
  ImpostaOpacita(*this, opacity);
  lblOpacity_->setText(QStringLiteral("%1%").arg(qRound(100.0 * opacity / fullOpacity)));
}

void frmFloating::closeEvent(QCloseEvent* event) {
  event->accept();
  Unload();
}

bool frmFloating::event(QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
    return QWidget::event(event);
  event->accept();
  return true;
}

void frmFloating::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    Unload();
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    OpenSatellite();
  else if (event->key() == Qt::Key_F1)
    OpenHelpFile(helpTopic);
  else
    QWidget::keyPressEvent(event);
}

void frmFloating::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) OpenSatellite();
}

void frmFloating::OpenSatellite() {
  // the window is waited for, and this panel may go meanwhile
  QTimer::singleShot(0, qApp, [] {
    if (auto* const satellite = Load<SatelliteCalls>("frmSatellite")) satellite->ShowSlot(1);
  });
}

bool frmFloating::eventFilter(QObject* watched, QEvent* event) {
  // a value would only select its word
  if (event->type() != QEvent::MouseButtonDblClick) return QWidget::eventFilter(watched, event);
  mouseDoubleClickEvent(static_cast<QMouseEvent*>(event));
  return true;
}

}  // namespace halvorine
