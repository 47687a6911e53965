// The protocol statistics of the BSD family, as AIX, HP-UX and Tru64 keep them: the TCP structure
// from element 0, IP from 54, UDP from 90. Each platform has fields of its own for the elements.
#pragma once

#include <span>

#include "programs/sample/host_model.h"

namespace ozmo::sample {

struct BsdCounter {
  int element;
  double (*value)(const NetworkSample& network);
};

std::span<const BsdCounter> BsdCounters();

}  // namespace ozmo::sample
