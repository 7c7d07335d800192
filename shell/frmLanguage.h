// frmLanguage: the choice of the language, at the first start and from the menu.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <QPushButton>

namespace halvorine {

class frmLanguage : public QDialog {
 public:
  explicit frmLanguage(QWidget* parent = nullptr);

 private:
  void EnableOk();
  void TakeChoice();
  QListWidget* lstLingua_;
  QPushButton* cmdOk_;
};

}  // namespace halvorine
