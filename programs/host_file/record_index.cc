#include "programs/host_file/record_index.h"

#include <algorithm>

#include "programs/host_file/collector_records.h"

namespace ozmo::host_file {
namespace {

constexpr size_t HEADER_SIZE = 8;  // length and type
constexpr uint64_t LONGEST_ENTRY = 4096;

}  // namespace

void RecordIndex::Take(std::string_view bytes) {
  while (!bytes.empty() && !isBroken_) {
    const uint64_t wanted = hasHeader_ ? left_ : HEADER_SIZE - record_.size();
    const std::string_view taken = bytes.substr(0, std::min<uint64_t>(wanted, bytes.size()));
    bytes.remove_prefix(taken.size());
    if (!hasHeader_ || counts_) record_ += taken;
    if (hasHeader_) {
      left_ -= taken.size();
    } else if (record_.size() == HEADER_SIZE) {
      TakeHeader();
    }
    if (isBroken_ || !hasHeader_ || left_ > 0) continue;
    if (counts_) Note(record_);
    begin_ += NumberAt(record_, 0);
    record_.clear();
    hasHeader_ = false;
  }
}

void RecordIndex::TakeHeader() {
  const uint32_t length = NumberAt(record_, 0);
  const uint32_t type = NumberAt(record_, 4);
  isBroken_ = length < HEADER_SIZE;
  if (isBroken_) return;
  hasHeader_ = true;
  left_ = length - HEADER_SIZE;
  counts_ = CountsOutsideSpan(type);
  if (counts_ && length > LONGEST_ENTRY) {  // no such record was written by a recorder
    counts_ = false;
    Note("");
  }
}

void RecordIndex::Note(std::string_view bytes) {
  PutNumber(index_, begin_, sizeof(uint64_t));
  PutNumber(index_, bytes.size(), sizeof(uint32_t));
  index_ += bytes;
}

std::string RecordIndex::Finish() {
  if (!record_.empty()) Note("");  // the last record is broken or cut
  return index_;
}

}  // namespace ozmo::host_file
