// Printing of the sky charts: a printer's pages as a drawing target, and the way from a window to the
// preview.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <QWidget>
#include <functional>

#include "sky/mSkyPage.h"

namespace halvorine {

/// The pages of a printer, upright, in twips. A smaller paper shrinks them. Of a range that the printer was
/// asked for only the pages in it are drawn.
class PrinterSurface : public PageSurface {
 public:
  /// PrinterFailure where the printer refuses to begin.
  explicit PrinterSurface(QPrinter& printer);

  void NewPage() override;
  void EndDoc() override;
  bool PrintsColour() const override;
  void Clip(DeviceSpot corner, DeviceSize size) override;
  void Unclip() override;

 protected:
  DeviceSize DeviceExtent() const override { return {PageWidth, PageHeight}; }
  void DeviceClear(DrawLayer, Colour) override {}  // paper is white
  void DeviceLine(DeviceSpot from, DeviceSpot to, const DrawStroke& stroke) override;
  void DeviceBox(DeviceSpot corner, DeviceSize size, const DrawStroke& stroke, bool filled) override;
  void DeviceEllipse(const DeviceRound& round, const DrawStroke& stroke, std::optional<Colour> fill) override;
  void DevicePie(const DeviceRound& round, const DrawStroke& stroke, std::optional<Colour> fill) override;
  void DevicePoint(DeviceSpot at, const DrawStroke& stroke) override;
  void DeviceText(DeviceSpot corner, std::string_view text, Colour colour) override;
  DeviceSize DeviceTextExtent(std::string_view text) const override;
  void DevicePicture(DeviceSpot corner, DeviceSize size, const DrawPicture& picture) override;

 private:
  /// Whether the present page is one of those asked for.
  bool Wanted() const;
  void SetScale();

  QPrinter& printer_;
  QPainter painter_;
  int page_ = 1;
  bool begun_ = false;  // a page has been drawn on
};

/// Takes the page of a window's chart and shows how it prints, with a way on to the print dialog. A printer
/// or a file that refuses is told.
void PrintChart(QWidget* window, const std::function<SkyPage()>& take);

}  // namespace halvorine
