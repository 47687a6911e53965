// The walk of a collector reader through the files of a day set, interval by interval.
//
// A window ends at the first time record beyond it, and the next window begins behind that record without a
// seek back: the data behind it are delivered by the next pass, whatever its window.
#include <algorithm>

#include "readers/collector_reader.h"
#include "readers/file_set.h"
#include "runtime/messages.h"
#include "runtime/runtime.h"

namespace ozmo {

int CollectorReader::Open(VmrContext& context) {
  if (!opened_) {
    opened_ = true;
    context.nodeName = state_.nodeName;
    context.dataPath = state_.filePath;
    context.utcOffset = state_.utcOffset;
    context.dstFlag = state_.dstFlag;
    file_.Close();
    state_.previousRawTime = 0;
  }
  fileSet_ = ReaderFileSet(context.dataPath, context.periodStart, context.periodEnd);
  cursor_ = 0;
  return static_cast<int>(fileSet_.size());
}

int CollectorReader::Next(VmrContext& context) {
  if (fileSet_.empty()) return READER_END_OF_FILE;
  for (;;) {
    ContextFree(context);
    if (file_.IsOpen()) {
      context.periodStart += state_.intervalSeconds;
      context.periodEnd += state_.intervalSeconds;
    } else {
      const int opened = OpenCurrentFile(context);
      if (!file_.IsOpen()) return opened;
    }
    const bool inSpan = context.periodEnd < savedPeriodEnd_;
    if (inSpan && RunWalkPass(context) == READER_DONE) return READER_DONE;
    file_.Close();
    if (MoveCursor(context) == READER_END_OF_FILE) return READER_END_OF_FILE;
  }
}

int CollectorReader::Close(VmrContext& context) {
  file_.Close();
  ContextFreeDeep(context);
  opened_ = false;
  fileSet_.clear();
  for (DefinitionLists& lists : definitions_) lists = {};
  DropPlans();
  return READER_DONE;
}

// Opens the set's current file and sets the context's period to its first interval. The file stays closed
// when there is nothing to read in it; the result is then what ReaderNext answers.
int CollectorReader::OpenCurrentFile(VmrContext& context) {
  savedPeriodEnd_ = context.periodEnd;
  if (context.dataPath != fileSet_[cursor_]) {
    context.dataPath = fileSet_[cursor_];
    if (RunEntryPass(context.dataPath) != READER_DONE) return MoveCursor(context);
  }
  if (context.periodEnd <= state_.firstRecordTime) return READER_OUTSIDE_WINDOW;
  order_ = format_->byteOrderOf(context.dataPath);
  if (!file_.Open(context.dataPath)) {
    MessageEmit(*runtime_, "NOOPEN", {context.dataPath});
    return MoveCursor(context);
  }
  const Seconds interval = state_.intervalSeconds;
  context.periodStart = std::max(state_.firstRecordTime + interval, context.periodStart);
  if (interval >= 1) context.periodStart -= context.periodStart % interval;
  context.periodEnd = context.periodStart + interval;
  return READER_DONE;
}

int CollectorReader::MoveCursor(VmrContext& context) {
  if (cursor_ + 1 >= fileSet_.size()) {
    savedPeriodEnd_ = 0;
    return READER_END_OF_FILE;
  }
  ++cursor_;
  context.periodEnd = savedPeriodEnd_;
  return READER_DONE;
}

}  // namespace ozmo
