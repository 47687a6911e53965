// The services of one run: who we are, where our library directory lies.
//
// A Runtime is made once at the top of a run and passed by reference to whoever prints messages.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "runtime/file_identity.h"
#include "runtime/identity.h"
#include "runtime/library_path.h"
#include "runtime/times.h"

namespace ozmo {

// A message that is ready to be shown. A problem is a warning or an error, or a message whose text was not
// found.
struct ReadyMessage {
  std::string code;
  std::string text;  // without a line feed
  bool isProblem = false;
};
using MessageSink = std::function<void(const ReadyMessage&)>;

// Gets the time stamp of each interval that a walk comes to.
using ProgressSink = std::function<void(Seconds)>;

// Puts a sink into its place in the runtime, and the earlier one back at the end of its own life.
template <class Sink>
class ScopedSink {
 public:
  ScopedSink(Sink& place, Sink sink) : place_(place), earlier_(std::exchange(place, std::move(sink))) {}
  ~ScopedSink() { place_ = std::move(earlier_); }
  ScopedSink(const ScopedSink&) = delete;
  ScopedSink& operator=(const ScopedSink&) = delete;

 private:
  Sink& place_;
  Sink earlier_;
};

struct Runtime {
  ProductIdentity identity = ProductIdentityInit();
  LibraryDirectoryCache library;
  std::vector<FileIdentity> inputs;  // data and text files that were read: no output may overwrite one
  MessageSink messageSink;    // takes the messages; empty: problems go to standard error, other messages to
                              // standard output
  ProgressSink progressSink;  // may be empty
};

// Adds a file that the run reads to its inputs. What is no plain file has no identity, and needs no care.
inline void NoteInput(Runtime& runtime, const std::optional<FileIdentity>& file) {
  std::vector<FileIdentity>& inputs = runtime.inputs;
  // From the back, where the file of the last message is.
  if (file && std::find(inputs.rbegin(), inputs.rend(), *file) == inputs.rend()) inputs.push_back(*file);
}

}  // namespace ozmo
