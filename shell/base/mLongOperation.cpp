#include "shell/base/mLongOperation.h"

#include <utility>

#include "shell/base/mForms.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"

namespace halvorine {

namespace {

bool running = false;

ProgressCalls* ProgressWindow() { return Loaded<ProgressCalls>("frmProgress"); }

}  // namespace

bool LongOperation::Running() { return running; }

bool LongOperation::Refused() {
  if (running) Tell(MessageKind::Information, LookupText("MDIForm1", "comandoincorso"));
  return running;
}

LongOperation::LongOperation() : started_(!Refused()) {
  if (!started_) return;
  running = true;
  CancelRequested = false;  // a cancel that came when nothing ran is none of this operation
}

LongOperation::~LongOperation() {
  if (!started_) return;
  CloseProgress();
  running = false;
  CancelRequested = false;
  if (const std::function<void()> after = std::exchange(AfterLongOperation, nullptr)) after();
}

void LongOperation::ShowProgress(const std::string& task, double maximum) {
  ProgressCalls* const window = Load<ProgressCalls>("frmProgress");
  if (window == nullptr) return;
  progress_ = true;
  window->Begin(task, maximum);
}

void LongOperation::Step(double value) {
  if (!clock_.Due()) return;
  // looked up each time: what runs in a yield may have closed the window
  if (ProgressCalls* const window = progress_ ? ProgressWindow() : nullptr) window->SetValue(value);
  ThePlatform().Yield();
}

void LongOperation::ShowTask(const std::string& task, double value) const {
  ProgressCalls* const window = progress_ ? ProgressWindow() : nullptr;
  if (window == nullptr) return;
  window->SetTask(task);
  window->SetValue(value);
}

void LongOperation::CloseProgress() {
  if (!std::exchange(progress_, false)) return;
  if (ProgressCalls* const window = ProgressWindow()) window->Unload();
}

}  // namespace halvorine
