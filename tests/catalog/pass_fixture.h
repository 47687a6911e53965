// A catalog of one hour on which a test runs single passes over records of its own: the current point stays,
// and graphs go by their titles.
#pragma once

#include <string_view>

#include "build_fixture.h"

namespace ozmo {

class PassFixture : public BuildFixture {
 public:
  explicit PassFixture(const PlatformSpec& platform, Seconds span = 3600) : BuildFixture(platform, span, 0) {
    state.point = 1;
  }

  // The graph that -item finds under this title: the first one of the tree. Null if there is none.
  GraphRecord* Find(std::string_view title) {
    GraphRecord* found = nullptr;
    VisitGraphs(catalog.itemTree, [&](GraphRecord& record) {
      if (found == nullptr && record.title == title) found = &record;
    });
    return found;
  }

  using BuildFixture::Values;
  // The values of a graph's sets at the current point, NOTHING where it lies outside.
  std::vector<float> Values(std::string_view title) {
    std::vector<float> values;
    const GraphRecord* record = Find(title);
    if (record == nullptr) return values;
    for (const Series& series : record->data.y) {
      values.push_back(PointInside(series, state.point) ? PointAt(series, state.point) : NOTHING);
    }
    return values;
  }

  // What a name tree holds at the current point.
  float TreeValue(NameTree tree, std::string_view name) { return Named(tree, name, state.point); }
};

}  // namespace ozmo
