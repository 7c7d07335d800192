// frmTrack: the live panel. Four tabs of ten rows, one for each active satellite of the page, which every
// tick refreshes. The names stand on the page that is shown.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QTabWidget>
#include <array>
#include <cstdint>
#include <vector>

#include "controls/GraphButton.h"
#include "prediction/mTrack.h"
#include "shell/base/qtForms.h"

namespace halvorine {

class frmTrack : public ChildForm, public TrackCalls {
  Q_OBJECT
 public:
  frmTrack();
  void Unload() override { UnloadForm(); }
  void Show() override;
  void Aggiorna_dati() override;
  void SetChannel(int panelRow) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  static constexpr int tabCount = 4;

  QWidget* MakePage(int tab);
  QWidget* MakeRadioCell(int row);
  QLayout* MakeLastLine();
  /// Puts the names on the page that is shown.
  void MoveNames();
  void FillRow(int row);
  void ColourName(int row);
  void Move(TrackMove move);
  void cmdCanale_Click(int row);

  QTabWidget* SSTab1_;
  std::array<QGridLayout*, tabCount> grids_{};
  QLabel *nameHead_, *lblSatellite_ = nullptr;
  std::array<QLabel*, TrackRows> lblName_{};
  std::array<GraphButton*, TrackRows> cmdCanale_{};
  std::array<std::vector<QLabel*>, TrackRows> values_;  // in the order of the pages and their columns
  std::array<bool, TrackRows> below_{};
  std::int16_t firstSlot_ = 1;
  bool empty_ = false;
};

}  // namespace halvorine
