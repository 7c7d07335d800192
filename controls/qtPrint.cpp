#include "controls/qtPrint.h"

#include <QCoreApplication>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <memory>
#include <utility>

namespace halvorine {

namespace {

constexpr double margin = 450, twipsPerInch = 1440;

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

bool PrintRows(QPrinter& target, const QStringList& rows) {
  target.setFullPage(true);
  QPainter painter;
  if (!painter.begin(&target)) return false;
  QFont font(QStringLiteral("Courier New"), 10);
  font.setStyleHint(QFont::Monospace);
  painter.setFont(font);
  painter.setPen(Qt::black);
  const double edge = margin * target.resolution() / twipsPerInch;
  const QFontMetricsF metrics(font, &target);
  double y = edge;
  for (const QString& row : rows) {
    if (y + metrics.lineSpacing() > target.height() - edge && y > edge) {
      if (!target.newPage()) return false;
      y = edge;
    }
    painter.drawText(QPointF(edge, y + metrics.ascent()), row);
    y += metrics.lineSpacing();
  }
  return painter.end();
}

}  // namespace halvorine
