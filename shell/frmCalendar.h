// frmCalendar: one month to look at. It has no effect on the program's time.
#pragma once

#include "shell/base/qtForms.h"

namespace halvorine {

class frmCalendar : public ChildForm, public FormCalls {
 public:
  frmCalendar();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace halvorine
