// A kind of binary collector files: its records, and the ones that several kinds have in one form.
#pragma once

#include "programs/sample/collector_file.h"
#include "programs/sample/kinds.h"

namespace ozmo::sample {

struct CollectorFormat {
  ByteOrder byteOrder;
  std::span<const RecordLayout> records;
  uint32_t timeRecord;
  int32_t timeField;
  void (*writeHead)(const SampleContext& context, CollectorFile& file);
  void (*writeSample)(const SampleContext& context, const HostSample& sample, CollectorFile& file);
};

// Definition lists, head, and the samples of the file.
std::string CollectorBytes(const CollectorFormat& format, const SampleContext& context, const DayFile& file);

// Where a kind has its file systems: six fields from `firstField` on, mount and device first, in either
// order.
struct FileSystemRecord {
  uint32_t recordType;
  int32_t firstField;
  bool deviceFirst;
};
void WriteFileSystems(const FileSystemRecord& form, const HostSample& sample, CollectorFile& file);

// 15, a LAN adapter each; 13 and 16, the system summary.
void WriteAdaptersAndSummary(const HostSample& sample, CollectorFile& file);

}  // namespace ozmo::sample
