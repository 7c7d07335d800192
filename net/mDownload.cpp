#include "net/mDownload.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>
#include <utility>

#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr float secondsPerDay = 86400;
constexpr std::size_t longestName = 200;  // bytes; endings are added to it
constexpr const char* section = "frmDownload";

namespace fs = std::filesystem;

std::string ClockText(std::int32_t hours, std::int32_t minutes, std::int32_t seconds) {
  return Format(hours, "00") + ":" + Format(minutes, "00") + ":" + Format(seconds, "00");
}

/// Counts one second.
void Count(HttpTransfer& transfer) {
  if (++transfer.ElapsedSeconds < 60) return;
  transfer.ElapsedSeconds = 0;
  if (++transfer.ElapsedMinutes < 60) return;
  transfer.ElapsedMinutes = 0;
  ++transfer.ElapsedHours;
}

/// A name beside a file that nothing has yet: ".bak", then ".bak1" and so on.
fs::path FreeName(const fs::path& file) {
  fs::path name = file;
  name += ".bak";
  for (int number = 1; fs::exists(fs::symlink_status(name)); ++number) {
    name = file;
    name += ".bak" + std::to_string(number);
  }
  return name;
}

}  // namespace

float TimerSeconds() {
  const double seconds = static_cast<double>(ThePlatform().Milliseconds()) / 1000;
  return ToSingle(std::fmod(seconds, double{secondsPerDay}));
}

float SecondsBetween(float from, float to) {
  const float seconds = to - from;
  return seconds < 0 ? seconds + secondsPerDay : seconds;
}

bool IsConnected() { return ThePlatform().Connected(); }

std::string RemoteFileName(std::string_view url) {
  const std::size_t slash = url.rfind('/');
  std::string name = ToUtf8(slash == std::string_view::npos ? url : url.substr(slash + 1));
  for (char& c : name)
    if (static_cast<unsigned char>(c) < 0x20 ||
        std::string_view("\\:*?\"<>|\x7F").find(c) != std::string_view::npos)
      c = '_';
  if (name.find_first_not_of('.') == std::string::npos) std::fill(name.begin(), name.end(), '_');
  std::size_t length = std::min(name.size(), longestName);
  while (length > 0 && length < name.size() && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U)
    --length;
  name.resize(length);
  return name;
}

std::string FormatSize(std::int32_t bytes) {
  if (bytes < 1024) return std::to_string(bytes) + " Bytes";
  if (bytes > 1024000) return Format(bytes / 1024000.0, "###,###,##0.00") + " MB";
  if (bytes > 1024) return Format(bytes / 1024.0, "0.00") + " KB";
  return {};
}

std::string FormatTimeLeft(std::int32_t seconds) {
  return ClockText(seconds / 3600, seconds / 60 % 60, seconds % 60);
}

TransferTexts TickTransfer(HttpTransfer& transfer, float now) {
  TransferTexts texts;
  if (transfer.ContentLength < 1 || transfer.BytesReceived < 1) return texts;
  const std::int32_t left = transfer.ContentLength - transfer.BytesReceived;
  if (left > 0) {
    const float elapsed = SecondsBetween(transfer.StartTimer, now);
    if (elapsed > 0) {
      const double speed = Int(static_cast<double>(transfer.BytesReceived) / elapsed) / 1000;
      transfer.SpeedKB = ToSingle(ParseNumber(Format(speed, "####.00")));
    }
    Count(transfer);
    if (transfer.SpeedKB > 0)
      texts.Remaining = FormatTimeLeft(ToInt32(Int(left / 1024.0 / transfer.SpeedKB)));
  } else {
    texts.Complete = true;
    texts.Over = transfer.BytesReceived == transfer.BytesAtTick;
    texts.Remaining = FormatTimeLeft(0);
  }
  if (transfer.SpeedKB > 0) texts.Speed = NumberText(transfer.SpeedKB) + " KB";
  transfer.BytesAtTick = transfer.BytesReceived;
  texts.Elapsed = ClockText(transfer.ElapsedHours, transfer.ElapsedMinutes, transfer.ElapsedSeconds);
  return texts;
}

TransferFile::TransferFile(std::string path) : path_(std::move(path)) {
  std::error_code error;
  // the file behind a link is the one that will be replaced
  const fs::path real = fs::weakly_canonical(path_, error);
  if (!error) path_ = real.string();
  if (!fs::exists(path_, error)) return;
  const fs::path kept = FreeName(path_);
  fs::create_hard_link(path_, kept, error);
  // where one file cannot have two names, a copy does
  if (error) fs::copy_file(path_, kept, error);
  if (error) throw FileFailure("file " + path_ + " could not be kept: " + error.message());
  kept_ = kept.string();
}

TransferFile::~TransferFile() {
  if (written_ || kept_.empty()) return;
  std::error_code ignored;
  if (fs::equivalent(path_, kept_, ignored))
    fs::remove(kept_, ignored);
  else
    fs::rename(kept_, path_, ignored);
}

void TransferFile::Write(const std::string& content, bool wanted) {
  ThePlatform().WriteFile(path_, content);
  written_ = true;
  if (!wanted) return;
  std::error_code ignored;
  fs::remove(kept_, ignored);
  kept_.clear();
}

bool IsWanted(const HttpAnswer& answer) { return answer.Status == 200 && !answer.Incomplete; }

std::string CompletionText(const HttpAnswer& answer, const std::string& kept) {
  std::string text = LookupText(section, "downloadcompleto");
  const auto add = [&text](const char* key, const std::string& behind) {
    text += "\n" + LookupText(section, key) + behind;
  };
  if (answer.Status != 200) add("rispostaserver", " " + answer.StatusText);
  if (!answer.Location.empty()) add("nuovoindirizzo", "\n" + answer.Location);
  if (answer.Incomplete) add("fileincompleto", {});
  if (!kept.empty()) add("vecchiofile", " " + fs::path(kept).filename().string());
  return text;
}

std::string InterruptedText() {
  std::string text = LookupText(section, "downloadinterrotto");
  const std::size_t end = text.find("\\r\\n");
  if (end != std::string::npos) text.replace(end, 4, "\r\n");
  return text;
}

void OfferReread() {
  const std::string text =
      LookupText(section, "aggiornasatelliti1") + "\n" + LookupText(section, "aggiornasatelliti2");
  if (Tell(MessageKind::Question, text, MessageButtons::YesNo) == MessageAnswer::Yes)
    Database_satelliti(PrimaryDatabasePath);
}

}  // namespace halvorine
