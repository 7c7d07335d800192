#include "shell/frmLanguage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"
#include "shell/mStart.h"

namespace halvorine {

frmLanguage::frmLanguage(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmLanguage"));
  lstLingua_ = Named(new QListWidget(), "lstLingua");
  for (const std::string& name : InstalledLanguages()) lstLingua_->addItem(ToQ(name));
  cmdOk_ = Named(new QPushButton(), "cmdOK");
  auto* const cmdCancel = Named(new QPushButton(), "cmdCancel");

  // the dialog itself needs a language before its captions can be read
  if (LanguageFile.empty() && lstLingua_->count() > 0) {
    LanguageFile = FromQ(lstLingua_->item(0)->text()) + ".ini";
    LanguageLoaded = false;
  }
  for (int row = 0; row < lstLingua_->count(); ++row)
    if (SameText(FromQ(lstLingua_->item(row)->text()) + ".ini", LanguageFile)) lstLingua_->setCurrentRow(row);

  setWindowTitle(Text("frmLanguage", "lingua"));
  lstLingua_->setAccessibleName(windowTitle());
  cmdOk_->setText(Text("Buttons", "ok"));
  cmdCancel->setText(Text("Buttons", "cancel"));
  cmdOk_->setDefault(true);
  EnableOk();

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(12);
  layout->addWidget(lstLingua_);
  auto* const buttons = new QHBoxLayout();
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cmdOk_);
  buttons->addWidget(cmdCancel);
  layout->addLayout(buttons);
  resize(300, 240);

  connect(lstLingua_, &QListWidget::itemSelectionChanged, this, &frmLanguage::EnableOk);
  connect(lstLingua_, &QListWidget::itemClicked, this, &frmLanguage::EnableOk);
  connect(lstLingua_, &QListWidget::itemDoubleClicked, this, &frmLanguage::TakeChoice);
  connect(cmdOk_, &QPushButton::clicked, this, &frmLanguage::TakeChoice);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmLanguage::EnableOk() { cmdOk_->setEnabled(lstLingua_->currentItem() != nullptr); }

void frmLanguage::TakeChoice() {
  if (lstLingua_->currentItem() == nullptr) return;
  try {
    ChooseLanguage(FromQ(lstLingua_->currentItem()->text()));
  } catch (const RuntimeFailure& failure) {
    Tell(MessageKind::Warning, failure.what());
  }
  accept();
}

}  // namespace halvorine
