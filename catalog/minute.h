// Where the passes put the figures of an interval.
#pragma once

#include <initializer_list>
#include <span>

#include "catalog/model.h"

namespace ozmo {

// The minute of a catalog that an interval falls on.
struct Minute {
  GraphCatalog& catalog;
  int point;
  int sample;  // number of the point among those that intervals fell on, see SampledPoints

  void Store(Graph graph, int set, float value) const { catalog.Store(graph, set, point, value); }
  // One value a set, set 0 first. Nothing happens where the platform lacks the graph or a set, or nobody
  // needs the graph.
  void Store(Graph graph, std::span<const float> values) const {
    int set = 0;
    for (const float value : values) Store(graph, set++, value);
  }
  void Store(Graph graph, std::initializer_list<float> values) const {
    Store(graph, std::span<const float>(values.begin(), values.size()));
  }
  void Store(Graph graph, std::initializer_list<double> values) const {
    int set = 0;
    for (const double value : values) Store(graph, set++, static_cast<float>(value));
  }
  // Adds to the set's value, which counts as 0 while it is missing.
  void Feed(Graph graph, int set, float value) const {
    if (Series* series = catalog.FindSeries(graph, set)) PointFeed(*series, point, value);
  }
};

}  // namespace ozmo
