// frmAddLocation: a new place of the list, or another version of one. Two pages show the same values in
// decimals and in minutes and seconds.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTabWidget>
#include <array>
#include <functional>

#include "shell/mLocation.h"

namespace halvorine {

class frmAddLocation : public QDialog {
  Q_OBJECT
 public:
  /// Shows a row of the list, or an empty place for row 0. `saved` is told the row when the list was changed.
  frmAddLocation(QWidget* parent, int row, std::function<void(int)> saved);

 private:
  QWidget* MakePage(PlacePage page);
  QWidget* MakeHemispheres();
  QWidget* MakeZone();
  QLayout* MakeButtons();

  PlaceTexts Texts() const;
  void SetTexts(const PlaceTexts& texts);
  void ShowCity(const City& city);
  City Typed() const;
  /// Tells what is wrong and goes to the control.
  void Warn(const PlaceFault& fault);
  void PageChanged(int page);
  void cmdOK_Click();

  int row_;
  std::function<void(int)> saved_;
  QTabWidget* pages_ = nullptr;
  int page_ = PageDecimal;
  QLineEdit* txtCityName_ = nullptr;
  std::array<QLineEdit*, placeFieldCount> fields_{};
  QComboBox *cmbLatitude_ = nullptr, *cmbLongitude_ = nullptr, *cmbOffset_ = nullptr,
            *cmbOffsetHours_ = nullptr, *cmbOffsetMin_ = nullptr;
};

/// Fills the three lists of a zone: side of Greenwich, hours, minutes.
void FillZoneLists(QComboBox* offset, QComboBox* hours, QComboBox* minutes);
/// Sets them to a zone; minutes that the list does not hold leave it as it was.
void SetZoneLists(QComboBox* offset, QComboBox* hours, QComboBox* minutes, double zone);

}  // namespace halvorine
