// Dates of the program in the controls of the window system, and the months in the language of the program.
#pragma once

#include <QCalendarWidget>
#include <QDateTime>
#include <QDateTimeEdit>
#include <QLocale>

#include "shell/base/mRecords.h"

namespace halvorine {

/// A date as the controls hold it: with the label of Universal Time, which has no gaps, whatever zone the
/// program's date is in. To the nearest second; OverflowFailure outside the calendar.
QDateTime DateTimeOf(Date date);
Date DateOf(const QDateTime& moment);

/// The locale whose months are called as the language file calls them, the user's own first; English where no
/// locale does. Serves calendars, which take the names of days and months from a locale.
QLocale LanguageLocale();

/// Makes a control for date and time ready: years 1601 to 9998, seconds, a calendar, and this date.
void DressPicker(QDateTimeEdit& picker, Date date);

/// Makes a calendar speak the language of the program, in the colours of the palette alone.
void DressCalendar(QCalendarWidget& calendar);

}  // namespace halvorine
