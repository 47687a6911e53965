// Every version of every kind, from the sample files to the interval records. The sample files state their
// layouts apart from the readers, so a field of another width or place on either side shows here as figures
// that no host could have.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "programs/sample/kinds.h"
#include "readers/data_reader.h"
#include "runtime/runtime.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

constexpr Seconds ELEVEN = 1329908400;  // 22-Feb-2012 11:00:00 UTC, when every host is busy

struct SampleCase {
  const sample::SampleKind* kind;
  std::string version;
};

// Every version of every kind of binary files.
std::vector<SampleCase> SampleCases() {
  std::vector<SampleCase> cases;
  for (const sample::SampleKind* kind : sample::SampleKinds()) {
    for (const sample::VersionLayout& version : kind->versions)
      cases.push_back({kind, std::string(version.text)});
  }
  return cases;
}

std::string NameOf(const ::testing::TestParamInfo<SampleCase>& info) {
  return std::string(info.param.kind->name) + "_" + info.param.version;
}

bool IsPlain(const std::string& name) {
  return !name.empty() && std::ranges::all_of(name, [](char c) { return c >= ' ' && c <= '~'; });
}

void ExpectProcessors(const VmrContext& context, int processors) {
  EXPECT_EQ(context.config->cpuCount, processors);
  ASSERT_EQ(context.processors.primary.size(), static_cast<size_t>(processors));
  double busiest = 0;
  for (const ProcessorRecord& cpu : context.processors.primary) {
    const double busy = cpu.userTime + cpu.niceTime + cpu.systemTime;
    EXPECT_GE(busy, 0);
    EXPECT_GT(cpu.idleTime, 0);
    busiest = std::max(busiest, busy / (busy + cpu.idleTime + cpu.waitTime));
  }
  EXPECT_GT(busiest, 0.2);
}

void ExpectProcesses(const VmrContext& context, double secondsOfAll) {
  EXPECT_GT(context.processes.primary.size(), 15U);
  double used = 0;
  for (const ProcessRecord& process : context.processes.primary) {
    EXPECT_TRUE(IsPlain(process.name) && IsPlain(process.userName))
        << process.name << " " << process.userName;
    EXPECT_GT(process.processId, 0);
    used += process.userCpuSeconds + process.systemCpuSeconds;
  }
  EXPECT_GT(used, secondsOfAll / 10);
  EXPECT_LT(used, secondsOfAll);
}

void ExpectDisks(const VmrContext& context) {
  EXPECT_GT(context.disks.primary.size(), 10U);
  for (const DiskRecord& disk : context.disks.primary) {
    const float ops = std::max(disk.ioRate, disk.readRate + disk.writeRate);
    const float bytes = std::max(disk.totalBytesRate, disk.readBytesRate + disk.writeBytesRate);
    EXPECT_TRUE(IsPlain(disk.deviceName));
    EXPECT_EQ(disk.deviceName.find("vscsi"), std::string::npos);
    EXPECT_LT(ops, 400);
    if (ops > 1) {
      EXPECT_GT(bytes / ops, 1000) << disk.deviceName;
      EXPECT_LT(bytes / ops, 200000) << disk.deviceName;
    }
    EXPECT_LE(disk.busyFraction, 1);
  }
}

void ExpectFileSystemsAndAdapters(const VmrContext& context, const std::string& version) {
  const bool isOldest = version.starts_with('V') && version != "V530";
  const bool isNew = version.starts_with("P7") || version.starts_with("P9");
  EXPECT_EQ(context.fileSystems.primary.empty(), isOldest);
  for (const FileSystemRecord& fileSystem : context.fileSystems.primary) {
    EXPECT_EQ(fileSystem.mountName.find('/'), 0U);
    EXPECT_GT(fileSystem.totalBlocks, fileSystem.freeBlocks);
    EXPECT_GT(fileSystem.freeBlocks, fileSystem.availableBlocks);
  }
  EXPECT_EQ(context.lans.primary.empty(), !isNew);
  for (const LanRecord& adapter : context.lans.primary) {
    EXPECT_TRUE(IsPlain(adapter.adapterName));
    EXPECT_NEAR(adapter.bytesInRate / adapter.packetsInRate, 380, 5) << adapter.adapterName;
    EXPECT_NEAR(adapter.bytesOutRate / adapter.packetsOutRate, 620, 5) << adapter.adapterName;
  }
}

class SampleFilesTest : public ::testing::TestWithParam<SampleCase> {};

TEST_P(SampleFilesTest, EveryIntervalIsBelievable) {
  const sample::SampleKind& kind = *GetParam().kind;
  const ScopedVariable zone("TZ", "UTC");
  const TempDirectory directory;
  sample::SampleOptions options;
  options.directory = directory.path();
  options.version = GetParam().version;
  options.startHour = 11;
  options.hours = 1;
  options.intervalSeconds = 300;
  options.utcOffset = 3600;  // the clock reads the same in the reader's zone
  const sample::SampleResult written = sample::WriteSample(kind, options);
  ASSERT_EQ(written.error, "");

  Runtime runtime;
  DataReader reader(written.files.at(0), runtime);
  VmrContext context;
  const FileHead head = reader.Head().value();
  EXPECT_EQ(head.nodeName, kind.host.name);
  EXPECT_EQ(head.firstRecordTime - head.firstRecordTime % 60, ELEVEN);
  context.periodStart = ELEVEN;
  context.periodEnd = ELEVEN + 3600;
  EXPECT_EQ(reader.Open(context), 1);
  int intervals = 0;
  for (; reader.Next(context) == ReaderResult::DONE; ++intervals) {
    ASSERT_TRUE(context.config.has_value());
    ExpectProcessors(context, kind.host.processors);
    const bool arePercent = kind.name == "tru64";
    ExpectProcesses(context, arePercent ? 100 : kind.host.processors * options.intervalSeconds);
    ExpectDisks(context);
    ExpectFileSystemsAndAdapters(context, GetParam().version);
    EXPECT_TRUE(context.memory.primary.has_value());
    EXPECT_TRUE(context.protocolCounters.primary.has_value());
  }
  EXPECT_GE(intervals, 9);
}

INSTANTIATE_TEST_SUITE_P(AllVersions, SampleFilesTest, ::testing::ValuesIn(SampleCases()), NameOf);

}  // namespace
}  // namespace ozmo::testing
