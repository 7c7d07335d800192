// Setting the computer's clock: by the desktop's time service, which asks the user for the right to do so, or
// by the system call where this process has it.
#pragma once

#include "shell/base/mPlatform.h"

#ifdef HALVORINE_DBUS
#include <QDBusConnection>
#endif

namespace halvorine {

/// Sets the clock by the service; where there is none, by the system call.
void SetClock(Date utc, const ClockAnswered& answered);

#ifdef HALVORINE_DBUS
/// Asks the time service (org.freedesktop.timedate1) of a bus. `missing` is called instead of `answered`
/// where the bus has no such service.
void SetClockByService(const QDBusConnection& bus, Date utc, const ClockAnswered& answered,
                       const std::function<void()>& missing);
#endif

}  // namespace halvorine
