// Changes that can be planted into a sample, for what compares days: something to be found.
#pragma once

#include <span>
#include <string_view>

#include "programs/sample/kinds.h"

namespace ozmo::sample {

// The names of all changes, and what each does, in the order in which they are listed to users.
struct PlantedChange {
  std::string_view name;
  std::string_view text;
  // Changes what the host did in an interval. `hours` have passed since the change began that day.
  void (*act)(HostSample& sample, double hours);
};
std::span<const PlantedChange> PlantedChanges();

// Null for an unknown name.
const PlantedChange* FindPlantedChange(std::string_view name);

// What the host did in the interval that ends at `wallTime`, with the change that the options ask for.
HostSample SampleAt(const SampleContext& context, int64_t wallTime);

}  // namespace ozmo::sample
