// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace Vela::Benchmarks {

namespace {

/// Keeps the median of each benchmark, in nanoseconds an item (or a call when no items are counted).
class MedianCollector : public benchmark::ConsoleReporter {
public:
  using ConsoleReporter::ConsoleReporter;

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.aggregate_name != "median")
        continue;
      const auto items = run.counters.find("items_per_second");
      const double nanoseconds =
          items == run.counters.end()
              ? run.GetAdjustedRealTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit)
              : 1e9 / items->second.value;
      m_medians[run.run_name.str()] = nanoseconds;
    }
  }

  const std::map<std::string, double>& medians() const { return m_medians; }

private:
  std::map<std::string, double> m_medians;
};

void print(const Comparison& comparison, const std::map<std::string, double>& medians) {
  const auto figure = medians.find(comparison.figure);
  const auto peer = medians.find(comparison.peer);
  if (figure == medians.end() || peer == medians.end())
    return;
  const bool ratio = comparison.kind == Comparison::Kind::Ratio;
  const double value = ratio ? figure->second / peer->second : figure->second - peer->second;
  std::printf("%-34s %12.1f ns  %-30s %12.1f ns  %8.2f %s", comparison.figure.c_str(), figure->second,
              comparison.peer.c_str(), peer->second, value, ratio ? "times" : "ns more");
  if (comparison.aim)
    std::printf("  (aim: at most %.2f)%s", *comparison.aim, value <= *comparison.aim ? "" : "  MISSED");
  std::printf("\n");
}

} // namespace

int run(int argc, char** argv, const std::vector<Comparison>& comparisons) {
  std::vector<std::string> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1,
                   {"--benchmark_repetitions=7", "--benchmark_enable_random_interleaving=true",
                    "--benchmark_report_aggregates_only=true", "--benchmark_min_time=0.1"});
  std::vector<char*> pointers;
  for (std::string& argument : arguments)
    pointers.push_back(argument.data());
  int count = static_cast<int>(pointers.size());
  benchmark::Initialize(&count, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
    return 1;
  MedianCollector collector(benchmark::ConsoleReporter::OO_Tabular);
  benchmark::RunSpecifiedBenchmarks(&collector);
  std::printf("\n");
  for (const Comparison& comparison : comparisons)
    print(comparison, collector.medians());
  return 0;
}

} // namespace Vela::Benchmarks
