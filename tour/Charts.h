// The stops of the tour at the sky charts: the local sky, the whole sky, the charts of passes.
#pragma once

#include "shell/base/mRecords.h"

class QWidget;

namespace halvorine {

class MDIForm1;

/// The next instant from one on at which a followed satellite rises well to be seen; it becomes the principal
/// one. Universal Time.
Date NextSight(Date utc);
/// The local sky as the clock stands, with grid, figures and names, and the transit where wanted.
QWidget* OpenLocalSky(MDIForm1& window, bool transit);
/// A part of it in the other projection, with all stars and without the landscape.
QWidget* ZoomLocalSky(MDIForm1& window);
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
