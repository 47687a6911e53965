// Seconds of each output type, for a stacked graph of a day, and the peak memory of the process.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "output/graph_job.h"
#include "output/output_type.h"
#include "runtime/runtime.h"

namespace ozmo {
namespace {

constexpr int POINTS = 1442;
constexpr int TRACES = 10;
constexpr Seconds START = 1329868800;

// Ten stacked traces over a day.
class StackedGraph {
 public:
  explicit StackedGraph(GraphType type) {
    static const char* const colours[] = {"Blue", "Red", "Green", "LimeGreen", "LightBlue"};
    for (int trace = 0; trace < TRACES; ++trace) {
      std::vector<float>& series = series_.emplace_back(POINTS, 0.0F);
      for (int i = 1; i + 1 < POINTS; ++i) {
        series[static_cast<size_t>(i)] =
            static_cast<float>((TRACES - trace) * (5.0 + 4.0 * std::sin(i / 60.0 + trace)));
      }
    }
    job_.mainOverlay.title = "Top 10 Images by CPU Utilization";
    job_.mainOverlay.yTitle = "%CPU Utilization";
    job_.mainOverlay.yMax = 110.0;
    for (int trace = 0; trace < TRACES; ++trace) {
      job_.mainOverlay.traces.push_back(
          {"#" + std::to_string(trace) + " image", colours[trace % 5], series_[static_cast<size_t>(trace)]});
    }
    job_.graphType = type;
    job_.startTime = START;
    job_.endTime = START + (POINTS - 1) * 60;
    job_.pointCount = POINTS;
    job_.width = 11.0;
    job_.height = 8.5;
    job_.graphFile = (std::filesystem::temp_directory_path() / "ozmo_bench_graph").string();
    job_.hostName = "node";
  }
  ~StackedGraph() {
    std::error_code ignored;
    std::filesystem::remove(job_.graphFile, ignored);
  }
  StackedGraph(const StackedGraph&) = delete;
  StackedGraph& operator=(const StackedGraph&) = delete;

  const GraphJob& job() const { return job_; }

 private:
  std::vector<std::vector<float>> series_;
  GraphJob job_;
};

void WriteGraph(benchmark::State& state, GraphType type) {
  const StackedGraph graph(type);
  Runtime runtime;
  for (auto _ : state) OutputTypeOf(type).write(graph.job(), runtime);
  struct rusage usage {};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["peak_kb"] = static_cast<double>(usage.ru_maxrss);
}

BENCHMARK_CAPTURE(WriteGraph, Csv, GraphType::CSV)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteGraph, PostScript, GraphType::POSTSCRIPT)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteGraph, Gif, GraphType::GIF)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteGraph, Jpeg, GraphType::JPEG)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ozmo
