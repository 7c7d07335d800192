// The platform seam on Qt: message boxes, choosers, events, clock, processes, single instance.
#pragma once

#include <QLockFile>
#include <memory>

#include "shell/base/mPlatform.h"

namespace halvorine {

class QtPlatform : public Platform {
 public:
  MessageAnswer ShowMessage(MessageKind kind, const std::string& caption, const std::string& text,
                            MessageButtons buttons) override;
  std::optional<std::string> ChooseFile(const FileQuestion& question) override;
  std::optional<std::int32_t> ChooseColour(const std::string& title, std::int32_t start) override;
  void Yield() override;
  void WaitPointer(bool on) override;
  Date ComputerClockUtc() override;
  std::int64_t Milliseconds() override;
  std::optional<ZoneBias> GetZoneBias() override;
  void SetComputerClock(Date utc, const ClockAnswered& answered) override;
  std::string SettingsFile() override;
  bool OpenHelp(const std::string& file, int topic) override;
  bool StartProcess(const std::string& commandLine) override;
  bool Connected() override;
  bool FirstInstance() override;

 private:
  std::unique_ptr<QLockFile> lock_;
};

/// Folder in which this user's copies of rewritten files live.
std::string UserDataFolder();

}  // namespace halvorine
