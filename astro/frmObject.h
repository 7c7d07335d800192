// frmObject: everything about one object that was picked on a sky chart, a star or a body of the solar
// system.
#pragma once

#include <QLabel>

#include "astro/mSkyTexts.h"
#include "shell/base/qtForms.h"

namespace halvorine {

class frmObject : public ModalForm, public ObjectCalls {
  Q_OBJECT
 public:
  frmObject();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowObject(0); }
  void ShowObject(int index) override;

 private:
  void Fill(const ObjectTexts& texts);

  QLabel* lblObject_;
};

}  // namespace halvorine
