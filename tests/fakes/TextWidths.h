// Whether a window has room for its texts.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>

#include "shell/base/qtForms.h"

namespace halvorine {

/// Holds labels and buttons of a window against their boxes.
inline void ExpectNothingCut(const QWidget& window, const std::string& language) {
  for (const QWidget* const control : window.findChildren<QWidget*>()) {
    const auto* const label = qobject_cast<const QLabel*>(control);
    if (label != nullptr && label->wordWrap() && label->isVisible()) {
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << language << FromQ(label->text());
    }
    const auto* const button = qobject_cast<const QAbstractButton*>(control);
    const bool text = (label != nullptr && !label->wordWrap() && !label->text().isEmpty()) ||
                      (button != nullptr && !button->text().isEmpty());
    if (!text || !control->isVisible() || control->objectName().startsWith(QLatin1String("qt_"))) continue;
    const std::string where =
        language + " " + FromQ(window.objectName()) + " " + FromQ(control->objectName());
    EXPECT_GE(control->width(), control->sizeHint().width()) << where;
    if (label != nullptr) {
      EXPECT_GE(label->height(), label->sizeHint().height()) << where;
    }
  }
}

}  // namespace halvorine
