#include "shell/frmSettings.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "astro/mConv.h"
#include "catalogue/mElementFile.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmSettings";
constexpr QSize firstSize(640, 500);  // logical pixels

/// The filters of the three pages, in the order of the pages.
constexpr std::array<FilterOptions ProgramOptions::*, 3> filters = {
    &ProgramOptions::FilterAll, &ProgramOptions::FilterPrincipal, &ProgramOptions::FilterSecondary};

template <std::size_t N>
std::vector<std::string> RowsOf(const std::array<std::string, N>& slots) {
  return {slots.begin(), slots.end()};
}

template <std::size_t N>
void TakeRows(const RowsView& list, std::array<std::string, N>& slots) {
  const std::vector<std::string> rows = list.Rows(N);
  std::copy(rows.begin(), rows.end(), slots.begin());
}

}  // namespace

frmSettings::frmSettings() : ChildForm(QString::fromLatin1(section)), SSTab1_(new QTabWidget()) {
  setWindowTitle(Text(section, "opzioni"));
  setWindowIcon(Icon("gear"));
  Named(SSTab1_, "SSTab1")->setTabPosition(QTabWidget::West);
  SSTab1_->tabBar()->installEventFilter(this);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addWidget(SSTab1_, 1);
  rows->addLayout(MakeLastRow());
  MakePages();
  Leggi_impostazioni();
  const QSize size = sizeHint().expandedTo(firstSize);
  SetFirstSize(size.width(), size.height());
  Publish(this);
}

void frmSettings::ShowTab(int tab) {
  SSTab1_->setCurrentIndex(tab);
  ShowForm();
}

std::int32_t frmSettings::ShownIn(const SettingRow& row) const {
  const char* const name = row.control.c_str();
  if (row.kind == SettingKind::Check) return Control<QCheckBox>(this, name)->isChecked() ? 1 : 0;
  if (row.kind == SettingKind::Swatch) return Control<ColourArea>(this, name)->Colour();
  return Control<QComboBox>(this, name)->currentIndex();
}

void frmSettings::ShowIn(const SettingRow& row, std::int32_t shown) {
  const char* const name = row.control.c_str();
  if (row.kind == SettingKind::Check)
    Control<QCheckBox>(this, name)->setChecked(shown != 0);
  else if (row.kind == SettingKind::Swatch)
    Control<ColourArea>(this, name)->SetColour(shown);
  else
    Control<QComboBox>(this, name)->setCurrentIndex(shown);
}

void frmSettings::Leggi_impostazioni() {
  for (const SettingRow& row : SettingTable()) ShowIn(row, ShownSetting(row, Options));
  chkWorldMapTerminatore_->setChecked(TerminatorShown());
  for (std::size_t page = 0; page < filters.size(); ++page) {
    const FilterOptions& filter = Options.*filters[page];
    const FilterRanges& ranges = ranges_[page];
    ranges.rtAltsat->SetValues(filter.MinAltitude, ranges.rtAltsat->Max());
    ranges.rtAzisat->SetValues(filter.MinAzimuth, filter.MaxAzimuth);
    ShowRanges(ranges);
  }
  lvwServerNTP_->SetRows(RowsOf(Options.TimeServers));
  lvwDownload_->SetRows(RowsOf(Options.RemoteFiles));
  txtEseguiProgramma_->setText(ToQ(Options.ExternalProgram));
  txtEseguiParametri_->setText(ToQ(Options.ExternalParameters));
}

void frmSettings::TakeControls(ProgramOptions& options) const {
  for (const SettingRow& row : SettingTable()) TakeSetting(row, ShownIn(row), options);
  for (std::size_t page = 0; page < filters.size(); ++page) {
    FilterOptions& filter = options.*filters[page];
    filter.MinAltitude = ranges_[page].rtAltsat->LowerValue();
    filter.MinAzimuth = ranges_[page].rtAzisat->LowerValue();
    filter.MaxAzimuth = ranges_[page].rtAzisat->UpperValue();
  }
  TakeRows(*lvwServerNTP_, options.TimeServers);
  TakeRows(*lvwDownload_, options.RemoteFiles);
  options.ExternalProgram = FromQ(txtEseguiProgramma_->text());
  options.ExternalParameters = FromQ(txtEseguiParametri_->text());
}

void frmSettings::ShowRanges(const FilterRanges& ranges) {
  ranges.lblAltmin->setText(ToQ(Format(ranges.rtAltsat->LowerValue(), "#0°")));
  ranges.lblAzmin->setText(ToQ(Format(ranges.rtAzisat->LowerValue(), "##0°")));
  ranges.lblAzmax->setText(ToQ(Format(ranges.rtAzisat->UpperValue(), "##0°")));
}

void frmSettings::cmdOK_Click() {
  // a long command goes on with the options that it began with
  if (LongOperation::Refused()) return;
  setFocus();  // a row that is still being edited counts
  TakeControls(Options);
  const QPointer<frmSettings> self(this);
  ApplyOptions(chkWorldMapTerminatore_->isChecked());
  if (self) UnloadForm();
}

void frmSettings::cmdEseguiProgramma_Click() {
  const QPointer<frmSettings> self(this);
  const std::optional<std::string> chosen =
      ThePlatform().ChooseFile({LookupText("Dialogs", "esegui"), LookupText("Dialogs", "filtroprogrammi"),
                                FromQ(txtEseguiProgramma_->text().trimmed()), false});
  if (self && chosen && !IsEmptyFile(*chosen)) txtEseguiProgramma_->setText(ToQ(*chosen));
}

void frmSettings::RestoreColours(const char* frame) {
  for (const SettingRow& row : SettingTable())
    if (auto* const area = Control<QWidget>(this, frame)->findChild<ColourArea*>(ToQ(row.control)))
      area->SetColour(DefaultColour(row));
}

void frmSettings::MoveRow(RowsView* list, int way, const char* messageKey) {
  if (list->Chosen() < 0)
    Tell(MessageKind::Information, LookupText(section, messageKey));
  else
    list->MoveChosen(way);
}

void frmSettings::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    cmdOK_Click();
  else
    ChildForm::keyPressEvent(event);
}

bool frmSettings::eventFilter(QObject* watched, QEvent* event) {
  // the tabs stand below each other
  if (watched == SSTab1_->tabBar() && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const int way = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
    const int tab = std::clamp(SSTab1_->currentIndex() + way, 0, SSTab1_->count() - 1);
    if (way != 0) SSTab1_->setCurrentIndex(tab);
    if (way != 0) return true;
  }
  return ChildForm::eventFilter(watched, event);
}

}  // namespace halvorine
