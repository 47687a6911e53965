// Graph jobs for drawing tests, which own their series.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "output/graph_job.h"

namespace ozmo::testing {

inline constexpr Seconds MORNING = 1329897600;  // 22-Feb-2012 08:00 UTC

// A GIF job named "Load" whose y axis goes up to 110.
class PlotJob {
 public:
  PlotJob(int pointCount, Seconds start = MORNING) {
    job.graphType = GraphType::GIF;
    job.pointCount = pointCount;
    job.startTime = start;
    job.endTime = start + (pointCount - 1) * Seconds{60};
    job.width = 100.0;
    job.height = 80.0;
    job.sizeUnit = SizeUnit::PIXELS;
    job.mainOverlay.title = "Load";
    job.mainOverlay.yTitle = "Percent";
    job.mainOverlay.yMax = 110.0;
  }

  // The label is that of the colour.
  void AddTrace(const char* colour, std::vector<float> values) {
    job.mainOverlay.traces.push_back(Trace(colour, std::move(values)));
  }
  // A trace of the same value at all points but the first and the last, which are 0.
  void AddBand(const char* colour, float value) {
    std::vector<float> values(static_cast<size_t>(job.pointCount), value);
    values.front() = 0.0F;
    values.back() = 0.0F;
    AddTrace(colour, std::move(values));
  }
  void SetOverlay(double yMax, std::vector<float> values) {
    job.additionalOverlay = Overlay{};
    job.additionalOverlay->title = "Disks";
    job.additionalOverlay->yTitle = "Rate";
    job.additionalOverlay->yMax = yMax;
    job.additionalOverlay->traces.push_back(Trace("blue", std::move(values)));
    job.additionalOverlay->traces.front().label = "Reads";
  }

  GraphJob job;

 private:
  OverlayTrace Trace(const char* colour, std::vector<float> values) {
    series_.push_back(std::make_unique<std::vector<float>>(std::move(values)));
    OverlayTrace trace;
    if (colour != nullptr) {
      trace.colour = colour;
      trace.label = colour;
    }
    trace.series = *series_.back();
    return trace;
  }

  std::vector<std::unique_ptr<std::vector<float>>> series_;
};

}  // namespace ozmo::testing
