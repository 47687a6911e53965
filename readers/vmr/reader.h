// The reader of monitor text files, which hold samples of performance objects as lines of text.
//
// A file begins with a head: the header line with node, interval and date, blocks that describe the machine.
// The head ends with the first time row. A sample is a time row and the rows after it, up to the next time
// row: for each object an object row, a counter row, and a data row, for objects with instances one instance
// row and one data row each.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "readers/file_head.h"
#include "readers/reader_result.h"
#include "readers/vmr/file.h"
#include "readers/vmr/handlers.h"
#include "readers/vmr_context.h"

namespace ozmo {

class VmrReader {
 public:
  // Absent if the file can't be opened or ends before its first time row.
  std::optional<FileHead> EntryPass(const std::string& path);
  // Number of files in the set of the context's span.
  int Open(VmrContext& context);
  // DONE: the context holds the next sample, and its period end that sample's time. Any other result: no
  // more.
  ReaderResult Next(VmrContext& context);
  void Close(VmrContext& context);
  // The set of the last Open.
  const std::vector<std::string>& files() const { return fileSet_; }

 private:
  // What the header line says of its file.
  struct Header {
    std::string nodeName;
    std::string filePath;
    int32_t dstFlag = 0;
    std::tm date{};  // base of the file's time rows
    Seconds startTime = 0;
  };

  // The head of a file, up to its first time row. Without a context only the header line is looked at.
  ReaderResult OpenFile(const std::string& path, VmrContext* context);
  void ReadHeader(VmrLine& line, const std::string& path);
  // Both pass the lines of a block; false when the file ends inside it.
  bool SkipBlock(std::string_view endMark);
  bool ReadConfigBlock(VmrContext* context);
  void ReadSystemLine(VmrLine& line, VmrContext& context) const;

  ReaderResult ReadSample(VmrContext& context);
  ReaderResult SkipSample(VmrContext& context);
  void ActOnRow(VmrContext& context);
  Seconds TimeOfRow(VmrLine& line) const;
  void SetPeriod(VmrContext& context, Seconds end) const;

  // Opens the set's current file and goes to the first sample of the span.
  ReaderResult OpenCurrentFile(VmrContext& context);
  // The next file of the set makes a walk go on, whatever the result in the last one.
  ReaderResult MoveCursor(ReaderResult result);

  VmrFile file_;
  Header header_;
  VmrRows rows_;
  Seconds sampleTime_ = 0;  // of the time row read last
  bool opened_ = false;
  Seconds spanStart_ = 0;
  Seconds spanEnd_ = 0;
  std::vector<std::string> fileSet_;
  size_t cursor_ = 0;
};

}  // namespace ozmo
