#include "output/export_csv.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/output/plot_job.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

using testing::PlotJob;
using testing::ScopedVariable;
using testing::TempDirectory;

class ExportCsvTest : public ::testing::Test {
 protected:
  std::string Export(PlotJob& graph) {
    tzset();
    graph.job.graphFile = directory_ / "graph.csv";
    graph.job.hostName = "pluto";
    EXPECT_EQ(ExportCsv(graph.job, runtime_), 1);
    std::ostringstream text;
    text << std::ifstream(graph.job.graphFile).rdbuf();
    return text.str();
  }

  TempDirectory directory_;
  ScopedVariable zone_{"TZ", "UTC0"};
  Runtime runtime_;
};

TEST_F(ExportCsvTest, ShowsEachTraceByItsOwnValue) {
  PlotJob graph(3);
  graph.AddTrace("User, all", {0.0F, 1234.5F, 0.0F});
  graph.AddTrace("System", {0.0F, 4.25F, 0.0F});
  EXPECT_EQ(Export(graph),
            "Veltrix Export Graph V9.2\n"
            "Time Period: From Wed Feb 22 08:00 UTC 2012 To Wed Feb 22 08:02 UTC 2012\n"
            "Host Name: pluto,\n"
            "Main Overlay: Load\n"
            "Additional Overlay: (null)\n"
            "Time,  User, all,  System\n"
            "02/22/2012 08:00:00,    0.00,    0.00\n"
            "02/22/2012 08:01:00,  1230.25,    4.25\n"
            "02/22/2012 08:02:00,    0.00,    0.00\n");
}

TEST_F(ExportCsvTest, TheOverlayIsTheLastColumnWithItsValueAsItStands) {
  PlotJob graph(1);
  graph.AddTrace("User", {7.0F});
  graph.SetOverlay(10.0, {-2.5F});
  const std::string text = Export(graph);
  EXPECT_NE(text.find("Additional Overlay: Disks\nTime,  User,  Reads\n"), std::string::npos) << text;
  EXPECT_NE(text.find(":00,    7.00,   -2.50\n"), std::string::npos) << text;
}

TEST_F(ExportCsvTest, DifferencesAreThoseOfFloats) {
  PlotJob graph(1);
  graph.AddTrace("A", {16777216.0F + 2.0F});
  graph.AddTrace("B", {1.1F});
  graph.AddTrace("C", {1.1F + 1e-7F});
  // In double precision the first would be 16777216.90; the second is below zero by rounding alone.
  const std::string text = Export(graph);
  EXPECT_NE(text.find(":00,  16777216.00,   -0.00,    1.10\n"), std::string::npos) << text;
}

TEST_F(ExportCsvTest, TimesFollowTheLocalClockInStepsOfSeconds) {
  const ScopedVariable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  PlotJob graph(2, 1351385940);  // 28-Oct-2012 02:59 summer time, the last minute of it
  graph.AddTrace("A", {0.0F, 0.0F});
  const std::string text = Export(graph);
  EXPECT_NE(text.find("From Sun Oct 28 02:59 CEST 2012 To Sun Oct 28 02:00 CET 2012\n"), std::string::npos)
      << text;
  EXPECT_NE(text.find("10/28/2012 02:59:00,    0.00\n10/28/2012 02:00:00,"), std::string::npos) << text;
}

TEST_F(ExportCsvTest, TextsAreWrittenAsTheyStand) {
  PlotJob graph(1);
  graph.AddTrace("100% %s\\n", {0.0F});
  graph.job.mainOverlay.traces.front().label = "100% %s\\n";
  graph.job.mainOverlay.title = "%d%n";
  const std::string text = Export(graph);
  EXPECT_NE(text.find("Main Overlay: %d%n\n"), std::string::npos);
  EXPECT_NE(text.find("Time,  100% %s\\n\n"), std::string::npos);
}

TEST_F(ExportCsvTest, AFileThatCanNotBeOpenedIsToldThroughTheMessageFile) {
  std::filesystem::create_directories(directory_ / "db");
  std::ofstream(directory_ / "db/veltrix_messages.msg") << "UNDEFINED ERROR \"%s\"\n";
  const ScopedVariable library("VELTRIX_LIBRARY", directory_.path());
  PlotJob graph(1);
  graph.AddTrace("A", {0.0F});
  graph.job.graphFile = directory_ / "no/graph.csv";
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(ExportCsv(graph.job, runtime_), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "VELTRIX-ERROR  Could not open graph file.\n");
}

}  // namespace
}  // namespace ozmo
