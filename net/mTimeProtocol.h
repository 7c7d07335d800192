// The reply of a time server (Time Protocol, RFC 868) and the instant that it means.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "shell/base/mRecords.h"

namespace halvorine {

inline std::uint16_t TimePort = 37;  // tests ask a server of their own

/// The instant in Universal Time of a reply: four bytes, the most significant first, that count the seconds
/// since 1 January 1900. `roundTrip` is half the seconds from connection to close. Nothing where the reply,
/// without blanks (byte 32) at both ends, has another length, or counts to before 13 December 1921: from the
/// wrap of 2036 on no server's time fits the 32 bits in which it is computed.
std::optional<Date> InstantOfReply(std::string_view reply, float roundTrip);

/// Whole seconds by which a clock is to be moved to show an instant.
double OffsetSeconds(Date instant, Date clock);

/// "Offset of the clock in seconds -12".
std::string OffsetText(double seconds);

}  // namespace halvorine
