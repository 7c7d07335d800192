#include "shell/frmCalendar.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include "controls/qtIcons.h"
#include "shell/base/qtDates.h"
#include "shell/mTick.h"

namespace halvorine {

frmCalendar::frmCalendar() : ChildForm(QStringLiteral("frmCalendar")) {
  setWindowTitle(Text("frmCalendar", "calendario"));
  setWindowIcon(Icon("time"));
  auto* const month = Named(new QCalendarWidget(), "MonthView1");
  DressCalendar(*month);
  month->setSelectedDate(DateTimeOf(ComputerDate()).date());
  month->setAccessibleName(windowTitle());
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->addWidget(month);
  const QSize fitting = sizeHint();
  SetFirstSize(fitting.width(), fitting.height());
  Publish(this);
}

void frmCalendar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
