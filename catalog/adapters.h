// LAN adapter graphs: two summary graphs over all adapters, and three graphs of each adapter.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "catalog/platform.h"

namespace ozmo {

// Adapters with graphs; further ones are passed over.
inline constexpr size_t MAX_ADAPTERS = 15;
inline constexpr size_t ADAPTER_GRAPHS = 3;

// The rule of platforms on which every adapter has graphs, whatever its name.
bool AdapterHasAnyName(std::string_view name);

// The adapters seen so far.
class AdapterPass {
 public:
  explicit AdapterPass(bool (*hasGraphs)(std::string_view name)) : hasGraphs_(hasGraphs) {}

  void Run(const Minute& minute, const VmrContext& interval);

 private:
  // An adapter's own graphs; none where nobody wants them.
  struct Entry {
    std::string name;
    std::array<GraphRecord*, ADAPTER_GRAPHS> graphs{};
  };

  bool FindPair(const Minute& minute, std::string_view name, size_t& pair);
  const Entry* EntryOf(const Minute& minute, std::string_view name);

  bool (*hasGraphs_)(std::string_view name);
  std::vector<std::string> pairs_;  // first label of each pair of sets in the summary graphs
  std::vector<Entry> entries_;
};

}  // namespace ozmo
