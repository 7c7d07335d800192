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

/// Answers in the place of the print dialog; serves tests. An empty function brings the dialog back. Without
/// the preview what is to be printed is so at once.
void SetPrinterAnswer(std::function<bool(QPrinter&)> answer, bool withPreview = false);

/// Prints rows in black "Courier New" of 10 points, from 450 twips downwards and rightwards, with new pages
/// as they are needed and "page / pages" at the foot of each. Rows that are wider than the paper shrink them
/// all, down to 6 points. Only the pages that the printer was asked for. False where the printer refuses.
bool PrintRows(QPrinter& printer, const QStringList& rows);

/// Shows in a window how PrintRows would print, with a way on to the print dialog; waits for its end. Rows
/// that an upright page is too narrow for turn it on its side. A printer or a file that refuses is told.
void PreviewRows(QWidget* parent, const QStringList& rows, const QString& title);

/// Likewise upright pages that `paint` draws on a printer; it gives false where the printer refuses.
void PreviewPages(QWidget* parent, const QString& title, const std::function<bool(QPrinter&)>& paint);

/// Paints on a printer that was asked for. A PDF file is written by a printer of its own: one that has once
/// failed to write would never write again.
bool PaintOn(QPrinter& printer, const std::function<bool(QPrinter&)>& paint);

/// Asks where to print and does so; `paint` draws the pages. False where the user cancels or the printer
/// refuses; the latter is told.
bool PrintAsked(QPrinter& printer, QWidget* parent, const std::function<bool(QPrinter&)>& paint);

}  // namespace halvorine
