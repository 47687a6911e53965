#include "programs/import/minutes.h"

#include <cstdlib>
#include <utility>

#include "programs/host_file/sum.h"

namespace ozmo::import {
namespace {

constexpr int64_t MINUTE = 60;
constexpr int64_t HALF = MINUTE / 2;
// Recorders wake up in time, but a stamp is cut to seconds.
constexpr int64_t CLOCK_SLACK = 2;

int64_t BeginOf(const Sample& sample) { return sample.time - sample.seconds; }

// Clocks are read to a second.
bool Follows(const Sample& sample, const Sample& before) {
  return std::abs(BeginOf(sample) - before.time) <= 1 && sample.time > before.time;
}

Sample Join(const Sample& earlier, Sample later) {
  later.seconds = later.time - BeginOf(earlier);
  later.figures = host_file::SumOf(earlier.figures, std::move(later.figures));
  return later;
}

// When a sample is due that begins then: at the half of the next minute. A reader's first window is the
// minute after the first time stamp, so it finds the sample there, also if its begin is moved by as much as
// it is late.
int64_t DueAfter(int64_t begin, int64_t mostLate) {
  return ((begin - mostLate) / MINUTE + 1) * MINUTE + HALF;
}

}  // namespace

std::string Minutes::Add(const Sample& sample, const Sink& sink) {
  const Sample* before = open_ ? &*open_ : complete_ ? &*complete_ : nullptr;
  const bool isShort = sample.seconds <= HALF;
  if (before != nullptr && (!isShort || !Follows(sample, *before))) {
    if (std::string failure = Finish(sink); !failure.empty()) return failure;
  }
  if (!isShort) return sink(sample, sample.seconds, CLOCK_SLACK);
  open_ = open_ ? Join(*open_, sample) : sample;
  const int64_t late = sample.time - DueAfter(BeginOf(*open_), sample.seconds);
  if (late < 0) return "";
  std::string failure = HandOn(sink);
  late_ = late;
  complete_ = std::exchange(open_, std::nullopt);
  return failure;
}

std::string Minutes::HandOn(const Sink& sink) {
  if (!complete_) return "";
  const Sample sample = std::move(*std::exchange(complete_, std::nullopt));
  return sink(sample, MINUTE, late_);
}

std::string Minutes::Finish(const Sink& sink) {
  std::optional<Sample> rest = std::exchange(open_, std::nullopt);
  if (rest && !complete_) return sink(*rest, rest->seconds, 0);
  if (rest) complete_ = Join(*complete_, std::move(*rest));
  return HandOn(sink);
}

}  // namespace ozmo::import
