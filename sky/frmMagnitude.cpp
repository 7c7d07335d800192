#include "sky/frmMagnitude.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "controls/qtIcons.h"
#include "controls/qtValues.h"
#include "shell/base/mPlatform.h"
#include "sky/mMagnitude.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmMagnitude";
constexpr int leastWidth = 280;  // logical pixels

}  // namespace

frmMagnitude::frmMagnitude() : ModalForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "magnitudinelimite"));
  setWindowIcon(Icon("starchart"));
  cmbMagnitudine_ = Named(new QComboBox(), "cmbMagnitudine");
  for (const MagnitudeLimit& limit : MagnitudeLimits)
    cmbMagnitudine_->addItem(QString::fromLatin1(limit.text));
  cmbMagnitudine_->setMaxVisibleItems(static_cast<int>(MagnitudeLimits.size()));
  cmbMagnitudine_->setCurrentIndex(-1);
  cmbMagnitudine_->setAccessibleName(windowTitle());
  lblNumeroStelle_ = MakeValue("lblNumeroStelle");
  lblNumeroStelle_->setAccessibleName(Text(section, "stelle"));
  GraphButton* const ok = MakeFormButton("cmdOK", "Buttons", "ok");
  GraphButton* const cancel = MakeFormButton("cmdCancel", "Buttons", "cancel");
  ok->setDefault(true);
  auto* const count = new QHBoxLayout();
  count->addWidget(MakeCaption(Text(section, "stelle")));
  count->addStretch();
  count->addWidget(lblNumeroStelle_);
  auto* const buttons = new QHBoxLayout();
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addWidget(cmbMagnitudine_);
  rows->addLayout(count);
  rows->addStretch();
  rows->addLayout(buttons);
  setMinimumWidth(leastWidth);
  connect(cmbMagnitudine_, &QComboBox::currentIndexChanged, this, &frmMagnitude::cmbMagnitudine_Click);
  connect(ok, &QPushButton::clicked, this, &frmMagnitude::cmdOK_Click);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Publish(this);
}

StarCountCalls* frmMagnitude::Chart() const { return Loaded<StarCountCalls>(chart_); }

void frmMagnitude::ShowFor(std::string_view tag) {
  chart_ = ChartOfTag(tag);
  const StarCountCalls* const chart = Chart();
  if (chart == nullptr) {
    UnloadForm();
    return;
  }
  lblNumeroStelle_->setText(QString::number(chart->StarCount()));
  cmbMagnitudine_->setCurrentIndex(LimitOf(chart->StarCount()));
  ShowForm();
}

void frmMagnitude::cmbMagnitudine_Click() {
  const int chosen = cmbMagnitudine_->currentIndex();
  if (chosen >= 0)
    lblNumeroStelle_->setText(QString::number(MagnitudeLimits.at(static_cast<std::size_t>(chosen)).stars));
}

void frmMagnitude::cmdOK_Click() {
  const int chosen = cmbMagnitudine_->currentIndex();
  StarCountCalls* const chart = Chart();
  accept();
  if (chosen < 0 || chart == nullptr) return;
  const WaitPointerHold pointer;
  chart->SetStarCount(MagnitudeLimits.at(static_cast<std::size_t>(chosen)).stars);
}

}  // namespace halvorine
