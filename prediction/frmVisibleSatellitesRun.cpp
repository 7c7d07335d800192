// The commands of frmVisibleSatellites: the run, the list and the report of a pass, and what they lead to.
#include <QHeaderView>
#include <QPointer>
#include <memory>
#include <utility>

#include "astro/mConv.h"
#include "catalogue/mElementFile.h"
#include "controls/qtPrint.h"
#include "orbit/mSearch.h"
#include "prediction/frmVisibleSatellites.h"
#include "prediction/mReport.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/qtDates.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmVisibleSatellites";
constexpr int riseRow = 0, culminationRow = 1, setRow = 2, observerCoordinates = 1;

std::optional<std::string> AskTarget(const char* filterKey) {
  std::optional<std::string> path = ThePlatform().ChooseFile(
      {LookupText("Dialogs", "salvaconnome"), LookupText("Dialogs", filterKey), {}, true});
  if (path && path->empty()) path.reset();
  return path;
}

}  // namespace

void frmVisibleSatellites::ShowFilter(int index) {
  const Tab& tab = TabOf(index);
  const PassQuery filter = FilterInForce(index, tab.noFilter->isChecked());
  const auto degrees = [](double angle) { return ToQ(NumberText(angle)) + QStringLiteral("°"); };
  QString text = Text("Def", "alt") + QStringLiteral(" > ") + degrees(filter.threshold);
  // where only visible passes are wanted their azimuth does not count
  if (!tab.visible->isChecked())
    text += QStringLiteral("    ") + Text("Def", "az") + QLatin1Char(' ') + degrees(filter.azimuthMin) +
            QStringLiteral(" – ") + degrees(filter.azimuthMax);
  tab.filter->setText(text);
}

PassRequest frmVisibleSatellites::RequestOf(int index) const {
  const Tab& tab = TabOf(index);
  PassRequest request;
  request.tab = index;
  request.morning = tab.am->isChecked();
  request.evening = tab.pm->isChecked();
  request.visibleOnly = tab.visible->isChecked();
  request.noFilter = tab.noFilter->isChecked();
  request.transitOnly = tab.transit != nullptr && tab.transit->isChecked();
  request.start = DateOf(tab.start->dateTime());
  request.duration = tab.duration->currentIndex();
  if (tab.limit != nullptr) request.limit = tab.limit->currentData().toInt();
  return request;
}

void frmVisibleSatellites::HideLists(int index) {
  const Tab& tab = TabOf(index);
  tab.passes->hide();
  tab.legend->hide();
  tab.report->hide();
  tab.passes->header()->setSortIndicatorShown(false);
  tab.model->SetList({});
  ShowReport(index, -1);
}

void frmVisibleSatellites::ShowLists(int index) {
  const Tab& tab = TabOf(index);
  tab.passes->show();
  tab.legend->show();
  tab.report->show();
}

void frmVisibleSatellites::cmdOK_Click(int index) {
  if (LongOperation::Refused()) return;
  const PassRequest request = RequestOf(index);
  if (!HasSomethingToSearch(request)) return;
  const QPointer<frmVisibleSatellites> self(this);
  // what runs in a message or a yield may have ended the window
  const auto gone = [&] { return self == nullptr || LoadedForm(section) != self.data(); };
  if (index == AllSatellites && ListedRows(Primary)->Count() == 0) {
    ShowReport(index, -1);
    if (!DatabaseAtHand() || gone()) return;
  }
  if (!HasForwardAzimuths(index)) return;
  ShowFilter(index);
  HideLists(index);
  running_ = true;
  std::optional<PassRun> run = RunPasses(request);
  if (gone()) return;
  running_ = false;
  ShowForm();
  const bool found = run && run->list.Count() > 0;
  if (found) TabOf(index).model->SetList(std::move(run->list));
  ShowLists(index);
  if (found)
    TabOf(index).passes->Choose(0);
  else if (run && !run->exitWaits)
    Tell(MessageKind::Information, LookupText(section, "nessunpassaggio"));
}

void frmVisibleSatellites::lvwPass_ColumnClick(int index, int column) {
  const Tab& tab = TabOf(index);
  if (tab.model->rowCount() == 0) return;
  const QModelIndex current = tab.passes->currentIndex();
  const int chosen = current.isValid() ? tab.model->List().FoundAt(current.row()) : -1;
  tab.model->SortBy(column + 1, sort_);
  tab.passes->header()->setSortIndicatorShown(true);
  tab.passes->header()->setSortIndicator(
      column, sort_.sortDirection == PassSort::Descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  // the chosen pass stays chosen where it stands now
  if (chosen >= 0) tab.passes->Choose(tab.model->List().RowOf(chosen));
}

void frmVisibleSatellites::ShowReport(int index, int row) {
  const Tab& tab = TabOf(index);
  tab.rows->clear();
  if (row >= 0 && row < tab.model->rowCount()) {
    const int number = tab.model->List().Number(row);
    for (const std::string& text : tab.model->List().Report(row)) {
      auto* const item = new QStandardItem(ToQ(text));
      item->setData(number, Qt::UserRole);
      item->setEditable(false);
      tab.rows->appendRow(item);
    }
    tab.report->SelectOnly(culminationRow);
  } else {
    lstPass_Click(index);
  }
}

std::string frmVisibleSatellites::ReportRow(int index, int row) const {
  return FromQ(TabOf(index).rows->index(row, 0).data().toString());
}

std::optional<frmVisibleSatellites::ChosenPass> frmVisibleSatellites::lstPass_Click(int index) {
  const Tab& tab = TabOf(index);
  const QModelIndex current = tab.report->currentIndex();
  std::optional<ChosenPass> chosen;
  if (current.isValid()) {
    const auto dateOf = [&](int row) { return DateOfReport(ReportRow(index, row), LanguageDates); };
    const std::optional<Date> selected = dateOf(current.row()), rise = dateOf(riseRow),
                              top = dateOf(culminationRow), set = dateOf(setRow);
    const int number = current.data(Qt::UserRole).toInt();
    if (PreparePass(index, number) && selected && rise && top && set)
      chosen = ChosenPass{number, *selected, *rise, *top, *set};
  }
  tab.details->setEnabled(chosen && CanLoadForm("frmDetails"));
  tab.map->setEnabled(chosen && CanLoadForm("frmSkySat"));
  if (tab.activate != nullptr) tab.activate->setEnabled(chosen.has_value());
  return chosen;
}

void frmVisibleSatellites::cmdDettagli_Click(int index) {
  if (LongOperation::Refused()) return;
  const std::optional<ChosenPass> chosen = lstPass_Click(index);
  if (!chosen) return;
  auto* const details = Load<DetailsCalls>("frmDetails");
  if (details == nullptr) return;
  details->Show();
  double step = 0;
  details->Genera_elenco(PassSlot, chosen->rise, chosen->set, step, observerCoordinates);
}

void frmVisibleSatellites::cmdMappa_Click(int index) {
  const std::optional<ChosenPass> chosen = lstPass_Click(index);
  if (!chosen) return;
  // the chart computes on the scratch slot
  if (PassSlot != ScratchSlot) {
    ElementSets[ScratchSlot] = ElementSets[PassSlot];
    ElementLines[ScratchSlot] = ElementLines[PassSlot];
  }
  PassChart chart;
  chart.rise = chosen->rise;
  chart.culmination = chosen->culmination;
  chart.set = chosen->set;
  chart.selected = chosen->selected;
  chart.riseRow = ReportRow(index, riseRow);
  chart.culminationRow = ReportRow(index, culminationRow);
  chart.setRow = ReportRow(index, setRow);
  chart.elements = ElementSets[ScratchSlot];
  chart.lines = ElementLines[ScratchSlot];
  if (auto* const window = Load<SkySatCalls>("frmSkySat")) window->ShowPass(chart);
}

void frmVisibleSatellites::cmdAttiva_Click() {
  const QPointer<frmVisibleSatellites> self(this);
  const Tab& tab = TabOf(AllSatellites);
  std::vector<int> numbers;
  for (const int row : tab.report->SelectedRows())
    numbers.push_back(tab.rows->index(row, 0).data(Qt::UserRole).toInt());
  for (const int number : numbers) {
    if (number < 1) continue;
    if (!ActivateEntry(number)) return;
  }
}

void frmVisibleSatellites::lvwPass_RightClick(int index) {
  const PassList& list = TabOf(index).model->List();
  if (list.Count() == 0 || LongOperation::Refused()) return;
  auto* const details = Load<DetailsCalls>("frmDetails");
  if (details == nullptr) return;
  constexpr int reportRows = 3;
  details->Show();
  // the rows outlive this list: the copy shares its passes and keeps their present order
  details->ShowRows(LookupText(section, "previsionipassaggi"), list.Count() * reportRows, [list](int row) {
    return list.Report(row / reportRows).at(static_cast<std::size_t>(row % reportRows));
  });
}

std::vector<std::string> frmVisibleSatellites::ReportLines(int index) const {
  std::vector<std::string> lines;
  for (int row = 0; row < TabOf(index).rows->rowCount(); ++row) lines.push_back(ReportRow(index, row));
  if (!lines.empty()) lines.push_back(PlaceAndZoneLine(TabOf(index).model->List().Site()));
  return lines;
}

void frmVisibleSatellites::mnuSalva_Click() {
  // taken before the question, which lets other commands run
  const std::vector<std::string> lines = ReportLines(pages_->currentIndex());
  if (lines.empty()) return;
  const std::optional<std::string> path = AskTarget("filtrotxt");
  if (!path) return;
  try {
    ThePlatform().WriteFile(*path, TextFile(lines));
  } catch (const RuntimeFailure&) {
    return;  // as agreed, this command and the print end without a message
  }
}

void frmVisibleSatellites::mnuSalvaElenco_Click() {
  const PassList list = TabOf(pages_->currentIndex()).model->List();
  if (list.Count() == 0) return;
  const std::optional<std::string> path = AskTarget("filtrocsv");
  if (!path) return;
  try {
    const WaitPointerHold pointer;
    ThePlatform().WriteFile(*path, IsCsvPath(*path) ? list.AsCsv() : list.AsText());
  } catch (const RuntimeFailure& failure) {
    TellNotSaved(failure);
  }
}

namespace {

QStringList PrintedRows(const std::vector<std::string>& lines) {
  QStringList rows;
  for (const std::string& line : lines) rows.push_back(ToQ(line));
  return rows;
}

}  // namespace

void frmVisibleSatellites::mnuStampa_Click() {
  const QStringList rows = PrintedRows(ReportLines(pages_->currentIndex()));
  QPrinter& printer = ThePrinter();
  printer.setFromTo(0, 0);  // the pages of another print
  if (rows.isEmpty() || !AskPrinter(printer, this)) return;
  printer.setPageOrientation(QPageLayout::Portrait);
  PaintOn(printer, [&rows](QPrinter& printed) { return PrintRows(printed, rows); });
}

void frmVisibleSatellites::mnuAnteprima_Click() {
  const QStringList rows = PrintedRows(ReportLines(pages_->currentIndex()));
  if (rows.isEmpty()) return;
  ThePrinter().setPageOrientation(QPageLayout::Portrait);
  PreviewRows(this, rows, windowTitle());
}

}  // namespace halvorine
