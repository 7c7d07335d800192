#include "prediction/frmSatellite.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>
#include <vector>

#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "controls/qtValues.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mHelp.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmSatellite";
constexpr int helpTopic = 100;
constexpr int lineLength = 69;     // characters of an element line
constexpr int spreadSpacing = 11;  // logical pixels

struct Row {
  const char *key, *name;
  std::string ElementTexts::*text;
};
constexpr std::array<Row, 12> orbitRows = {{
    {"epocautc", "lblEpochTime", &ElementTexts::EpochTime},
    {"epocacivile", "lblDate", &ElementTexts::Date},
    {"inclinazione", "lblInclination", &ElementTexts::Inclination},
    {"raan", "lblRaan", &ElementTexts::Raan},
    {"eccentricita", "lblEccentricity", &ElementTexts::Eccentricity},
    {"argomentoperigeo", "lblArgumentPerigee", &ElementTexts::ArgumentPerigee},
    {"anomaliamedia", "lblMeanAnomaly", &ElementTexts::MeanAnomaly},
    {"motomedio", "lblMeanMotion", &ElementTexts::MeanMotion},
    {"deriv1", "lblDev1", &ElementTexts::Dev1},
    {"deriv2", "lblDev2", &ElementTexts::Dev2},
    {"bstar", "lblBStar", &ElementTexts::BStar},
    {"numeroorbita", "lblOrbitNumberEpoch", &ElementTexts::OrbitNumberEpoch},
}};
constexpr std::array<Row, 7> generalRows = {{
    {"numeronorad", "lblNoradNumber", &ElementTexts::NoradNumber},
    {"numerointern", "lblInternational", &ElementTexts::International},
    {"annolancio", "lblLaunchYear", &ElementTexts::LaunchYear},
    {"numerolancio", "lblLaunchNumber", &ElementTexts::LaunchNumber},
    {"etaelementi", "lblAge", &ElementTexts::Age},
    {"setelementi", "lblSet", &ElementTexts::Set},
    {"magnitudinestd", "lblMagStd", &ElementTexts::MagStd},
}};
constexpr std::array<Row, 5> derivedRows = {{
    {"apogeo", "lblApogee", &ElementTexts::Apogee},
    {"perigeo", "lblPerigee", &ElementTexts::Perigee},
    {"periodoorbitale", "lblOrbitalPeriod", &ElementTexts::OrbitalPeriod},
    {"semiassemax", "lblSemiMaj", &ElementTexts::SemiMaj},
    {"semiassemin", "lblSemiMin", &ElementTexts::SemiMin},
}};
constexpr std::array<Row, 3> lineRows = {{
    {"", "lblZeroLine", &ElementTexts::ZeroLine},
    {"", "lblFirstLine", &ElementTexts::FirstLine},
    {"", "lblSecondLine", &ElementTexts::SecondLine},
}};

struct Step {
  const char *name, *key, *icon;
  TrackMove move;
};
constexpr std::array<Step, 4> steps = {{{"cmdPrimo", "primo", "b_first", TrackMove::First},
                                        {"cmdPrecedente", "precedente", "b_prev", TrackMove::Previous},
                                        {"cmdSuccessivo", "successivo", "b_next", TrackMove::Next},
                                        {"cmdUltimo", "ultimo", "b_last", TrackMove::Last}}};

template <class Rows>
QGroupBox* MakeGroup(const char* key, const Rows& rows) {
  std::vector<ValueRow> values;
  values.reserve(rows.size());
  for (const Row& row : rows) values.push_back({Text(section, row.key), row.name});
  return MakeValueGroup(Text(section, key), values);
}

}  // namespace

frmSatellite::frmSatellite() : ModalForm(QString::fromLatin1(section)) {
  setWindowIcon(Icon("elements"));
  GraphButton* const help = MakeFormButton("cmdHelp", "Buttons", "help");
  GraphButton* const ok = MakeFormButton("cmdOK", "Buttons", "ok");
  ok->setDefault(true);
  connect(help, &QPushButton::clicked, this, [] { OpenHelpFile(helpTopic); });
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* const right = new QVBoxLayout();
  right->setSpacing(12);
  right->addWidget(MakeGroup("informazionigenerali", generalRows));
  right->addWidget(MakeGroup("parametriderivati", derivedRows), 1);
  auto* const columns = new QHBoxLayout();
  columns->setSpacing(12);
  QGroupBox* const orbit = MakeGroup("parametriorbitali", orbitRows);
  // its lines are spread over the height of the two groups beside it
  if (auto* const lines = qobject_cast<QFormLayout*>(orbit->layout()))
    lines->setVerticalSpacing(spreadSpacing);
  columns->addWidget(orbit, 1);
  columns->addLayout(right, 1);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(12);
  layout->addLayout(MakeHeading());
  layout->addLayout(columns);
  layout->addWidget(MakeLines());
  layout->addStretch();
  layout->addLayout(MakeLastRow(help, ok));
  ok->setFocus();
  Publish(this);
}

QLayout* frmSatellite::MakeHeading() {
  lblSatellite_ = Named(new QLabel(), "lblSatellite");
  lblSatellite_->setFont(LookFont(11, true));
  lblSatellite_->setTextFormat(Qt::PlainText);
  lblSatellite_->setAccessibleName(Text(section, "satellite"));
  auto* const row = new QHBoxLayout();
  row->setSpacing(6);
  row->addWidget(lblSatellite_);
  row->addStretch();
  for (const Step& step : steps) {
    GraphButton* const button = MakePictureButton(step.name, step.icon, Text(section, step.key));
    connect(button, &QPushButton::clicked, this, [this, move = step.move] { Move(move); });
    row->addWidget(button);
  }
  return row;
}

QWidget* frmSatellite::MakeLines() {
  auto* const group = new QGroupBox(Text(section, "elementi2righe"));
  auto* const rows = new QVBoxLayout(group);
  rows->setContentsMargins(12, 8, 12, 12);
  rows->setSpacing(2);
  for (const Row& row : lineRows) {
    QLabel* const line = MakeValue(row.name);
    line->setFont(ColumnFont());
    line->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    line->setMinimumWidth(
        QFontMetrics(ColumnFont()).horizontalAdvance(QString(lineLength, QLatin1Char('0'))) + 2);
    rows->addWidget(line);
  }
  return group;
}

void frmSatellite::ShowSlot(int slot) {
  slot_ = slot == 0 ? 1 : slot;
  for (const Step& step : steps) Control<GraphButton>(this, step.name)->setEnabled(slot_ != ScratchSlot);
  Fill();
  ShowForm();
}

void frmSatellite::Move(TrackMove move) {
  slot_ = MovedSatellite(slot_, move);
  Fill();
}

void frmSatellite::Fill() {
  const ElementTexts texts = ElementTextsOf(slot_);
  const QString title = Text(section, "elementiorbitali");
  setWindowTitle(texts.Name.empty() ? title : ToQ(texts.Name) + QLatin1String(" - ") + title);
  lblSatellite_->setText(ToQ(texts.Name));
  const auto fill = [&](const auto& rows) {
    for (const Row& row : rows) Control<QLabel>(this, row.name)->setText(ToQ(texts.*row.text));
  };
  fill(orbitRows);
  fill(generalRows);
  fill(derivedRows);
  fill(lineRows);
}

}  // namespace halvorine
