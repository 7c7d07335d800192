// What the download window shows and keeps: names, sizes, speed and time left of a transfer, what is told at
// its end, and the file that it writes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "net/mHttp.h"

namespace halvorine {

/// Seconds of a day by a clock that only moves forward; after 86400 it begins again.
float TimerSeconds();
/// Seconds from one TimerSeconds to a later one, less than a day.
float SecondsBetween(float from, float to);

/// Whether the computer says that it is connected; only a hint.
bool IsConnected();

/// The text behind the last "/" of an address, or the whole of it; what a file name cannot hold is replaced,
/// and so are names of points alone. At most 200 bytes.
std::string RemoteFileName(std::string_view url);

/// A size as "512 Bytes", "1.50 KB" or "2.25 MB"; exactly 1024 gives the empty text.
std::string FormatSize(std::int32_t bytes);

/// Seconds as HH:MM:SS; more than 99 hours take more digits.
std::string FormatTimeLeft(std::int32_t seconds);

/// Texts of a tick of tmrTimeLeft; an empty one leaves its label as it is.
struct TransferTexts {
  std::string Speed, Elapsed, Remaining;
  bool Complete = false;  // all that the header told has arrived
  bool Over = false;      // and nothing has come since the tick before
};

/// One tick of tmrTimeLeft, a second after the one before; `now` is TimerSeconds. Nothing is told while the
/// length is not known or no byte of the body has come. Without elapsed time the speed, without a speed the
/// time left stays as it was.
TransferTexts TickTransfer(HttpTransfer& transfer, float now);

/// The file of a transfer. What stands there before is kept beside it under a name that ends in ".bak" until
/// the new content is whole, and comes back when the transfer ends without any.
class TransferFile {
 public:
  /// FileFailure where the old file cannot be kept.
  explicit TransferFile(std::string path);
  ~TransferFile();
  TransferFile(const TransferFile&) = delete;
  TransferFile& operator=(const TransferFile&) = delete;

  /// Writes the content through the one writer; FileFailure where that fails. The kept file goes when the
  /// content is what was wanted, and stays for good otherwise.
  void Write(const std::string& content, bool wanted);
  /// Full name of the kept file; empty where there is none.
  const std::string& Kept() const { return kept_; }

 private:
  std::string path_, kept_;
  bool written_ = false;
};

/// What an answer was asked for: status 200, and whole as far as can be told.
bool IsWanted(const HttpAnswer& answer);

/// Lines for lblStatus after a transfer: that it is complete; what the server answered other than 200, with
/// the new address of a redirect; that the file is incomplete; where the file before it is.
std::string CompletionText(const HttpAnswer& answer, const std::string& kept);

/// "downloadinterrotto" with a line end between its parts.
std::string InterruptedText();

/// After a file has come: asks whether to read the primary file again, and does so.
void OfferReread();

}  // namespace halvorine
