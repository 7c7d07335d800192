// The program's figures of speed and memory: each is measured by its own function and printed in one table
// with its target.
#pragma once

#include <functional>
#include <string>

namespace halvorine {

struct Figure {
  std::string name;
  double target = 0;
  std::string unit;
  std::function<double()> measure;
};

/// Adds a figure to the table; used by static objects of the bench sources.
struct FigureRegistration {
  explicit FigureRegistration(Figure figure);
};

/// Median of the milliseconds that `work` takes in several runs; `prepare` runs untimed before each.
double MedianMilliseconds(int runs, const std::function<void()>& prepare, const std::function<void()>& work);

/// A value of /proc/self/status such as "VmRSS", MiB; 0 where the system has none.
double ProcessMemory(const std::string& key);
/// Sets the peak of the process's memory ("VmHWM") back to what it holds now.
void ResetPeakMemory();

}  // namespace halvorine
