#include "catalog/memory.h"

namespace ozmo {

MemorySize MemorySizeOf(const VmrContext& interval) {
  const SystemConfig& config = ConfigOf(interval);
  return {static_cast<double>(config.memoryMb), config.pageSize / BYTES_PER_MB};
}

PagingOperations StoreNoMemory(const Minute& minute, double utilization) {
  constexpr Graph MEMORY_GRAPHS[] = {Graph::MEMORY_ALLOCATION,  Graph::PAGEFAULT_RATE,
                                     Graph::PAGEFAULTS_BY_TYPE, Graph::PAGING_IN_OUT,
                                     Graph::PAGEFAULT_IO,       Graph::PAGES_IN_OUT};
  for (const Graph graph : MEMORY_GRAPHS) {
    const GraphRecord* record = minute.catalog.Find(graph);
    const int sets = record == nullptr ? 0 : record->data.nsets();
    for (int set = 0; set < sets; ++set) minute.Store(graph, set, 0.0F);
  }
  minute.Store(Graph::MEMORY_UTILIZATION, {utilization});
  return {};
}

double UsedPercent(double freeMb, double memMb) { return 100.0 * (1.0 - freeMb / memMb); }

double UsedPercentOrMissing(double freeMb, double memMb) {
  return memMb > 0.0 ? UsedPercent(freeMb, memMb) : static_cast<double>(MISSING_POINT);
}

void StoreFaultKinds(const Minute& minute, std::span<const float> kinds) {
  double sum = 0.0;
  for (float kind : kinds) sum += static_cast<double>(kind);
  minute.Store(Graph::PAGEFAULTS_BY_TYPE, kinds);
  minute.Store(Graph::PAGEFAULT_RATE, {sum});
}

}  // namespace ozmo
