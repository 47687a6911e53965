// The walk through the files of a day set, interval by interval, whatever their binary format.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "readers/collector_file.h"
#include "readers/file_head.h"

namespace ozmo {

class CollectorReader {
 public:
  CollectorReader(const CollectorFormat& format, Runtime& runtime) : file_(format, runtime) {}

  // Absent if the file can't be read or lacks one of the two; a message has said so.
  std::optional<FileHead> EntryPass(const std::string& path);
  // Number of files in the set of the context's span.
  int Open(VmrContext& context);
  // DONE: the context holds the next interval, or is empty after a file that couldn't be opened. Any other
  // result: no more.
  ReaderResult Next(VmrContext& context);
  void Close(VmrContext& context);
  // The set of the last Open.
  const std::vector<std::string>& files() const { return fileSet_; }

  const ReaderState& state() const { return file_.state(); }

 private:
  ReaderResult OpenCurrentFile(VmrContext& context);
  ReaderResult MoveCursor(VmrContext& context);

  CollectorFile file_;
  bool opened_ = false;
  std::vector<std::string> fileSet_;
  size_t cursor_ = 0;
  Seconds savedPeriodEnd_ = 0;
};

}  // namespace ozmo
