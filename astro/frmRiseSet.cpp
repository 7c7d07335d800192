#include "astro/frmRiseSet.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "astro/mConv.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "controls/qtValues.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mHelp.h"
#include "shell/base/qtDates.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmRiseSet";
constexpr int helpTopic = 160;
constexpr int pictureSide = 72, sunSide = 48;  // logical pixels
constexpr double twips = 15;                   // to a logical pixel
constexpr int sunNumber = 6;                   // of the second list of pictures
const QDate firstDay(1601, 1, 1), lastDay(9998, 12, 31);

/// The labels of an event: its time and its azimuth.
struct EventNames {
  const char *time, *azimuth;
};
constexpr std::array<EventNames, 4> events = {{{"lblSunRise", "lblSunRiseAz"},
                                               {"lblSunSet", "lblSunSetAz"},
                                               {"lblMoonRise", "lblMoonRiseAz"},
                                               {"lblMoonSet", "lblMoonSetAz"}}};
constexpr std::array<const char*, 4> notes = {"nonsorge", "nontramonta", "sopraorizzonte", "sottoorizzonte"};

SurfaceWidget* MakePicture(const char* name, const QString& meaning) {
  auto* const picture = Named(new SurfaceWidget(), name);
  picture->setFixedSize(pictureSide, pictureSide);
  picture->setFocusPolicy(Qt::NoFocus);
  picture->setAccessibleName(meaning);
  return picture;
}

QLabel* MakeHead(const char* name, const QString& text) {
  auto* const label = Named(new QLabel(text), name);
  label->setFont(LookFont(9, true));
  return label;
}

}  // namespace

frmRiseSet::frmRiseSet() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "almanacco"));
  setWindowIcon(Icon("sun"));
  sunPicture_ =
      QtPicture::Icon([](bool night, double ratio) { return SecondIconIn(sunNumber, night, ratio); });
  GraphButton* const help = MakeFormButton("cmdHelp", "Buttons", "help");
  GraphButton* const ok = MakeFormButton("cmdOK", "Buttons", "ok");
  ok->setDefault(true);
  connect(help, &QPushButton::clicked, this, [] { OpenHelpFile(helpTopic); });
  connect(ok, &QPushButton::clicked, this, &QWidget::close);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addWidget(MakeDate());
  rows->addWidget(MakeEvents());
  rows->addStretch();
  rows->addLayout(MakeLastRow(help, ok));
  connect(DTPicker1_, &QDateTimeEdit::dateTimeChanged, this, &frmRiseSet::ShowDay);
  // a change of place or of daylight saving shows when the user comes back
  if (const auto* const frame = qobject_cast<QMdiSubWindow*>(Frame()))
    connect(frame, &QMdiSubWindow::aboutToActivate, this, &frmRiseSet::ShowDay);
  connect(picSole_, &SurfaceWidget::redrawWanted, this, &frmRiseSet::DrawSun);
  connect(picLuna_, &SurfaceWidget::redrawWanted, this, &frmRiseSet::DrawPhase);
  ShowDay();
  const QSize fitting = sizeHint();
  SetFirstSize(fitting.width(), fitting.height());
  Publish(this);
}

GraphButton* frmRiseSet::MakeStep(const char* name, const char* key, const char* icon) {
  auto* const button = Named(new GraphButton(icon, nullptr), name);
  button->SetCaption(Text(section, key));
  button->setAutoDefault(true);
  return button;
}

QWidget* frmRiseSet::MakeDate() {
  auto* const frame = Named(new QGroupBox(), "fraData");
  DTPicker1_ = Named(new QDateTimeEdit(), "DTPicker1");
  // in the label of Universal Time no time of day is missing; the time is that of the program's clock
  DTPicker1_->setTimeSpec(Qt::UTC);
  DTPicker1_->setDateTimeRange(QDateTime(firstDay, QTime(0, 0), Qt::UTC),
                               QDateTime(lastDay, QTime(23, 59, 59), Qt::UTC));
  DTPicker1_->setLocale(LanguageLocale());
  DTPicker1_->setDisplayFormat(QStringLiteral("dd MMM yyyy"));
  DTPicker1_->setCalendarPopup(true);
  DTPicker1_->setDateTime(DateTimeOf(CurrentDate));
  DressCalendar(*DTPicker1_->calendarWidget());
  DTPicker1_->setAccessibleName(windowTitle());
  struct Step {
    const char *name, *key, *icon;
    int days, months, row, column;
  };
  constexpr std::array<Step, 4> steps = {{{"cmdGiornoPrima", "giornoprima", "b_prev", -1, 0, 0, 0},
                                          {"cmdGiornoDopo", "giornodopo", "b_next", 1, 0, 0, 2},
                                          {"cmdMesePrima", "meseprima", "b_prev", 0, -1, 1, 0},
                                          {"cmdMeseDopo", "mesedopo", "b_next", 0, 1, 1, 2}}};
  auto* const grid = new QGridLayout(frame);
  grid->setContentsMargins(12, 12, 12, 12);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(6);
  grid->addWidget(DTPicker1_, 0, 1, 2, 1, Qt::AlignVCenter);
  grid->setColumnStretch(1, 1);
  for (const Step& step : steps) {
    GraphButton* const button = MakeStep(step.name, step.key, step.icon);
    if (step.days + step.months > 0) button->SetPicturePosition(PictureRight);
    grid->addWidget(button, step.row, step.column);
    connect(button, &QPushButton::clicked, this, [this, step] {
      DTPicker1_->setDate(DTPicker1_->date().addDays(step.days).addMonths(step.months));
    });
  }
  return frame;
}

QWidget* frmRiseSet::MakeEvents() {
  auto* const frame = new QGroupBox();
  auto* const grid = new QGridLayout(frame);
  grid->setContentsMargins(12, 12, 12, 12);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(12);
  picSole_ = MakePicture("picSole", Text("Planets", "sole"));
  picLuna_ = MakePicture("picLuna", Text("Planets", "luna"));
  grid->addWidget(MakeHead("lblSorge", Text(section, "sorge")), 0, 2);
  grid->addWidget(MakeHead("lblTramonta", Text(section, "tramonta")), 0, 3);
  grid->addWidget(picSole_, 1, 0);
  grid->addWidget(picLuna_, 2, 0);
  grid->addWidget(MakeHead("lblSole", Text("Planets", "sole")), 1, 1);
  grid->addWidget(MakeHead("lblLuna", Text("Planets", "luna")), 2, 1);
  for (int index = 0; index < static_cast<int>(events.size()); ++index)
    grid->addLayout(MakeEvent(index), 1 + index / 2, 2 + index % 2);
  grid->setColumnStretch(2, 1);
  grid->setColumnStretch(3, 1);
  return frame;
}

QLayout* frmRiseSet::MakeEvent(int index) {
  const EventNames& names = events.at(static_cast<std::size_t>(index));
  auto* const time = Named(new QLabel(), names.time);
  time->setTextFormat(Qt::PlainText);
  time->setTextInteractionFlags(Qt::TextSelectableByMouse);
  time->setFocusPolicy(Qt::NoFocus);
  // room for every note, so that the window keeps its size from day to day
  int room = 0;
  for (const char* const key : notes)
    room = std::max(room, time->fontMetrics().horizontalAdvance(Text(section, key)));
  time->setMinimumWidth(room + 2);
  auto* const caption = Named(MakeCaption(Text(section, "azimuth")), "lblAzimuth", index);
  QLabel* const azimuth = MakeValue(names.azimuth);
  auto* const line = new QHBoxLayout();
  line->setSpacing(8);
  line->addWidget(caption);
  line->addWidget(azimuth);
  line->addStretch();
  auto* const rows = new QVBoxLayout();
  rows->setSpacing(4);
  rows->addStretch();
  rows->addWidget(time);
  rows->addLayout(line);
  rows->addStretch();
  return rows;
}

void frmRiseSet::ShowEvent(int index, const AlmanacEvent& event) {
  const EventNames& names = events.at(static_cast<std::size_t>(index));
  Control<QLabel>(this, names.time)->setText(ToQ(event.Time));
  auto* const azimuth = Control<QLabel>(this, names.azimuth);
  azimuth->setText(ToQ(event.Azimuth));
  for (QLabel* const label : {azimuth, Control<QLabel>(this, "lblAzimuth", index)})
    label->setVisible(!event.Azimuth.empty());
}

void frmRiseSet::ShowDay() {
  const Date date = DateOf(DTPicker1_->dateTime());
  const Almanac day = AlmanacOf(date);
  ShowEvent(0, day.SunRise);
  ShowEvent(1, day.SunSet);
  ShowEvent(2, day.MoonRise);
  ShowEvent(3, day.MoonSet);
  Disegna_luna(date);
}

void frmRiseSet::Disegna_luna(Date date) {
  DrawQuietly([&] { phase_ = MoonPhaseAt(date); });
  picLuna_->setToolTip(Text("frmObject", "fase") + QLatin1Char(' ') +
                       ToQ(Format(MoonLitPart(phase_), "#0%")));
  DrawPhase();
}

void frmRiseSet::DrawPhase() {
  DrawQuietly([this] { DrawMoonPicture(picLuna_->Surface(), phase_); });
  picLuna_->update();
}

void frmRiseSet::DrawSun() {
  PixmapSurface& surface = picSole_->Surface();
  surface.BackColor = Black;
  surface.Cls();
  constexpr double side = sunSide * twips, edge = (pictureSide - sunSide) / 2.0 * twips;
  surface.PaintPicture(sunPicture_, edge, edge, side, side);
  picSole_->update();
}

void frmRiseSet::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
