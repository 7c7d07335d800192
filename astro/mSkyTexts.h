// What is told about stars and bodies of the solar system: the rows of the planet table and the values of one
// picked object, as texts.
#pragma once

#include <array>
#include <limits>
#include <string>
#include <string_view>

#include "shell/base/mRecords.h"

namespace halvorine {

/// Keys of the bodies' names in section Planets of the language file, in the order of SkyObjectTable.
constexpr std::array<const char*, 9> BodyKeys = {"mercurio", "venere",  "marte", "giove", "saturno",
                                                 "urano",    "nettuno", "sole",  "luna"};

/// Light time as it is shown: minutes and seconds, from one hour on with hours.
std::string LightTimeText(double hours);

/// The table of Mercury to Neptune, Sun and Moon.
class PlanetTable {
 public:
  static constexpr int RowCount = 9;
  static constexpr int ColumnCount = 9;
  /// A column's heading, in a section of the language file.
  struct Column {
    const char *section, *key;
    bool rightAligned;
  };
  static const std::array<Column, ColumnCount>& Columns();

  /// Takes the values from SkyObjectTable; the chosen order holds for the new values.
  void Refresh();
  /// Orders by a column; by the same one again in reverse. Rows with nothing there come last.
  void SortBy(int column);
  bool Descending() const { return descending_; }
  const std::string& Cell(int row, int column) const;

 private:
  struct Value {
    std::string text;
    double key = std::numeric_limits<double>::quiet_NaN();  // none: nothing to order by
  };
  using Row = std::array<Value, ColumnCount>;
  static Row RowOf(int body);
  void Order();

  std::array<Row, RowCount> rows_;
  std::array<int, RowCount> order_{0, 1, 2, 3, 4, 5, 6, 7, 8};
  int sortColumn_ = -1;
  bool descending_ = false;
};

/// The values of one object; a value that it does not have is empty.
struct ObjectTexts {
  std::string Name, Constellation, Letter, Spectrum, RightAscension, Declination, Azimuth, Altitude,
      Magnitude, Diameter, Phase, Distance, LightTime;
};

/// Texts of a star, which stands where the sky of ClockFields has it for the observer.
ObjectTexts StarTexts(const StarRecord& star);

/// Texts of a row of SkyObjectTable, 1 to 9; SubscriptFailure for any other.
ObjectTexts BodyTexts(int row);

/// Bayer's letter in Greek, with its index raised, from a letter of the Symbol font and a digit.
std::string GreekLetter(std::string_view letter);

}  // namespace halvorine
