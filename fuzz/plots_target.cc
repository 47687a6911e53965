// Tables and plots of odd series, labels, sizes and spans, with the real libplot.
#include <fuzzer/FuzzedDataProvider.h>

#include <bit>
#include <cmath>
#include <limits>
#include <vector>

#include "fuzz/harness.h"
#include "output/libplot.h"
#include "output/output_type.h"
#include "runtime/runtime.h"

namespace ozmo::fuzz {
namespace {

constexpr size_t MOST_TRACES = 20;
constexpr int MOST_POINTS = 200;

constexpr double SIDES[] = {40,
                            200,
                            1,
                            0,
                            -1,
                            65500,
                            65501,
                            65535,
                            65536,
                            1e9,
                            1e300,
                            std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::quiet_NaN()};
constexpr double LONG_SIDE = 1000;  // beside one of these the other is short: a picture takes its time
constexpr double SHORT_SIDE = 2;

constexpr const char* COLOURS[] = {"Blue", "Red", "LimeGreen", "no colour", "", "\\ep"};

// Nothing is left of a run that ends inside a drawing. Libplot ends the page while its file is open.
int plotter = -1;

void EndPlotter() {
  if (plotter < 0) return;
  pl_closepl();
  pl_selectpl(0);
  pl_deletepl(plotter);
  plotter = -1;
}

class OddJob {
 public:
  OddJob(const uint8_t* data, size_t size) : data_(data, size) {
    job_.graphType =
        data_.PickValueInArray({GraphType::CSV, GraphType::POSTSCRIPT, GraphType::GIF, GraphType::JPEG});
    job_.graphFile = "out";
    job_.hostName = data_.ConsumeRandomLengthString(40);
    job_.pointCount = data_.ConsumeIntegralInRange(0, MOST_POINTS);
    job_.startTime = data_.ConsumeBool() ? Seconds{1329868800} : data_.ConsumeIntegral<Seconds>() / 4;
    job_.endTime = job_.startTime + Seconds{job_.pointCount} * 60 - 60;
    job_.sizeUnit = SizeUnit::PIXELS;
    job_.width = data_.PickValueInArray(SIDES);
    job_.height = data_.PickValueInArray(SIDES);
    if (job_.width > LONG_SIDE && job_.height > SHORT_SIDE) job_.height = SHORT_SIDE;
    if (job_.height > LONG_SIDE && job_.width > SHORT_SIDE) job_.width = SHORT_SIDE;
    if (data_.ConsumeBool()) {
      job_.additionalOverlay.emplace();
      FillLayer(*job_.additionalOverlay, 1);
    }
    FillLayer(job_.mainOverlay, 1 + data_.ConsumeIntegralInRange<size_t>(0, MOST_TRACES - 1));
  }

  const GraphJob& job() const { return job_; }

 private:
  void FillLayer(Overlay& layer, size_t traces) {
    layer.title = data_.ConsumeRandomLengthString(60);
    layer.yTitle = data_.ConsumeRandomLengthString(60);
    layer.yMax = Number();
    for (size_t n = 0; n < traces; ++n) {
      OverlayTrace& trace = layer.traces.emplace_back();
      if (data_.ConsumeBool()) trace.label = data_.ConsumeRandomLengthString(80);
      if (data_.ConsumeBool()) trace.colour = data_.PickValueInArray(COLOURS);
      trace.series = NewSeries();
    }
  }

  // A stretch of numbers, over and over.
  std::vector<float>& NewSeries() {
    std::vector<float> numbers(1 + data_.ConsumeIntegralInRange<size_t>(0, 9));
    for (float& number : numbers) number = Number();
    std::vector<float>& series = series_.emplace_back(static_cast<size_t>(job_.pointCount));
    for (size_t i = 0; i < series.size(); ++i) series[i] = numbers[i % numbers.size()];
    return series;
  }

  float Number() {
    return data_.ConsumeBool() ? std::bit_cast<float>(data_.ConsumeIntegral<uint32_t>())
                               : static_cast<float>(data_.ConsumeIntegral<int16_t>()) / 100;
  }

  FuzzedDataProvider data_;
  std::vector<std::vector<float>> series_;
  GraphJob job_;
};

}  // namespace
}  // namespace ozmo::fuzz

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
// Libplot keeps a few bytes of some polygons. A run draws one picture.
extern "C" const char* __lsan_default_suppressions() { return "leak:libplot"; }

// The linker puts these around libplot's functions.
extern "C" int __real_pl_newpl(const char* type, FILE* in, FILE* out, FILE* error);
extern "C" int __wrap_pl_newpl(const char* type, FILE* in, FILE* out, FILE* error) {
  ozmo::fuzz::plotter = __real_pl_newpl(type, in, out, error);
  return ozmo::fuzz::plotter;
}
extern "C" int __real_pl_deletepl(int handle);
extern "C" int __wrap_pl_deletepl(int handle) {
  ozmo::fuzz::plotter = -1;
  return __real_pl_deletepl(handle);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  beforeProcessEnd = EndPlotter;
  const OddJob odd(data, size);
  AsRun([&] {
    ozmo::Runtime runtime;
    ozmo::OutputTypeOf(odd.job().graphType).write(odd.job(), runtime);
  });
  return 0;
}
