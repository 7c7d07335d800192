// frmRiseSet: the almanac. Rise and set of Sun and Moon for a date, with their azimuths and the Moon's phase.
#pragma once

#include <QDateTimeEdit>
#include <QLabel>
#include <QLayout>

#include "astro/mAlmanac.h"
#include "controls/GraphButton.h"
#include "maps/qtSurface.h"
#include "shell/base/qtForms.h"

namespace halvorine {

class frmRiseSet : public ChildForm, public FormCalls {
  Q_OBJECT
 public:
  frmRiseSet();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeDate();
  QWidget* MakeEvents();
  QLayout* MakeEvent(int index);
  GraphButton* MakeStep(const char* name, const char* key, const char* icon);
  void ShowEvent(int index, const AlmanacEvent& event);
  void ShowDay();
  /// Draws the Moon with the phase that it has at a date.
  void Disegna_luna(Date date);
  void DrawSun();
  void DrawPhase();

  QDateTimeEdit* DTPicker1_;
  SurfaceWidget *picSole_, *picLuna_;
  QtPicture sunPicture_;
  double phase_ = 0;  // of the Moon, degrees
};

}  // namespace halvorine
