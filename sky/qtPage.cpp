#include "sky/qtPage.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPointer>
#include <algorithm>
#include <cmath>

#include "controls/qtPrint.h"
#include "maps/qtSurface.h"
#include "shell/base/mPlatform.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr double twipsPerInch = 1440, twipsPerPoint = 20;
constexpr double lineWidth = 10;  // twips, of the width 1
constexpr double haloWidth = 40;  // twips, of the pen around texts

QColor InkOf(Colour colour) { return {colour & 255, (colour >> 8) & 255, (colour >> 16) & 255}; }

QPen PenOf(const DrawStroke& stroke) {
  return QPen(InkOf(stroke.Ink), stroke.Width * lineWidth,
              stroke.Kind == LineKind::Dashed ? Qt::DashLine : Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

QBrush BrushOf(std::optional<Colour> fill) { return fill ? QBrush(InkOf(*fill)) : QBrush(Qt::NoBrush); }

/// Measured in twips, whatever the printer's resolution; what has the measures of the wanted font stands in
/// where that is missing.
QFont FontOf(const DrawFont& font) {
  QFont result(QStringList{ToQ(font.Family), QStringLiteral("Liberation Mono")});
  result.setStyleHint(QFont::Monospace);
  result.setPixelSize(static_cast<int>(std::lround(font.Points * twipsPerPoint)));
  result.setBold(font.Bold);
  result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}

}  // namespace

PrinterSurface::PrinterSurface(QPrinter& printer) : printer_(printer) {
  printer_.setFullPage(true);
  if (!painter_.begin(&printer_)) throw PrinterFailure("the printer does not begin");
  SetScale();
  begun_ = Wanted();
}

void PrinterSurface::SetScale() {
  const double scale = std::min(
      {printer_.resolution() / twipsPerInch, printer_.width() / PageWidth, printer_.height() / PageHeight});
  painter_.resetTransform();
  painter_.scale(scale, scale);
  painter_.setRenderHint(QPainter::Antialiasing);
}

bool PrinterSurface::Wanted() const {
  const int first = printer_.fromPage(), last = printer_.toPage();
  return page_ >= first && (last <= 0 || page_ <= last);
}

void PrinterSurface::NewPage() {
  ++page_;
  if (!Wanted()) return;
  if (begun_ && !printer_.newPage()) throw PrinterFailure("the printer gives no new page");
  begun_ = true;
}

void PrinterSurface::EndDoc() {
  if (!painter_.end()) throw PrinterFailure("the printer does not end the document");
}

bool PrinterSurface::PrintsColour() const { return printer_.colorMode() == QPrinter::Color; }

void PrinterSurface::Clip(DeviceSpot corner, DeviceSize size) {
  painter_.setClipRect(QRectF(corner.X, corner.Y, size.Width, size.Height));
}

void PrinterSurface::Unclip() { painter_.setClipping(false); }

void PrinterSurface::DeviceLine(DeviceSpot from, DeviceSpot to, const DrawStroke& stroke) {
  if (!Wanted()) return;
  painter_.setPen(PenOf(stroke));
  painter_.drawLine(QPointF(from.X, from.Y), QPointF(to.X, to.Y));
}

void PrinterSurface::DeviceBox(DeviceSpot corner, DeviceSize size, const DrawStroke& stroke, bool filled) {
  if (!Wanted()) return;
  painter_.setPen(filled ? QPen(Qt::NoPen) : PenOf(stroke));
  painter_.setBrush(filled ? QBrush(InkOf(stroke.Ink)) : QBrush(Qt::NoBrush));
  painter_.drawRect(QRectF(corner.X, corner.Y, size.Width, size.Height));
}

void PrinterSurface::DeviceEllipse(const DeviceRound& round, const DrawStroke& stroke,
                                   std::optional<Colour> fill) {
  if (!Wanted()) return;
  // a disc in its own edge colour needs no edge, which would make it wider
  painter_.setPen(fill && *fill == stroke.Ink ? QPen(Qt::NoPen) : PenOf(stroke));
  painter_.setBrush(BrushOf(fill));
  painter_.drawEllipse(QPointF(round.Centre.X, round.Centre.Y), round.RadiusX, round.RadiusY);
}

void PrinterSurface::DevicePie(const DeviceRound& round, const DrawStroke& stroke,
                               std::optional<Colour> fill) {
  if (!Wanted()) return;
  const double sixteenths = 16 * 180 / M_PI;
  const double start = round.Start.value_or(0), end = round.End.value_or(2 * M_PI);
  const double span = end >= start ? end - start : end - start + 2 * M_PI;
  painter_.setPen(PenOf(stroke));
  painter_.setBrush(BrushOf(fill));
  painter_.drawPie(QRectF(round.Centre.X - round.RadiusX, round.Centre.Y - round.RadiusY, 2 * round.RadiusX,
                          2 * round.RadiusY),
                   static_cast<int>(std::lround(start * sixteenths)),
                   static_cast<int>(std::lround(span * sixteenths)));
}

void PrinterSurface::DevicePoint(DeviceSpot at, const DrawStroke& stroke) {
  if (!Wanted()) return;
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(InkOf(stroke.Ink));
  const double radius = stroke.Width * lineWidth / 2;
  painter_.drawEllipse(QPointF(at.X, at.Y), radius, radius);
}

void PrinterSurface::DeviceText(DeviceSpot corner, std::string_view text, Colour colour) {
  if (!Wanted() || text.empty()) return;
  const QFont font = FontOf(Font);
  const QPointF base(corner.X, corner.Y + QFontMetricsF(font).ascent());
  if (TextHalo) {
    QPainterPath outline;
    outline.addText(base, font, ToQ(text));
    painter_.strokePath(outline,
                        QPen(InkOf(*TextHalo), haloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  painter_.setFont(font);
  painter_.setPen(InkOf(colour));
  painter_.drawText(base, ToQ(text));
}

DeviceSize PrinterSurface::DeviceTextExtent(std::string_view text) const {
  const QFontMetricsF metrics(FontOf(Font));
  return {metrics.horizontalAdvance(ToQ(text)), metrics.height()};
}

void PrinterSurface::DevicePicture(DeviceSpot corner, DeviceSize size, const DrawPicture& picture) {
  const QtPicture* const held = dynamic_cast<const QtPicture*>(&picture);
  if (!Wanted() || held == nullptr) return;
  painter_.drawImage(QRectF(corner.X, corner.Y, size.Width, size.Height), held->Whole(false));
}

void PrintChart(QWidget* window, const std::function<SkyPage()>& take) {
  const QPointer<QWidget> alive(window);
  ThePlatform().Yield();
  if (alive == nullptr) return;
  const SkyPage page = take();
  PreviewPages(window, window->windowTitle(), [&page](QPrinter& printer) {
    try {
      PrinterSurface surface(printer);
      PrintSkyPage(surface, page);
      return true;
    } catch (const RuntimeFailure&) {
      return false;  // the user is told
    }
  });
}

}  // namespace halvorine
