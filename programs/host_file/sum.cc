#include "programs/host_file/sum.h"

#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "programs/host_file/ended_processes.h"

namespace ozmo::host_file {
namespace {

void Add(std::span<const uint64_t> earlier, std::span<uint64_t> counters) {
  for (size_t i = 0; i < counters.size(); ++i) counters[i] += earlier[i];
}

void Add(const ProcessorFigures& earlier, ProcessorFigures& processor) {
  for (const auto mode : PROCESSOR_COUNTERS) processor.*mode += earlier.*mode;
}

void Add(const DiskFigures& earlier, DiskFigures& disk) {
  const uint64_t underWay = disk.figures[DiskFigures::UNDER_WAY];
  Add(earlier.figures, disk.figures);
  disk.figures[DiskFigures::UNDER_WAY] = underWay;
}

void Add(const AdapterFigures& earlier, AdapterFigures& adapter) { Add(earlier.figures, adapter.figures); }

void Add(const ProtocolFigures& earlier, ProtocolFigures& protocols) {
  const ProtocolFigures now = protocols;
  Add(std::span(earlier), std::span(protocols));
  for (const size_t level : PROTOCOL_LEVELS) protocols[level] = now[level];
}

// Adds the members of a list to those of the same name. Lists keep their order mostly, so the search begins
// at the same place.
template <class Figures, class Name>
void AddList(const std::vector<Figures>& earlier, std::vector<Figures>& later, Name Figures::*name) {
  size_t place = 0;
  for (const Figures& figures : earlier) {
    size_t tried = 0;
    for (; tried < later.size(); ++tried, ++place) {
      if (place >= later.size()) place = 0;
      if (later[place].*name == figures.*name) break;
    }
    if (tried < later.size()) {
      Add(figures, later[place++]);
    } else {
      later.push_back(figures);
    }
  }
}

// The image in a command: the last part of the first word's path. One in brackets is a name as a whole.
std::string ImageOf(std::string_view command) {
  if (command.starts_with('[')) return std::string(command);
  const std::string_view program = command.substr(0, command.find(' '));
  return std::string(program.substr(program.rfind('/') + 1));
}

void AddProcesses(const std::vector<ProcessFigures>& earlier, std::vector<ProcessFigures>& later) {
  std::unordered_map<int32_t, size_t> places;
  for (size_t place = 0; place < later.size(); ++place) places.try_emplace(later[place].id, place);
  std::vector<EndedProcess> ended;
  for (const ProcessFigures& process : earlier) {
    const auto found = places.find(process.id);
    if (found == places.end() || later[found->second].start != process.start) {
      ended.push_back({process.id, process.parent, ImageOf(process.command), process.user, process.own, ""});
      continue;
    }
    for (const auto member : USE_COUNTERS) later[found->second].own.*member += process.own.*member;
  }
  std::vector<std::string> images;
  if (!ended.empty()) {
    for (const ProcessFigures& process : later) images.push_back(ImageOf(process.command));
  }
  AddEnded(later, images, ended);
}

}  // namespace

HostFigures SumOf(const HostFigures& earlier, HostFigures later) {
  AddList(earlier.processors, later.processors, &ProcessorFigures::id);
  for (const auto counter : PAGING_COUNTERS) later.paging.*counter += earlier.paging.*counter;
  AddList(earlier.disks, later.disks, &DiskFigures::name);
  AddProcesses(earlier.processes, later.processes);
  later.hasProtocols = later.hasProtocols || earlier.hasProtocols;
  Add(earlier.protocols, later.protocols);
  AddList(earlier.adapters, later.adapters, &AdapterFigures::name);
  return later;
}

}  // namespace ozmo::host_file
