// The figures of a summary, worked out by hand, and its text, whole and damaged.
#include "programs/report/summary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "programs/report/summary_text.h"
#include "tests/support/environment.h"

namespace ozmo::report {
namespace {

constexpr Seconds BEGIN = 1329868800;  // 2012-02-22, UTC

// A host with a sample at each point. Its series are stacked already.
struct Host {
  explicit Host(int points) {
    day.node = "forge";
    day.system = "Linux";
    day.begin = BEGIN;
    day.end = BEGIN + points * SECONDS_PER_MINUTE;
    day.catalog = std::make_unique<GraphCatalog>();
    day.catalog->pointCount = points + 1;
    day.catalog->extent.held.assign(static_cast<size_t>(points) + 2, 1.0F);
    day.catalog->records.resize(GRAPH_COUNT);
  }
  void Add(Graph graph, const std::string& label, Series series) {
    std::optional<GraphRecord>& record = day.catalog->records[static_cast<size_t>(graph)];
    if (!record) record.emplace();
    record->SetLabel(record->data.nsets(), label);
    record->data.y.push_back(std::move(series));
  }
  DataDay day;
};

TEST(Summary, FiguresAreOfTheMinutesThatHaveData) {
  const testing::ScopedVariable zone("TZ", "UTC");
  Host host(120);
  Series cpu(122);
  for (size_t point = 1; point <= 100; ++point) cpu[point] = static_cast<float>(point);
  for (size_t point = 101; point < cpu.size(); ++point) host.day.catalog->extent.held[point] = MISSING_POINT;
  host.Add(Graph::OVERALL_CPU, "CPU Active", cpu);
  const Summary summary = SummaryOf(host.day);
  EXPECT_EQ(summary.missing, 20);
  ASSERT_EQ(summary.lines.size(), 1U);
  const SummaryLine& line = summary.lines.front();
  EXPECT_EQ(std::tuple(line.mean, line.p95, line.peak), std::tuple(50.5, 95.0, 100.0));
  EXPECT_EQ(line.peakTime, BEGIN + 100 * SECONDS_PER_MINUTE);
  EXPECT_EQ(line.busiestHour, BEGIN + 3600);
  EXPECT_EQ(line.hours, (std::vector<double>{30.5, 80.5}));
}

TEST(Summary, AHoleThatAGraphBridgesIsNotMissing) {
  Host host(30);
  WalkExtent& extent = host.day.catalog->extent;
  extent.maxGap = 5;
  extent.held.assign(32, MISSING_POINT);
  for (const size_t point : {5U, 10U, 16U, 26U}) extent.held[point] = 1.0F;
  EXPECT_EQ(SummaryOf(host.day).missing, 5 + 9);
}

TEST(Summary, NamesAreThoseOfTheHostAndNotLabels) {
  struct Case {
    Graph graph;
    const char* label;
    const char* name;  // null: no line
  };
  const Case cases[] = {
      {Graph::TOP_IMAGES, "#0  disp+work", "disp+work"},
      {Graph::TOP_IMAGES, "#10  #1 a", "#1 a"},
      {Graph::TOP_IMAGES, "#1  <NoProc>", nullptr},
      {Graph::TOP_IMAGES, "Others", nullptr},
      {Graph::TOP_IMAGES, "#x", nullptr},
      {Graph::TOP_DISK_RESPONSE, "dsk2", "dsk2"},
      {Graph::TOP_FILE_SYSTEMS, "#1  /a on b on ( /dev/sda )", "/a on b"},
      {Graph::TOP_FILE_SYSTEMS, "#1 /home (on /dev/hd1)", "/home"},
      {Graph::LAN_DATA, "eth0 Outbound", "eth0"},
      {Graph::LAN_DATA, "lo0 Inbound", nullptr},
  };
  for (const Case& test : cases) {
    Host host(3);
    host.Add(test.graph, test.label, {0, 1, 1, 1, 0});
    const Summary summary = SummaryOf(host.day);
    ASSERT_EQ(summary.lines.size(), test.name != nullptr ? 1U : 0U) << test.label;
    if (test.name != nullptr) {
      EXPECT_EQ(summary.lines.front().name, test.name);
    }
  }
}

TEST(Summary, AnAdapterIsTheSumOfBothDirectionsAndOthersAreTakenOutOfTheStack) {
  Host host(2);
  host.Add(Graph::LAN_DATA, "eth0 Inbound", {0, 10, 10, 0});
  host.Add(Graph::LAN_DATA, "eth1 Inbound", {0, 9, 9, 0});
  host.Add(Graph::LAN_DATA, "eth0 Outbound", {0, 4, 4, 0});
  const Summary summary = SummaryOf(host.day);
  ASSERT_EQ(summary.lines.size(), 2U);
  EXPECT_EQ(std::pair(summary.lines[0].name, summary.lines[0].mean), std::pair(std::string("eth0"), 5.0));
  EXPECT_EQ(summary.lines[1].mean, 5.0);
}

Summary Sample() {
  SummaryLine cpu{.figure = Figure::CPU,
                  .name = "",
                  .mean = 1.25,
                  .p95 = 2,
                  .peak = 3,
                  .peakTime = BEGIN + 60,
                  .busiestHour = BEGIN,
                  .hours = {1, std::nan(""), 2}};
  SummaryLine image = cpu;
  image.figure = Figure::IMAGE;
  image.name = "a\tb\n\\x41\x7f<i>";
  return {.host = "#for\tge\xFF",
          .system = "Linux",
          .processors = 8,
          .begin = BEGIN,
          .end = BEGIN + 7200,
          .missing = 5,
          .lines = {cpu, image}};
}

TEST(SummaryText, ReadsBackWhatItWroteAlsoSeveralInARow) {
  const testing::ScopedVariable zone("TZ", "UTC");
  const std::string text = SummaryText(Sample());
  const SummariesResult read = ReadSummaries(text + "\n# a note\n" + text);
  EXPECT_TRUE(read.wrong.empty());
  ASSERT_EQ(read.summaries.size(), 2U);
  EXPECT_EQ(read.summaries[1].host, "#for\tge\xFF");
  EXPECT_EQ(read.summaries[1].lines[1].name, Sample().lines[1].name);
  EXPECT_TRUE(std::isnan(read.summaries[1].lines[0].hours[1]));
  EXPECT_EQ(SummaryText(read.summaries[1]), text);
}

TEST(SummaryText, WhatIsDamagedIsNamedAndTheNextIsRead) {
  const testing::ScopedVariable zone("TZ", "UTC");
  const std::string whole = SummaryText(Sample());
  struct Case {
    std::string found;
    std::string changed;
    const char* said;
  };
  const Case cases[] = {
      {"ozmo_summary 1", "ozmo_summary 2", "line 1: a summary of version \"2\""},
      {"host\t", "node\t", "line 2: not the columns"},
      {"\t3.00\t", "\t3,00\t", "line 3: no figure: \"3,00\""},
      {"\t3.00\t", "\tinf\t", "line 3: no figure: \"inf\""},
      {"\t3.00\t", "\t", "line 3: not as many columns"},
      {"\tcpu\t", "\tgpu\t", "line 3: no kind of figure: \"gpu\""},
      {"T00:01\t", "T25:01\t", "line 3: no time"},
      {"\t5\t8\t", "\t-5\t8\t", "line 3: no count: \"-5\""},
      {"1.00,,2.00", "1.00,,x", "line 3: no figure: \"x\""},
      {"1.00,,2.00", "1.00,2.00", "line 4: not as many hours"},
      {"xff\tLinux", "xffr\tLinux", "line 4: another host"},
      {"T02:00:00\t", "T00:00:00\t", "line 3: the end is not after"},
      {"# end 2\n", "# end 3\n", "line 5: an end that doesn't fit"},
      {"# end 2\n", "", "line 5: the summary before has no end"},
  };
  for (const Case& test : cases) {
    std::string text = whole;
    text.replace(text.find(test.found), test.found.size(), test.changed);
    const SummariesResult read = ReadSummaries(text + whole);
    EXPECT_EQ(read.summaries.size(), 1U) << test.said;
    ASSERT_EQ(read.wrong.size(), 1U) << test.said;
    EXPECT_TRUE(read.wrong.front().starts_with(test.said)) << read.wrong.front();
  }
  for (size_t length = 1; length < whole.size() - 1; length += 7) {
    EXPECT_EQ(ReadSummaries(whole.substr(0, length)).summaries.size(), 0U) << length;
  }
  EXPECT_EQ(ReadSummaries("#!/bin/sh\necho\necho\n").wrong.size(), 1U);
}

}  // namespace
}  // namespace ozmo::report
