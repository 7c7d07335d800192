#include "controls/frmProgress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int windowWidth = 360;

QWidget* MainWindow() { return WorkArea() != nullptr ? WorkArea()->window() : nullptr; }

}  // namespace

frmProgress::frmProgress() : QDialog(MainWindow()) {
  setObjectName(QStringLiteral("frmProgress"));
  setWindowModality(Qt::ApplicationModal);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  lblTask_ = Named(new QLabel(), "lblTask");
  lblTask_->setWordWrap(true);
  lblTask_->setMinimumHeight(lblTask_->fontMetrics().height());  // a task may be named later
  bar_ = Named(new ProgressBar(), "ProgressBar1");
  auto* const cancel = Named(new QPushButton(), "cmdCancel");
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &frmProgress::reject);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(10);
  rows->addWidget(lblTask_);
  rows->addWidget(bar_);
  auto* const last = new QHBoxLayout();
  last->addStretch();
  last->addWidget(cancel);
  rows->addLayout(last);
  setFixedWidth(windowWidth);
  ReadCaptions();
  RegisterForm("frmProgress", this);
}

frmProgress::~frmProgress() {
  if (LoadedForm("frmProgress") == static_cast<FormCalls*>(this)) UnregisterForm("frmProgress");
}

void frmProgress::ReadCaptions() {
  const QString title = Text("frmProgress", "attendere"), cancel = Text("Buttons", "cancel");
  setWindowTitle(title.isEmpty() ? QCoreApplication::applicationName() : title);
  Control<QPushButton>(this, "cmdCancel")->setText(cancel.isEmpty() ? QStringLiteral("Cancel") : cancel);
}

void frmProgress::Begin(const std::string& task, double maximum) {
  lblTask_->setText(ToQ(task));
  bar_->setAccessibleName(lblTask_->text());
  bar_->SetMax(maximum);
  bar_->SetValue(0);
  adjustSize();
  Show();
}

void frmProgress::SetTask(const std::string& task) { lblTask_->setText(ToQ(task)); }

void frmProgress::SetValue(double value) { bar_->SetValue(value); }

void frmProgress::Show() {
  if (const QWidget* const main = MainWindow(); main != nullptr)
    move(main->frameGeometry().center() - QPoint(width() / 2, height() / 2));
  show();
  raise();
  activateWindow();
}

void frmProgress::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  UnregisterForm("frmProgress");
  hide();
  deleteLater();
}

void frmProgress::reject() { CancelRequested = true; }

void frmProgress::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

}  // namespace halvorine
