// One data file's reader: whatever the file's kind, the same four operations.
//
// A builder prepares a VmrContext with the requested span, calls ReaderOpen, and calls ReaderNext and reads
// the context's records while the result is at least 1; ReaderClose ends the walk.
#pragma once

#include <string>
#include <variant>

#include "readers/collector_reader.h"
#include "readers/file_kind.h"
#include "readers/vmr/reader.h"

namespace ozmo {

struct Runtime;

class DataReader {
 public:
  DataReader(ReaderKind kind, Runtime& runtime);
  ReaderKind kind() const { return kind_; }

  // One cheap pass over a file for its node name and first time stamp: 1 and both outputs filled, else 0.
  int EntryPass(const std::string& path, std::string& nodeName, Seconds& firstRecordTime);
  // Number of files in the set of the requested span; 0 means nothing to read. The runtime takes note of the
  // files as inputs.
  int Open(VmrContext& context);
  // 1: the context holds the next interval. 0, -1 or a code of reader_status.h: no more.
  int Next(VmrContext& context);
  int Close(VmrContext& context);

 private:
  ReaderKind kind_;
  Runtime* runtime_;
  std::variant<CollectorReader, VmrReader> reader_;
};

inline int ReaderEntryPass(DataReader& reader, const std::string& path, std::string& nodeName,
                           Seconds& firstRecordTime) {
  return reader.EntryPass(path, nodeName, firstRecordTime);
}
inline int ReaderOpen(DataReader& reader, VmrContext& context) { return reader.Open(context); }
inline int ReaderNext(DataReader& reader, VmrContext& context) { return reader.Next(context); }
inline int ReaderClose(DataReader& reader, VmrContext& context) { return reader.Close(context); }

}  // namespace ozmo
