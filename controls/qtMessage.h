// The message box: one picture, one sentence, buttons in the language of the program.
#pragma once

#include <QString>
#include <QWidget>

#include "shell/base/mPlatform.h"

namespace halvorine {

/// Shows a box over a window and waits. An empty caption stands for the application's name. Enter gives the
/// default button (No for YesNoDefaultNo); Escape and the close button give Cancel, No, or Ok where there is
/// no other way out.
MessageAnswer ShowMessageBox(QWidget* parent, MessageKind kind, const QString& caption, const QString& text,
                             MessageButtons buttons);

}  // namespace halvorine
