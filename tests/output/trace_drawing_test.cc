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

  Calls StyleOf(int mode, bool useColor = true) {
    RecordingStart();
    GrapherSetLineStyle(grapher_, mode, useColor);
    return Recording().calls;
  }

  struct Clipped {
    int result;
    std::vector<double> ends;
  };
  Clipped Clip(double x0, double y0, double x1, double y1) {
    const int result = GrapherClipLine(grapher_, x0, y0, x1, y1);
    return {result, {x0, y0, x1, y1}};
  }

  Grapher grapher_;
};

TEST_F(TraceDrawing, ClipCodeAllowsAMillionthOfTheRange) {
  EXPECT_EQ(GrapherClipCode(grapher_, 10.000009, -0.000009), 0);
  EXPECT_EQ(GrapherClipCode(grapher_, 10.000011, -0.000011), CLIP_RIGHT | CLIP_BELOW);
  EXPECT_EQ(GrapherClipCode(grapher_, -1.0, 11.0), CLIP_LEFT | CLIP_ABOVE);
}

TEST_F(TraceDrawing, ClipLineMovesEndsToTheLimits) {
  EXPECT_EQ(Clip(1, 1, 9, 9).result, CLIP_ACCEPTED);

  const Clipped first = Clip(-5, 5, 5, 5);
  EXPECT_EQ(first.result, CLIP_ACCEPTED + CLIP_FIRST_MOVED);
  EXPECT_THAT(first.ends, ElementsAre(0, 5, 5, 5));

  const Clipped second = Clip(5, 5, 10, 15);
  EXPECT_EQ(second.result, CLIP_ACCEPTED + CLIP_SECOND_MOVED);
  EXPECT_THAT(second.ends, ElementsAre(5, 5, 7.5, 10));

  const Clipped both = Clip(-1, -1, 11, 11);
  EXPECT_EQ(both.result, CLIP_ACCEPTED + CLIP_FIRST_MOVED + CLIP_SECOND_MOVED);
  EXPECT_THAT(both.ends, ElementsAre(0, 0, 10, 10));
}

TEST_F(TraceDrawing, ClipLineRejectsWhatStaysOutside) {
  EXPECT_EQ(Clip(1, 11, 9, 12).result, CLIP_REJECTED);
  EXPECT_EQ(Clip(-5, 8, 3, 16).result, CLIP_REJECTED);  // crosses two outer fields, no common side
}

TEST_F(TraceDrawing, ClipLineEndsWhateverTheNumbers) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
  for (const double odd : {1e300, -1e300, infinity, -infinity, noNumber}) {
    for (const double even : {0.0, 1e300, infinity, noNumber, 5.0}) {
      Clip(odd, even, 5.0, odd);
      Clip(even, odd, odd, even);
    }
  }
}

TEST_F(TraceDrawing, APathStartsWithItsStyleAndAMove) {
  Draw({{0, 0}, {1, 5}});
  EXPECT_THAT(Recording().calls,
              ElementsAre("linemod 'solid'", "colorname 'c0'", "flinewidth 0", "filltype 1", "fmove 0 0",
                          "savestate", "restorestate", "fcont 100 500", "savestate", "restorestate"));
}

TEST_F(TraceDrawing, ALineThatLeavesAndComesBackIsCutAtTheFrame) {
  EXPECT_THAT(Draw({{0, 0}, {2, 20}, {4, 20}, {6, 0}, {7, 3}}),
              ElementsAre("fmove 0 0", "fcont 100 1000", "fmove 400 2000", "fmove 500 1000", "fcont 600 0",
                          "fcont 700 300"));
}

TEST_F(TraceDrawing, ASegmentThatLeavesAtBothEndsIsOnlyAMove) {
  EXPECT_THAT(Draw({{1, -5}, {2, 15}, {3, 5}}),
              ElementsAre("fmove 100 -500", "fmove 200 1500", "fmove 250 1000", "fcont 300 500"));
}

TEST_F(TraceDrawing, NoErrorBarsBehindAnEndThatWasMoved) {
  Draw({{0, 0}, {2, 20}});
  EXPECT_EQ(Recording().Named("savestate").size(), 1U);
}

TEST_F(TraceDrawing, PointsThatAreNoFiniteNumbersAreLeftOut) {
  EXPECT_THAT(Draw({{0, NAN}, {1, 1}, {2, INFINITY}, {3, 3}, {4, -INFINITY}}),
              ElementsAre("fmove 100 100", "fcont 300 300"));
}

TEST_F(TraceDrawing, SevenColoursAreUsedAgainWithTheNextStyle) {
  EXPECT_THAT(StyleOf(1), ElementsAre("linemod 'solid'", "colorname 'c0'"));
  EXPECT_THAT(StyleOf(7), ElementsAre("linemod 'solid'", "colorname null"));
  EXPECT_THAT(StyleOf(8), ElementsAre("linemod 'dotted'", "colorname 'c0'"));
  EXPECT_THAT(StyleOf(15), ElementsAre("linemod 'dotdashed'", "colorname 'c0'"));
  EXPECT_THAT(StyleOf(36), ElementsAre("linemod ''", "colorname 'c0'"));
  EXPECT_THAT(StyleOf(50), ElementsAre("linemod 'solid'", "colorname 'c0'"));
}

TEST(GrapherFillType, GoesFromFullColourToWhite) {
  EXPECT_EQ(GrapherFillType(1.0), 1);
  EXPECT_EQ(GrapherFillType(0.0), 65535);
  EXPECT_EQ(GrapherFillType(0.25), 49152);  // 49150.5 is rounded away from zero
  EXPECT_EQ(GrapherFillType(-1.0), 0);
}

}  // namespace
}  // namespace ozmo
