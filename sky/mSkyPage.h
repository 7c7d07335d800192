// The sky charts on paper: black on white, the chart above and a table of the bodies below it, on pages of a
// fixed layout. A page is a copy of what its chart shows, so that it can be drawn again and again, for a
// preview and for a printer, while the program's clock goes on.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "maps/DrawSurface.h"
#include "shell/base/mFailure.h"
#include "sky/mGeneralSky.h"
#include "sky/mSkyDraw.h"
#include "sky/mSkySat.h"

namespace halvorine {

/// A printer that refuses to begin, to give a new page or to end.
class PrinterFailure : public RuntimeFailure {
 public:
  using RuntimeFailure::RuntimeFailure;
};

/// A page as a drawing target, PageWidth by PageHeight twips. Its lines of width 1 are 10 twips wide. All
/// operations may raise PrinterFailure.
class PageSurface : public DrawSurface {
 public:
  /// Ends the page and begins another one.
  virtual void NewPage() = 0;
  /// Ends the document.
  virtual void EndDoc() = 0;
  virtual bool PrintsColour() const = 0;
  /// From here to Unclip nothing is drawn outside a rectangle, twips.
  virtual void Clip(DeviceSpot corner, DeviceSize size) = 0;
  virtual void Unclip() = 0;
};

// The layout, twips from the top left corner of the paper.
constexpr double PageWidth = 11904, PageHeight = 16836;
constexpr double PageLeft = 1200, PageTop = 1000, PageRight = 9800;
constexpr double ChartDiameter = 8000, TwipsPerUnit = 44;
constexpr double ChartCentreX = 5500, ChartCentreY = 5700;
constexpr double TextBelowChart = 1500;  // from the chart's lower edge
constexpr double LastText = 16100;       // what would reach further goes to a new page

/// Lines that stay together on one page, with an empty frame below them where `room` lines are left free.
struct PageBlock {
  std::vector<std::string> Lines;
  std::size_t Headings = 1;  // lines at the beginning that are printed bold
  std::size_t Room = 0;
};

/// A chart with its texts, ready to be printed.
struct SkyPage {
  std::optional<SkyView> Disc;           // either the observer's sky
  std::optional<GeneralSkyView> Sphere;  // or the whole one
  std::vector<BodyMark> Bodies;          // in chart units
  double MoonPhase = 0;                  // degrees
  std::vector<PageBlock> Blocks;
};

/// The local chart as it was drawn last, at the program's clock.
SkyPage LocalSkyPage(const SkyView& view);

/// The chart of a pass as it was drawn last, with the data of satellite and pass and room for notes. Clock,
/// place and bodies are afterwards what they were.
SkyPage PassPage(const PassView& view);

/// The general chart at the program's clock.
SkyPage GeneralSkyPage(const GeneralSkyView& view);

/// Prints a page, with as many more as its texts need, and ends the document. The tick is held off; a failure
/// ends the printing and is passed on. The surface's font is afterwards what it was.
void PrintSkyPage(PageSurface& surface, const SkyPage& page);

/// The chart itself within the frame of the first page.
void DrawPageChart(PageSurface& surface, const SkyPage& page);

/// A row of cells below a heading, whose words, parted by two blanks or more, are its columns: the first
/// `left` cells begin where their word begins, the others end where it ends. Cells never run into one
/// another.
std::string RowBelow(std::string_view heading, const std::vector<std::string>& cells, std::size_t left);

/// A row of SkyObjectTable as its cells in the table of a page; what is not known of a body is a dash.
std::vector<std::string> BodyCells(int row);

}  // namespace halvorine
