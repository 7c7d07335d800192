#include "controls/qtPrint.h"

#include <QCoreApplication>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <algorithm>
#include <memory>
#include <utility>

namespace halvorine {

namespace {

constexpr double margin = 450, twipsPerInch = 1440;
constexpr double rowPoints = 10, leastPoints = 6;
constexpr int previewWidth = 860, previewHeight = 700;  // logical pixels; room for all of its toolbar

std::unique_ptr<QPrinter> printer;
std::function<bool(QPrinter&)> printerAnswer;

}  // namespace

QPrinter& ThePrinter() {
  if (printer == nullptr) {
    printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    // it must not outlive the application
    qAddPostRoutine([] { printer.reset(); });
  }
  return *printer;
}

void SetUpPrinter(QWidget* parent) {
  if (printerAnswer) {
    printerAnswer(ThePrinter());
    return;
  }
  QPageSetupDialog dialog(&ThePrinter(), parent);
  dialog.exec();
}

bool AskPrinter(QPrinter& target, QWidget* parent, bool hasSelection) {
  target.setPrintRange(hasSelection ? QPrinter::Selection : QPrinter::AllPages);
  if (printerAnswer) return printerAnswer(target);
  QPrintDialog dialog(&target, parent);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, hasSelection);
  return dialog.exec() == QDialog::Accepted;
}

void SetPrinterAnswer(std::function<bool(QPrinter&)> answer) { printerAnswer = std::move(answer); }

namespace {

/// Rows laid out on the pages of a printer, in its device units.
struct RowPages {
  RowPages(QPrinter& target, const QStringList& rows);
  double Room() const { return target.width() - 2 * edge; }

  QPrinter& target;
  QFont font;
  double edge, lineHeight = 0, ascent = 0;
  int rowsOnPage = 1, count = 1;
};

RowPages::RowPages(QPrinter& printed, const QStringList& rows)
    : target(printed),
      font(QStringLiteral("Courier New")),
      edge(margin * printed.resolution() / twipsPerInch) {
  font.setStyleHint(QFont::Monospace);
  for (double points = rowPoints; points >= leastPoints; points -= 0.5) {
    font.setPointSizeF(points);
    const QFontMetricsF metrics(font, &target);
    lineHeight = metrics.lineSpacing();
    ascent = metrics.ascent();
    const bool fits = std::all_of(rows.begin(), rows.end(), [&](const QString& row) {
      return metrics.horizontalAdvance(row) <= Room();
    });
    if (fits) break;
  }
  // the page number takes two lines at the foot
  const double room = target.height() - 2 * edge - 2 * lineHeight;
  rowsOnPage = std::max(1, static_cast<int>(room / lineHeight));
  count = std::max(1, (static_cast<int>(rows.size()) + rowsOnPage - 1) / rowsOnPage);
}

}  // namespace

bool PrintRows(QPrinter& target, const QStringList& rows) {
  target.setFullPage(true);
  QPainter painter;
  if (!painter.begin(&target)) return false;
  const RowPages pages(target, rows);
  painter.setFont(pages.font);
  painter.setPen(Qt::black);
  const int first = target.fromPage() > 0 ? target.fromPage() : 1;
  const int last = target.toPage() > 0 ? std::min(target.toPage(), pages.count) : pages.count;
  for (int page = first; page <= last; ++page) {
    if (page > first && !target.newPage()) return false;
    const qsizetype begin = static_cast<qsizetype>(page - 1) * pages.rowsOnPage;
    double y = pages.edge;
    for (const QString& row : rows.mid(begin, pages.rowsOnPage)) {
      painter.drawText(QPointF(pages.edge, y + pages.ascent), row);
      y += pages.lineHeight;
    }
    const QRectF foot(pages.edge, target.height() - pages.edge - pages.lineHeight, pages.Room(),
                      pages.lineHeight);
    painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter,
                     QStringLiteral("%1 / %2").arg(page).arg(pages.count));
  }
  return painter.end();
}

void PreviewRows(QWidget* parent, const QStringList& rows, const QString& title) {
  QPrintPreviewDialog dialog(&ThePrinter(), parent);
  dialog.setWindowTitle(title);
  dialog.resize(previewWidth, previewHeight);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [&rows](QPrinter* printed) { PrintRows(*printed, rows); });
  dialog.exec();
}

}  // namespace halvorine
