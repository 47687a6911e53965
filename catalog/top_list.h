// Names and their series, and the ten heaviest of them.
//
// During the walk a pass feeds values by name; after it the names are ranked over the whole span and the
// series of the winners become the sets of a graph.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "catalog/model.h"

namespace ozmo {

// Series by name, in ascending byte order. A name's series stays where it is for the whole run.
class NameSeriesTree {
 public:
  // The series of `name`; the first sight of a name makes one with all points missing.
  Series& At(GraphCatalog& catalog, std::string_view name);
  Series* Find(std::string_view name);  // null where the name was never seen
  std::map<std::string, Series, std::less<>>& names() { return names_; }

 private:
  std::map<std::string, Series, std::less<>> names_;
};

// The name trees of a run; each but DISK_RESPONSE has a Top list.
enum class NameTree {
  IMAGES,
  USERS,
  DISK_OPERATIONS,
  DISK_DATA,
  DISK_QUEUE,
  DISK_UTILIZATION,
  DISK_SPACE,
  DISK_RESPONSE,
  FILE_SYSTEMS,
  COUNT
};
inline constexpr size_t NAME_TREE_COUNT = static_cast<size_t>(NameTree::COUNT);

class NameTrees {
 public:
  explicit NameTrees(GraphCatalog& catalog) : catalog_(catalog) {}
  NameSeriesTree& operator[](NameTree tree) { return trees_[static_cast<size_t>(tree)]; }
  Series& At(NameTree tree, std::string_view name) { return (*this)[tree].At(catalog_, name); }
  // Adds to the name's value at the point: a name seen twice in one interval adds up.
  void Feed(NameTree tree, std::string_view name, int point, float value) {
    PointFeed(At(tree, name), point, value);
  }

 private:
  GraphCatalog& catalog_;
  std::array<NameSeriesTree, NAME_TREE_COUNT> trees_;
};

// One ranked name. Name and series belong to the tree.
struct TopEntry {
  std::string_view name;
  float weight = 0.0F;
  Series* series = nullptr;
};

using TopList = std::vector<TopEntry>;  // heaviest first

// Ranks an entry. A list holds at most ten; the tenth place is only ever filled from above, by an entry that
// beats the ninth. Among equals the newer entry goes in front.
void TopListInsert(TopList& list, const TopEntry& entry);

// Sum of the first `points` points that aren't missing, in single precision.
float PlainSum(const Series& series, int points);

// What process shares are scaled with: overall CPU and the sum of all shares, by point.
struct CpuScale {
  const Series& overallCpu;
  const Series& processCpuSum;
  int points;
};

// Weight in percent-minutes of overall CPU: each share is scaled so that the shares of a minute add up to
// the overall figure. Products are floats; the sum is kept in `Sum`.
template <class Sum>
Sum NormalizedSum(const Series& series, const CpuScale& scale);

// Scales the series in place by the same rule.
void NormalizeProcessSeries(Series& series, const CpuScale& scale);

// The text without the blanks at both ends.
std::string_view TrimBlanks(std::string_view text);

// The image name in a command: last path component of the first word, without a leading '-'.
std::string ImageOfCommand(std::string_view command);

}  // namespace ozmo
