// What is asked of a sample day, and the walk over its files and intervals that all kinds share.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "sample/file.h"
#include "sample/layouts.h"
#include "sample/workload_model.h"

namespace ozmo::sample {

struct SampleOptions {
  std::string directory;
  std::chrono::year_month_day date{std::chrono::year{2012}, std::chrono::February, std::chrono::day{22}};
  int startHour = 0;
  int hours = 24;
  int intervalSeconds = 60;
  int seed = 1;
  int filesPerDay = 1;
  // The host's offset from UTC. A time stamp is the host's wall clock less this offset, so a reader
  // whose own zone is UTC shows the wall clock whatever the offset is.
  int utcOffset = 0;
  int scale = 1;              // multiplies the processes: more bytes for a benchmark
  bool littleEndian = false;  // Solaris only
  std::string node = "node";
  std::string version;  // empty: the newest
};

// The result of a day: the files written, or what went wrong.
struct SampleResult {
  std::vector<std::string> files;
  std::string error;
};

// One file of a day: its number from 1 and the times of its samples, on the host's wall clock.
struct DayFile {
  std::chrono::year_month_day date;
  int number = 1;
  std::vector<int64_t> times;
};

// Cuts the span into days and the samples of each day into filesPerDay files. No file is empty.
std::vector<DayFile> CutIntoFiles(const SampleOptions& options);

// "2012Feb22".
std::string FileDate(const std::chrono::year_month_day& date);

// A host with `scale` times the process slots of another.
class ScaledHost {
 public:
  ScaledHost(const HostDescription& host, int scale);
  // Lives as long as this object.
  HostDescription Description() const;

 private:
  HostDescription host_;
  std::vector<ProgramDescription> programs_;
};

// The version of a kind's file and what its records can be made from.
struct SampleContext {
  const SampleOptions& options;
  HostDescription host;
  std::string versionText;
};

// A binary kind: its layout, its host, and how its records are filled.
struct CollectorKind {
  std::string_view filePrefix;  // with its "_"
  ByteOrder byteOrder;
  const CollectorLayout& layout;
  const HostDescription& host;
  uint32_t timeRecord;
  int32_t timeField;
  void (*writeHead)(const SampleContext& context, SampleFile& file);
  void (*writeSample)(const SampleContext& context, const HostSample& sample, SampleFile& file);
};

// Writes "<prefix><node>_<date>.dat_<n>" for each file of the span.
SampleResult WriteCollectorDays(const CollectorKind& kind, const SampleOptions& options);

// Records that most kinds have in one form: 15, one LAN adapter; 13 and 16, the system summary.
void WriteAdapterRecords(const HostSample& sample, SampleFile& file);
void WriteSummaryRecords(const HostSample& sample, SampleFile& file);

// The kinds.
SampleResult WriteSolarisSample(const SampleOptions& options);
SampleResult WriteLinuxSample(const SampleOptions& options);
SampleResult WriteAixSample(const SampleOptions& options);
SampleResult WriteHpuxSample(const SampleOptions& options);
SampleResult WriteTru64Sample(const SampleOptions& options);
SampleResult WriteVmrSample(const SampleOptions& options);

}  // namespace ozmo::sample
