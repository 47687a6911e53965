// What a source gives: the figures of a host, interval by interval.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "programs/host_file/host_figures.h"

namespace ozmo::import {

struct Sample {
  std::string node;
  int64_t time = 0;                // the end of the interval, in seconds since 1970
  int64_t seconds = 0;             // its length, 1 at least
  host_file::HostFigures figures;  // counters: what was counted in the interval
};

// Takes a sample. Returns what went wrong, which ends the reading, or nothing.
using SampleSink = std::function<std::string(const Sample&)>;

}  // namespace ozmo::import
