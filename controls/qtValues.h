// Captions and values that stand in two columns, as the panels have them that show data to read.
#pragma once

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <vector>

#include "controls/GraphButton.h"

namespace halvorine {

/// A caption in muted text.
QLabel* MakeCaption(const QString& text);

/// A value: plain text at the right, to be selected with the mouse.
QLabel* MakeValue(const char* name, int index = -1);

/// One line of a group of values.
struct ValueRow {
  QString caption;
  const char* name;  // of the value's label
};

/// A group with a line for each value; the labels are found by their names.
QGroupBox* MakeValueGroup(const QString& title, const std::vector<ValueRow>& rows);

/// Shows or hides the line of a value in its group.
void ShowValueRow(QLabel* value, bool shown);

/// A button that takes the keyboard, with a text of the language file.
GraphButton* MakeFormButton(const char* name, const char* section, const char* key);

/// A square button with a picture alone; its text is the tooltip.
GraphButton* MakePictureButton(const char* name, const char* icon, const QString& text);

/// Help at the left, a closing button at the right, as the last row of a window has them.
QBoxLayout* MakeLastRow(GraphButton* help, GraphButton* close);

}  // namespace halvorine
