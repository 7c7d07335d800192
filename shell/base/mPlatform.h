// The seam to the window system and the computer. The engine and the windows ask for every message, chooser,
// clock, process and written file here, so that a test can answer in their place. One shared instance.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "shell/base/mRecords.h"

namespace halvorine {

enum class MessageKind : std::uint8_t { Information, Warning, Critical, Question };
enum class MessageButtons : std::uint8_t { Ok, OkCancel, YesNo, YesNoDefaultNo, YesNoCancel };
enum class MessageAnswer : std::uint8_t { Ok, Cancel, Yes, No };

/// What a file chooser is asked for.
struct FileQuestion {
  std::string title;
  std::string filter;   // "Text files (*.txt)|*.txt|All files|*.*"
  std::string initial;  // a file or a folder to start from; may be empty
  bool saving = false;
};

/// The computer's time zone.
struct ZoneBias {
  int bias = 0;  // minutes, west positive, daylight saving included
  bool isDaylight = false;
};

/// What came of setting the clock; `reason` is what the system said where it refused.
struct ClockAnswer {
  bool set = false;
  std::string reason;
};
using ClockAnswered = std::function<void(const ClockAnswer&)>;

class Platform {
 public:
  virtual ~Platform() = default;

  /// Shows a box and waits for its answer. An empty caption stands for the application title.
  virtual MessageAnswer ShowMessage(MessageKind kind, const std::string& caption, const std::string& text,
                                    MessageButtons buttons) = 0;
  /// The chosen file with its path, or nothing when the user cancels.
  virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;
  /// The colour chosen in the system's colour dialog, which begins at a colour (blue*65536 + green*256 + red
  /// as everywhere), or nothing when the user cancels.
  virtual std::optional<std::int32_t> ChooseColour(const std::string& title, std::int32_t start);
  /// Lets pending events run.
  virtual void Yield() = 0;
  /// Shows the wait pointer, or the normal one again. Calls nest.
  virtual void WaitPointer(bool on) = 0;
  /// The computer's instant in Universal Time, in whole seconds.
  virtual Date ComputerClockUtc() = 0;
  /// Milliseconds of a clock that only moves forward; measures how long work lasts.
  virtual std::int64_t Milliseconds() = 0;
  /// The computer's zone, or nothing when the system has no zone information.
  virtual std::optional<ZoneBias> GetZoneBias() = 0;
  /// Sets the computer's clock (Universal Time). `answered` is called once: before the call returns, or
  /// later, when the system has asked the user for the right to do so.
  virtual void SetComputerClock(Date utc, const ClockAnswered& answered) = 0;
  /// The file that holds the settings of this user.
  virtual std::string SettingsFile() = 0;
  /// Opens a help file at its contents (topic 0), its search (-1) or a topic; false where that fails.
  virtual bool OpenHelp(const std::string& file, int topic) = 0;
  /// Starts a program and goes on at once; false where that fails.
  virtual bool StartProcess(const std::string& commandLine) = 0;
  /// Whether the computer says that it is connected; only a hint.
  virtual bool Connected() = 0;
  /// True in the first running instance of the program.
  virtual bool FirstInstance() = 0;
  /// Writes a whole file under a temporary name beside it and renames it, so that the old content stays
  /// until the new one is complete. The new one keeps its permissions; a file that may not be written stays
  /// as it is. Raises FileFailure.
  virtual void WriteFile(const std::string& path, const std::string& content);
};

/// The shared instance; set by the program or by a test before anything else runs.
Platform& ThePlatform();
void SetPlatform(Platform* platform);

/// A message box with the application title as caption.
MessageAnswer Tell(MessageKind kind, const std::string& text, MessageButtons buttons = MessageButtons::Ok);

/// Shows the wait pointer while it lives.
class WaitPointerHold {
 public:
  WaitPointerHold() { ThePlatform().WaitPointer(true); }
  ~WaitPointerHold() { ThePlatform().WaitPointer(false); }
  WaitPointerHold(const WaitPointerHold&) = delete;
  WaitPointerHold& operator=(const WaitPointerHold&) = delete;
};

/// Tells a long operation when the next yield is due, about every 40 ms by the clock.
class YieldClock {
 public:
  YieldClock() : last_(ThePlatform().Milliseconds()) {}
  /// True when 40 ms have gone by since the last true answer.
  bool Due();

 private:
  std::int64_t last_;
};

}  // namespace halvorine
