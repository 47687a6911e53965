// Names of graphs and traces as users type them, and which graphs a catalog is wanted for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ozmo {

// How names of graphs and traces are compared: blanks, double quotes, apostrophes and the case of letters
// don't count. Tabs do.
std::string GraphNameKey(std::string_view name);

// Zero when two names are the same graph's or trace's.
int GraphNameCompare(std::string_view first, std::string_view second);

// The titles of the graphs that a catalog is built for. Other graphs are in its tree without series.
class WantedTitles {
 public:
  static WantedTitles All() { return WantedTitles(); }
  // The same, and the views, see views.h.
  static WantedTitles AllAndViews() {
    WantedTitles titles;
    titles.hasViews_ = true;
    return titles;
  }
  explicit WantedTitles(const std::vector<std::string_view>& titles);

  bool IsAll() const { return isAll_; }
  bool HasViews() const { return hasViews_; }
  bool Has(std::string_view title) const;
  const std::vector<std::string>& keys() const { return keys_; }

 private:
  WantedTitles() = default;

  bool isAll_ = true;
  bool hasViews_ = false;
  std::vector<std::string> keys_;
};

}  // namespace ozmo
