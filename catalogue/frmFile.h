// The file editor: one text that fills the window. Several can stand open at once; each is registered as
// "frmFile" with a number of its own behind it.
#pragma once

#include <QPlainTextEdit>
#include <string>

#include "shell/base/qtForms.h"

namespace halvorine {

class frmFile : public ChildForm, public FormCalls, public SaveCalls, public PrintCalls {
  Q_OBJECT
 public:
  /// An empty text without a file yet; the caption also proposes the file's name.
  explicit frmFile(const QString& caption = {});

  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  bool MayUnload() override;
  /// Loads a file. Where that fails it tells so, and the window stays as it is.
  bool Leggi(const std::string& path);
  /// Writes the text; a text without a file asks for one. What happens is told.
  void Salva() override;
  /// Prints the selection, or the whole text where there is none.
  void Stampa() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QPlainTextEdit* txtFile_;
  std::string path_;
  bool untitled_ = true, latin1_ = false, asking_ = false;
};

}  // namespace halvorine
