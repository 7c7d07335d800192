// The program's own HTTP/1.1 client, as far as it needs no socket: what an address means, the bytes of the
// request, and what to make of the bytes that come back. Sockets stand in qtTransfer, the window in
// frmDownload.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halvorine {

/// Where a remote file is: what an entry of the list of remote files says.
struct RemoteAddress {
  std::string Host;         // as the request names it, with the port where the entry holds one
  std::string Name;         // to be resolved and to be found in the certificate
  std::uint16_t Port = 80;  // 443 for a secure one
  bool Secure = false;      // over TLS
  std::string Path;         // with its leading "/"; empty for an entry without one
};

/// The parts of an entry: a host and a path with or without "http://" or "https://", a port behind the host.
/// Nothing where no host can be meant: an empty name, blanks or control characters in it, another scheme, a
/// port that is none.
std::optional<RemoteAddress> ReadAddress(std::string_view entry);

/// The request, each line ended by CR LF. Blanks, control characters and what is not ASCII in the path are
/// written by their hexadecimal codes, since they would break the line.
std::string RequestText(const RemoteAddress& address);

/// What a transfer may take before it is given up. One instance; tests shorten it.
struct TransferLimits {
  int Idle = 60000;                             // ms without a byte
  std::size_t Buffer = std::size_t{64} << 20U;  // bytes of a whole answer
  std::size_t Header = std::size_t{64} << 10U;  // bytes before the empty line
};
inline TransferLimits Limits;

/// What is known of a transfer while it runs.
struct HttpTransfer {
  std::string Buffer;  // all bytes received so far
  bool HeaderSeen = false;
  std::int32_t ContentLength = 0;  // from the header, 0 when unknown
  std::int32_t BytesReceived = 0;  // of the body
  float StartTimer = 0;            // TimerSeconds when the request was sent
  std::int32_t BytesAtTick = 0;    // BytesReceived at the last tick of tmrTimeLeft
  float SpeedKB = 0;
  std::int16_t ElapsedSeconds = 0, ElapsedMinutes = 0, ElapsedHours = 0;
};

/// Whether all that the header told has arrived.
bool IsWhole(const HttpTransfer& transfer);

enum class Arrival : std::uint8_t {
  Header,   // the header has no end yet
  Body,     // the header is whole, and the bytes of the body so far are counted
  TooMuch,  // a limit is passed; the transfer is to be closed
};

/// Takes bytes as they arrive: finds the end of the header and the length it tells, and counts the body.
Arrival TakeBytes(HttpTransfer& transfer, std::string_view bytes);

/// The text behind CR LF, `name` and ": ", up to the next line end, wherever it stands in a header. Upper and
/// lower case differ. Empty where there is none.
std::string_view HeaderValue(std::string_view header, std::string_view name);

/// A body made whole from its chunks.
struct ChunkedBody {
  std::string Text;
  bool Whole = false;  // false where the chunk of size 0 was not reached
};

/// Joins chunks. A chunk of 32768 bytes or more, a size that is none, or the end of the text ends it; what
/// was joined before, with the part of a chunk that is cut off, stays.
ChunkedBody JoinChunks(std::string_view text);

/// What a whole answer holds.
struct HttpAnswer {
  int Status = 0;           // 0 where the first line tells none
  std::string StatusText;   // of the first line, such as "404 Not Found"; fit to be shown
  std::string Location;     // new address of a redirect; fit to be shown
  std::string Body;         // chunks are joined
  bool Incomplete = false;  // the chunks end too early
  bool Ended = false;       // the last of the chunks has come
};

/// Reads an answer after its end; nothing where it has no empty line behind a header.
std::optional<HttpAnswer> ReadAnswer(std::string_view buffer);

}  // namespace halvorine
