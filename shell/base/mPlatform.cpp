#include "shell/base/mPlatform.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

namespace halvorine {

namespace {

constexpr std::int64_t yieldInterval = 40;  // ms

Platform* thePlatform = nullptr;

[[noreturn]] void FailWriting(const std::string& path, int error, const std::string& temporary) {
  if (!temporary.empty()) std::remove(temporary.c_str());
  throw WriteFailure("file " + path + " could not be written: " + std::strerror(error), error,
                     !temporary.empty());
}

}  // namespace

Platform& ThePlatform() {
  if (thePlatform == nullptr) throw RuntimeFailure("no platform has been set");
  return *thePlatform;
}

void SetPlatform(Platform* platform) { thePlatform = platform; }

MessageAnswer Tell(MessageKind kind, const std::string& text, MessageButtons buttons) {
  return ThePlatform().ShowMessage(kind, {}, text, buttons);
}

bool YieldClock::Due() {
  const std::int64_t now = ThePlatform().Milliseconds();
  if (now - last_ < yieldInterval) return false;
  last_ = now;
  return true;
}

std::optional<std::int32_t> Platform::ChooseColour(const std::string& /*title*/, std::int32_t /*start*/) {
  return std::nullopt;
}

void Platform::WriteFile(const std::string& path, const std::string& content) {
  std::error_code ignored;
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
  // a link is followed, so that the file behind it is replaced and the link stays
  const std::filesystem::path real = std::filesystem::weakly_canonical(path, ignored);
  const std::string target = ignored ? path : real.string();
  const std::string temporary = target + ".new";
  const std::filesystem::file_status former = std::filesystem::status(target, ignored);
  const bool replaced = std::filesystem::exists(former);
  // a folder that may be written would let even a protected file be replaced
  if (replaced && ::access(target.c_str(), W_OK) != 0) FailWriting(path, errno, {});
  std::FILE* file = std::fopen(temporary.c_str(), "wb");
  if (file == nullptr) FailWriting(path, errno, {});
  const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
  const bool flushed = written && std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0;
  const int writeError = errno;
  const bool closed = std::fclose(file) == 0;
  if (!flushed || !closed) FailWriting(path, flushed ? errno : writeError, temporary);
  if (replaced) std::filesystem::permissions(temporary, former.permissions(), ignored);
  if (std::rename(temporary.c_str(), target.c_str()) != 0) FailWriting(path, errno, temporary);
}

}  // namespace halvorine
