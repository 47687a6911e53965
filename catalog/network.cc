#include "catalog/network.h"

namespace ozmo {

void StoreTraces(BuildState& state, Graph graph, std::initializer_list<float> values) {
  int set = 0;
  for (const float value : values) state.catalog.Store(graph, set++, state.point, value);
}

}  // namespace ozmo
