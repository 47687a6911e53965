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

BENCHMARK_CAPTURE(WalkDay, Solaris, ReaderKind::SOLARIS)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WalkDay, Linux, ReaderKind::LINUX)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WalkDay, Aix, ReaderKind::AIX)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WalkDay, Hpux, ReaderKind::HPUX)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WalkDay, Tru64, ReaderKind::TRU64)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WalkDay, Vmr, ReaderKind::VMR)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ozmo
