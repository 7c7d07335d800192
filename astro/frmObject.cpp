#include "astro/frmObject.h"

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

constexpr const char* section = "frmObject";
constexpr int helpTopic = 70;
constexpr int leastWidth = 280;  // logical pixels

struct Row {
  const char *key, *name;
  std::string ObjectTexts::*text;
};
constexpr std::array<Row, 4> placeRows = {{
    {"ascensioneretta", "lblRightAscension", &ObjectTexts::RightAscension},
    {"declinazione", "lblDeclination", &ObjectTexts::Declination},
    {"azimuth", "lblAzimuth", &ObjectTexts::Azimuth},
    {"altezza", "lblAltitude", &ObjectTexts::Altitude},
}};
constexpr std::array<Row, 8> objectRows = {{
    {"costellazione", "lblConstellation", &ObjectTexts::Constellation},
    {"lettera", "lblLetter", &ObjectTexts::Letter},
    {"spettro", "lblSpectrum", &ObjectTexts::Spectrum},
    {"magnitudine", "lblMagnitude", &ObjectTexts::Magnitude},
    {"diametro", "lblDiameter", &ObjectTexts::Diameter},
    {"fase", "lblPhase", &ObjectTexts::Phase},
    {"distanza", "lblDistance", &ObjectTexts::Distance},
    {"tempoluce", "lblLightTime", &ObjectTexts::LightTime},
}};

template <class Rows>
QGroupBox* MakeGroup(const QString& title, const Rows& rows) {
  std::vector<ValueRow> values;
  values.reserve(rows.size());
  for (const Row& row : rows) values.push_back({Text(section, row.key), row.name});
  return MakeValueGroup(title, values);
}

}  // namespace

frmObject::frmObject() : ModalForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "oggetto"));
  setWindowIcon(Icon("localsky"));
  lblObject_ = Named(new QLabel(), "lblObject");
  lblObject_->setFont(LookFont(11, true));
  lblObject_->setTextFormat(Qt::PlainText);
  lblObject_->setMinimumWidth(leastWidth);
  GraphButton* const help = MakeFormButton("cmdHelp", "Buttons", "help");
  GraphButton* const ok = MakeFormButton("cmdOK", "Buttons", "ok");
  ok->setDefault(true);
  connect(help, &QPushButton::clicked, this, [] { OpenHelpFile(helpTopic); });
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(12);
  layout->addWidget(lblObject_);
  layout->addWidget(MakeGroup(QString(), objectRows));
  layout->addWidget(MakeGroup(Text(section, "coordinate"), placeRows));
  layout->addLayout(MakeLastRow(help, ok));
  layout->setSizeConstraint(QLayout::SetFixedSize);
  ok->setFocus();
  Publish(this);
}

void frmObject::ShowObject(int index) {
  Fill(index == 0 ? StarTexts(PickedStar) : BodyTexts(index));
  ShowForm();
}

void frmObject::Fill(const ObjectTexts& texts) {
  lblObject_->setText(ToQ(texts.Name));
  for (const Row& row : placeRows) Control<QLabel>(this, row.name)->setText(ToQ(texts.*row.text));
  for (const Row& row : objectRows) {
    auto* const value = Control<QLabel>(this, row.name);
    value->setText(ToQ(texts.*row.text));
    // a value that the object does not have takes its caption with it
    ShowValueRow(value, !(texts.*row.text).empty());
  }
}

}  // namespace halvorine
