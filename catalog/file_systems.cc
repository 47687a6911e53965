#include "catalog/file_systems.h"

#include "catalog/name_text.h"
#include "runtime/text.h"

namespace ozmo {
namespace {

// The counts come as they are in the file: the difference of broken ones must not overflow.
int64_t WrappingDifference(int64_t a, int64_t b) {
  return static_cast<int64_t>(static_cast<uint64_t>(a) - static_cast<uint64_t>(b));
}

}  // namespace

float FileSystemPercent(const FileSystemRecord& record) {
  if (record.totalBlocks <= 0) return 0.0F;
  const float available = record.availableBlocks < 0 ? 0.0F : static_cast<float>(record.availableBlocks);
  const float used = static_cast<float>(WrappingDifference(record.totalBlocks, record.freeBlocks));
  if (used == 0.0F) return 100.0F;
  return 100.0F - available * 100.0F / (available + used);
}

void FileSystemPass::Run(const Minute& minute, const VmrContext& interval) {
  for (const FileSystemRecord& record : interval.fileSystems.primary) {
    key_.clear();
    AppendNames(key_, keyFormat_, {record.mountName, record.deviceName});
    SeriesOf(series_, TrimText(key_, " ")).Feed(pages_, minute.sample, FileSystemPercent(record));
  }
}

std::vector<NamedSeries> FileSystemPass::Named() const { return NamedOf(series_); }

}  // namespace ozmo
