// One data file's reader: whatever the file's kind, the same four operations.
//
// A builder prepares a VmrContext with the requested span, calls Open, and calls Next and reads the context's
// records while the result is DONE; Close ends the walk, and another may be opened.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "readers/collector_reader.h"
#include "readers/file_head.h"
#include "readers/file_kind.h"
#include "readers/vmr/reader.h"

namespace ozmo {

struct Runtime;

class DataReader {
 public:
  // The path alone says the kind; the file isn't opened yet.
  DataReader(std::string path, Runtime& runtime);
  const std::string& path() const { return path_; }
  ReaderKind kind() const { return kind_; }

  // The file's node name and first time stamp; absent if the file has none or can't be read. The first call
  // makes the entry pass, with its messages, and later ones give the same.
  const std::optional<FileHead>& Head();
  // Number of files in the set of the requested span; 0 means nothing to read. The runtime takes note of the
  // files as inputs. A walk starts from the head, so that one which nobody has asked for is read first.
  int Open(VmrContext& context);
  // DONE: the context holds the next interval. Any other result: no more.
  ReaderResult Next(VmrContext& context);
  void Close(VmrContext& context);

 private:
  std::string path_;
  ReaderKind kind_;
  Runtime* runtime_;
  std::variant<CollectorReader, VmrReader> reader_;
  bool isHeadRead_ = false;
  std::optional<FileHead> head_;
};

}  // namespace ozmo
