// Every version of every kind, from the sample files to the interval records. The sample files state their
// layouts apart from the readers, so a field of another width or place on either side shows here as figures
// that no host could have.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "readers/data_reader.h"
#include "runtime/runtime.h"
#include "sample/kinds.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

constexpr Seconds ELEVEN = 1329908400;  // 22-Feb-2012 11:00:00 UTC, when every host is busy

struct Kind {
  const char* name;
  ReaderKind reader;
  bool processTimesArePercent;
};

constexpr Kind SOLARIS{"solaris", ReaderKind::SOLARIS, false};
constexpr Kind LINUX{"linux", ReaderKind::LINUX, false};
constexpr Kind AIX{"aix", ReaderKind::AIX, false};
constexpr Kind HPUX{"hpux", ReaderKind::HPUX, false};
constexpr Kind TRU64{"tru64", ReaderKind::TRU64, true};
constexpr Kind VMR{"vmr", ReaderKind::VMR, false};

struct Case {
  const Kind* kind;
  const char* version;
  bool hasFileSystems;
  bool hasAdapters;
};

std::string NameOf(const ::testing::TestParamInfo<Case>& info) {
  return std::string(info.param.kind->name) + "_" + info.param.version;
}

class SampleFiles : public ::testing::Test {
 protected:
  SampleFiles() {
    options_.directory = directory_.path();
    options_.startHour = 11;
    options_.hours = 1;
    options_.intervalSeconds = 300;
  }

  // Writes the hour of a kind and delivers its intervals; the number of them.
  int Walk(const Kind& kind, const std::function<void(const VmrContext&)>& look) {
    const sample::SampleKind& writer = *sample::FindSampleKind(kind.name);
    const sample::SampleResult written = sample::WriteSample(writer, options_);
    EXPECT_EQ(written.error, "");
    DataReader reader(kind.reader, runtime_);
    VmrContext context;
    Seconds first = 0;
    context.dataPath = written.files.at(0);
    EXPECT_EQ(reader.EntryPass(context.dataPath, context.nodeName, first), 1);
    EXPECT_EQ(context.nodeName, writer.host.name);
    EXPECT_EQ(first - first % 60, ELEVEN);
    context.periodStart = ELEVEN;
    context.periodEnd = ELEVEN + 3600;
    EXPECT_EQ(reader.Open(context), 1);
    int intervals = 0;
    for (; reader.Next(context) == 1; ++intervals) look(context);
    reader.Close(context);
    return intervals;
  }

  ScopedVariable zone_{"TZ", "UTC"};
  TempDirectory directory_;
  Runtime runtime_;
  sample::SampleOptions options_;
};

class SampleFilesTest : public SampleFiles, public ::testing::WithParamInterface<Case> {};

bool IsPlain(const std::string& name) {
  for (char character : name) {
    if (character < ' ' || character > '~') return false;
  }
  return !name.empty();
}

void ExpectProcessors(const VmrContext& context, const Kind& kind) {
  const int processors = sample::FindSampleKind(kind.name)->host.processors;
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

void ExpectProcesses(const VmrContext& context, const Kind& kind, int interval) {
  EXPECT_GT(context.processes.primary.size(), 15U);
  double used = 0;
  for (const ProcessRecord& process : context.processes.primary) {
    EXPECT_TRUE(IsPlain(process.name) && IsPlain(process.userName))
        << process.name << " " << process.userName;
    EXPECT_GT(process.processId, 0);
    used += process.userCpuSeconds + process.systemCpuSeconds;
  }
  const double most = kind.processTimesArePercent ? 100 : context.config->cpuCount * interval;
  EXPECT_GT(used, most / 10);
  EXPECT_LT(used, most);
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

void ExpectFileSystemsAndAdapters(const VmrContext& context, const Case& wanted) {
  EXPECT_EQ(context.fileSystems.primary.empty(), !wanted.hasFileSystems);
  for (const FileSystemRecord& fileSystem : context.fileSystems.primary) {
    EXPECT_EQ(fileSystem.mountName.find('/'), 0U);
    EXPECT_GT(fileSystem.totalBlocks, fileSystem.freeBlocks);
    EXPECT_GT(fileSystem.freeBlocks, fileSystem.availableBlocks);
  }
  EXPECT_EQ(context.lans.primary.empty(), !wanted.hasAdapters);
  for (const LanRecord& adapter : context.lans.primary) {
    EXPECT_TRUE(IsPlain(adapter.adapterName));
    EXPECT_NEAR(adapter.bytesInRate / adapter.packetsInRate, 380, 5) << adapter.adapterName;
    EXPECT_NEAR(adapter.bytesOutRate / adapter.packetsOutRate, 620, 5) << adapter.adapterName;
  }
}

TEST_P(SampleFilesTest, EveryIntervalIsBelievable) {
  const Kind& kind = *GetParam().kind;
  options_.version = GetParam().version;
  const int intervals = Walk(kind, [&](const VmrContext& context) {
    ASSERT_TRUE(context.config.has_value());
    ExpectProcessors(context, kind);
    ExpectProcesses(context, kind, options_.intervalSeconds);
    ExpectDisks(context);
    ExpectFileSystemsAndAdapters(context, GetParam());
    EXPECT_TRUE(context.memory.primary.has_value());
    EXPECT_TRUE(context.protocolCounters.primary.has_value());
  });
  EXPECT_GE(intervals, 9);
}

constexpr Case CASES[] = {
    {&SOLARIS, "P730", true, true},   {&SOLARIS, "P720", true, true},  {&SOLARIS, "P300", true, false},
    {&LINUX, "P730", true, true},     {&LINUX, "P730_64", true, true}, {&LINUX, "P720", true, true},
    {&LINUX, "P720_64", true, true},  {&LINUX, "P300", true, false},   {&LINUX, "540", true, false},
    {&LINUX, "P300_64", true, false}, {&AIX, "P910_64", true, true},   {&AIX, "P910", true, true},
    {&AIX, "P730_64", true, true},    {&AIX, "P730", true, true},      {&AIX, "P720_64", true, true},
    {&AIX, "P720", true, true},       {&AIX, "P300_64", true, false},  {&AIX, "P300", true, false},
    {&AIX, "540", true, false},       {&HPUX, "P730_64", true, true},  {&HPUX, "P730", true, true},
    {&HPUX, "P720_64", true, true},   {&HPUX, "P720", true, true},     {&HPUX, "P300_64", true, false},
    {&HPUX, "P300", true, false},     {&HPUX, "540", true, false},     {&HPUX, "V530", true, false},
    {&HPUX, "V525", false, false},    {&HPUX, "V520", false, false},   {&HPUX, "V510", false, false},
    {&TRU64, "P730", true, true},     {&TRU64, "P720", true, true},    {&TRU64, "P300", true, false},
    {&TRU64, "V530", true, false},    {&TRU64, "V520", false, false},  {&TRU64, "V510", false, false},
    {&TRU64, "V505", false, false},
};

TEST_F(SampleFiles, MonitorFilesNameTheMachineAndItsParts) {
  const int intervals = Walk(VMR, [](const VmrContext& context) {
    // The machine as a whole is the head of the list and the mean of the others.
    ASSERT_EQ(context.processors.primary.size(), 3U);
    double sum = 0;
    for (const ProcessorRecord& cpu : context.processors.primary) sum += cpu.userTime;
    EXPECT_NEAR(context.processors.primary.head().userTime, sum / 3, 0.01);
    EXPECT_EQ(context.disks.primary.size(), 6U);
    EXPECT_GT(context.processes.primary.size(), 15U);
    EXPECT_LT(context.memory.primary->freePages, context.config->memoryMb * 256);
    EXPECT_GT(context.network->ipReceivedPerSecond, context.network->udpReceivedPerSecond);
  });
  EXPECT_GE(intervals, 10);
}

INSTANTIATE_TEST_SUITE_P(AllVersions, SampleFilesTest, ::testing::ValuesIn(CASES), NameOf);

}  // namespace
}  // namespace ozmo::testing
