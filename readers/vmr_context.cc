#include "readers/vmr_context.h"

namespace ozmo {
namespace {

template <class Record>
void Recycle(TwinPair<RecordList<Record>>& lists) {
  lists.primary.Recycle();
  lists.twin.Recycle();
}

template <class Record>
void Reset(TwinPair<std::optional<Record>>& slots) {
  slots.primary.reset();
  slots.twin.reset();
}

}  // namespace

ProcessRecord& ContextPushProcess(VmrContext& context, bool isTwin) {
  return context.processes.Of(isTwin).PushAsLeft(context.processes.primary);
}

void ContextFree(VmrContext& context) {
  Recycle(context.processors);
  Recycle(context.overallCpu);
  Recycle(context.rateItems);
  Recycle(context.disks);
  Recycle(context.fileSystems);
  Recycle(context.lans);
  Recycle(context.loadItems);
  context.processes.primary.Recycle();
  context.processes.twin.Clear();
  context.names.Recycle();
  Reset(context.memory);
  Reset(context.protocolCounters);
  Reset(context.summary);
  context.network.reset();
  context.partition.reset();
}

void ContextFreeDeep(VmrContext& context) { context = VmrContext{}; }

void ContextFindAlias(const VmrContext& context, DiskRecord& disk) {
  const auto alias = context.deviceAliases.find(disk.deviceName);
  if (alias != context.deviceAliases.end()) disk.displayName = alias->second;
}

}  // namespace ozmo
