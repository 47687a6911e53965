// Every item of every platform's tree shows something of the sample host, those of its disks, adapters and
// processors too: a graph that stays empty looks like a fault of the tool.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "catalog/build_catalog.h"
#include "catalog/processes.h"
#include "programs/sample/kinds.h"
#include "runtime/runtime.h"
#include "runtime/text.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

struct Kind {
  const char* name;
  std::span<const std::string_view> empty;  // beginnings of titles that its files have no figures for
  double unitsOfMb;                         // resident sizes of its records
  double (*faults)(const ProcessRecord& process) = nullptr;
};

constexpr std::string_view AIX_EMPTY[] = {"Overall CPU Utilization By Core"};
constexpr std::string_view TRU64_EMPTY[] = {"Top 10 Disks by Space", "I/O rate for ", "Data rate for ",
                                            "Space Allocation for ", "UDP ",          "IP ",
                                            "Overall LAN "};

constexpr int INTERVAL = 900;
constexpr double KB = 1024.0;
constexpr double BYTES = KB * KB;

double Lived(const ProcessRecord& process) { return static_cast<double>(process.elapsedSeconds) / INTERVAL; }
double Rate(const ProcessRecord& process) {
  return static_cast<double>(process.pageFaultsPerSecond) * Lived(process);
}
double Rates(const ProcessRecord& process) {
  return static_cast<double>(process.minorFaults) + static_cast<double>(process.majorFaults);
}
double Counts(const ProcessRecord& process) { return Rates(process) / INTERVAL; }

constexpr Kind KINDS[] = {{"solaris", {}, KB, Rate},     {"linux", {}, KB, Counts},
                          {"aix", AIX_EMPTY, KB, Rates}, {"hpux", {}, BYTES, Rates},
                          {"tru64", TRU64_EMPTY, KB},    {"vmr", {}, BYTES, Rate}};

constexpr Seconds DAY_START = 1329868800;  // 22-Feb-2012 UTC

Seconds AtHour(int hour) { return DAY_START + Seconds{hour} * 3600; }

class ItemsTest : public ::testing::TestWithParam<Kind> {
 protected:
  // Writes hours of the kind's host.
  void Write(int startHour, int hours, int interval) {
    options_.directory = directory_.path();
    options_.startHour = startHour;
    options_.hours = hours;
    options_.intervalSeconds = interval;
    const sample::SampleResult written =
        sample::WriteSample(*sample::FindSampleKind(GetParam().name), options_);
    ASSERT_EQ(written.error, "");
    file_ = written.files.at(0);
    span_ = {AtHour(startHour), AtHour(startHour + hours - 1)};
  }

  std::unique_ptr<GraphCatalog> Build(const WantedTitles& titles) {
    Runtime runtime;
    DataReader reader(file_, runtime);
    ::testing::internal::CaptureStdout();
    WorkloadClassList classes;
    auto catalog = BuildCatalog(reader, span_, classes, titles, runtime);
    ::testing::internal::GetCapturedStdout();
    return catalog;
  }

  // The graphs that -item finds: the first of each title.
  static std::map<std::string, const GraphRecord*> Graphs(GraphCatalog& catalog) {
    std::map<std::string, const GraphRecord*> graphs;
    VisitGraphs(catalog.itemTree, [&](const GraphRecord& record) { graphs.emplace(record.title, &record); });
    return graphs;
  }

  // By point and name, and by point and "" for all: what the records of the file say of its processes.
  template <class NameOf, class FigureOf>
  std::map<std::pair<Seconds, std::string>, double> SumsOfRecords(NameOf nameOf, FigureOf figureOf) {
    std::map<std::pair<Seconds, std::string>, double> sums;
    Runtime runtime;
    DataReader reader(file_, runtime);
    VmrContext interval;
    interval.periodStart = span_.begin;
    interval.periodEnd = span_.end;
    reader.Open(interval);
    while (reader.Next(interval) == ReaderResult::DONE) {
      for (const ProcessRecord& process : interval.processes.primary) {
        if (process.name == "wait" || process.name == "Idle") continue;  // the processors' own
        const Seconds point = (interval.periodEnd - span_.begin) / 60;
        for (const std::string& name : {std::string(nameOf(process)), std::string()}) {
          sums[{point, name}] += figureOf(process);
        }
      }
    }
    reader.Close(interval);
    return sums;
  }

  const ScopedVariable zone_{"TZ", "UTC"};
  const ScopedVariable library_{"VELTRIX_LIBRARY", OZMO_SOURCE_DIR};
  const TempDirectory directory_;
  sample::SampleOptions options_;
  std::string file_;  // the first of the day
  Span span_;
};

TEST_P(ItemsTest, EachShowsSomething) {
  Write(0, 24, 900);
  const auto catalog = Build(WantedTitles::All());
  const auto graphs = Graphs(*catalog);
  for (const auto& [title, record] : graphs) {
    const auto startsTitle = [&itsTitle = record->title](std::string_view start) {
      return itsTitle.starts_with(start);
    };
    // Stacked, so that the first set holds the sum of all.
    const bool shows = record->data.nsets() > 0 && std::ranges::max(record->data.y[0]) > 0;
    EXPECT_NE(shows, std::ranges::any_of(GetParam().empty, startsTitle)) << title;
    EXPECT_TRUE(!shows || record->Colour(0)) << title;  // of later sets some graphs name none
  }
  EXPECT_GT(graphs.size(), 50U);
}

// What nobody needs for a graph is neither read nor kept, and that changes nothing in it.
TEST_P(ItemsTest, EachIsTheSameAloneAndAmongAll) {
  Write(11, 2, 900);
  const auto catalog = Build(WantedTitles::All());
  for (const auto& [title, amongAll] : Graphs(*catalog)) {
    const auto one = Build(WantedTitles({title}));
    const auto graphs = Graphs(*one);
    ASSERT_EQ(graphs.count(title), 1U) << title;
    const GraphRecord& alone = *graphs.at(title);
    EXPECT_EQ(alone.data.y, amongAll->data.y) << title;
    EXPECT_EQ(alone.data.npoints, amongAll->data.npoints) << title;
    EXPECT_EQ(alone.traceLabels, amongAll->traceLabels) << title;
    EXPECT_EQ(alone.traceColours, amongAll->traceColours) << title;
    EXPECT_EQ(alone.yMax, amongAll->yMax) << title;
  }
}

// Each trace of a view, at each interval, and all of them together. The catalog is as it is without views.
TEST_P(ItemsTest, ViewsAreTheSumsOfTheRecords) {
  Write(8, 3, INTERVAL);
  const auto catalog = Build(WantedTitles::AllAndViews());
  const auto all = Build(WantedTitles::All());
  const auto graphs = Graphs(*catalog);
  for (const auto& [title, record] : Graphs(*all)) {
    EXPECT_EQ(graphs.at(title)->data.y, record->data.y) << title;
  }
  const auto image = [](const ProcessRecord& process) { return ImageOfCommand(process.name); };
  const auto user = [](const ProcessRecord& process) { return TrimText(process.userName, " "); };
  const bool isVmr = GetParam().name == std::string_view("vmr");
  const auto memory = [&](const ProcessRecord& process) {
    const double life = isVmr ? Lived(process) : 1.0;
    return static_cast<double>(process.sizeResident) / GetParam().unitsOfMb * life;
  };
  const auto check = [&](const GraphRecord& view, const auto& sums) {
    const XrtData& data = view.data;
    ASSERT_GT(data.nsets(), 2) << view.title;
    for (const auto& [key, sum] : sums) {
      const auto point = static_cast<size_t>(key.first);
      if (point == 0 || point >= static_cast<size_t>(catalog->pointCount))
        continue;  // point 0 never holds data
      for (int set = 0; set < data.nsets(); ++set) {
        const std::string label = view.Label(set).value_or("");
        if (key.second.empty() ? set != 0 : !label.ends_with(' ' + key.second)) continue;
        const size_t below = static_cast<size_t>(set) + 1;
        const float rest = key.second.empty() || below == data.y.size() ? 0.0F : data.y[below][point];
        EXPECT_NEAR(static_cast<double>(data.y[below - 1][point] - rest), sum, 1e-3 + sum * 1e-4)
            << view.title << label << point;
      }
    }
  };
  check(*graphs.at("Top 10 Images by Resident Memory"), SumsOfRecords(image, memory));
  if (!isVmr) check(*graphs.at("Top 10 Users by Resident Memory"), SumsOfRecords(user, memory));
  if (GetParam().faults != nullptr) {
    check(*graphs.at("Top 10 Images by Page Faults"), SumsOfRecords(image, GetParam().faults));
  }
  EXPECT_EQ(catalog->viewRecords.size(), isVmr || GetParam().faults == nullptr ? 2U : 3U);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ItemsTest, ::testing::ValuesIn(KINDS),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
}  // namespace ozmo::testing
