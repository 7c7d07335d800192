#include "shell/frmLocation.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "astro/mConv.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/frmAddLocation.h"
#include "shell/mLocation.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmLocation";
constexpr QSize mapSize(240, 150);  // logical pixels
constexpr int margin = 12;
constexpr int listedPlaces = 14;  // that a drop-down list shows at once

QLabel* Caption(const QString& text) {
  auto* const label = new QLabel(text);
  label->setForegroundRole(MutedRole);
  return label;
}

QLabel* Value(const char* name) {
  auto* const label = Named(new QLabel(), name);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QGroupBox* Group(const char* name, const char* key) { return Named(new QGroupBox(Text(section, key)), name); }

/// Thousands of rows of one height: none is measured before it is shown.
QListView* PlainList() {
  auto* const list = new QListView();
  list->setUniformItemSizes(true);
  return list;
}

}  // namespace

void CityModel::ReadRows() {
  beginResetModel();
  rows_ = CitiesByName();
  names_.clear();
  names_.reserve(static_cast<qsizetype>(rows_.size()));
  for (const int row : rows_) names_.append(ToQ(CityOf(row).Name));
  endResetModel();
}

int CityModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant CityModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  if (role == Qt::DisplayRole || role == Qt::EditRole) return names_.at(index.row());
  if (role == Qt::UserRole) return rows_[static_cast<std::size_t>(index.row())];
  return {};
}

int CityModel::EntryOf(int row) const {
  const auto found = std::find(rows_.begin(), rows_.end(), row);
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

frmLocation::frmLocation() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "localita"));
  setWindowIcon(Icon("place"));
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  rows->addWidget(MakePlace());
  rows->addWidget(MakeCoordinates(), 1);
  rows->addWidget(MakeTime());
  rows->addLayout(MakeLastRow());
  earth_ = QtPicture::Photograph(ToQ(FindProgramFile("\\MapEarth.dat")));
  EnableCommands(false);
  const QSize size = sizeHint();
  SetFirstSize(std::max(size.width(), 520), size.height());
  Publish(this);
}

GraphButton* frmLocation::MakeButton(const char* name, const char* textSection, const char* key) {
  auto* const button = Named(new GraphButton(this), name);
  button->SetCaption(Text(textSection, key));
  button->setAutoDefault(true);
  return button;
}

QWidget* frmLocation::MakePlace() {
  auto* const frame = Group("fraLocalita", "localita");
  auto* const columns = new QHBoxLayout(frame);
  columns->setContentsMargins(margin, 8, margin, margin);
  columns->setSpacing(margin);
  lblCity_ = Named(Caption(Text(section, "cittadisponibili")), "lblCity");
  cmbCity_ = Named(new QComboBox(), "cmbCity");
  cities_ = new CityModel(this);
  cmbCity_->setEditable(true);
  cmbCity_->setInsertPolicy(QComboBox::NoInsert);
  cmbCity_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cmbCity_->setMinimumContentsLength(32);
  cmbCity_->setMaxVisibleItems(listedPlaces);
  cmbCity_->setView(PlainList());
  cmbCity_->setModel(cities_);
  cmbCity_->setCurrentIndex(-1);
  cmbCity_->setAccessibleName(Text(section, "cittadisponibili"));
  cmbCity_->setToolTip(Text(section, "cercalocalita"));
  auto* const completer = new QCompleter(cities_, this);
  completer->setPopup(PlainList());
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->setFilterMode(Qt::MatchContains);
  completer->setMaxVisibleItems(listedPlaces);
  cmbCity_->setCompleter(completer);
  cmbCity_->lineEdit()->installEventFilter(this);
  lblCity_->setBuddy(cmbCity_);
  auto* const list = new QVBoxLayout();
  list->setSpacing(6);
  list->addWidget(lblCity_);
  list->addWidget(cmbCity_);
  list->addStretch();
  columns->addLayout(list, 1);
  auto* const commands = new QVBoxLayout();
  commands->setSpacing(6);
  GraphButton* const add = MakeButton("cmdNuova", section, "nuova");
  GraphButton* const change = MakeButton("cmdModifica", section, "modifica");
  GraphButton* const remove = MakeButton("cmdElimina", section, "elimina");
  for (GraphButton* const button : {add, change, remove}) commands->addWidget(button);
  columns->addLayout(commands);
  commands_ = {cmbCity_, add, change, remove};
  connect(cmbCity_, &QComboBox::activated, this, &frmLocation::cmbCity_Click);
  connect(cmbCity_->lineEdit(), &QLineEdit::editingFinished, this, &frmLocation::TakeTyped);
  connect(add, &QPushButton::clicked, this, [this] { OpenPlace(0); });
  connect(change, &QPushButton::clicked, this, [this] {
    if (const int row = RequiredRow()) OpenPlace(row);
  });
  connect(remove, &QPushButton::clicked, this, &frmLocation::cmdElimina_Click);
  return frame;
}

QWidget* frmLocation::MakeCoordinates() {
  auto* const frame = Group("fraCoordinateGeografiche", "coordinategeo");
  auto* const columns = new QHBoxLayout(frame);
  columns->setContentsMargins(margin, 8, margin, margin);
  columns->setSpacing(margin * 2);
  auto* const grid = new QGridLayout();
  grid->setHorizontalSpacing(margin);
  grid->setVerticalSpacing(8);
  lblLatitude_ = Value("lblLatitude");
  lblLongitude_ = Value("lblLongitude");
  txtHeight_ = Named(new QLineEdit(), "txtHeight");
  txtHeight_->setAlignment(Qt::AlignRight);
  txtHeight_->setMaxLength(8);
  txtHeight_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("-180.0000°")) + margin);
  auto* const height = Caption(Text(section, "quota"));
  height->setBuddy(txtHeight_);
  grid->addWidget(Caption(Text("Def", "lat")), 0, 0);
  grid->addWidget(lblLatitude_, 0, 1);
  grid->addWidget(Caption(Text("Def", "lon")), 1, 0);
  grid->addWidget(lblLongitude_, 1, 1);
  grid->addWidget(height, 2, 0);
  grid->addWidget(txtHeight_, 2, 1);
  for (const int row : {0, 1}) grid->setRowMinimumHeight(row, 24);
  grid->setRowStretch(3, 1);
  grid->setColumnStretch(0, 1);
  columns->addLayout(grid, 1);
  picGeo_ = Named(new SurfaceWidget(), "picGeo");
  picGeo_->setFixedSize(mapSize);
  picGeo_->setFocusPolicy(Qt::NoFocus);
  picGeo_->setAccessibleName(Text(section, "coordinategeo"));
  columns->addWidget(picGeo_, 0, Qt::AlignTop);
  connect(picGeo_, &SurfaceWidget::redrawWanted, this, [this] { ShowCoordinates(latitude_, longitude_); });
  connect(txtHeight_, &QLineEdit::editingFinished, this,
          [this] { txtHeight_->setText(ToQ(HeightText(FromQ(txtHeight_->text())))); });
  return frame;
}

QWidget* frmLocation::MakeTime() {
  auto* const frame = Group("fraImpostazioneOra", "impostazioneora");
  auto* const rows = new QVBoxLayout(frame);
  rows->setContentsMargins(margin, 8, margin, margin);
  rows->setSpacing(8);
  cmbOffset_ = Named(new QComboBox(), "cmbOffset");
  cmbOffsetHours_ = Named(new QComboBox(), "cmbOffsetHours");
  cmbOffsetMin_ = Named(new QComboBox(), "cmbOffsetMin");
  FillZoneLists(cmbOffset_, cmbOffsetHours_, cmbOffsetMin_);
  auto* const zone = new QHBoxLayout();
  zone->setSpacing(8);
  zone->addWidget(cmbOffset_);
  zone->addSpacing(margin);
  zone->addWidget(cmbOffsetHours_);
  zone->addWidget(Caption(Text("Def", "ore")));
  zone->addSpacing(4);
  zone->addWidget(cmbOffsetMin_);
  zone->addWidget(Caption(Text("Def", "min")));
  zone->addStretch();
  rows->addLayout(zone);
  chkDaylight_ = Named(new QCheckBox(Text(section, "oralegale")), "chkDaylight");
  GraphButton* const computer = MakeButton("cmdFusoOrario", section, "fusoorario");
  computer->setToolTip(Text("ToolTips", "mostrafusoorario"));
  connect(computer, &QPushButton::clicked, this, &frmLocation::cmdFusoOrario_Click);
  auto* const last = new QHBoxLayout();
  last->addWidget(chkDaylight_);
  last->addStretch();
  last->addWidget(computer);
  rows->addLayout(last);
  return frame;
}

QLayout* frmLocation::MakeLastRow() {
  GraphButton* const help = MakeButton("cmdHelp", "Buttons", "help");
  GraphButton* const ok = MakeButton("cmdOK", "Buttons", "ok");
  GraphButton* const cancel = MakeButton("cmdCancel", "Buttons", "cancel");
  ok->setDefault(true);
  connect(help, &QPushButton::clicked, this, [] {
    if (MainFormCalls* const main = MainForm()) main->RunCommand("mnuAiutoSommario");
  });
  connect(ok, &QPushButton::clicked, this, &frmLocation::cmdOK_Click);
  connect(cancel, &QPushButton::clicked, this, &QWidget::close);
  commands_.insert(commands_.end(),
                   {ok, txtHeight_, cmbOffset_, cmbOffsetHours_, cmbOffsetMin_, chkDaylight_});
  auto* const row = new QHBoxLayout();
  row->setSpacing(8);
  row->addWidget(help);
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
  return row;
}

void frmLocation::Show() {
  if (!read_ && !reading_ && LongOperation::Refused()) {
    UnloadForm();
    return;
  }
  if (!read_ && !reading_) ShowSite();
  ShowForm();
  if (!read_ && !reading_) ReadPlaces();
}

void frmLocation::ReadPlaces() {
  const QPointer<frmLocation> self(this);
  reading_ = true;
  ReadCities();
  if (!self) return;
  reading_ = false;
  read_ = true;
  FillPlaces(FindCity(Site.Place));
  ShowSite();
  EnableCommands(true);
  cmbCity_->setFocus();
}

void frmLocation::BeforeUnload() {
  if (reading_) CancelRequested = true;
  if (place_) place_->reject();
}

void frmLocation::EnableCommands(bool on) {
  for (QWidget* const command : commands_) command->setEnabled(on);
}

void frmLocation::FillPlaces(int row) {
  cities_->ReadRows();
  cmbCity_->setCurrentIndex(cities_->EntryOf(row));
  if (cmbCity_->currentIndex() < 0) cmbCity_->clearEditText();
  cmbCity_->lineEdit()->setCursorPosition(0);
  lblCity_->setText(Text(section, "cittadisponibili") + QStringLiteral(" (%1)").arg(Cities.size()));
}

void frmLocation::ShowSite() {
  // a site that is not in the list shows its name all the same
  cmbCity_->lineEdit()->setPlaceholderText(ToQ(Site.Place));
  ShowCoordinates(Site.Latitude, Site.Longitude);
  txtHeight_->setText(ToQ(HeightText(NumberText(Site.Height))));
  ShowZone(Site.TimeZone);
  chkDaylight_->setChecked(Site.DaylightSaving == 1);
}

void frmLocation::ShowCoordinates(double latitude, double longitude) {
  latitude_ = latitude;
  longitude_ = longitude;
  lblLatitude_->setText(ToQ(LatitudeText(latitude)));
  lblLongitude_->setText(ToQ(LongitudeText(longitude)));
  DrawQuietly([&] { DrawRegion(picGeo_->Surface(), earth_, latitude, longitude); });
  picGeo_->update();
}

void frmLocation::ShowZone(double zone) { SetZoneLists(cmbOffset_, cmbOffsetHours_, cmbOffsetMin_, zone); }

int frmLocation::ChosenRow() const { return cmbCity_->currentData(Qt::UserRole).toInt(); }

int frmLocation::RequiredRow() const {
  const int row = ChosenRow();
  if (row == 0) Tell(MessageKind::Information, LookupText(section, "selezionarelocalita"));
  return row;
}

void frmLocation::cmbCity_Click() {
  const int row = ChosenRow();
  if (row == 0) return;
  const City city = CityOf(row);
  ShowZone(city.Zone);
  txtHeight_->setText(QStringLiteral("0"));
  ShowCoordinates(city.Latitude, city.Longitude);
  cmbCity_->lineEdit()->setCursorPosition(0);
}

void frmLocation::TakeTyped() {
  const QString typed = cmbCity_->currentText();
  if (typed == cmbCity_->itemText(cmbCity_->currentIndex())) return;
  QCompleter* const completer = cmbCity_->completer();
  completer->setCompletionPrefix(typed.trimmed());
  // what fits one place only has named it; anything else goes back to the place that was chosen
  if (!typed.trimmed().isEmpty() && completer->completionCount() == 1) {
    const int row = completer->currentIndex().data(Qt::UserRole).toInt();
    cmbCity_->setCurrentIndex(cities_->EntryOf(row));
    cmbCity_Click();
  }
  cmbCity_->setEditText(cmbCity_->itemText(cmbCity_->currentIndex()));
  cmbCity_->lineEdit()->setCursorPosition(0);
}

void frmLocation::OpenPlace(int row) {
  auto* const dialog = new frmAddLocation(this, row, [this, row](int stored) {
    const QString height = txtHeight_->text();
    FillPlaces(stored);
    cmbCity_Click();
    // another version of the same place stands as high as before
    if (row != 0) txtHeight_->setText(height);
  });
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  place_ = dialog;
  dialog->open();
}

void frmLocation::cmdElimina_Click() {
  const int row = RequiredRow();
  if (row == 0) return;
  const City city = CityOf(row);
  const QPointer<frmLocation> self(this);
  if (Tell(MessageKind::Question, LookupText(section, "confermaeliminazione") + " " + city.Name + " ?",
           MessageButtons::YesNoDefaultNo) != MessageAnswer::Yes)
    return;
  if (!self || ChosenRow() != row) return;
  try {
    RemoveCity(row);
    FillPlaces(0);
  } catch (const FileFailure& failure) {
    Tell(MessageKind::Warning, LookupText("Dialogs", "nonsalvato") + "\n" + failure.what());
  }
}

void frmLocation::cmdFusoOrario_Click() {
  if (const std::optional<ZoneBias> zone = ThePlatform().GetZoneBias())
    Tell(MessageKind::Information, ZoneBiasText(*zone));
  else
    Tell(MessageKind::Warning, LookupText(section, "errorefusoorario"));
}

void frmLocation::cmdOK_Click() {
  if (LongOperation::Refused()) return;
  SiteChoice choice;
  if (const int row = ChosenRow()) {
    City city = CityOf(row);
    city.Latitude = latitude_;
    city.Longitude = longitude_;
    choice.Place = city;
  }
  choice.Height = FromQ(txtHeight_->text());
  choice.Hours = FromQ(cmbOffsetHours_->currentText());
  choice.Minutes = FromQ(cmbOffsetMin_->currentText());
  choice.BeforeGreenwich = cmbOffset_->currentIndex() == 1;
  choice.DaylightSaving = chkDaylight_->isChecked();
  const QPointer<frmLocation> self(this);
  ApplySite(choice);
  if (self) close();
}

void frmLocation::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->key() == Qt::Key_Escape) {
    close();
  } else if (enter && typed_) {
    typed_ = false;  // this Enter has settled a name; the next one is OK's
  } else if (enter && read_) {
    cmdOK_Click();
  } else {
    ChildForm::keyPressEvent(event);
  }
}

bool frmLocation::eventFilter(QObject* watched, QEvent* event) {
  // what is typed next searches from the beginning
  if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, cmbCity_->lineEdit(), &QLineEdit::selectAll);
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    typed_ = (key == Qt::Key_Return || key == Qt::Key_Enter) &&
             cmbCity_->currentText() != cmbCity_->itemText(cmbCity_->currentIndex());
  }
  return ChildForm::eventFilter(watched, event);
}

}  // namespace halvorine
