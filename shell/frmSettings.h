// frmSettings: all options on fourteen tabs. The dialog edits a copy in its controls: Options change by OK,
// and the store by Save.
#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <array>
#include <string>
#include <vector>

#include "controls/GraphButton.h"
#include "controls/RangeTool.h"
#include "shell/base/qtForms.h"
#include "shell/mSettings.h"
#include "shell/qtSettingsParts.h"

namespace halvorine {

class frmSettings : public ChildForm, public SettingsCalls {
  Q_OBJECT
 public:
  frmSettings();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  void ShowTab(int tab) override;

  /// Shows the options as they stand in all controls.
  void Leggi_impostazioni();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The two ranges of a page of filters, with what is read beside them.
  struct FilterRanges {
    RangeTool *rtAltsat = nullptr, *rtAzisat = nullptr;
    QLabel *lblAltmin = nullptr, *lblAzmin = nullptr, *lblAzmax = nullptr;
  };

  void MakePages();
  void AddPage(const char* key, QWidget* content);
  QWidget* MakeGenerali();
  QWidget* MakeSatelliti();
  QWidget* MakeMappamondo();
  QWidget* MakeObjects(const char* frame, const std::string& chart);
  QWidget* MakeHorizon(const char* frame, const std::string& chart);
  QWidget* MakeFiltri();
  QWidget* MakeFilterPage(const char* frame, int page);
  void MakeRanges(QGridLayout* grid, int page);
  QWidget* MakeServer();
  QWidget* MakeDownload();
  QWidget* MakeColori1();
  QWidget* MakeColori2();
  QWidget* MakeEsegui();
  QLayout* MakeLastRow();
  GraphButton* MakeButton(const char* name, const char* section, const char* key);
  /// A list of addresses with its column of commands, which begin with a name.
  QWidget* MakeRows(const char* frame, RowsView* list, const std::string& commands);

  QCheckBox* MakeCheck(const std::string& control);
  /// A list behind its caption, as a row of a grid.
  void AddList(QGridLayout* grid, const std::string& control);
  /// A colour area behind its caption.
  void AddColour(QGridLayout* grid, int row, int column, const std::string& control);
  std::int32_t ShownIn(const SettingRow& row) const;
  void ShowIn(const SettingRow& row, std::int32_t shown);
  /// Takes the default colours into the areas of a frame.
  void RestoreColours(const char* frame);
  void TakeControls(ProgramOptions& options) const;
  void ShowRanges(const FilterRanges& ranges);

  void cmdOK_Click();
  void cmdEseguiProgramma_Click();
  void MoveRow(RowsView* list, int way, const char* messageKey);

  QTabWidget* SSTab1_;
  QCheckBox* chkWorldMapTerminatore_ = nullptr;
  std::array<FilterRanges, 3> ranges_;
  RowsView *lvwServerNTP_ = nullptr, *lvwDownload_ = nullptr;
  QLineEdit *txtEseguiProgramma_ = nullptr, *txtEseguiParametri_ = nullptr;
};

}  // namespace halvorine
