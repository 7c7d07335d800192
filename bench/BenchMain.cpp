#include <benchmark/benchmark.h>

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <fstream>
#include <utility>
#include <vector>

#include "bench/Figures.h"
#include "controls/qtLook.h"

namespace halvorine {

namespace {

std::vector<Figure>& Figures() {
  static std::vector<Figure> figures;
  return figures;
}

}  // namespace

FigureRegistration::FigureRegistration(Figure figure) { Figures().push_back(std::move(figure)); }

double MedianMilliseconds(int runs, const std::function<void()>& prepare, const std::function<void()>& work) {
  std::vector<double> times;
  for (int run = 0; run < runs; ++run) {
    if (prepare) prepare();
    const auto begin = std::chrono::steady_clock::now();
    work();
    times.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

double ProcessMemory(const std::string& key) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind(key + ":", 0) == 0) return std::strtod(line.c_str() + key.size() + 1, nullptr) / 1024;
  return 0;
}

void ResetPeakMemory() { std::ofstream("/proc/self/clear_refs") << "5"; }

}  // namespace halvorine

namespace {

/// Prints one row for each figure: its target, what was measured, and whether that meets it.
class FigureReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override {
    std::printf("%-66s %12s %12s\n", "figure", "target", "measured");
    return true;
  }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      const double target = run.counters.at("target"), measured = run.counters.at("measured");
      missed += measured <= target ? 0 : 1;
      std::printf("%-66s %8.2f %-3s %8.2f %-3s %s\n", run.run_name.function_name.c_str(), target,
                  run.report_label.c_str(), measured, run.report_label.c_str(),
                  measured <= target ? "met" : "missed");
      std::fflush(stdout);
    }
  }
  int missed = 0;
};

/// A figure measures itself, so that the library runs it just once.
void RegisterFigures() {
  for (const halvorine::Figure& figure : halvorine::Figures())
    benchmark::RegisterBenchmark(figure.name.c_str(), [&figure](benchmark::State& state) {
      for (auto _ : state) state.counters["measured"] = figure.measure();
      state.counters["target"] = figure.target;
      state.SetLabel(figure.unit);
    })->Iterations(1);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  halvorine::ApplyLook(*qApp);
  // what the plugin without a screen cannot do would drown the table
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith(QStringLiteral("This plugin does not support")) && type != QtDebugMsg)
      std::fprintf(stderr, "%s\n", qPrintable(text));
  });
  benchmark::Initialize(&argc, argv);
  RegisterFigures();
  FigureReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("%d missed\n", reporter.missed);
}
