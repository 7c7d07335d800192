#include "net/mTimeProtocol.h"

#include <cmath>

#include "astro/mConv.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr double secondsTo1990 = 2840140800;  // from 1 January 1900
constexpr Date date1990 = 32874;
constexpr double secondsPerDay = 86400;

}  // namespace

std::optional<Date> InstantOfReply(std::string_view reply, float roundTrip) {
  reply = Trimmed(reply);
  if (reply.size() != 4) return std::nullopt;
  double t = 0;
  for (const char byte : reply) t = 256 * t + static_cast<unsigned char>(byte);
  try {
    const std::int32_t s = ToInt32(t - secondsTo1990) + ToInt32(double{roundTrip});
    return AddSeconds(date1990, s);
  } catch (const OverflowFailure&) {
    return std::nullopt;
  }
}

double OffsetSeconds(Date instant, Date clock) { return std::round((instant - clock) * secondsPerDay); }

std::string OffsetText(double seconds) {
  return LookupText("frmSyncro", "scarto") + " " + (seconds > 0 ? "+" : "") + NumberText(seconds);
}

}  // namespace halvorine
