#include "net/mHttp.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "astro/mConv.h"
#include "shell/base/mFailure.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr std::string_view lineEnd = "\r\n", emptyLine = "\r\n\r\n";
constexpr std::uint32_t chunkOverflow = 32768;
constexpr std::size_t shownLength = 2000;  // bytes of a text of the server

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }
bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// A port of digits only, 1 to 65535.
std::optional<std::uint16_t> ReadPort(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc{} || end != text.data() + text.size() || port == 0) return std::nullopt;
  return port;
}

/// The end of the host's name: the colon of a port, but none within the brackets of a numeric address.
std::size_t EndOfName(std::string_view host) {
  const std::size_t bracket = host.starts_with('[') ? host.find(']') : 0;
  return bracket == std::string_view::npos ? bracket : host.find(':', bracket);
}

/// A whole number, 0 where the text holds none or one that is too large.
std::int32_t LengthIn(std::string_view text) {
  try {
    return ToInt32(ParseStrict(text));
  } catch (const RuntimeFailure&) {
    return 0;
  }
}

/// The text behind the first blank of the first line that names the length.
std::int32_t ContentLengthOf(std::string_view header) {
  const std::size_t name = header.find("Content-Length");
  if (name == std::string_view::npos) return 0;
  const std::size_t before = header.substr(0, name).rfind(lineEnd);
  std::string_view line = header.substr(before == std::string_view::npos ? 0 : before + lineEnd.size());
  line = line.substr(0, line.find(lineEnd));
  const std::size_t blank = line.find(' ');
  return blank == std::string_view::npos ? 0 : LengthIn(line.substr(blank + 1));
}

/// What a server sent, as one line that can be shown.
std::string Shown(std::string_view text) {
  std::string line = ToUtf8(text.substr(0, shownLength));
  std::replace_if(line.begin(), line.end(), IsControl, ' ');
  return std::string(Trimmed(line));
}

/// Like HeaderValue, with upper and lower case alike.
std::string_view AnyCaseValue(std::string_view header, std::string_view name) {
  while (!header.empty()) {
    const std::size_t end = header.find(lineEnd);
    const std::string_view line = header.substr(0, end);
    if (StartsWithText(line, name) && line.substr(name.size()).starts_with(':'))
      return Trimmed(line.substr(name.size() + 1));
    if (end == std::string_view::npos) break;
    header.remove_prefix(end + lineEnd.size());
  }
  return {};
}

void ReadStatus(std::string_view header, HttpAnswer& answer) {
  const std::string_view first = header.substr(0, header.find(lineEnd));
  const std::size_t blank = first.find(' ');
  const bool known = first.starts_with("HTTP/") && blank != std::string_view::npos;
  const std::string_view status = known ? Trimmed(first.substr(blank)) : first;
  if (known) {
    int number = 0;
    const auto [end, error] = std::from_chars(status.data(), status.data() + status.size(), number);
    if (error == std::errc{} && end == status.data() + 3) answer.Status = number;
  }
  answer.StatusText = Shown(status);
  constexpr std::array<int, 5> redirects = {301, 302, 303, 307, 308};
  if (std::find(redirects.begin(), redirects.end(), answer.Status) != redirects.end())
    answer.Location = Shown(AnyCaseValue(header, "Location"));
}

/// Hexadecimal digits at the beginning of a size line; extensions may stand behind them.
std::optional<std::uint32_t> ChunkSize(std::string_view line) {
  std::uint32_t size = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), size, 16);
  if (end == line.data()) return std::nullopt;
  return error == std::errc{} ? size : chunkOverflow;
}

}  // namespace

std::optional<RemoteAddress> ReadAddress(std::string_view entry) {
  constexpr std::string_view plain = "http://", secure = "https://";
  RemoteAddress address;
  entry = Trimmed(entry);
  address.Secure = StartsWithText(entry, secure);
  if (address.Secure) {
    entry.remove_prefix(secure.size());
    address.Port = 443;
  } else if (StartsWithText(entry, plain)) {
    entry.remove_prefix(plain.size());
  }
  const std::size_t slash = std::min(entry.find('/'), entry.size());
  address.Host = entry.substr(0, slash);
  address.Path = entry.substr(slash);
  const std::string_view host = address.Host;
  const std::size_t colon = EndOfName(host);
  std::string_view name = host.substr(0, colon);
  if (colon != std::string_view::npos) {
    const std::optional<std::uint16_t> port = ReadPort(host.substr(colon + 1));
    if (!port) return std::nullopt;
    address.Port = *port;
  }
  if (name.starts_with('[') && name.ends_with(']')) name = name.substr(1, name.size() - 2);
  address.Name = name;
  const bool broken =
      std::any_of(name.begin(), name.end(), [](char c) { return c == ' ' || c == '[' || IsControl(c); });
  if (name.empty() || broken) return std::nullopt;
  return address;
}

std::string RequestText(const RemoteAddress& address) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string path;
  for (const char c : address.Path) {
    if (IsAscii(c) && !IsControl(c) && c != ' ') {
      path += c;
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    path += '%';
    path += digits[code >> 4U];
    path += digits[code & 0x0FU];
  }
  return "GET " + path + " HTTP/1.1\r\nHost: " + address.Host +
         "\r\nConnection: close\r\nAccept: */*\r\n\r\n";
}

Arrival TakeBytes(HttpTransfer& transfer, std::string_view bytes) {
  // the end of the header may be torn between two arrivals
  const std::size_t old = transfer.Buffer.size();
  const std::size_t from = old - std::min(old, emptyLine.size() - 1);
  if (bytes.size() > Limits.Buffer - std::min(old, Limits.Buffer)) return Arrival::TooMuch;
  transfer.Buffer.append(bytes);
  if (transfer.HeaderSeen) {
    transfer.BytesReceived += static_cast<std::int32_t>(bytes.size());
    return Arrival::Body;
  }
  const std::string_view buffer = transfer.Buffer;
  const std::size_t end = buffer.find(emptyLine, from);
  if (std::min(end, buffer.size()) > Limits.Header) return Arrival::TooMuch;
  if (end == std::string_view::npos) return Arrival::Header;
  transfer.HeaderSeen = true;
  transfer.BytesReceived = static_cast<std::int32_t>(buffer.size() - end - emptyLine.size());
  transfer.ContentLength = ContentLengthOf(buffer.substr(0, end));
  return Arrival::Body;
}

bool IsWhole(const HttpTransfer& transfer) {
  return transfer.ContentLength > 0 && transfer.BytesReceived >= transfer.ContentLength;
}

std::string_view HeaderValue(std::string_view header, std::string_view name) {
  const std::string wanted = std::string(lineEnd).append(name).append(": ");
  const std::size_t found = header.find(wanted);
  if (found == std::string_view::npos) return {};
  const std::string_view value = header.substr(found + wanted.size());
  return value.substr(0, value.find(lineEnd));
}

ChunkedBody JoinChunks(std::string_view text) {
  ChunkedBody body;
  for (;;) {
    const std::size_t end = text.find(lineEnd);
    if (end == std::string_view::npos) return body;
    const std::optional<std::uint32_t> size = ChunkSize(text.substr(0, end));
    if (!size || *size >= chunkOverflow) return body;
    if (*size == 0) {
      body.Whole = true;
      return body;
    }
    text.remove_prefix(end + lineEnd.size());
    body.Text.append(text.substr(0, *size));
    // the line end behind the chunk is stepped over unseen
    text.remove_prefix(std::min(text.size(), *size + lineEnd.size()));
  }
}

std::optional<HttpAnswer> ReadAnswer(std::string_view buffer) {
  const std::size_t end = buffer.find(emptyLine);
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view header = buffer.substr(0, end), body = buffer.substr(end + emptyLine.size());
  HttpAnswer answer;
  ReadStatus(header, answer);
  if (HeaderValue(header, "Transfer-Encoding") == "chunked") {
    ChunkedBody joined = JoinChunks(body);
    answer.Body = std::move(joined.Text);
    answer.Ended = joined.Whole;
    answer.Incomplete = !joined.Whole;
  } else {
    answer.Body = body;
  }
  return answer;
}

}  // namespace halvorine
