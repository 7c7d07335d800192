// The pages that the printed charts are made of: header, frame, lines of text, page numbers.
#include "sky/mSkyPage.h"

#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"

namespace halvorine {

namespace {

constexpr double frameHalf = 4400;  // from the chart's middle to the rules above and below it
constexpr double footTop = 16300;   // of the page's number
constexpr double boxInset = 60;     // from a heading to the frame below it
const DrawFont pageFont{.Family = "Courier New", .Points = 10};

/// Puts a surface's font back.
class FontHold {
 public:
  explicit FontHold(DrawSurface& surface) : surface_(surface), font_(surface.Font) {}
  ~FontHold() { surface_.Font = font_; }
  FontHold(const FontHold&) = delete;
  FontHold& operator=(const FontHold&) = delete;

 private:
  DrawSurface& surface_;
  DrawFont font_;
};

void PrintLine(DrawSurface& surface, double x, double y, std::string_view text, bool bold = false) {
  surface.Font.Bold = bold;
  surface.CurrentX = x;
  surface.CurrentY = y;
  surface.Print(text);
  surface.Font.Bold = false;
}

/// Where the blocks stand: for each the page, counted from 1, and its top.
struct BlockPlace {
  int page = 1;
  double top = 0;
};

/// Top of the first line on the pages after the first one: as far below the rule as the rule is below the
/// header.
constexpr double continuedTop = 2 * (ChartCentreY - frameHalf) - PageTop;

std::vector<BlockPlace> PlacesOf(const SkyPage& page, double lineHeight) {
  std::vector<BlockPlace> places;
  BlockPlace at{1, ChartCentreY + ChartDiameter / 2 + TextBelowChart};
  double top = at.top;
  for (const PageBlock& block : page.Blocks) {
    const double height = static_cast<double>(block.Lines.size() + block.Room) * lineHeight;
    if (at.top > top) at.top += lineHeight;
    if (at.top > top && at.top + height > LastText) {
      top = continuedTop;
      at = {at.page + 1, top};
    }
    places.push_back(at);
    at.top += height;
  }
  return places;
}

void PrintBlock(DrawSurface& surface, const PageBlock& block, double top, double lineHeight) {
  double y = top;
  for (std::size_t i = 0; i < block.Lines.size(); ++i) {
    PrintLine(surface, PageLeft, y, block.Lines[i], i < block.Headings);
    y += lineHeight;
  }
  if (block.Room > 0)
    surface.Box(PageLeft, y + boxInset, PageRight, y + static_cast<double>(block.Room) * lineHeight, Black,
                false);
}

void PrintHeadAndFoot(DrawSurface& surface, int number, int count) {
  PrintLine(surface, PageLeft, PageTop,
            settingsApplication + " - " + LookupText("frmAbout", "versione") + " " + HALVORINE_VERSION);
  surface.Line(PageLeft, ChartCentreY - frameHalf, PageRight, ChartCentreY - frameHalf, Black);
  const std::string text = std::to_string(number) + " / " + std::to_string(count);
  PrintLine(surface, PageRight - surface.TextWidth(text), footTop, text);
}

}  // namespace

void PrintSkyPage(PageSurface& surface, const SkyPage& page) {
  const TickHold hold;
  const FontHold font(surface);
  surface.ScaleModeTwips();
  surface.DrawWidth = 1;
  surface.DrawStyle = LineKind::Solid;
  surface.FillStyle = FillKind::Solid;
  surface.ForeColor = surface.FillColor = Black;
  surface.TextHalo.reset();
  surface.Font = pageFont;
  const double lineHeight = surface.TextHeight("X");
  const std::vector<BlockPlace> places = PlacesOf(page, lineHeight);
  const int count = places.empty() ? 1 : places.back().page;
  PrintHeadAndFoot(surface, 1, count);
  surface.Line(PageLeft, ChartCentreY + frameHalf, PageRight, ChartCentreY + frameHalf, Black);
  DrawPageChart(surface, page);
  surface.ScaleModeTwips();
  surface.Font = pageFont;
  int number = 1;
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (places[i].page > number) {
      surface.NewPage();
      PrintHeadAndFoot(surface, ++number, count);
    }
    PrintBlock(surface, page.Blocks[i], places[i].top, lineHeight);
  }
  surface.EndDoc();
}

}  // namespace halvorine
