// The recorder as a service of systemd: what it says to the service manager, by libsystemd. Without that
// library, or started by anyone else, nothing is said.
#pragma once

#include <cstdint>
#include <string>

namespace ozmo::record {

// The recording has begun, into the file at `path`.
void SayReady(const std::string& path);
// The recorder is at work. Has to be said at least every AliveInterval, or the manager starts it anew.
void SayAlive();
// The recording comes to its end.
void SayStopping();

// In nanoseconds; half of what the manager waits. Endless where nobody waits.
int64_t AliveInterval();

// Whether standard error goes to the journal, which takes a priority at the begin of each line.
bool LogsToJournal();

}  // namespace ozmo::record
