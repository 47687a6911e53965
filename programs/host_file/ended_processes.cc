#include "programs/host_file/ended_processes.h"

#include <map>
#include <utility>

namespace ozmo::host_file {
namespace {

void Add(const ProcessUse& use, ProcessUse& sum) {
  for (const auto member : USE_COUNTERS) sum.*member += use.*member;
}

}  // namespace

void AddEnded(std::vector<ProcessFigures>& living, std::span<const std::string> images,
              std::span<const EndedProcess> ended) {
  if (ended.empty()) return;
  std::map<std::pair<std::string, std::string>, size_t> places;  // by image and user
  for (size_t place = 0; place < living.size() && place < images.size(); ++place) {
    places.try_emplace({images[place], living[place].user}, place);
  }
  for (const EndedProcess& process : ended) {
    const auto [found, isNew] = places.try_emplace({process.image, process.user}, living.size());
    if (isNew) {
      ProcessFigures& record = living.emplace_back();
      record.id = process.id;
      record.parent = process.parent;
      record.command = process.command.empty() ? process.image : process.command;
      record.user = process.user;
    }
    Add(process.use, living[found->second].own);
  }
}

}  // namespace ozmo::host_file
