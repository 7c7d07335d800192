// The pages of something that can be printed, looked at before they go to a printer or into a file.
#pragma once

#include <QDialog>
#include <QGraphicsEffect>
#include <QLabel>
#include <QLayout>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QToolButton>
#include <functional>

namespace halvorine {

class frmPreview : public QDialog {
  Q_OBJECT
 public:
  /// `paint` draws the pages on a printer and gives false where it refuses. The button for printing asks for
  /// a printer, and closes the window when all has been printed.
  frmPreview(QWidget* parent, QPrinter& printer, const QString& title, std::function<bool(QPrinter&)> paint);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QLayout* MakeCommands();
  QLayout* MakeLastRow();
  QToolButton* MakeButton(const char* name, const char* icon, const char* key, void (frmPreview::*clicked)());
  void ShowPage();
  void Turn(int pages);
  void cmdPrecedente_Click() { Turn(-1); }
  void cmdSuccessiva_Click() { Turn(1); }
  void cmdIngrandisci_Click() { view_->zoomIn(); }
  void cmdRiduci_Click() { view_->zoomOut(); }
  void cmdStampa_Click();

  QPrinter& printer_;
  std::function<bool(QPrinter&)> paint_;
  QPrintPreviewWidget* view_;
  QGraphicsEffect* night_ = nullptr;  // of the pages
  QLabel* lblPagina_;
  QToolButton *cmdPrecedente_, *cmdSuccessiva_;
};

}  // namespace halvorine
