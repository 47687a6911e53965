// Bytes per second of each reader: a day of sample data, walked interval by interval.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "bench/sample_directory.h"
#include "readers/data_reader.h"
#include "runtime/runtime.h"

namespace ozmo {
namespace {

sample::SampleOptions Options() {
  sample::SampleOptions options;
  options.scale = 10;
  return options;
}

// A whole day of samples a minute apart, with ten times the usual processes.
const bench::SampleDay& Day(ReaderKind kind) {
  static const bench::SampleDays days(Options());
  return days.Of(kind);
}

void WalkDay(benchmark::State& state, ReaderKind kind) {
  const bench::SampleDay& day = Day(kind);
  int64_t intervals = 0;
  for (auto _ : state) {
    Runtime runtime;
    DataReader reader(day.firstFile, runtime);
    VmrContext context;
    context.periodStart = reader.Head().value().firstRecordTime;
    context.periodEnd = context.periodStart + SECONDS_PER_DAY;
    if (reader.Open(context) > 0) {
      while (reader.Next(context) == ReaderResult::DONE) ++intervals;
    }
    reader.Close(context);
  }
  state.SetBytesProcessed(state.iterations() * day.bytes);
  state.counters["intervals"] =
      benchmark::Counter(static_cast<double>(intervals) / static_cast<double>(state.iterations()));
}

// A benchmark for each kind.
const bool ARE_REGISTERED = [] {
  for (const KindRow& row : ReaderKinds()) {
    const std::string name = "WalkDay/" + std::string(row.word);
    benchmark::RegisterBenchmark(name.c_str(), WalkDay, row.kind)->Unit(benchmark::kMillisecond);
  }
  return true;
}();

}  // namespace
}  // namespace ozmo
