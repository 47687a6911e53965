#include "catalog/memory.h"

namespace ozmo {

MemorySize MemorySizeOf(const VmrContext& context) {
  const SystemConfig& config = ConfigOf(context);
  return {static_cast<double>(config.memoryMb), config.pageSize / BYTES_PER_MB};
}

void StoreNoMemory(BuildState& state, double utilization) {
  constexpr Graph MEMORY_GRAPHS[] = {Graph::MEMORY_ALLOCATION,  Graph::PAGEFAULT_RATE,
                                     Graph::PAGEFAULTS_BY_TYPE, Graph::PAGING_IN_OUT,
                                     Graph::PAGEFAULT_IO,       Graph::PAGES_IN_OUT};
  for (Graph graph : MEMORY_GRAPHS) {
    const GraphRecord* record = state.catalog.Find(graph);
    const int sets = record == nullptr ? 0 : record->data.nsets();
    for (int set = 0; set < sets; ++set) state.catalog.Store(graph, set, state.point, 0.0F);
  }
  StoreSets(state, Graph::MEMORY_UTILIZATION, {utilization});
}

double UsedPercent(double freeMb, double memMb) { return 100.0 * (1.0 - freeMb / memMb); }

double UsedPercentOrMissing(double freeMb, double memMb) {
  return memMb > 0.0 ? UsedPercent(freeMb, memMb) : static_cast<double>(MISSING_POINT);
}

void StoreFaultKinds(BuildState& state, std::span<const float> kinds) {
  double sum = 0.0;
  for (float kind : kinds) sum += static_cast<double>(kind);
  StoreSets(state, Graph::PAGEFAULTS_BY_TYPE, kinds);
  StoreSets(state, Graph::PAGEFAULT_RATE, {sum});
}

}  // namespace ozmo
