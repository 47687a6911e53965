#include "programs/host_file/difference.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

#include "programs/host_file/ended_processes.h"
#include "programs/host_file/process_accounting.h"

namespace ozmo::host_file {
namespace {

// Makes a counter what was counted since `earlier`.
void Subtract(uint64_t earlier, uint64_t& counter) { counter -= std::min(counter, earlier); }

void Subtract(std::span<const uint64_t> earlier, std::span<uint64_t> counters) {
  for (size_t i = 0; i < counters.size(); ++i) Subtract(earlier[i], counters[i]);
}

void Subtract(const ProcessorFigures& earlier, ProcessorFigures& processor) {
  for (const auto mode : PROCESSOR_COUNTERS) Subtract(earlier.*mode, processor.*mode);
}

void Subtract(const DiskFigures& earlier, DiskFigures& disk) {
  const uint64_t underWay = disk.figures[DiskFigures::UNDER_WAY];
  Subtract(earlier.figures, disk.figures);
  disk.figures[DiskFigures::UNDER_WAY] = underWay;
}

void Subtract(const AdapterFigures& earlier, AdapterFigures& adapter) {
  Subtract(earlier.figures, adapter.figures);
}

void Subtract(const PagingFigures& earlier, PagingFigures& paging) {
  for (const auto counter : PAGING_COUNTERS) Subtract(earlier.*counter, paging.*counter);
}

void Subtract(const ProtocolFigures& earlier, ProtocolFigures& protocols) {
  const ProtocolFigures now = protocols;
  Subtract(std::span(earlier), std::span(protocols));
  for (const size_t level : PROTOCOL_LEVELS) protocols[level] = now[level];
}

// Subtracts the members of a list from those of the same name, and drops the new ones. Lists keep their order
// mostly, so the search begins at the same place.
template <class Figures, class Name>
void SubtractList(const std::vector<Figures>& earlier, std::vector<Figures>& later, Name Figures::*name) {
  size_t place = 0;
  std::erase_if(later, [&](Figures& figures) {
    for (size_t tried = 0; tried < earlier.size(); ++tried, ++place) {
      if (place >= earlier.size()) place = 0;
      if (earlier[place].*name != figures.*name) continue;
      Subtract(earlier[place++], figures);
      return false;
    }
    return true;
  });
}

}  // namespace

HostFigures DifferenceOf(const HostFigures& earlier, const HostFigures& later) {
  ProcessEnds none;
  return DifferenceOf(earlier, later, none);
}

HostFigures DifferenceOf(const HostFigures& earlier, const HostFigures& later, ProcessEnds& ends) {
  HostFigures interval = later;
  SubtractList(earlier.processors, interval.processors, &ProcessorFigures::id);
  Subtract(earlier.paging, interval.paging);
  SubtractList(earlier.disks, interval.disks, &DiskFigures::name);
  SubtractList(earlier.adapters, interval.adapters, &AdapterFigures::name);
  interval.processes = ProcessesSince(earlier.processes, earlier.uptime, later.processes, ends);
  std::vector<std::string> images;
  for (const ProcessFigures& process : interval.processes) images.push_back(process.image);
  std::vector<EndedProcess> ended;
  for (ReportedEnd& end : ends.ends) ended.push_back(std::move(end.process));
  ends.ends.clear();
  AddEnded(interval.processes, images, ended);
  Subtract(earlier.protocols, interval.protocols);
  if (!earlier.hasProtocols) interval.hasProtocols = false;
  return interval;
}

}  // namespace ozmo::host_file
