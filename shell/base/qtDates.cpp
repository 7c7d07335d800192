#include "shell/base/qtDates.h"

#include <QTextCharFormat>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "astro/mConv.h"
#include "controls/qtIcons.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int roomOfMenuMark = 32;  // logical pixels, at both sides of a centred text

bool SpeaksLanguage(const QLocale& locale) {
  for (int month = 1; month <= 12; ++month) {
    const QString name = ToQ(LanguageDates.Months[static_cast<std::size_t>(month - 1)]);
    if (locale.standaloneMonthName(month).compare(name, Qt::CaseInsensitive) != 0) return false;
  }
  return true;
}

}  // namespace

QDateTime DateTimeOf(Date date) {
  const DateParts parts = PartsOf(date);
  return QDateTime(QDate(parts.year, parts.month, parts.day), QTime(parts.hour, parts.minute, parts.second),
                   Qt::UTC);
}

Date DateOf(const QDateTime& moment) {
  const QDate day = moment.date();
  return AddSeconds(DateOf(day.year(), day.month(), day.day()),
                    moment.time().msecsSinceStartOfDay() / 1000.0);
}

QLocale LanguageLocale() {
  if (SpeaksLanguage(QLocale::system())) return QLocale::system();
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry))
    if (SpeaksLanguage(locale)) return QLocale(locale.language());
  return QLocale(QLocale::English);
}

void DressPicker(QDateTimeEdit& picker, Date date) {
  // in the label of Universal Time no time of day is missing, whatever the computer's zone
  picker.setTimeSpec(Qt::UTC);
  // a year at each end of what the control holds is left to zones and to the ticks of a simulation
  picker.setDateTimeRange(QDateTime(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC),
                          QDateTime(QDate(9998, 12, 31), QTime(23, 59, 59), Qt::UTC));
  picker.setDisplayFormat(QStringLiteral("yyyy-MM-dd  HH:mm:ss"));
  picker.setCalendarPopup(true);
  DressCalendar(*picker.calendarWidget());
  picker.setDateTime(DateTimeOf(date));
  // the hint leaves the margin of the text out
  picker.setMinimumWidth(picker.sizeHint().width() + 8);
}

void DressCalendar(QCalendarWidget& calendar) {
  const QLocale locale = LanguageLocale();
  calendar.setLocale(locale);
  calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
    calendar.setWeekdayTextFormat(day, QTextCharFormat());
  // the parts of a calendar's head are known by their names alone; the system's arrows are green
  constexpr std::array<std::array<const char*, 2>, 2> arrows = {
      {{"qt_calendar_prevmonth", "b_prev"}, {"qt_calendar_nextmonth", "b_next"}}};
  for (const auto& [name, icon] : arrows)
    if (auto* const button = calendar.findChild<QToolButton*>(QString::fromLatin1(name)))
      button->setIcon(Icon(icon));
  if (auto* const button = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"))) {
    int widest = 0;
    QFont bold = button->font();
    bold.setBold(true);
    for (int month = 1; month <= 12; ++month)
      widest = std::max(widest, QFontMetrics(bold).horizontalAdvance(locale.standaloneMonthName(month)));
    button->setMinimumWidth(widest + roomOfMenuMark);
  }
}

}  // namespace halvorine
