#include "catalog/build_state.h"

namespace ozmo {

void StoreSets(BuildState& state, Graph graph, std::span<const float> values) {
  int set = 0;
  for (const float value : values) state.catalog.Store(graph, set++, state.point, value);
}

void StoreSets(BuildState& state, Graph graph, std::initializer_list<float> values) {
  StoreSets(state, graph, std::span<const float>(values.begin(), values.size()));
}

void StoreSets(BuildState& state, Graph graph, std::initializer_list<double> values) {
  int set = 0;
  for (const double value : values) state.catalog.Store(graph, set++, state.point, static_cast<float>(value));
}

}  // namespace ozmo
