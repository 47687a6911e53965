#include "output/trace_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/output/recording_plot.h"

namespace ozmo {
namespace {

using ::testing::ElementsAre;
using testing::Recording;
using testing::RecordingStart;
using Calls = std::vector<std::string>;

// Limits of 0 to 10 on both axes, on a frame that is the whole device.
class TraceDrawing : public ::testing::Test {
 protected:
  TraceDrawing() {
    PlotSettings settings;
    settings.plotBoxUp = settings.plotBoxRight = 0.0;
    settings.plotBoxHeight = settings.plotBoxWidth = 1000.0 / DEVICE_SIZE;
    settings.colours = {"c0", "c1", "c2", "c3", "c4", "c5", std::nullopt};
    GrapherSetParameters(grapher_, settings,
                         {.x = {.min = 0.0, .max = 10.0}, .y = {.min = 0.0, .max = 10.0}});
    RecordingStart();
  }

  // Draws the points as one trace and returns the moves and continuations.
  Calls Draw(const std::vector<std::pair<double, double>>& points) {
    PointArray array;
    for (const auto& [x, y] : points) {
      PlotPoint point = {};
      point.x = x;
      point.y = y;
      point.pendown = !array.empty();
      point.useColor = true;
      point.lineMode = 1;
      point.fillFraction = 1.0;
      array.push_back(point);
    }
    GrapherPlotPoints(grapher_, array);
    Calls path;
    for (const std::string& call : Recording().calls) {
      if (call.rfind("fmove", 0) == 0 || call.rfind("fcont", 0) == 0) {
        path.push_back(call);
      }
    }
    return path;
  }

  Grapher grapher_;
};

TEST_F(TraceDrawing, ClipCodeAllowsAMillionthOfTheRange) {
  EXPECT_EQ(GrapherClipCode(grapher_, 10.000009, -0.000009), 0);
  EXPECT_EQ(GrapherClipCode(grapher_, 10.000011, -0.000011), CLIP_RIGHT | CLIP_BELOW);
  EXPECT_EQ(GrapherClipCode(grapher_, -1.0, 11.0), CLIP_LEFT | CLIP_ABOVE);
}

TEST_F(TraceDrawing, ClipLineMovesEndsToTheLimitsOrRejects) {
  struct Case {
    std::vector<double> line;
    int result;
    std::vector<double> clipped;
  };
  for (const Case& row :
       {Case{{1, 1, 9, 9}, CLIP_ACCEPTED, {1, 1, 9, 9}},
        {{-5, 5, 5, 5}, CLIP_ACCEPTED + CLIP_FIRST_MOVED, {0, 5, 5, 5}},
        {{5, 5, 10, 15}, CLIP_ACCEPTED + CLIP_SECOND_MOVED, {5, 5, 7.5, 10}},
        {{-1, -1, 11, 11}, CLIP_ACCEPTED + CLIP_FIRST_MOVED + CLIP_SECOND_MOVED, {0, 0, 10, 10}},
        {{1, 11, 9, 12}, CLIP_REJECTED, {}},
        {{-5, 8, 3, 16}, CLIP_REJECTED, {}}}) {  // crosses two outer fields, no common side
    std::vector<double> ends = row.line;
    EXPECT_EQ(GrapherClipLine(grapher_, ends[0], ends[1], ends[2], ends[3]), row.result);
    if (row.result != CLIP_REJECTED) {
      EXPECT_EQ(ends, row.clipped);
    }
  }
}

TEST_F(TraceDrawing, ALineThatLeavesAndComesBackIsCutAtTheFrame) {
  EXPECT_THAT(Draw({{0, 0}, {2, 20}, {4, 20}, {6, 0}, {7, 3}}),
              ElementsAre("fmove 0 0", "fcont 100 1000", "fmove 400 2000", "fmove 500 1000", "fcont 600 0",
                          "fcont 700 300"));
  // An error bar, of no length, after each point but not after an end that was moved.
  EXPECT_EQ(Recording().Named("savestate").size(), 3U);
}

TEST_F(TraceDrawing, ASegmentThatLeavesAtBothEndsIsOnlyAMove) {
  EXPECT_THAT(Draw({{1, -5}, {2, 15}, {3, 5}}),
              ElementsAre("fmove 100 -500", "fmove 200 1500", "fmove 250 1000", "fcont 300 500"));
}

TEST_F(TraceDrawing, PointsThatAreNoFiniteNumbersAreLeftOut) {
  EXPECT_THAT(Draw({{0, NAN}, {1, 1}, {2, INFINITY}, {3, 3}, {4, -INFINITY}}),
              ElementsAre("fmove 100 100", "fcont 300 300"));
}

TEST_F(TraceDrawing, SevenColoursAreUsedAgainWithTheNextStyle) {
  for (const auto& [mode, line, colour] : {std::tuple(1, "'solid'", "'c0'"),
                                           {7, "'solid'", "null"},
                                           {8, "'dotted'", "'c0'"},
                                           {15, "'dotdashed'", "'c0'"},
                                           {36, "''", "'c0'"},
                                           {50, "'solid'", "'c0'"}}) {
    RecordingStart();
    GrapherSetLineStyle(grapher_, mode, true);
    EXPECT_THAT(Recording().calls,
                ElementsAre(std::string("linemod ") + line, std::string("colorname ") + colour));
  }
}

TEST(GrapherFillType, GoesFromFullColourToWhite) {
  EXPECT_EQ(GrapherFillType(1.0), 1);
  EXPECT_EQ(GrapherFillType(0.0), 65535);
  EXPECT_EQ(GrapherFillType(0.25), 49152);  // 49150.5 is rounded away from zero
  EXPECT_EQ(GrapherFillType(-1.0), 0);
}

}  // namespace
}  // namespace ozmo
