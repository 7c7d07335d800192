#include "shell/base/qtClock.h"

#include <QCoreApplication>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <ctime>
#include <limits>

#ifdef HALVORINE_DBUS
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#endif

#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr double daysToUnixEpoch = 25569;  // 30 December 1899 to 1 January 1970

/// Seconds since 1 January 1970.
std::int64_t UnixSeconds(Date utc) { return std::llround((utc - daysToUnixEpoch) * 86400); }

void SetClockBySystemCall(Date utc, const ClockAnswered& answered) {
#ifdef CLOCK_REALTIME
  timespec instant{};
  instant.tv_sec = static_cast<std::time_t>(UnixSeconds(utc));
  if (::clock_settime(CLOCK_REALTIME, &instant) == 0)
    answered({true, {}});
  else
    answered({false, std::strerror(errno)});
#else
  answered({false, "this system cannot set the clock: " + std::to_string(UnixSeconds(utc))});
#endif
}

}  // namespace

#ifdef HALVORINE_DBUS

void SetClockByService(const QDBusConnection& bus, Date utc, const ClockAnswered& answered,
                       const std::function<void()>& missing) {
  QDBusMessage order = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("/org/freedesktop/timedate1"),
      QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("SetTime"));
  const qlonglong microseconds = UnixSeconds(utc) * 1000000;
  // an instant, not a step; the service adds what the user takes to type a password
  order.setArguments({microseconds, false, true});
  order.setInteractiveAuthorizationAllowed(true);
  auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(order, std::numeric_limits<int>::max()),
                                                    QCoreApplication::instance());
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, answered, missing] {
    watcher->deleteLater();
    const QDBusPendingReply<> reply = *watcher;
    if (!reply.isError())
      answered({true, {}});
    else if (reply.error().type() == QDBusError::ServiceUnknown)
      missing();
    else
      answered({false, FromQ(reply.error().message())});
  });
}

void SetClock(Date utc, const ClockAnswered& answered) {
  const QDBusConnection bus = QDBusConnection::systemBus();
  if (bus.isConnected())
    SetClockByService(bus, utc, answered, [utc, answered] { SetClockBySystemCall(utc, answered); });
  else
    SetClockBySystemCall(utc, answered);
}

#else

void SetClock(Date utc, const ClockAnswered& answered) { SetClockBySystemCall(utc, answered); }

#endif

}  // namespace halvorine
