// A small Solaris file in the making: definition lists, configuration, and samples of processor records.
#pragma once

#include <string>
#include <vector>

#include "sample/collector_writer.h"

namespace ozmo::testing {

using sample::CollectorWriter;
using sample::Int32;
using sample::Int64;
using sample::Text;

struct SolarisConfig {
  std::string version = "P730";
  int64_t utcOffset = 0;
  int64_t interval = 60;
};

inline void WriteSolarisLists(CollectorWriter& writer) {
  writer.OrderList(5, {501, 506, 507, 514, 503, 505}).DivisorList(5, {1, 1, 1, 1, 1, 1});
  writer.OrderList(7, {701}).DivisorList(7, {1});
  writer.OrderList(6, {601, 605, 606, 607, 613}).DivisorList(6, {1, 1, 1, 1, 1});
}

inline void WriteSolarisConfig(CollectorWriter& writer, const SolarisConfig& config = {}) {
  writer.Record(5, {Text(config.version), Text("node"), Int32(config.utcOffset), Int32(config.interval),
                    Int64(int64_t{1024} * 1024), Int32(2)});
}

inline void WriteSolarisTime(CollectorWriter& writer, int64_t seconds) { writer.Record(7, {Int32(seconds)}); }

inline void WriteProcessor(CollectorWriter& writer, int64_t cpuId, int64_t user, int64_t idle = 0) {
  writer.Record(6, {Int32(cpuId), Int64(user), Int64(0), Int64(idle), Int64(0)});
}

}  // namespace ozmo::testing
