// A kind of binary collector files: its records, and the ones that several kinds have in one form.
#pragma once

#include "programs/sample/kinds.h"
#include "programs/sample/sample_file.h"

namespace ozmo::sample {

struct SampleFormat {
  WrittenOrder byteOrder;
  std::span<const SampleLayout> records;
  uint32_t timeRecord;
  int32_t timeField;
  void (*writeHead)(const SampleContext& context, SampleFile& file);
  void (*writeSample)(const SampleContext& context, const HostSample& sample, SampleFile& file);
};

// Definition lists, head, and the samples of the file.
std::string CollectorBytes(const SampleFormat& format, const SampleContext& context, const FileOfDay& file);

// Where a kind has its file systems: six fields from `firstField` on, mount and device first, in either
// order.
struct FileSystemForm {
  uint32_t recordType;
  int32_t firstField;
  bool deviceFirst;
};
void WriteFileSystems(const FileSystemForm& form, const HostSample& sample, SampleFile& file);

// 15, a LAN adapter each; 13 and 16, the system summary.
void WriteAdaptersAndSummary(const HostSample& sample, SampleFile& file);

}  // namespace ozmo::sample
