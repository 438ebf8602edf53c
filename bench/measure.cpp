#include "measure.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <map>

namespace posto::bench {
namespace {

// Keeps the times of every run beside printing them.
class Keeper : public benchmark::ConsoleReporter {
 public:
  Keeper() : ConsoleReporter(OO_Tabular) {}
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
        times[run.benchmark_name()].push_back(run.GetAdjustedRealTime());
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, std::vector<double>> times;
};

// The runs of a benchmark bear its name and, behind a slash, how they were run.
double best_of(const Keeper& keeper, const std::string& name) {
  for (const auto& [run, times] : keeper.times) {
    if (run == name || run.starts_with(name + "/")) return *std::min_element(times.begin(), times.end());
  }
  return 0;
}

void add(const std::string& name, const Side& side, const Pair& pair) {
  using Clock = std::chrono::steady_clock;
  benchmark::RegisterBenchmark(
      name.c_str(),
      [side, units = pair.units, warm = pair.warm](benchmark::State& state) {
        for (auto _ : state) {
          if (side.before) side.before();
          if (warm) side.work();
          const auto started = Clock::now();
          side.work();
          state.SetIterationTime(std::chrono::duration<double>(Clock::now() - started).count());
          if (side.after) side.after();
        }
        using benchmark::Counter;
        state.counters["each"] = Counter(units, Counter::kIsIterationInvariantRate | Counter::kInvert);
      })
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1)
      ->Repetitions(pair.repetitions)
      ->UseManualTime();
}

}  // namespace

int measure(int argc, char** argv, const std::vector<Pair>& pairs) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string in_turns = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, in_turns.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  for (const Pair& pair : pairs) {
    add(pair.name + "/ours", pair.ours, pair);
    add(pair.name + "/peer", pair.peer, pair);
  }
  Keeper keeper;
  benchmark::RunSpecifiedBenchmarks(&keeper);
  for (const Pair& pair : pairs) {
    const double peer = best_of(keeper, pair.name + "/peer");
    if (peer > 0) fmt::print("ratio {} {:.2f}\n", pair.name, best_of(keeper, pair.name + "/ours") / peer);
  }
  return 0;
}

}  // namespace posto::bench
