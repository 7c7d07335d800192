// The stops of the tour at the whole sky and at the charts of passes.
#pragma once

class QWidget;

namespace halvorine {

class MDIForm1;

/// The general chart with what the settings show at first, or with everything on it.
QWidget* OpenGeneralSky(MDIForm1& window, bool everything);
/// A part of it, as a dragged box chooses it.
QWidget* ZoomGeneralSky(MDIForm1& window);
/// The chart of the principal satellite's next visible pass; each call opens another one.
QWidget* OpenPassChart();
/// One with everything on it and times along the track.
QWidget* OpenFullPassChart(MDIForm1& window);
/// The charts on paper, as the preview shows them; that of the pass has two pages.
QWidget* PreviewLocalSky();
QWidget* PreviewPass(int pageNumber);
QWidget* PreviewGeneralSky();

}  // namespace halvorine
