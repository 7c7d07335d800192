// Pictures of windows and what they hold at night.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

namespace halvorine {

/// Saves a picture of a window among the artefacts of the build and gives it back.
QImage Grabbed(QWidget* window, const QString& name);

/// Pixels that are neither black, red nor the grey of what is disabled (whose edges mix with the dark red).
int PixelsNotRed(const QImage& picture);

/// The same of a window, whose colour areas are left out: they show colours by day and at night.
int PixelsNotRed(QWidget* window, const QString& name);

}  // namespace halvorine
