// What the passes work into the graphs of an interval's records, where no end-to-end case shows it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "build_fixture.h"
#include "catalog/adapters.h"
#include "catalog/memory.h"
#include "catalog/processes.h"
#include "catalog/processors.h"
#include "catalog/top_graphs.h"

namespace ozmo {
namespace {

// ---- Processors ----

TEST(Processors, AreSetsInTheOrderOfTheirFirstSight) {
  BuildFixture fixture(solaris_catalog::PLATFORM);
  fixture.AddProcessor(0, 10, 0, 90);
  fixture.AddProcessor(7, 20, 0, 80);  // the head of the list
  fixture.Take(60);
  fixture.AddProcessor(7, 30, 0, 70);
  fixture.AddProcessor(3, 40, 0, 60);
  fixture.Take(120);
  for (const Graph graph : {Graph::CPU_BY_PROCESSOR, Graph::ACTIVE_CPUS}) {
    EXPECT_EQ(fixture.Labels(graph), (Texts{"CPU-7", "CPU-0", "CPU-3"}));
  }
  EXPECT_EQ(fixture.Values(Graph::CPU_BY_PROCESSOR, 1), (Series{20, 10, MISSING_POINT}));
  EXPECT_EQ(fixture.Values(Graph::CPU_BY_PROCESSOR, 2), (Series{30, MISSING_POINT, 40}));
  EXPECT_EQ(fixture.Values(Graph::ACTIVE_CPUS, 2), (Series{1, MISSING_POINT, 1}));
}

TEST(Processors, The129thHasNoSeriesButCountsInTheMean) {
  BuildFixture fixture(solaris_catalog::PLATFORM);
  fixture.AddProcessor(128, 100, 0, 0);
  for (int cpuId = 127; cpuId >= 0; --cpuId) fixture.AddProcessor(cpuId, 0, 0, 100);
  fixture.Take(60);
  EXPECT_EQ(fixture.Sets(Graph::CPU_BY_PROCESSOR), 128);
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 100.0F / 129.0F);
}

TEST(Processors, Tru64MakesTheConfiguredSetsOnce) {
  BuildFixture fixture(tru64_catalog::PLATFORM);
  fixture.AddProcessor(5, 10, 0, 90);
  fixture.Take(60);
  EXPECT_EQ(fixture.Labels(Graph::CPU_BY_PROCESSOR), (Texts{"CPU-5", "(none)"}));
  fixture.context.config->cpuCount = 4;
  for (const int cpuId : {8, 6, 5}) fixture.AddProcessor(cpuId, 20, 0, 80);
  fixture.Take(120);
  EXPECT_EQ(fixture.Labels(Graph::CPU_BY_PROCESSOR), (Texts{"CPU-5", "CPU-6"}));
}

TEST(Processors, LinuxStopsAtTheConfiguredNumber) {
  BuildFixture fixture(linux_catalog::PLATFORM);
  for (const int cpuId : {2, 1, 0}) fixture.AddProcessor(cpuId, 10 * (cpuId + 1), 0, 100 - 10 * (cpuId + 1));
  fixture.Take(60);
  EXPECT_EQ(fixture.Labels(Graph::CPU_BY_PROCESSOR), (Texts{"CPU-0", "CPU-1"}));
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 15.0F);
}

TEST(Processors, WithAllCountersZeroAProcessorIsIdle) {
  BuildFixture fixture(hpux_catalog::PLATFORM);
  fixture.AddProcessor(1, 0, 0, 0);
  fixture.AddProcessor(0, 3, 1, 4);
  fixture.Take(60);
  EXPECT_EQ(fixture.Values(Graph::CPU_BY_PROCESSOR, 1), (Series{50, 0}));
  EXPECT_EQ(fixture.Values(Graph::CPU_BY_MODE, 1), (Series{0, 18.75F, 6.25F}));
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 25.0F);
}

// ---- Processes ----

TEST(ProcessShare, FollowsThePlatform) {
  // The share of a process of three seconds (user 2, system 1) in an interval of 60 seconds on two
  // processors.
  const auto shareOn = [](const PlatformSpec& platform) {
    BuildFixture fixture(platform);
    fixture.AddProcessor(0, 0, 100, 0);
    fixture.AddProcessor(1, 0, 100, 0);
    fixture.AddProcess("adm", "job", 2).systemCpuSeconds = 1;
    fixture.Take(120);
    return fixture.Image("job", 2);
  };
  EXPECT_FLOAT_EQ(shareOn(solaris_catalog::PLATFORM), 2.5F);
  EXPECT_FLOAT_EQ(shareOn(linux_catalog::PLATFORM), 2.5F);
  EXPECT_FLOAT_EQ(shareOn(hpux_catalog::PLATFORM), 1.5F) << "of the processors' time counters";
  EXPECT_FLOAT_EQ(shareOn(tru64_catalog::PLATFORM), 3.0F) << "as it is";
  EXPECT_FLOAT_EQ(shareOn(aix_catalog::PLATFORM), 1.25F) << "of the time since the start of the span";
}

TEST(ProcessShare, OnlinePartitionProcessorsLimitTheDivisorOnAix) {
  for (const auto& [online, share] : {std::pair(1.0, 5.0F), {0.0, 2.5F}, {8.0, 2.5F}}) {
    BuildFixture fixture(aix_catalog::PLATFORM);
    fixture.AddProcessor(1, 1, 0, 1);
    fixture.AddProcess("adm", "job", 3);
    fixture.context.partition.emplace().onlineProcessors = online;
    fixture.TakeBusy(60, 50);
    EXPECT_FLOAT_EQ(fixture.Image("job", 1), share) << online;
  }
}

TEST(NoProc, IsAbsentWhereTheProcessesTakeAllAndOnSolaris) {
  BuildFixture taken(tru64_catalog::PLATFORM);
  taken.AddProcess("root", "cron", 6);
  taken.TakeBusy(60, 5);
  EXPECT_EQ(taken.Image("<NoProc>", 1), BuildFixture::NOTHING);
  BuildFixture solaris(solaris_catalog::PLATFORM);
  solaris.TakeBusy(60, 50);
  EXPECT_EQ(solaris.Image("<NoProc>", 1), BuildFixture::NOTHING);
}

TEST(ImageOfCommand, IsTheLastPathComponentOfTheFirstWordWithoutOneDash) {
  const std::pair<std::string, std::string> cases[] = {
      {"/usr/bin/ksh -x", "ksh"},
      {"ksh\t/etc/profile", "ksh"},
      {"bin/", ""},
      {"-ksh", "ksh"},
      {"/bin/-sh", "sh"},
      {"--x", "-x"},
      {"  ksh -x", "  ksh"},  // blanks stay where there is no path
      {"  /bin/ksh -x", "ksh"},
      {" -ksh", " -ksh"},
      {"", "<unknown>"},
      {" \t ", "<unknown>"},
      {std::string(300, 'a'), std::string(255, 'a')},  // a command is cut first of all
      {std::string(253, 'a') + "/bc", "b"},
      {std::string(255, ' ') + "x", "<unknown>"},
  };
  for (const auto& [command, image] : cases) EXPECT_EQ(ImageOfCommand(command), image) << command;
}

// ---- Lists ----

TEST(TopGraphs, OthersFillUpToTheTotalAndAreNeverNegative) {
  struct Case {
    const char* rule;
    const PlatformSpec& platform;
    double busy;
    std::vector<float> seconds;  // of the images "a", "b", ...
    std::vector<std::string> labels;
    std::vector<float> values;
  };
  const Case cases[] = {
      {"the rest", solaris_catalog::PLATFORM, 80, {6, 18}, {"#0  b", "#1  a", "Others"}, {30, 10, 40}},
      {"rescaled lists have none",
       hpux_catalog::PLATFORM,
       80,
       {6, 18},
       {"#0  b", "#1  a", "Others"},
       {60, 20, 0}},
      {"more than all", solaris_catalog::PLATFORM, 5, {6}, {"#0  a", "Others"}, {10, 0}},
      {"no weight without overall CPU", solaris_catalog::PLATFORM, 0, {6}, {"Others"}, {0}},
      {"without processes", solaris_catalog::PLATFORM, 80, {}, {"Others"}, {80}},
      {"an image that did nothing isn't ranked", solaris_catalog::PLATFORM, 80, {0}, {"Others"}, {80}},
  };
  for (const Case& test : cases) {
    BuildFixture fixture(test.platform);
    for (size_t i = 0; i < test.seconds.size(); ++i) {
      fixture.AddProcess("ann", std::string(1, static_cast<char>('a' + i)), test.seconds[i]);
    }
    fixture.TakeBusy(60, test.busy);
    fixture.build.FinishGraphs();
    EXPECT_EQ(fixture.Labels(Graph::TOP_IMAGES), test.labels) << test.rule;
    EXPECT_EQ(fixture.Values(Graph::TOP_IMAGES, 1), test.values) << test.rule;
    EXPECT_EQ(fixture.Values(Graph::TOP_IMAGES, 2), Series(test.values.size(), MISSING_POINT)) << test.rule;
    if (!test.seconds.empty() && test.labels.size() > 1) {
      EXPECT_EQ(fixture.Labels(Graph::TOP_USERS), (Texts{"0. ann", "Others"}));
    }
  }
}

TEST(TopGraphsVmr, WithoutImagesOthersAreOverallCpuLessDpcAndInterrupts) {
  BuildFixture fixture(vmr_catalog::PLATFORM);
  ProcessorRecord& machine = fixture.AddProcessor(0, 30, 20, 0);
  machine.dpcTime = 4;
  machine.interruptTime = 6;
  fixture.Take(60);
  fixture.build.FinishGraphs();
  EXPECT_EQ(fixture.Labels(Graph::TOP_IMAGES), (Texts{"Others", "DPC+Interrupt"}));
  EXPECT_EQ(fixture.Values(Graph::TOP_IMAGES, 1), (Series{40, 10}));
}

// ---- Memory ----

TEST(Memory, WithoutARecordAllFiguresAreZero) {
  for (const PlatformSpec* platform : ALL_PLATFORMS) {
    BuildFixture fixture(*platform);
    fixture.TakeBusy(60, 10);
    EXPECT_EQ(fixture.Values(Graph::MEMORY_UTILIZATION, 1), (Series{0}));
    EXPECT_EQ(fixture.Values(Graph::PAGEFAULT_RATE, 1), (Series{0}));
    if (platform == &vmr_catalog::PLATFORM) continue;
    EXPECT_EQ(std::ranges::max(fixture.Values(Graph::MEMORY_ALLOCATION, 1)), 0.0F);
  }
}

TEST(Memory, WithoutASizeUtilizationIsMissingInfiniteOrOfTheUses) {
  const auto utilization = [](const PlatformSpec& platform) {
    BuildFixture fixture(platform);
    fixture.context.config->memoryMb = 0.0F;
    MemoryRecord& memory = fixture.context.memory.primary.emplace();
    memory.freePages = 256;
    memory.processPages = 768;
    fixture.TakeBusy(60, 10);
    return fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1);
  };
  for (const PlatformSpec* platform :
       {&solaris_catalog::PLATFORM, &linux_catalog::PLATFORM, &vmr_catalog::PLATFORM}) {
    EXPECT_EQ(utilization(*platform), MISSING_POINT);
  }
  EXPECT_TRUE(std::isinf(utilization(hpux_catalog::PLATFORM)));
  EXPECT_EQ(utilization(aix_catalog::PLATFORM), 75.0F);
}

// ---- Protocols ----

TEST(Network, EveryTraceOfEveryProtocolGraphIsFilled) {
  for (const PlatformSpec* platform : ALL_PLATFORMS) {
    BuildFixture fixture(*platform);
    fixture.context.protocolCounters.primary.emplace();
    fixture.context.network.emplace();
    fixture.TakeBusy(60, 10);
    for (GraphMenuEntry& group : fixture.catalog.itemTree) {
      if (group.code != "NET") continue;
      VisitGraphs(group.subTable, [&](const GraphRecord& record) {
        EXPECT_GT(record.data.nsets(), 0) << record.title;
        for (const Series& series : record.data.y) EXPECT_EQ(PointAt(series, 1), 0.0F) << record.title;
      });
    }
  }
}

TEST(Network, MonitorFilesNameTheirRates) {
  BuildFixture fixture(vmr_catalog::PLATFORM);
  NetworkRecord& n = fixture.context.network.emplace();
  n.tcpConnectionsReset = 3.0F;
  n.tcpConnectionsPassive = 7.0F;
  n.tcpConnectionsActive = 8.0F;
  n.tcpConnectionFailures = 4.0F;
  n.ipReceivedPerSecond = 100.0F;
  n.ipOutboundNoRoute = 1.0F;
  n.ipForwardedPerSecond = 9.0F;
  n.ipDeliveredPerSecond = 70.0F;
  n.ipSentPerSecond = 50.0F;
  fixture.TakeBusy(60, 10);
  EXPECT_EQ(fixture.Values("TCP Connection Transitions", 1), (std::vector<float>{3, 7, 8, 4}));
  EXPECT_EQ(fixture.Values("IP Packet Rate", 1)[0], 50.0F);
  EXPECT_EQ(fixture.Values("IP Sent Packets Breakdown", 1)[1], 9.0F);
  const std::vector<float> received = fixture.Values("IP Packets Received Breakdown", 1);
  EXPECT_EQ(received[0], 20.0F);
  EXPECT_EQ(std::accumulate(received.begin(), received.end(), 0.0F), 100.0F);
}

// ---- Adapters ----

constexpr const char* PACKETS = "Overall LAN Packet Rates by Adapter";

struct AdapterFixture : BuildFixture {
  using BuildFixture::BuildFixture;
  // The next interval has these adapters, in the order in which they are worked in.
  void Add(const std::vector<LanRecord>& lans) {
    for (auto lan = lans.rbegin(); lan != lans.rend(); ++lan) context.lans.primary.Push() = *lan;
    TakeBusy(60 * ++point, 10);
  }
  std::vector<float> Last(const char* title) { return Values(title, point); }
  // The rows of adapters, after the summary.
  std::vector<std::string> Adapters() {
    std::vector<std::string> names;
    for (const GraphMenuEntry& row : catalog.RuntimeRow(RowKind::ADAPTERS)->subTable) {
      if (row.code == "LAN") names.push_back(row.label);
    }
    return names;
  }
  int point = 0;
};

TEST(Adapters, AllThreeGraphsAreTitledByTheNameAndTheFirstIsFound) {
  AdapterFixture fixture(solaris_catalog::PLATFORM);
  fixture.Add(
      {{.adapterName = "hme0", .errorsInRate = 0.25F, .errorsOutRate = 0.5F, .collisionRate = 0.75F}});
  EXPECT_EQ(fixture.Find("hme0")->Label(0), "Packets Received");
  const GraphMenuEntry& row = fixture.catalog.RuntimeRow(RowKind::ADAPTERS)->subTable.back();
  ASSERT_EQ(row.subTable.size(), 3U);
  for (const GraphMenuEntry& graph : row.subTable) EXPECT_EQ(graph.record->title, "hme0");
  std::vector<float> errors;
  for (const Series& series : row.subTable[2].record->data.y) errors.push_back(PointAt(series, 1));
  EXPECT_EQ(errors, (Series{0.25F, 0.5F, 0.75F}));
}

TEST(Adapters, TheSixteenthIsInNoGraph) {
  AdapterFixture fixture(aix_catalog::PLATFORM);
  for (char name = 'a'; name <= 'p'; ++name) fixture.Add({{.adapterName = std::string(1, name)}});
  EXPECT_EQ(fixture.Adapters().back(), "o");
  EXPECT_EQ(fixture.Adapters().size(), 15U);
  EXPECT_EQ(fixture.Find(PACKETS)->data.nsets(), 30);
}

TEST(Adapters, PlatformsFilterByName) {
  const std::string longName = std::string(254, 'e') + "0";
  const auto kept = [&](const PlatformSpec& platform) {
    AdapterFixture fixture(platform);
    fixture.Add({{.adapterName = "lo"}, {.adapterName = ""}, {.adapterName = longName}});
    return fixture.Adapters();
  };
  EXPECT_EQ(kept(solaris_catalog::PLATFORM), (Texts{longName}));
  EXPECT_EQ(kept(linux_catalog::PLATFORM), (Texts{"lo", longName}));
}

// ---- AIX ----

void SetMachine(BuildFixture& fixture, double user, double system, double wait, double idle) {
  ProcessorRecord& machine = fixture.context.overallCpu.primary.Push();
  machine.userTime = user;
  machine.systemTime = system;
  machine.waitTime = wait;
  machine.idleTime = idle;
}

TEST(AixPartition, AxesAndTheEntitlementFollowThePartition) {
  for (const bool capped : {false, true}) {
    BuildFixture fixture(aix_catalog::PLATFORM);
    PartitionRecord& partition = fixture.context.partition.emplace();
    partition.isCapped = partition.isShared = capped ? 1 : 0;  // and in shared mode
    partition.entitledProcessors = capped ? 0 : 1.5;
    partition.onlineProcessors = 4;
    partition.poolProcessors = 8;
    partition.timeBase = 100;
    partition.timeByMode[0] = 50;
    fixture.TakeBusy(60, 10);
    EXPECT_EQ(fixture.Value(Graph::PHYSICAL_CPU, 0, 1), 0.5F);
    EXPECT_EQ(fixture.Record(Graph::PHYSICAL_CPU).yMax, 4.0F);
    EXPECT_EQ(fixture.Record(Graph::POOL_ENTITLEMENT).yMax, 8.0F);
    EXPECT_EQ(fixture.Value(Graph::ENTITLEMENT, 0, 1), capped ? 1.0F : 1.5F);
    EXPECT_EQ(fixture.Record(Graph::ENTITLEMENT).Colour(0), capped ? "Red" : "Blue");
    fixture.TakeBusy(120, 10);
    EXPECT_EQ(fixture.Value(Graph::PHYSICAL_CPU, 0, 2), MISSING_POINT) << "without a record";
  }
}

// Four processors, of which those in `busy` run, under a machine that is a quarter busy.
struct FoldedMachine : BuildFixture {
  explicit FoldedMachine(std::initializer_list<int> busy) : BuildFixture(aix_catalog::PLATFORM) {
    SetMachine(*this, 20, 5, 5, 70);
    AddProcess("root", "a", 6);
    TakeProcessors(60, busy, {3, 2, 1, 0});
  }
  void TakeProcessors(Seconds offset, std::initializer_list<int> busy, std::initializer_list<int> all) {
    for (const int cpuId : all) {
      AddProcessor(cpuId, std::find(busy.begin(), busy.end(), cpuId) != busy.end() ? 1 : 0, 0, 1);
    }
    Take(offset);
  }
};

TEST(IdleProcessors, WithAllOrNoneBusyTheRatioIsOneOrInfinite) {
  FoldedMachine busy({0, 1, 2, 3});
  busy.build.FinishGraphs();
  EXPECT_EQ(busy.Sets(Graph::CPU_BY_PROCESSOR), 4);
  EXPECT_FLOAT_EQ(busy.Value(Graph::OVERALL_CPU, 0, 1), 25.0F);
  FoldedMachine idle({});
  idle.build.FinishGraphs();
  EXPECT_EQ(idle.Sets(Graph::CPU_BY_PROCESSOR), 0);
  EXPECT_TRUE(std::isinf(idle.Value(Graph::OVERALL_CPU, 0, 1)));
  idle.build.FinishSeries();
  EXPECT_EQ(idle.Value(Graph::OVERALL_CPU, 0, 2), 0.0F);
}

TEST(IdleProcessors, OnlyThoseOfTheLastIntervalAreLookedAt) {
  FoldedMachine machine({1});
  machine.TakeProcessors(120, {1}, {1, 0});
  machine.build.FinishGraphs();
  EXPECT_EQ(machine.Labels(Graph::CPU_BY_PROCESSOR), (Texts{"cpu1", "cpu2", "cpu3"}));
}

}  // namespace
}  // namespace ozmo
