// Printing from a window: the one printer of the program with its dialogs, and rows of fixed-width text on
// paper. Without a printer the dialogs offer a PDF file.
#pragma once

#include <QPrinter>
#include <QStringList>
#include <QWidget>
#include <functional>

namespace halvorine {

/// The printer as the user has set it up; made at its first use.
QPrinter& ThePrinter();

/// The printer set-up dialog.
void SetUpPrinter(QWidget* parent);

/// Asks where to print; false where the user cancels. With a selection that is what is proposed.
bool AskPrinter(QPrinter& printer, QWidget* parent, bool hasSelection = false);

/// Answers in the place of the print dialog; serves tests. An empty function brings the dialog back.
void SetPrinterAnswer(std::function<bool(QPrinter&)> answer);

/// Prints rows in black "Courier New" of 10 points, from 450 twips downwards and rightwards, with new pages
/// as they are needed. False where the printer refuses.
bool PrintRows(QPrinter& printer, const QStringList& rows);

}  // namespace halvorine
