#include "controls/qtValues.h"

#include <QFormLayout>

#include "controls/qtLook.h"
#include "shell/base/qtForms.h"

namespace halvorine {

QLabel* MakeCaption(const QString& text) {
  auto* const label = new QLabel(text);
  label->setForegroundRole(MutedRole);
  return label;
}

QLabel* MakeValue(const char* name, int index) {
  auto* const label = Named(new QLabel(), name, index);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setFocusPolicy(Qt::NoFocus);
  return label;
}

QGroupBox* MakeValueGroup(const QString& title, const std::vector<ValueRow>& rows) {
  auto* const group = new QGroupBox(title);
  auto* const lines = new QFormLayout(group);
  lines->setContentsMargins(12, 8, 12, 12);
  lines->setHorizontalSpacing(16);
  lines->setVerticalSpacing(6);
  lines->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  lines->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  for (const ValueRow& row : rows) {
    QLabel* const value = MakeValue(row.name);
    value->setAccessibleName(row.caption);
    lines->addRow(MakeCaption(row.caption), value);
  }
  return group;
}

void ShowValueRow(QLabel* value, bool shown) {
  if (auto* const lines = qobject_cast<QFormLayout*>(value->parentWidget()->layout()))
    lines->setRowVisible(value, shown);
}

GraphButton* MakeFormButton(const char* name, const char* section, const char* key) {
  auto* const button = Named(new GraphButton(), name);
  button->SetCaption(Text(section, key));
  button->setAutoDefault(true);
  return button;
}

GraphButton* MakePictureButton(const char* name, const char* icon, const QString& text) {
  constexpr int width = 36;  // logical pixels
  auto* const button = Named(new GraphButton(icon, nullptr), name);
  button->setToolTip(text);
  button->setAccessibleName(text);
  button->setFixedWidth(width);
  button->setAutoDefault(true);
  return button;
}

QBoxLayout* MakeLastRow(GraphButton* help, GraphButton* close) {
  auto* const row = new QHBoxLayout();
  row->setSpacing(8);
  row->addWidget(help);
  row->addStretch();
  row->addWidget(close);
  return row;
}

}  // namespace halvorine
