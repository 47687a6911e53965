// Samples of a minute, of a recording that has shorter ones.
//
// A point of a graph is a minute, and of the samples that end in it readers take the first: of a recording
// each ten seconds five samples out of six would never be seen. So samples that are shorter than a minute are
// put together. Once a minute a sample is due: it begins where the one before ended, and ends with the first
// that reaches the due time. Of samples that are longer than half a minute it is one or two. What is left at
// the end is part of the last sample, so that is longer than a minute.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "programs/import/sample.h"

namespace ozmo::import {

// Recorders wake up in time, but a stamp is cut to seconds: a sample may be early by as many.
inline constexpr int64_t CLOCK_SLACK = 2;
inline constexpr int64_t MINUTE = 60;
inline constexpr int64_t HALF_MINUTE = MINUTE / 2;

class Minutes {
 public:
  // Takes a sample, and how far samples lie apart in seconds. Returns what went wrong, or nothing.
  using Sink = std::function<std::string(const Sample& sample, int64_t interval)>;

  // Takes the samples of one host in the order of time, and hands on what is complete. Longer samples stay as
  // they are. Results are those of the sink.
  [[nodiscard]] std::string Add(const Sample& sample, const Sink& sink);
  // After the last sample.
  [[nodiscard]] std::string Finish(const Sink& sink);

 private:
  bool IsComplete(const Sample& sample, int64_t lastLength);
  std::string HandOn(const Sink& sink);

  int64_t due_ = 0;                 // the next sample; 0: there was none yet
  std::optional<Sample> complete_;  // held until the next one is, since a rest may follow
  std::optional<Sample> open_;
};

}  // namespace ozmo::import
