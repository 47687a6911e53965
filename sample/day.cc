#include "sample/day.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <map>

namespace ozmo::sample {
namespace {

constexpr int64_t DAY_SECONDS = 86400;

int64_t StartOfDay(const std::chrono::year_month_day& date) {
  return int64_t{std::chrono::sys_days{date}.time_since_epoch().count()} * DAY_SECONDS;
}

// Adds the files of one day: the samples in as many parts of nearly one size, none of them empty.
void CutDay(const std::chrono::year_month_day& date, const std::vector<int64_t>& times, int fileCount,
            std::vector<DayFile>& files) {
  const size_t parts = std::min(static_cast<size_t>(fileCount), times.size());
  for (size_t part = 0; part < parts; ++part) {
    const auto from = static_cast<std::ptrdiff_t>(times.size() * part / parts);
    const auto to = static_cast<std::ptrdiff_t>(times.size() * (part + 1) / parts);
    files.push_back({date, static_cast<int>(part) + 1, {times.begin() + from, times.begin() + to}});
  }
}

std::string VersionNames(const CollectorLayout& layout) {
  std::string names;
  for (const VersionLayout& version : layout.versions) {
    names += names.empty() ? "" : ", ";
    names += version.text;
  }
  return names;
}

bool WriteFile(const CollectorKind& kind, uint32_t versionBit, const SampleContext& context,
               const DayFile& dayFile, const std::string& path) {
  SampleFile file(kind.byteOrder, ExpandLayout(kind.layout, versionBit));
  file.WriteDefinitions();
  kind.writeHead(context, file);
  for (int64_t time : dayFile.times) {
    file.BeginSample(kind.timeRecord, FieldValues().Set(kind.timeField, time - context.options.utcOffset));
    const auto seed = static_cast<uint64_t>(context.options.seed);
    kind.writeSample(context, SampleHost(context.host, seed, time, context.options.intervalSeconds), file);
  }
  return file.Save(path);
}

}  // namespace

ScaledHost::ScaledHost(const HostDescription& host, int scale)
    : host_(host), programs_(host.programs.begin(), host.programs.end()) {
  for (ProgramDescription& program : programs_) {
    program.count *= scale;
  }
}

HostDescription ScaledHost::Description() const {
  HostDescription host = host_;
  host.programs = programs_;
  return host;
}

std::vector<DayFile> CutIntoFiles(const SampleOptions& options) {
  const int64_t start = StartOfDay(options.date) + int64_t{options.startHour} * 3600;
  const int64_t end = start + int64_t{options.hours} * 3600;
  std::map<int64_t, std::vector<int64_t>> timesOfDays;
  for (int64_t time = start; time < end; time += options.intervalSeconds) {
    timesOfDays[time / DAY_SECONDS].push_back(time);
  }
  std::vector<DayFile> files;
  for (const auto& [day, times] : timesOfDays) {
    CutDay(std::chrono::sys_days{std::chrono::days{day}}, times, options.filesPerDay, files);
  }
  return files;
}

std::string FileDate(const std::chrono::year_month_day& date) {
  static constexpr std::array<const char*, 12> MONTHS = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d%s%02u", static_cast<int>(date.year()),
                MONTHS.at(static_cast<unsigned>(date.month()) - 1), static_cast<unsigned>(date.day()));
  return text.data();
}

SampleResult WriteCollectorDays(const CollectorKind& kind, const SampleOptions& options) {
  const std::string versionText =
      options.version.empty() ? std::string(kind.layout.versions.front().text) : options.version;
  const VersionLayout* version = FindVersion(kind.layout, versionText);
  if (version == nullptr) {
    return {{}, "unknown version " + versionText + "; known are " + VersionNames(kind.layout)};
  }
  const ScaledHost host(kind.host, options.scale);
  SampleResult result;
  for (const DayFile& dayFile : CutIntoFiles(options)) {
    const SampleContext context{options, host.Description(), versionText};
    const std::string path = options.directory + "/" + std::string(kind.filePrefix) + options.node + "_" +
                             FileDate(dayFile.date) + ".dat_" + std::to_string(dayFile.number);
    if (!WriteFile(kind, version->versionBit, context, dayFile, path)) {
      result.error = "can't write " + path;
      return result;
    }
    result.files.push_back(path);
  }
  return result;
}

void WriteAdapterRecords(const HostSample& sample, SampleFile& file) {
  for (const AdapterSample& adapter : sample.adapters) {
    file.Write(15, FieldValues()
                       .Set(1501, adapter.name)
                       .Set(1502, adapter.packetsIn)
                       .Set(1503, adapter.bytesIn)
                       .Set(1504, adapter.errorsIn)
                       .Set(1505, adapter.packetsOut)
                       .Set(1506, adapter.bytesOut)
                       .Set(1507, adapter.errorsOut)
                       .Set(1508, adapter.collisions));
  }
}

void WriteSummaryRecords(const HostSample& sample, SampleFile& file) {
  file.Write(13, FieldValues().Set(1, "run queue").Set(2, sample.processes.size()));
  file.Write(16, FieldValues().Set(1, sample.processes.size()).Set(2, sample.disks.size()));
}

}  // namespace ozmo::sample
