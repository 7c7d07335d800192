// The base of the windows that keep their place in the work area from one run to the next: maps and charts.
#pragma once

#include <QPoint>
#include <string>

#include "shell/base/qtForms.h"

namespace halvorine {

class PlacedForm : public ChildForm {
 protected:
  /// `settings` is the section of the store that keeps the place.
  PlacedForm(const QString& name, std::string settings);

  /// To be called before the window is shown: the first time it gets its stored place, where the options want
  /// that, otherwise the agreed size. What no screen could show is brought within reach.
  void PlaceWindow();
  /// Stores the place where the options want that; a minimised window or one that was never shown has none.
  void BeforeUnload() override;
  /// Pops up a menu of the main window.
  static void ShowPopup(const char* menu, QPoint screen);

 private:
  std::string settings_;
  bool placed_ = false;
};

}  // namespace halvorine
