// Samples of a minute, of a recording that has shorter ones.
//
// A point of a graph is a minute, and of the samples that end in it readers take the first: of a recording
// each ten seconds five samples out of six would never be seen. So samples of half a minute or less are put
// together. A sample begins where the one before ended, and ends with the first that reaches the half of a
// minute, where stamps are well away from the ends of readers' windows. What is left at the end is part of
// the last sample, so that is longer than a minute; the first may be shorter too.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "programs/import/sample.h"

namespace ozmo::import {

class Minutes {
 public:
  // Takes a sample. `interval` is how far samples lie apart in seconds, and `late` how many seconds after its
  // due time it may have been taken. Returns what went wrong, or nothing.
  using Sink = std::function<std::string(const Sample& sample, int64_t interval, int64_t late)>;

  // Takes the samples of one host in the order of time, and hands on what is complete. Longer samples stay as
  // they are. Results are those of the sink.
  [[nodiscard]] std::string Add(const Sample& sample, const Sink& sink);
  // After the last sample.
  [[nodiscard]] std::string Finish(const Sink& sink);

 private:
  std::string HandOn(const Sink& sink);

  int64_t late_ = 0;                // of the complete one
  std::optional<Sample> complete_;  // held until the next one is, since a rest may follow
  std::optional<Sample> open_;
};

}  // namespace ozmo::import
