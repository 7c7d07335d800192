// frmLocation: the observer's site, by a place of the list or by its zone and height alone. The list is read
// when the window opens; the site changes only by OK.
#pragma once

#include <QAbstractListModel>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <vector>

#include "controls/GraphButton.h"
#include "maps/qtSurface.h"
#include "shell/base/qtForms.h"

namespace halvorine {

/// The places in the order of their names; UserRole gives the row in the list of places.
class CityModel : public QAbstractListModel {
  Q_OBJECT
 public:
  using QAbstractListModel::QAbstractListModel;
  /// Takes the list as it stands now.
  void ReadRows();
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  /// Entry of a row of the list of places, -1 for none.
  int EntryOf(int row) const;

 private:
  std::vector<int> rows_;
  QStringList names_;
};

class frmLocation : public ChildForm, public FormCalls {
  Q_OBJECT
 public:
  frmLocation();
  void Unload() override { UnloadForm(); }
  /// Shows the window; the first time it then reads the list of places.
  void Show() override;

 protected:
  void BeforeUnload() override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakePlace();
  QWidget* MakeCoordinates();
  QWidget* MakeTime();
  QLayout* MakeLastRow();
  GraphButton* MakeButton(const char* name, const char* section, const char* key);

  void ReadPlaces();
  void EnableCommands(bool on);
  /// Fills the list anew and puts it on a row of the table, 0 for none.
  void FillPlaces(int row);
  void ShowSite();
  void ShowCoordinates(double latitude, double longitude);
  void ShowZone(double zone);
  /// Row of the chosen place in the table, 0 for none.
  int ChosenRow() const;
  /// The same; where there is none, the user is told.
  int RequiredRow() const;
  void TakeTyped();
  void OpenPlace(int row);

  void cmbCity_Click();
  void cmdElimina_Click();
  void cmdFusoOrario_Click();
  void cmdOK_Click();

  QComboBox *cmbCity_ = nullptr, *cmbOffset_ = nullptr, *cmbOffsetHours_ = nullptr, *cmbOffsetMin_ = nullptr;
  CityModel* cities_ = nullptr;
  QLabel *lblCity_ = nullptr, *lblLatitude_ = nullptr, *lblLongitude_ = nullptr;
  QLineEdit* txtHeight_ = nullptr;
  QCheckBox* chkDaylight_ = nullptr;
  SurfaceWidget* picGeo_ = nullptr;
  QtPicture earth_;
  QPointer<QDialog> place_;              // the dialog of a new or changed place while it is open
  std::vector<QWidget*> commands_;       // and fields that wait for the end of the read
  double latitude_ = 0, longitude_ = 0;  // exact values of the two labels
  bool read_ = false, reading_ = false;
  bool typed_ = false;  // the Enter now handled settles a typed name
};

}  // namespace halvorine
