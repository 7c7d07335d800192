// A platform for tests: queued answers, a set clock, a log of what was asked, and a hook that runs at yields.
#pragma once

#include <cerrno>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "shell/base/mPlatform.h"

namespace halvorine {

class FakePlatform : public Platform {
 public:
  FakePlatform() { SetPlatform(this); }
  ~FakePlatform() override { SetPlatform(nullptr); }

  struct Message {
    MessageKind kind;
    std::string caption, text;
    MessageButtons buttons;
  };

  std::deque<MessageAnswer> answers;       // taken one by one; afterwards the default answer
  std::deque<std::string> chosenFiles;     // an empty text is a cancelled chooser, so is an empty queue
  std::deque<std::int32_t> chosenColours;  // an empty queue is a cancelled colour dialog
  std::vector<std::pair<std::string, std::int32_t>> colourQuestions;
  std::function<void()> onYield, onMessage;
  std::vector<Message> messages;
  std::vector<FileQuestion> fileQuestions;
  std::vector<std::string> processes;
  std::vector<int> helpTopics;
  Date clockUtc = 0;
  std::vector<Date> clockOrders;           // what the clock was to be set to; it is never moved
  std::optional<ClockAnswer> clockAnswer;  // given at once; without one the order waits in clockAsked
  ClockAnswered clockAsked;
  std::int64_t milliseconds = 0, millisecondsPerLook = 0;
  std::optional<ZoneBias> zone;
  std::string settingsFile;
  bool firstInstance = true, refuseWriting = false, connected = true;
  int yields = 0, waitDepth = 0;

  MessageAnswer ShowMessage(MessageKind kind, const std::string& caption, const std::string& text,
                            MessageButtons buttons) override {
    messages.push_back({kind, caption, text, buttons});
    if (onMessage) onMessage();
    if (!answers.empty()) {
      const MessageAnswer answer = answers.front();
      answers.pop_front();
      return answer;
    }
    switch (buttons) {
      case MessageButtons::Ok:
        return MessageAnswer::Ok;
      case MessageButtons::OkCancel:
        return MessageAnswer::Cancel;
      default:
        return MessageAnswer::No;
    }
  }
  std::optional<std::string> ChooseFile(const FileQuestion& question) override {
    fileQuestions.push_back(question);
    if (chosenFiles.empty()) return std::nullopt;
    const std::string chosen = chosenFiles.front();
    chosenFiles.pop_front();
    if (chosen.empty()) return std::nullopt;
    return chosen;
  }
  std::optional<std::int32_t> ChooseColour(const std::string& title, std::int32_t start) override {
    colourQuestions.emplace_back(title, start);
    if (chosenColours.empty()) return std::nullopt;
    const std::int32_t chosen = chosenColours.front();
    chosenColours.pop_front();
    return chosen;
  }
  void Yield() override {
    ++yields;
    if (onYield) onYield();
  }
  void WaitPointer(bool on) override { waitDepth += on ? 1 : -1; }
  Date ComputerClockUtc() override { return clockUtc; }
  std::int64_t Milliseconds() override { return milliseconds += millisecondsPerLook; }
  std::optional<ZoneBias> GetZoneBias() override { return zone; }
  void SetComputerClock(Date utc, const ClockAnswered& answered) override {
    clockOrders.push_back(utc);
    clockAsked = answered;
    if (clockAnswer) answered(*clockAnswer);
  }
  std::string SettingsFile() override { return settingsFile; }
  bool OpenHelp(const std::string& file, int topic) override {
    processes.push_back(file);
    helpTopics.push_back(topic);
    return true;
  }
  bool StartProcess(const std::string& commandLine) override {
    processes.push_back(commandLine);
    return true;
  }
  bool Connected() override { return connected; }
  bool FirstInstance() override { return firstInstance; }
  void WriteFile(const std::string& path, const std::string& content) override {
    if (refuseWriting)
      throw WriteFailure("file " + path + " could not be written: no space left on device", ENOSPC, true);
    Platform::WriteFile(path, content);
  }
};

}  // namespace halvorine
