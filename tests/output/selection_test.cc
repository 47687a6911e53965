#include "output/selection.h"

#include <gtest/gtest.h>

namespace ozmo {
namespace {

constexpr int POINTS = 4;

// A catalog with the graphs "Load" (two sets, as stacked) and "Disks" (three sets), and a group between.
class SelectionTest : public ::testing::Test {
 protected:
  SelectionTest() {
    load_ = Add("Load", {{9.0F, 5.0F, -1.0F, 3.0F}, {4.0F, 2.0F, 1.0F, 1.0F}}, {"User", "System"});
    disks_ = Add("Disks", {{6.0F, 6.0F, 8.0F, 6.0F}, {5.0F, 5.0F, 5.0F, 5.0F}, {3.0F, 3.0F, 3.0F, 2.0F}},
                 {"a b", "c", "d@e"});
    catalog_.itemTree = {Group("G1", {Row(load_)}), Group("G2", {Group("G3", {Row(disks_)})})};
    catalog_.pointCount = POINTS;
  }

  GraphRecord* Add(const std::string& title, std::vector<Series> sets,
                   const std::vector<std::string>& labels) {
    GraphRecord& record = catalog_.runtimeRecords.emplace_back();
    record.title = title;
    record.yTitle = title + " axis";
    record.data.npoints = POINTS;
    record.data.y = std::move(sets);
    for (const std::string& label : labels) record.traceLabels.emplace_back(label);
    for (size_t i = 0; i < labels.size(); ++i) record.traceColours.emplace_back(title + std::to_string(i));
    return &record;
  }
  static GraphMenuEntry Row(GraphRecord* record) { return {"CODE", "label", record, {}}; }
  static GraphMenuEntry Group(const std::string& label, std::vector<GraphMenuEntry> rows) {
    return {"GROUP", label, nullptr, std::move(rows)};
  }
  static Series Points(const OverlayTrace& trace) { return {trace.series.begin(), trace.series.end()}; }

  GraphCatalog catalog_;
  GraphRecord* load_;
  GraphRecord* disks_;
};

TEST(GraphName, BlanksQuotesAndCaseDoNotCount) {
  struct Case {
    std::string one, other;
    bool same;
  };
  for (const Case& row : {Case{"'Overall CPU Utilization'", "overallcpuutilization", true},
                          {"OVERALL CPU  UTILIZATION", "Over\"all CPU Utilization", true},
                          {"Overall CPU", "Overall\tCPU", false},
                          {"Overall CPU", "Overall CPU Utilization", false},
                          {"\xC4", "\xE4", false},
                          {std::string(3000, ' ') + "a", "A", true}}) {
    EXPECT_EQ(GraphNameCompare(row.one, row.other) == 0, row.same) << row.other;
  }
}

TEST_F(SelectionTest, FindsTitlesDepthFirstAndNoOtherTexts) {
  disks_->title = "Load";
  EXPECT_EQ(load_, FindGraphRecord(catalog_.itemTree, "LOAD"));
  for (const char* text : {"G2", "label", ""}) EXPECT_EQ(nullptr, FindGraphRecord(catalog_.itemTree, text));
}

TEST_F(SelectionTest, MainGraphClosesEverySetAndCountsItsFirstPointAsPeak) {
  const Overlay overlay = PrepareMainOverlay(*load_);
  EXPECT_DOUBLE_EQ(1.1 * 9.0, overlay.yMax);
  EXPECT_EQ(0.0, overlay.yMin);
  EXPECT_EQ("Load axis", overlay.yTitle);
  ASSERT_EQ(2U, overlay.traces.size());
  EXPECT_EQ((Series{0.0F, 5.0F, 0.0F, 0.0F}), Points(overlay.traces[0]));
  EXPECT_EQ((Series{0.0F, 2.0F, 1.0F, 0.0F}), Points(overlay.traces[1]));
  EXPECT_EQ("System", overlay.traces[1].label);
  EXPECT_EQ("Load1", overlay.traces[1].colour);
}

TEST_F(SelectionTest, TopIsFixedOrFromThePeakOrOne) {
  load_->yMax = 100.0F;
  EXPECT_DOUBLE_EQ(1.1 * 100.0, PrepareMainOverlay(*load_).yMax);
  load_->yMax = 0.0F;
  load_->data.y = {{0.0F, 0.0F, -5.0F, 0.0F}};
  EXPECT_EQ(1.0, PrepareMainOverlay(*load_).yMax);
}

TEST_F(SelectionTest, OverlayIsATracesOwnValueAndOnlySetZeroIsClosed) {
  const OverlaySelection selection = SelectOverlay(catalog_, *load_, "Disks@A B");
  ASSERT_TRUE(selection.overlay);
  ASSERT_EQ(1U, selection.overlay->traces.size());
  EXPECT_EQ((Series{-5.0F, 1.0F, 3.0F, -5.0F}), Points(selection.overlay->traces[0]));
  EXPECT_EQ("a b", selection.overlay->traces[0].label);
  EXPECT_EQ("Disks", selection.overlay->title);
  EXPECT_DOUBLE_EQ(1.1 * 8.0, selection.overlay->yMax);
  EXPECT_EQ((Series{5.0F, 5.0F, 5.0F, 5.0F}), disks_->data.y[1]);
}

TEST_F(SelectionTest, LastTraceOfTheStackIsItsOwnValue) {
  const OverlaySelection selection = SelectOverlay(catalog_, *load_, "Disks@d@e");
  ASSERT_TRUE(selection.overlay) << "only the first @ cuts";
  EXPECT_EQ((Series{3.0F, 3.0F, 3.0F, 2.0F}), Points(selection.overlay->traces[0]));
}

TEST_F(SelectionTest, MainGraphSaysWhetherTheOverlaysFixedTopCounts) {
  load_->yMax = 100.0F;
  EXPECT_EQ(0.0, SelectOverlay(catalog_, *load_, "Disks@c").overlay->yMax);
  disks_->yMax = 50.0F;
  EXPECT_DOUBLE_EQ(55.0, SelectOverlay(catalog_, *load_, "Disks@c").overlay->yMax);
  load_->yMax = 0.0F;
  EXPECT_DOUBLE_EQ(1.1 * 8.0, SelectOverlay(catalog_, *load_, "Disks@c").overlay->yMax);
}

TEST_F(SelectionTest, OverlayOfTheMainGraphItselfStartsFromClosedSets) {
  PrepareMainOverlay(*load_);
  const OverlaySelection selection = SelectOverlay(catalog_, *load_, "load@user");
  ASSERT_TRUE(selection.overlay);
  EXPECT_EQ((Series{0.0F, 3.0F, -1.0F, 0.0F}), Points(selection.overlay->traces[0]));
  EXPECT_DOUBLE_EQ(1.1 * 5.0, selection.overlay->yMax);
}

}  // namespace
}  // namespace ozmo
