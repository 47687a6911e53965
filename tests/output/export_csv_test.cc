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

// Texts are no formats. Times follow the local clock in steps of seconds, here over the end of summer time.
// Differences are those of floats: in double precision the first would be 16777216.90; the second is below
// zero by rounding alone. The overlay's value stays as it is.
TEST(ExportCsv, WritesTextsAsTheyAreAndEachTraceByItsOwnValue) {
  const ScopedVariable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  const TempDirectory directory;
  tzset();
  PlotJob graph(2, 1351385940);  // 02:59, the last minute of summer time
  graph.AddTrace("100% %s\\n", {16777216.0F + 2.0F, 0.0F});
  graph.AddTrace("B, all", {1.1F, 0.0F});
  graph.AddTrace("C", {1.1F + 1e-7F, 1234.5F});
  graph.SetOverlay(10.0, {-2.5F, 1.0F});
  graph.job.mainOverlay.title = "%d%n";
  graph.job.hostName = "pluto";
  graph.job.graphFile = directory / "graph.csv";
  Runtime runtime;
  EXPECT_EQ(ExportCsv(graph.job, runtime), 1);
  std::ostringstream text;
  text << std::ifstream(graph.job.graphFile).rdbuf();
  EXPECT_EQ(text.str(),
            "Veltrix Export Graph V9.2\n"
            "Time Period: From Sun Oct 28 02:59 CEST 2012 To Sun Oct 28 02:00 CET 2012\n"
            "Host Name: pluto,\n"
            "Main Overlay: %d%n\n"
            "Additional Overlay: Disks\n"
            "Time,  100% %s\\n,  B, all,  C,  Reads\n"
            "10/28/2012 02:59:00,  16777216.00,   -0.00,    1.10,   -2.50\n"
            "10/28/2012 02:00:00,    0.00,  -1234.50,  1234.50,    1.00\n");
}

}  // namespace
}  // namespace ozmo
