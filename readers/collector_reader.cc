#include "readers/collector_reader.h"

#include <algorithm>

#include "readers/file_set.h"

namespace ozmo {

std::optional<FileHead> CollectorReader::EntryPass(const std::string& path) {
  if (file_.EntryPass(path) != ReaderResult::DONE) return std::nullopt;
  return FileHead{state().nodeName, state().firstRecordTime};
}

int CollectorReader::Open(VmrContext& context) {
  if (!opened_) {
    opened_ = true;
    context.nodeName = state().nodeName;
    context.dataPath = state().filePath;
    context.utcOffset = state().utcOffset;
    context.dstFlag = state().dstFlag;
    file_.Close();
    file_.ForgetTime();
  }
  file_.SetWanted(context.kinds);
  fileSet_ = ReaderFileSet(context.dataPath, context.periodStart, context.periodEnd);
  cursor_ = 0;
  return static_cast<int>(fileSet_.size());
}

ReaderResult CollectorReader::Next(VmrContext& context) {
  if (fileSet_.empty()) return ReaderResult::END_OF_FILE;
  for (;;) {
    ContextFree(context);
    if (file_.IsOpen()) {
      context.periodStart += state().intervalSeconds;
      context.periodEnd += state().intervalSeconds;
    } else {
      const ReaderResult opened = OpenCurrentFile(context);
      if (!file_.IsOpen()) return opened;
    }
    const bool inSpan = context.periodEnd < savedPeriodEnd_;
    if (inSpan && file_.WalkPass(context) == ReaderResult::DONE) return ReaderResult::DONE;
    file_.Close();
    if (MoveCursor(context) == ReaderResult::END_OF_FILE) return ReaderResult::END_OF_FILE;
  }
}

void CollectorReader::Close(VmrContext& context) {
  file_.Close();
  ContextFreeDeep(context);
  opened_ = false;
  fileSet_.clear();
  file_.ForgetLists();
}

// Opens the set's current file and sets the context's period to its first interval. The file stays closed
// when there is nothing to read in it; the result is then that of Next.
ReaderResult CollectorReader::OpenCurrentFile(VmrContext& context) {
  savedPeriodEnd_ = context.periodEnd;
  if (context.dataPath != fileSet_[cursor_]) {
    context.dataPath = fileSet_[cursor_];
    if (file_.EntryPass(context.dataPath) != ReaderResult::DONE) return MoveCursor(context);
  }
  if (context.periodEnd <= state().firstRecordTime) return ReaderResult::OUTSIDE_WINDOW;
  switch (file_.Open(context.dataPath)) {
    case OpenResult::DONE:
      break;
    case OpenResult::NO_FILE:
      return MoveCursor(context);
    case OpenResult::ENDLESS_BLOCK:
      return ReaderResult::NO_OPEN;  // ends the walk: what follows in the set isn't read
  }
  const Seconds interval = state().intervalSeconds;
  context.periodStart = std::max(state().firstRecordTime + interval, context.periodStart);
  if (interval >= 1) context.periodStart -= context.periodStart % interval;
  context.periodEnd = context.periodStart + interval;
  return ReaderResult::DONE;
}

ReaderResult CollectorReader::MoveCursor(VmrContext& context) {
  if (cursor_ + 1 >= fileSet_.size()) {
    savedPeriodEnd_ = 0;
    return ReaderResult::END_OF_FILE;
  }
  ++cursor_;
  context.periodEnd = savedPeriodEnd_;
  return ReaderResult::DONE;
}

}  // namespace ozmo
