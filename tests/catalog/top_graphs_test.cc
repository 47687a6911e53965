#include "catalog/top_graphs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::ElementsAre;
using testing::FloatEq;
using testing::Pointwise;

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
      {"the rest", SOLARIS_PLATFORM, 80, {6, 18}, {"#0  b", "#1  a", "Others"}, {30, 10, 40}},
      {"rescaled lists have none", HPUX_PLATFORM, 80, {6, 18}, {"#0  b", "#1  a", "Others"}, {60, 20, 0}},
      {"more than all", SOLARIS_PLATFORM, 5, {6}, {"#0  a", "Others"}, {10, 0}},
      {"no weight without overall CPU", SOLARIS_PLATFORM, 0, {6}, {"Others"}, {0}},
      {"without processes", SOLARIS_PLATFORM, 80, {}, {"Others"}, {80}},
      {"an image that did nothing isn't ranked", SOLARIS_PLATFORM, 80, {0}, {"Others"}, {80}},
  };
  for (const Case& test : cases) {
    BuildFixture fixture(test.platform);
    for (size_t i = 0; i < test.seconds.size(); ++i) {
      fixture.AddProcess("ann", std::string(1, static_cast<char>('a' + i)), test.seconds[i]);
    }
    fixture.TakeBusy(60, test.busy);
    fixture.build.FinishGraphs();
    EXPECT_EQ(fixture.Labels(Graph::TOP_IMAGES), test.labels) << test.rule;
    EXPECT_THAT(fixture.Values(Graph::TOP_IMAGES, 1), Pointwise(FloatEq(), test.values)) << test.rule;
    EXPECT_THAT(fixture.Values(Graph::TOP_IMAGES, 2), testing::Each(MISSING_POINT)) << test.rule;
    if (!test.seconds.empty() && test.labels.size() > 1) {
      EXPECT_THAT(fixture.Labels(Graph::TOP_USERS), ElementsAre("0. ann", "Others"));
    }
  }
}

TEST(TopGraphsVmr, WithoutImagesOthersAreOverallCpuLessDpcAndInterrupts) {
  BuildFixture fixture(VMR_PLATFORM);
  ProcessorRecord& machine = fixture.AddProcessor(0, 30, 20, 0);
  machine.dpcTime = 4;
  machine.interruptTime = 6;
  fixture.Take(60);
  fixture.build.FinishGraphs();
  EXPECT_THAT(fixture.Labels(Graph::TOP_IMAGES), ElementsAre("Others", "DPC+Interrupt"));
  EXPECT_THAT(fixture.Values(Graph::TOP_IMAGES, 1), ElementsAre(40, 10));
}

}  // namespace
}  // namespace ozmo
