// What the tests of Sun, Moon and planets share: elements, comparison with a row, angular distances.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "shell/base/mGlobal.h"
#include "tests/fakes/ReferenceTable.h"

namespace halvorine {

/// The planet file's text for which the values of sky.txt hold.
inline std::string ReferenceElements() {
  std::string text;
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "element"))
    text += row.Text(1) + "\n" + row.Text(2) + "\n";
  return text;
}

/// Compares place, distance and size with cells 8 to 11.
inline void CheckReferencePlace(const ReferenceRow& row, const SkyObject& body) {
  EXPECT_NEAR(body.RightAscension, row.Number(8), 1e-9);
  EXPECT_NEAR(body.Declination, row.Number(9), 1e-8);
  EXPECT_NEAR(body.Distance / row.Number(10), 1, 1e-10);
  EXPECT_NEAR(body.AngularDiameter / row.Number(11), 1, 1e-10);
}

/// Degrees between a body and a place in hours and degrees (haversine, with full constants).
inline double Separation(const SkyObject& body, double rightAscension, double declination) {
  const double degree = std::acos(-1.0) / 180;
  const double dec1 = body.Declination * degree, dec2 = declination * degree;
  const double halfRa = (body.RightAscension - rightAscension) * 15 * degree / 2;
  const double h = std::pow(std::sin((dec1 - dec2) / 2), 2) +
                   std::cos(dec1) * std::cos(dec2) * std::pow(std::sin(halfRa), 2);
  return 2 * std::asin(std::sqrt(std::min(h, 1.0))) / degree;
}

/// Mean square and largest of a row of errors.
class Errors {
 public:
  void Add(double error) {
    ++count_;
    squares_ += error * error;
    largest_ = std::max(largest_, std::fabs(error));
  }
  int Count() const { return count_; }
  double Rms() const { return std::sqrt(squares_ / count_); }
  double Largest() const { return largest_; }

 private:
  int count_ = 0;
  double squares_ = 0, largest_ = 0;
};

}  // namespace halvorine
