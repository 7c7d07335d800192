// A main window with every kind of control, for pictures of the look.
#pragma once

#include <QMainWindow>
#include <QString>
#include <memory>

namespace halvorine {

std::unique_ptr<QMainWindow> MakeSampler();

/// Saves a picture of a window among the artefacts of the build and gives it back.
QImage Grabbed(QWidget* window, const QString& name);

}  // namespace halvorine
