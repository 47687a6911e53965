#include "programs/import/minutes.h"

#include <cstdlib>
#include <utility>

#include "programs/host_file/sum.h"

namespace ozmo::import {
namespace {

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

// Whether the first sample of a file is long enough: see ShiftOf in day_files.cc. Where it can be chosen, it
// ends in the second half of a minute, as our recorder's do.
bool IsFirst(const Sample& sample, int64_t lastLength) {
  const bool canChoose = lastLength <= HALF_MINUTE;
  return sample.seconds > HALF_MINUTE + 2 * CLOCK_SLACK &&
         (!canChoose || sample.time % MINUTE >= HALF_MINUTE);
}

}  // namespace

// The due times are each a minute after the one before, so that no two samples fall on the same.
bool Minutes::IsComplete(const Sample& sample, int64_t lastLength) {
  if (due_ == 0) {
    if (!IsFirst(sample, lastLength)) return false;
    due_ = sample.time - CLOCK_SLACK;
  }
  if (sample.time < due_) return false;
  due_ += ((sample.time - due_) / MINUTE + 1) * MINUTE;
  return true;
}

std::string Minutes::Add(const Sample& sample, const Sink& sink) {
  const Sample* before = open_ ? &*open_ : complete_ ? &*complete_ : nullptr;
  // One of a minute may be early by more than the slack, or come after a short one.
  const bool isPart = (open_ || sample.time < due_) && sample.seconds < 2 * MINUTE;
  const bool isShort = sample.seconds < MINUTE || isPart;
  if (before != nullptr && (!isShort || !Follows(sample, *before))) {
    if (std::string failure = Finish(sink); !failure.empty()) return failure;
  }
  Sample joined = open_ ? Join(*open_, sample) : sample;
  const bool isComplete = IsComplete(joined, sample.seconds);
  if (!isShort) return sink(sample, sample.seconds);
  if (!isComplete) {
    open_ = std::move(joined);
    return "";
  }
  std::string failure = HandOn(sink);
  open_.reset();
  complete_ = std::move(joined);
  return failure;
}

std::string Minutes::HandOn(const Sink& sink) {
  if (!complete_) return "";
  const Sample sample = std::move(*std::exchange(complete_, std::nullopt));
  return sink(sample, MINUTE);
}

std::string Minutes::Finish(const Sink& sink) {
  std::optional<Sample> rest = std::exchange(open_, std::nullopt);
  if (rest && !complete_) return sink(*rest, due_ == 0 ? rest->seconds : MINUTE);
  if (rest) complete_ = Join(*complete_, std::move(*rest));
  return HandOn(sink);
}

}  // namespace ozmo::import
