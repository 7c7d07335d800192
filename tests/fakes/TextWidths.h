// Whether a window has room for its texts.
#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "shell/base/qtForms.h"

namespace halvorine {

/// Holds labels and buttons of a window against their boxes.
inline void ExpectNothingCut(const QWidget& window, const std::string& language) {
  for (const QWidget* const control : window.findChildren<QWidget*>()) {
    const auto* const label = qobject_cast<const QLabel*>(control);
    const bool text = (label != nullptr && !label->wordWrap() && !label->text().isEmpty()) ||
                      qobject_cast<const QPushButton*>(control) != nullptr ||
                      qobject_cast<const QCheckBox*>(control) != nullptr;
    if (!text || !control->isVisible() || control->objectName().startsWith(QLatin1String("lblPercorso")))
      continue;
    EXPECT_GE(control->width(), control->sizeHint().width())
        << language << " " << FromQ(window.objectName()) << " " << FromQ(control->objectName());
  }
}

}  // namespace halvorine
