#include "controls/qtPrint.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPointer>
#include <QPrintDialog>
#include <algorithm>
#include <memory>
#include <utility>

#include "controls/qtPreview.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr double margin = 450, twipsPerInch = 1440;
constexpr int rowPoints = 10, leastPoints = 6;

std::unique_ptr<QPrinter> printer;
std::function<bool(QPrinter&)> printerAnswer;
bool answerWithPreview = false;

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

void SetPrinterAnswer(std::function<bool(QPrinter&)> answer, bool withPreview) {
  printerAnswer = std::move(answer);
  answerWithPreview = withPreview;
}

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

/// "Courier New", or what has its measures where it is missing.
QFont RowFont() {
  QFont font(QStringList{QStringLiteral("Courier New"), QStringLiteral("Liberation Mono")});
  font.setStyleHint(QFont::Monospace);
  font.setPointSizeF(rowPoints);
  return font;
}

/// Of rows in a font of one width the longest text is the widest.
QString Widest(const QStringList& rows) {
  const auto longest = std::max_element(
      rows.begin(), rows.end(), [](const QString& a, const QString& b) { return a.size() < b.size(); });
  return longest == rows.end() ? QString() : *longest;
}

RowPages::RowPages(QPrinter& printed, const QStringList& rows)
    : target(printed), font(RowFont()), edge(margin * printed.resolution() / twipsPerInch) {
  const QString widest = Widest(rows);
  for (int halves = 2 * rowPoints; halves >= 2 * leastPoints; --halves) {
    font.setPointSizeF(halves / 2.0);
    const QFontMetricsF metrics(font, &target);
    lineHeight = metrics.lineSpacing();
    ascent = metrics.ascent();
    if (metrics.horizontalAdvance(widest) <= Room()) break;
  }
  // the page number takes two lines at the foot
  const double room = target.height() - 2 * edge - 2 * lineHeight;
  rowsOnPage = std::max(1, static_cast<int>(room / lineHeight));
  count = std::max(1, (static_cast<int>(rows.size()) + rowsOnPage - 1) / rowsOnPage);
}

}  // namespace

bool PrintRows(QPrinter& target, const QStringList& rows) {
  const WaitPointerHold pointer;
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

namespace {

/// Whether a file can be made where the printer is to write one; the window system says so only in its log.
bool CanBegin(const QPrinter& target) {
  if (target.outputFormat() != QPrinter::PdfFormat) return true;
  const QFileInfo file(target.outputFileName());
  if (file.fileName().isEmpty() || file.isDir()) return false;
  return file.exists() ? file.isWritable() : QFileInfo(file.absolutePath()).isWritable();
}

/// Whether the file that was to be written is there to its end: a full disk is not told by the printer.
bool IsWhole(const QPrinter& target) {
  if (target.outputFormat() != QPrinter::PdfFormat) return true;
  if (!QFileInfo(target.outputFileName()).isFile()) return false;
  QFile file(target.outputFileName());
  constexpr qint64 tail = 64;
  return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - tail)) &&
         file.readAll().contains("%%EOF");
}

/// Puts the way the paper lies back as it was.
class Orientation {
 public:
  explicit Orientation(QPrinter& target) : target_(target), before_(target.pageLayout().orientation()) {}
  ~Orientation() { target_.setPageOrientation(before_); }
  Orientation(const Orientation&) = delete;
  Orientation& operator=(const Orientation&) = delete;

 private:
  QPrinter& target_;
  QPageLayout::Orientation before_;
};

/// Turns the paper on its side for rows that are too wide for it.
void TurnFor(QPrinter& target, const QStringList& rows) {
  target.setFullPage(true);
  const QFontMetricsF metrics(RowFont(), &target);
  const double room = target.width() - 2 * margin * target.resolution() / twipsPerInch;
  if (metrics.horizontalAdvance(Widest(rows)) > room) target.setPageOrientation(QPageLayout::Landscape);
}

void Preview(QWidget* parent, const QString& title, const std::function<bool(QPrinter&)>& paint) {
  if (printerAnswer && !answerWithPreview) {
    PrintAsked(ThePrinter(), parent, paint);
    return;
  }
  frmPreview(parent, ThePrinter(), title, paint).exec();
}

}  // namespace

bool PaintOn(QPrinter& target, const std::function<bool(QPrinter&)>& paint) {
  if (target.outputFormat() != QPrinter::PdfFormat) return paint(target);
  QPrinter own(QPrinter::HighResolution);
  own.setOutputFormat(QPrinter::PdfFormat);
  own.setOutputFileName(target.outputFileName());
  own.setPageLayout(target.pageLayout());
  own.setResolution(target.resolution());
  own.setColorMode(target.colorMode());
  own.setPrintRange(target.printRange());
  own.setFromTo(target.fromPage(), target.toPage());
  return paint(own);
}

bool PrintAsked(QPrinter& target, QWidget* parent, const std::function<bool(QPrinter&)>& paint) {
  target.setFromTo(0, 0);
  const QPointer<QWidget> alive(parent);
  const bool asked = AskPrinter(target, parent);
  const bool done = asked && CanBegin(target) && PaintOn(target, paint) && IsWhole(target);
  target.setFromTo(0, 0);
  if (asked && !done) Tell(MessageKind::Warning, LookupText("frmPreview", "nonstampato"));
  return done && (parent == nullptr || alive != nullptr);
}

void PreviewRows(QWidget* parent, const QStringList& rows, const QString& title) {
  const Orientation orientation(ThePrinter());
  TurnFor(ThePrinter(), rows);
  Preview(parent, title, [&rows](QPrinter& printed) { return PrintRows(printed, rows); });
}

void PreviewPages(QWidget* parent, const QString& title, const std::function<bool(QPrinter&)>& paint) {
  const Orientation orientation(ThePrinter());
  ThePrinter().setPageOrientation(QPageLayout::Portrait);
  Preview(parent, title, paint);
}

}  // namespace halvorine
