// Addresses, names, sizes and times of a transfer, answers in pieces, and the instants of a time server.
#include <gtest/gtest.h>

#include "astro/mConv.h"
#include "net/mDownload.h"
#include "net/mHttp.h"
#include "net/mTimeProtocol.h"

namespace halvorine {
namespace {

TEST(Http, EntriesNameHostPortAndPath) {
  const struct {
    const char *entry, *host, *name, *path;
    int port;  // 0 for an entry that is none
  } rows[] = {{"h.org/a/b.txt", "h.org", "h.org", "/a/b.txt", 80},
              {"HTTPS://h.org/a?x=http://y/", "h.org", "h.org", "/a?x=http://y/", 443},
              {"h.org", "h.org", "h.org", "", 80},
              {"https://h.org:8443/a", "h.org:8443", "h.org", "/a", 8443},
              {"[::1]:81/a", "[::1]:81", "::1", "/a", 81},
              {"", "", "", "", 0},
              {"https://", "", "", "", 0},
              {"ftp://h.org/a", "", "", "", 0},
              {"h.org:65536/a", "", "", "", 0},
              {"h.org:8x/a", "", "", "", 0},
              {"[::1/a", "", "", "", 0},
              {"two words/a", "", "", "", 0},
              {"h\r\nX: y/a", "", "", "", 0}};
  for (const auto& row : rows) {
    const std::optional<RemoteAddress> address = ReadAddress(row.entry);
    ASSERT_EQ(address.has_value(), row.port != 0) << row.entry;
    if (!address) continue;
    EXPECT_EQ(address->Host, row.host);
    EXPECT_EQ(address->Name, row.name);
    EXPECT_EQ(address->Path, row.path);
    EXPECT_EQ(address->Port, row.port);
    EXPECT_EQ(address->Secure, row.port % 1000 == 443) << row.entry;
  }
  EXPECT_EQ(
      RequestText(*ReadAddress("h.org/a b\r\nX: \xC3\xA9\x7F")),
      "GET /a%20b%0D%0AX:%20%C3%A9%7F HTTP/1.1\r\nHost: h.org\r\nConnection: close\r\nAccept: */*\r\n\r\n");
}

TEST(Http, NamesSizesAndTimesAreShown) {
  const std::pair<const char*, const char*> names[] = {
      {"h.org/a/b.txt", "b.txt"},         {"b.txt", "b.txt"},       {"h.org/", ""}, {"h.org/..", "__"},
      {"h/gp.php?A=b&C", "gp.php_A=b&C"}, {"h/a\\b:c\n", "a_b_c_"}, {"h/\xFF", "ÿ"}};
  for (const auto& [url, name] : names) EXPECT_EQ(RemoteFileName(url), name);
  const std::string lengthy = "h/x" + std::string(300, 'e').replace(0, 0, "é");
  EXPECT_EQ(RemoteFileName(lengthy).size(), 200U);
  const std::pair<int, const char*> sizes[] = {
      {0, "0 Bytes"},    {1023, "1023 Bytes"},    {1024, ""},           {1025, "1.00 KB"},
      {1536, "1.50 KB"}, {1024000, "1000.00 KB"}, {1024001, "1.00 MB"}, {2147483647, "2,097.15 MB"}};
  for (const auto& [bytes, text] : sizes) EXPECT_EQ(FormatSize(bytes), text);
  const std::pair<int, const char*> times[] = {
      {0, "00:00:00"}, {59, "00:00:59"}, {60, "00:01:00"}, {3661, "01:01:01"}, {360000, "100:00:00"}};
  for (const auto& [seconds, text] : times) EXPECT_EQ(FormatTimeLeft(seconds), text);
}

TEST(Http, SpeedAndTimeLeftAreSkippedWhereTheyMeanNothing) {
  const struct {
    std::int32_t length, received;
    float start, now;
    const char *speed, *elapsed, *remaining;
  } rows[] = {{10240, 5120, 10, 12, "2.56 KB", "00:00:01", "00:00:01"},
              {0, 5120, 10, 12, "", "", ""},
              {10240, 0, 10, 12, "", "", ""},
              {10240, 5120, 10, 10, "", "00:00:01", ""},
              {10240, 4, 10, 12, "", "00:00:01", ""},
              {10240, 5120, 86399, 1, "2.56 KB", "00:00:01", "00:00:01"},
              {2147483647, 500, 10, 11, "0.5 KB", "00:00:01", "1165:05:03"}};
  for (const auto& row : rows) {
    HttpTransfer transfer;
    transfer.ContentLength = row.length;
    transfer.BytesReceived = row.received;
    transfer.StartTimer = row.start;
    const TransferTexts texts = TickTransfer(transfer, row.now);
    EXPECT_EQ((std::array{texts.Speed, texts.Elapsed, texts.Remaining}),
              (std::array<std::string, 3>{row.speed, row.elapsed, row.remaining}))
        << row.received;
  }
  HttpTransfer patient;
  patient.ContentLength = 10;
  patient.BytesReceived = 1;
  for (int second = 0; second < 3725; ++second) TickTransfer(patient, 0);
  EXPECT_EQ(TickTransfer(patient, 0).Elapsed, "01:02:06");
}

/// However an answer is torn, it is counted and read alike.
TEST(Http, PiecesOfAnyLengthMakeTheSameAnswer) {
  const std::string whole =
      "HTTP/1.1 200 OK\r\nX-Content-Length: 7\r\nTransfer-Encoding: "
      "chunked\r\n\r\n5;x=y\r\nhello\r\n1\r\n!\r\n0\r\n\r\n";
  for (std::size_t piece = 1; piece <= whole.size(); ++piece) {
    HttpTransfer transfer;
    for (std::size_t at = 0; at < whole.size(); at += piece)
      ASSERT_NE(TakeBytes(transfer, std::string_view(whole).substr(at, piece)), Arrival::TooMuch);
    EXPECT_EQ(transfer.ContentLength, 7);
    EXPECT_EQ(transfer.BytesReceived, 25);
    EXPECT_EQ(ReadAnswer(transfer.Buffer)->Body, "hello!");
  }
}

/// The examples of RFC 868, the ends of the 32 bits, and replies that are none.
TEST(TimeProtocol, RepliesMeanTheInstantsOfTheStandard) {
  const auto reply = [](std::uint32_t seconds) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(seconds >> shift & 0xFFU);
    return bytes;
  };
  const struct {
    std::uint32_t seconds;
    float roundTrip;
    Date instant;
  } rows[] = {{2208988800U, 0, DateOf(1970, 1, 1)},
              {2629584000U, 0, DateOf(1983, 5, 1)},
              {2840140800U, 1.5F, DateOf(1990, 1, 1) + 2 / 86400.0},
              {2840140800U, 0.5F, DateOf(1990, 1, 1)},
              {4294967295U, 0, DateOf(2036, 2, 7) + (6 * 3600 + 28 * 60 + 15) / 86400.0},
              {692657152U, 0, DateOf(1921, 12, 13) + (20 * 3600 + 45 * 60 + 52) / 86400.0}};
  for (const auto& row : rows) {
    const std::optional<Date> instant = InstantOfReply(reply(row.seconds), row.roundTrip);
    ASSERT_TRUE(instant) << row.seconds;
    EXPECT_NEAR(*instant * 86400, row.instant * 86400, 0.001) << row.seconds;
  }
  for (const std::string& none : {reply(0), reply(5), reply(692657151U), std::string(), std::string("abc"),
                                  std::string("abcde"), std::string("\xEAxy "), std::string(4, ' ')})
    EXPECT_FALSE(InstantOfReply(none, 0));
  EXPECT_TRUE(InstantOfReply("  \xEAxyz  ", 0)) << "blanks around four bytes are cut";
  EXPECT_EQ(SecondsBetween(86398, 1), 3);
}

}  // namespace
}  // namespace halvorine
