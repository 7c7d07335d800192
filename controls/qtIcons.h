// The pictures of the program, from its resources, at the size and pixel ratio at which they are painted.
// Under the night palette they turn red and black by themselves.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>

namespace halvorine {

/// A picture by its name in resources/icons ("open", "b_add"); a null icon where there is none.
QIcon Icon(const char* name);

/// Picture of a number of the toolbar's list (resources/icons/numbers.txt), 24 logical pixels, in the colours
/// of the day or of the night as the application's palette stands; a null pixmap for an unknown number.
QPixmap MapIcon(int number, double pixelRatio = 1);
/// The same, with the choice of the colours left to the caller: recorded and printed pictures are the day's.
QPixmap MapIconIn(int number, bool night, double pixelRatio = 1);

/// Picture of a number of the second list, where 6 is the Sun.
QPixmap SecondIcon(int number, double pixelRatio = 1);
QPixmap SecondIconIn(int number, bool night, double pixelRatio = 1);

/// An arrow in the colour of highlighted text, for the bar of a calendar.
QIcon ArrowIcon(Qt::ArrowType direction);
/// An icon of the window system that is painted in the colours of the night while it is night.
QIcon NightIcon(const QIcon& icon);

/// Name of the picture that has a number in the toolbar's list; the empty text where there is none.
QString IconName(int number);

/// A picture of the interface as it looks at night: dark lines and accents black, pale fills red.
QImage NightIconImage(const QImage& day);
/// A picture on maps and charts as it looks at night: brighter is more red.
QImage NightMapImage(const QImage& day);

}  // namespace halvorine
