// The pattern lists of many classes, to be found by a text without trying one after the other: processes with
// ever new commands meet class files of any size.
#pragma once

#include <bitset>
#include <climits>
#include <cstdint>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workload/workload.h"

namespace ozmo {

// An item of a list.
struct PatternRow {
  std::string text;
  uint32_t list;
  // A list is left at a suffix item that isn't shorter than the text: the length from which on a text comes
  // as far as this item.
  uint32_t shortest;
  uint32_t first = 0;   // row with the same text
  uint32_t prefix = 0;  // one after the last row with the longest other text that this one starts with, or 0
};

// Rows with the same text, in the order of their lists.
using PatternRows = std::span<const PatternRow>;

struct ByFirstRow {
  bool operator()(const PatternRows& a, const PatternRows& b) const {
    return std::less<>()(a.data(), b.data());
  }
};
using FoundRows = std::set<PatternRows, ByFirstRow>;

// Items in the order of their texts. Whatever item a text starts with is the last one that isn't after the
// text, or a prefix of that one.
class PrefixTable {
 public:
  // Rows of one text are given in the order of their lists.
  explicit PrefixTable(std::vector<PatternRow> rows);

  // All three add the rows of what they find to `found`.
  void FindPrefixesOf(std::string_view text, FoundRows& found) const;
  void FindPartsOf(std::string_view text, FoundRows& found) const;
  void FindEqual(std::string_view text, FoundRows& found) const;

 private:
  // One after the last row whose text isn't after `text`.
  size_t EndUpTo(std::string_view text) const;
  // The rows with the same text as the one before `end`.
  PatternRows RowsBefore(size_t end) const;

  std::vector<PatternRow> rows_;
  std::bitset<UCHAR_MAX + 1> initials_;  // of the items that aren't empty
};

class PatternIndex {
 public:
  // Of each class the list `list`.
  PatternIndex(const std::vector<WorkloadClass>& classes, PatternList WorkloadClass::*list);

  // The classes whose list matches a text. The index must outlive them.
  class Matches {
   public:
    Matches(const PatternIndex& index, std::string_view text);
    // The first of them at or after position `place`; the number of all classes when there is none.
    size_t NextFrom(size_t place) const;

   private:
    const PatternIndex& index_;
    size_t length_;   // of the text
    FoundRows rows_;  // of the items that match
  };

 private:
  size_t count_;
  std::vector<size_t> empty_;  // lists without items, which match anything
  PrefixTable contained_;
  PrefixTable starts_;
  PrefixTable ends_;  // backwards
  PrefixTable equals_;
};

}  // namespace ozmo
