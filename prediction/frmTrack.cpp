#include "prediction/frmTrack.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>
#include <vector>

#include "astro/mConv.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "controls/qtValues.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mHelp.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmTrack";
constexpr int helpTopic = 110;
constexpr int rowHeight = 32, nameWidth = 190, cellEdge = 6,
              wordIndent = 16;  // logical pixels

/// A column of a page: its labels, its heading in the language file, and the longest text that it may show.
struct Column {
  const char *name, *keySection, *key;
  const std::string& (*text)(const TrackRow&);
  const char* widest;
};

template <std::string LiveTexts::*Text>
const std::string& Live(const TrackRow& row) {
  return row.Live.*Text;
}
template <std::string TrackRow::*Text>
const std::string& Own(const TrackRow& row) {
  return row.*Text;
}

struct Page {
  const char *frame, *key;
  std::vector<Column> columns;
};

const std::array<Page, 4>& Pages() {
  using L = LiveTexts;
  static const std::array<Page, 4> pages = {{
      {"fraOsserva",
       "tabparametriosservativi",
       {{"lblAlt", "Def", "alt", Live<&L::Altitude>, "-00.00°"},
        {"lblAz", "Def", "az", Live<&L::Azimuth>, "000.00°"},
        {"lblRa", "Def", "ar", Live<&L::Ascension>, "00h00m00s"},
        {"lblDec", "Def", "dec", Live<&L::Declination>, "+00°00'"},
        {"lblEcl", "Def", "stato", Live<&L::State>, ""},
        {"lblMag", "Def", "mag", Live<&L::Magnitude>, "-00.0"}}},
      {"fraOrbita1",
       "tabparametriorbitali1",
       {{"lblLat", "Def", "lat", Live<&L::Latitude>, "00.00°N"},
        {"lblLon", "Def", "lon", Live<&L::Longitude>, "000.00°W"},
        {"lblApg", "Def", "apg", Live<&L::Apogee>, "000000.0"},
        {"lblPrg", "Def", "prg", Live<&L::Perigee>, "000000.0"},
        {"lblHgtTrack", "Def", "hgt", Live<&L::Height>, "000000.0"}}},
      {"fraOrbita2",
       "tabparametriorbitali2",
       {{"lblVel", "Def", "vel", Live<&L::Velocity>, "000.0"},
        {"lblRev", "Def", "orb", Live<&L::OrbitNumber>, "000000.0"},
        {"lblPrd", "Def", "prd", Live<&L::Period>, "00:00:00"},
        {"lblRange", "Def", "dist", Live<&L::Range>, "000000.0"},
        {"lblRR", "Def", "var", Live<&L::RangeRate>, "-00.0"}}},
      {"fraRadio",
       "tabfrequenzeradio",
       {{"lblDnlink", section, "downlink", Own<&TrackRow::Downlink>, "00000.0000"},
        {"lblRicez", section, "ricezione", Live<&L::Receive>, "00000.0000"},
        {"lblUplink", section, "uplink", Own<&TrackRow::Uplink>, "00000.0000"},
        {"lblTrasm", section, "trasmissione", Live<&L::Transmit>, "00000.0000"}}},
  }};
  return pages;
}

constexpr int radioPage = 3;

/// A page of rows; every second one stands on a band. Without satellites a line says where they come from.
class BandedPage : public QWidget {
 public:
  explicit BandedPage(QGridLayout*& grid) { grid = grid_ = new QGridLayout(this); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QColor edge = ColoursOf(palette()).Hairline;
    const QRect head = grid_->cellRect(0, 0);
    painter.fillRect(0, head.bottom() + 1, width(), 1, edge);
    for (int row = 2; row <= TrackRows; row += 2) {
      const QRect cell = grid_->cellRect(row, 0);
      painter.fillRect(0, cell.top(), width(), cell.height(), palette().color(QPalette::AlternateBase));
    }
    if (ActiveCount > 0) return;
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect first = grid_->cellRect(1, 0);
    painter.drawText(QRect(first.left(), first.top(), width(), first.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, Text("frmDatabase", "attivivuoto"));
  }

 private:
  QGridLayout* grid_;
};

QLabel* MakeHead(const char* keySection, const char* key, Qt::Alignment alignment) {
  QLabel* const head = MakeCaption(Text(keySection, key));
  head->setAlignment(alignment | Qt::AlignVCenter);
  head->setToolTip(Text("ToolTips", key));
  return head;
}

bool IsWord(const Column& column) { return std::string_view(column.key) == "stato"; }

int WidestText(const Column& column, const QFontMetrics& metrics) {
  int widest = std::max(metrics.horizontalAdvance(QString::fromUtf8(column.widest)),
                        metrics.horizontalAdvance(Text(column.keySection, column.key)));
  if (IsWord(column))
    for (const int condition : {Eclipsed, Visible, NotVisible})
      widest = std::max(widest, metrics.horizontalAdvance(ToQ(Stato2Stringa(condition))));
  return widest;
}

}  // namespace

frmTrack::frmTrack() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "effemeridisatelliti"));
  setWindowIcon(Icon("panel"));
  nameHead_ = Named(MakeHead(section, "nomesatellite", Qt::AlignLeft), "lblNameHead");
  for (int row = 0; row < TrackRows; ++row) {
    QLabel* const name = Named(new QLabel(), "lblName", row);
    name->setTextFormat(Qt::PlainText);
    name->setFixedWidth(nameWidth);
    lblName_[static_cast<std::size_t>(row)] = name;
  }
  SSTab1_ = Named(new QTabWidget(), "SSTab1");
  for (int tab = 0; tab < tabCount; ++tab)
    SSTab1_->addTab(MakePage(tab), Text(section, Pages()[static_cast<std::size_t>(tab)].key));
  MoveNames();
  connect(SSTab1_, &QTabWidget::currentChanged, this, &frmTrack::MoveNames);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addWidget(SSTab1_);
  rows->addLayout(MakeLastLine());
  frmTrack::Aggiorna_dati();
  const QSize fitting = sizeHint();
  SetFirstSize(fitting.width(), fitting.height());
  Publish(this);
}

QWidget* frmTrack::MakePage(int tab) {
  const Page& page = Pages()[static_cast<std::size_t>(tab)];
  QGridLayout*& grid = grids_[static_cast<std::size_t>(tab)];
  auto* const frame = Named(new BandedPage(grid), page.frame);
  grid->setContentsMargins(12, 8, 12, 12);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(0);
  grid->setColumnMinimumWidth(0, nameWidth);
  for (int row = 0; row <= TrackRows; ++row) grid->setRowMinimumHeight(row, rowHeight);
  int at = 1;
  if (tab == radioPage) {
    grid->addWidget(MakeHead(section, "canale", Qt::AlignHCenter), 0, at);
    for (int row = 0; row < TrackRows; ++row) grid->addWidget(MakeRadioCell(row), row + 1, at);
    ++at;
  }
  for (const Column& column : page.columns) {
    // words begin at the left, numbers end at the right
    const Qt::Alignment side = IsWord(column) ? Qt::AlignLeft : Qt::AlignRight;
    const int indent = IsWord(column) ? wordIndent : 0;
    QLabel* const head = MakeHead(column.keySection, column.key, side);
    head->setIndent(indent);
    grid->addWidget(head, 0, at);
    grid->setColumnMinimumWidth(at, WidestText(column, fontMetrics()) + cellEdge + indent);
    grid->setColumnStretch(at, 1);
    for (int row = 0; row < TrackRows; ++row) {
      QLabel* const value = MakeValue(column.name, row);
      value->setAccessibleName(Text(column.keySection, column.key));
      value->setAlignment(side | Qt::AlignVCenter);
      value->setIndent(indent);
      grid->addWidget(value, row + 1, at);
      values_[static_cast<std::size_t>(row)].push_back(value);
    }
    ++at;
  }
  grid->setRowStretch(TrackRows + 1, 1);
  return frame;
}

QWidget* frmTrack::MakeRadioCell(int row) {
  auto* const button = Named(new GraphButton(), "cmdCanale", row);
  const int channel = Options.RadioChannel[static_cast<std::size_t>(row)];
  button->setProperty("Tag", channel);
  button->SetCaption(QStringLiteral("Ch. %1").arg(channel));
  button->setAccessibleName(Text(section, "canale"));
  QSizePolicy keepsItsRoom = button->sizePolicy();
  keepsItsRoom.setRetainSizeWhenHidden(true);
  button->setSizePolicy(keepsItsRoom);
  connect(button, &QPushButton::clicked, this, [this, row] { cmdCanale_Click(row); });
  cmdCanale_[static_cast<std::size_t>(row)] = button;
  return button;
}

QLayout* frmTrack::MakeLastLine() {
  struct Step {
    const char *name, *key, *icon;
    TrackMove move;
  };
  constexpr std::array<Step, 4> steps = {{{"cmdPrimo", "primo", "b_first", TrackMove::First},
                                          {"cmdPrecedente", "precedente", "b_prev", TrackMove::Previous},
                                          {"cmdSuccessivo", "successivo", "b_next", TrackMove::Next},
                                          {"cmdUltimo", "ultimo", "b_last", TrackMove::Last}}};
  GraphButton* const help = MakeFormButton("cmdHelp", "Buttons", "help");
  GraphButton* const ok = MakeFormButton("cmdOK", "Buttons", "ok");
  ok->setDefault(true);
  connect(help, &QPushButton::clicked, this, [] { OpenHelpFile(helpTopic); });
  connect(ok, &QPushButton::clicked, this, &QWidget::close);
  lblSatellite_ = Named(new QLabel(), "lblSatellite");
  lblSatellite_->setAlignment(Qt::AlignCenter);
  lblSatellite_->setMinimumWidth(fontMetrics().horizontalAdvance(ToQ(TrackPageText(LastTrackPage))) +
                                 2 * cellEdge);
  auto* const line = new QHBoxLayout();
  line->setSpacing(6);
  line->addWidget(help);
  line->addStretch();
  for (const Step& step : steps) {
    if (step.move == TrackMove::Next) line->addWidget(lblSatellite_);
    GraphButton* const button = MakePictureButton(step.name, step.icon, Text("ToolTips", step.key));
    connect(button, &QPushButton::clicked, this, [this, move = step.move] { Move(move); });
    line->addWidget(button);
  }
  line->addStretch();
  line->addWidget(ok);
  return line;
}

void frmTrack::MoveNames() {
  QGridLayout* const grid = grids_.at(static_cast<std::size_t>(SSTab1_->currentIndex()));
  grid->addWidget(nameHead_, 0, 0);
  nameHead_->show();
  for (int row = 0; row < TrackRows; ++row) {
    grid->addWidget(lblName_[static_cast<std::size_t>(row)], row + 1, 0);
    lblName_[static_cast<std::size_t>(row)]->show();
  }
}

void frmTrack::Show() {
  Aggiorna_dati();
  ShowForm();
}

void frmTrack::Aggiorna_dati() {
  if (firstSlot_ == 0) firstSlot_ = 1;
  for (int row = 0; row < TrackRows; ++row) FillRow(row);
  lblSatellite_->setText(ToQ(TrackPageText(firstSlot_)));
  if ((ActiveCount == 0) != empty_) SSTab1_->currentWidget()->update();
  empty_ = ActiveCount == 0;
}

void frmTrack::FillRow(int row) {
  const auto at = static_cast<std::size_t>(row);
  const TrackRow texts = TrackRowOf(firstSlot_ + row, cmdCanale_[at]->property("Tag").toInt());
  below_[at] = texts.BelowHorizon;
  ColourName(row);
  const QString name = ToQ(texts.Name).trimmed();
  const QString shown = lblName_[at]->fontMetrics().elidedText(name, Qt::ElideRight, nameWidth);
  lblName_[at]->setText(shown);
  lblName_[at]->setToolTip(shown == name ? QString() : name);
  cmdCanale_[at]->setVisible(texts.Filled);
  std::size_t value = 0;
  for (const Page& page : Pages())
    for (const Column& column : page.columns) values_[at][value++]->setText(ToQ(column.text(texts)));
}

void frmTrack::ColourName(int row) {
  const auto at = static_cast<std::size_t>(row);
  // at night blue is no colour to be had
  const QColor above = IsNight(QApplication::palette()) ? QColor(Qt::black) : QColor(0, 0, 255);
  const QColor colour = below_[at] ? QColor(255, 0, 0) : above;
  QPalette palette = lblName_[at]->palette();
  if (palette.color(QPalette::WindowText) == colour) return;
  palette.setColor(QPalette::WindowText, colour);
  lblName_[at]->setPalette(palette);
}

void frmTrack::changeEvent(QEvent* event) {
  ChildForm::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || lblSatellite_ == nullptr) return;
  for (int row = 0; row < TrackRows; ++row) {
    lblName_[static_cast<std::size_t>(row)]->setPalette(QPalette());
    ColourName(row);
  }
}

void frmTrack::Move(TrackMove move) {
  firstSlot_ = ToInt16(MovedTrackPage(firstSlot_, move));
  Aggiorna_dati();
}

void frmTrack::cmdCanale_Click(int row) {
  if (auto* const dialog = Load<ChannelCalls>("frmChannel")) dialog->Choose(firstSlot_ + row, row);
}

void frmTrack::SetChannel(int panelRow) {
  const auto at = static_cast<std::size_t>(panelRow);
  const int channel = Options.RadioChannel.at(at);
  cmdCanale_.at(at)->setProperty("Tag", channel);
  cmdCanale_[at]->SetCaption(QStringLiteral("Ch.%1").arg(channel));
  Aggiorna_dati();
}

void frmTrack::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
