// The commands that work on element files and printers: view, new, edit, format, print.
#include <QMdiSubWindow>

#include "catalogue/frmFile.h"
#include "catalogue/mElementFile.h"
#include "controls/qtPrint.h"
#include "shell/MDIForm1.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

/// A chosen file with something in it, else the empty text.
std::string AskElementFile(const char* titleKey) {
  const std::optional<std::string> chosen = ThePlatform().ChooseFile(
      {LookupText("Dialogs", titleKey), LookupText("Dialogs", "filtrotle"), ChooserStart(), false});
  return chosen && !IsEmptyFile(*chosen) ? *chosen : std::string();
}

}  // namespace

void MDIForm1::ViewFile() {
  if (LongOperation::Refused()) return;
  const std::string path = AskElementFile("visualizzatle");
  auto* const details = path.empty() ? nullptr : halvorine::Load<DetailsCalls>("frmDetails");
  if (details == nullptr) return;
  details->Show();
  details->LeggiDiretto(path);
}

void MDIForm1::NewFile() {
  (new frmFile(Text("MDIForm1", "nuovo") + QLatin1Char(' ') + QString::number(++newFiles_)))->ShowForm();
}

void MDIForm1::EditFile() {
  const std::string path = AskElementFile("modificatle");
  if (path.empty()) return;
  auto* const window = new frmFile();
  if (window->Leggi(path))
    window->ShowForm();
  else
    window->UnloadForm();
}

void MDIForm1::FormatFile() {
  if (LongOperation::Refused()) return;
  Tell(MessageKind::Information, LookupText("MDIForm1", "funzioneconversione1") + "\n" +
                                     LookupText("MDIForm1", "funzioneconversione2"));
  const std::string path = AskElementFile("formattatle");
  if (path.empty()) return;
  try {
    const WaitPointerHold pointer;
    if (!RepairFile(path)) return;
  } catch (const FileFailure& failure) {
    TellNotSaved(failure);
    return;
  }
  Tell(MessageKind::Information, LookupText("MDIForm1", "conversioneterminata"));
}

void MDIForm1::SetUpPrinter() { halvorine::SetUpPrinter(this); }

void MDIForm1::PrintActive() {
  const QMdiSubWindow* const active = area_->currentSubWindow();
  if (active == nullptr || !active->isVisible()) return;
  if (auto* const window = dynamic_cast<PrintCalls*>(active->widget())) window->Stampa();
}

}  // namespace halvorine
