#include "output/trace_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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

  // Draws the points as one trace and answers the moves and continuations.
  Calls Draw(const std::vector<std::pair<double, double>>& points) {
    PointArray array;
    for (const auto& [x, y] : points) {
      array.push_back({.x = x, .y = y, .pendown = !array.empty(), .trace = 0});
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
    Segment line;
    std::vector<double> clipped;  // its ends, and whether each was moved; empty: all of it lies outside
  };
  for (const Case& row : {Case{{1, 1, 9, 9}, {1, 1, 9, 9, 0, 0}},
                          {{-5, 5, 5, 5}, {0, 5, 5, 5, 1, 0}},
                          {{5, 5, 10, 15}, {5, 5, 7.5, 10, 0, 1}},
                          {{-1, -1, 11, 11}, {0, 0, 10, 10, 1, 1}},
                          {{1, 11, 9, 12}, {}},
                          {{-5, 8, 3, 16}, {}}}) {  // crosses two outer fields, no common side
    std::vector<double> clipped;
    if (const auto line = GrapherClipLine(grapher_, row.line)) {
      const auto& [x0, y0, x1, y1] = line->part;
      clipped = {x0, y0, x1, y1, line->isFirstMoved ? 1.0 : 0.0, line->isSecondMoved ? 1.0 : 0.0};
    }
    EXPECT_EQ(clipped, row.clipped);
  }
}

TEST_F(TraceDrawing, ClipLineEndsWhateverTheNumbers) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
  for (const double odd : {1e300, -1e300, infinity, -infinity, noNumber}) {
    for (const double even : {0.0, 1e300, infinity, noNumber, 5.0}) {
      GrapherClipLine(grapher_, {odd, even, 5.0, odd});
      GrapherClipLine(grapher_, {even, odd, odd, 5.0});
    }
  }
}

TEST_F(TraceDrawing, ALineThatLeavesAndComesBackIsCutAtTheFrame) {
  EXPECT_THAT(Draw({{0, 0}, {2, 20}, {4, 20}, {6, 0}, {7, 3}}),
              ElementsAre("fmove 0 0", "fcont 100 1000", "fmove 400 2000", "fmove 500 1000", "fcont 600 0",
                          "fcont 700 300"));
  // An error bar, of no length, behind each point but not behind an end that was moved.
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
  for (const auto& [trace, line, colour] : {std::tuple(0, "'solid'", "'c0'"),
                                            {6, "'solid'", "null"},
                                            {7, "'dotted'", "'c0'"},
                                            {14, "'dotdashed'", "'c0'"},
                                            {35, "''", "'c0'"},
                                            {49, "'solid'", "'c0'"}}) {
    RecordingStart();
    GrapherSetLineStyle(grapher_, trace);
    EXPECT_THAT(Recording().calls,
                ElementsAre(std::string("linemod ") + line, std::string("colorname ") + colour));
  }
}

}  // namespace
}  // namespace ozmo
