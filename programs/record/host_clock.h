// The clocks of the host, and when samples are due.
#pragma once

#include <cstdint>
#include <limits>

namespace ozmo::record {

constexpr int64_t NANOSECONDS = 1'000'000'000;  // of a second

// One moment on both clocks. Intervals are taken from the steady clock, which no one sets and which stops
// still while the host is suspended; files are stamped by the wall clock.
struct Moment {
  int64_t wall = 0;    // nanoseconds since 1970
  int64_t steady = 0;  // nanoseconds
  // The nearest second: a wake-up is a little late, and a clock that is being adjusted a little early.
  int64_t Stamp() const { return (wall + NANOSECONDS / 2) / NANOSECONDS; }
};

// A clock that is set beyond the times of data files shows the last of them.
Moment Now();

constexpr int64_t LAST_STAMP = std::numeric_limits<int32_t>::max();  // of data files; in January 2038

// The steady time at which a recording of that interval may begin or go on, not before `moment`.
//
// Readers walk a file in windows that begin at whole multiples of the interval, ends included. A stamp on
// such an end would be in two windows, and one beside it might cross over. So stamps are kept a quarter of an
// interval away from the ends, or 15 seconds if that is less. The wait is half a minute at most.
int64_t BeginOf(const Moment& moment, int64_t intervalSeconds);

// The steady time at which the sample after the one of `last` is due, which was due at `due`. Samples are
// due an interval apart. A host that was too busy has missed some, and the one after a late sample is missed
// on purpose where it would come so soon that readers took both for one.
int64_t DueAfter(int64_t due, const Moment& last, int64_t intervalSeconds);

// From now on the signals that a recorder minds are taken by SleepUntil alone, so that none is lost and none
// comes in the middle of a write.
void HoldSignals();

// Can be read while a signal that SleepUntil takes is waiting: for poll().
int HeldSignalsFile();

enum class Wake {
  DUE,
  STOP,      // SIGTERM or SIGINT; SIGHUP where a terminal has gone away
  NEW_FILE,  // SIGHUP where there is no terminal
};

// Sleeps until that steady time, or until a signal comes.
[[nodiscard]] Wake SleepUntil(int64_t steady);

}  // namespace ozmo::record
