// Commands that last: only one of them runs at a time, and all of them show their progress, let events run
// and look for a cancel in the same way.
#pragma once

#include <functional>
#include <string>

#include "shell/base/mPlatform.h"

namespace halvorine {

/// Runs once when the present long operation has ended, and is forgotten then. Serves an exit that was asked
/// for in the middle of one; must not raise.
inline std::function<void()> AfterLongOperation;

/// A long operation while it lives. It begins and ends with CancelRequested cleared, and its end closes the
/// progress window.
class LongOperation {
 public:
  /// Tells the user where another one runs; the new one is then refused and Started() is false.
  LongOperation();
  ~LongOperation();
  LongOperation(const LongOperation&) = delete;
  LongOperation& operator=(const LongOperation&) = delete;

  bool Started() const { return started_; }
  /// Whether any long operation runs now.
  static bool Running();
  /// True where one runs; the user has then been told. For commands that ask something first.
  static bool Refused();

  /// Shows the progress window, where there is one, with a task and the value of its end.
  void ShowProgress(const std::string& task, double maximum);
  /// To be called once per item: about every 40 ms it shows the value and lets events run.
  void Step(double value);
  /// Shows a task and a value at once; for work that yields by a clock of its own.
  void ShowTask(const std::string& task, double value) const;
  void CloseProgress();

 private:
  bool started_ = false, progress_ = false;
  YieldClock clock_;
};

}  // namespace halvorine
