#include "workload/pattern_index.h"

#include <algorithm>

#include "runtime/text.h"

namespace ozmo {
namespace {

std::string Backwards(std::string_view text) { return {text.rbegin(), text.rend()}; }

unsigned char Initial(std::string_view text) { return static_cast<unsigned char>(text.front()); }

// The items of one form, of all lists.
PrefixTable TableOf(const std::vector<WorkloadClass>& classes, PatternList WorkloadClass::*list,
                    PatternForm form) {
  std::vector<PatternRow> rows;
  for (size_t i = 0; i < classes.size(); ++i) {
    uint32_t shortest = 0;
    for (const Pattern& item : (classes[i].*list).items) {
      const bool isSuffix = item.form == PatternForm::ENDS;
      if (isSuffix) shortest = std::max(shortest, static_cast<uint32_t>(item.text.size()) + 1);
      if (item.form != form) continue;
      rows.push_back({isSuffix ? Backwards(item.text) : item.text, static_cast<uint32_t>(i), shortest});
    }
  }
  return PrefixTable(std::move(rows));
}

}  // namespace

// --- PrefixTable ---

PrefixTable::PrefixTable(std::vector<PatternRow> rows) : rows_(std::move(rows)) {
  std::stable_sort(rows_.begin(), rows_.end(),
                   [](const PatternRow& a, const PatternRow& b) { return a.text < b.text; });
  for (uint32_t i = 0; i < rows_.size(); ++i) {
    PatternRow& row = rows_[i];
    if (!row.text.empty()) initials_.set(Initial(row.text));
    if (i > 0 && row.text == rows_[i - 1].text) {
      row.first = rows_[i - 1].first;
      row.prefix = rows_[i - 1].prefix;
      continue;
    }
    row.first = i;
    row.prefix = i;
    while (row.prefix > 0 && !row.text.starts_with(rows_[row.prefix - 1].text)) {
      row.prefix = rows_[row.prefix - 1].prefix;
    }
  }
}

size_t PrefixTable::EndUpTo(std::string_view text) const {
  const auto end =
      std::upper_bound(rows_.begin(), rows_.end(), text,
                       [](std::string_view wanted, const PatternRow& row) { return wanted < row.text; });
  return static_cast<size_t>(end - rows_.begin());
}

PatternRows PrefixTable::RowsBefore(size_t end) const {
  const size_t first = rows_[end - 1].first;
  return PatternRows(rows_).subspan(first, end - first);
}

void PrefixTable::FindPrefixesOf(std::string_view text, FoundRows& found) const {
  for (size_t end = EndUpTo(text); end > 0; end = rows_[end - 1].prefix) {
    if (!text.starts_with(rows_[end - 1].text)) continue;
    if (!found.insert(RowsBefore(end)).second) return;  // and so were its prefixes
  }
}

void PrefixTable::FindPartsOf(std::string_view text, FoundRows& found) const {
  for (; !text.empty(); text.remove_prefix(1)) {
    if (initials_[Initial(text)]) FindPrefixesOf(text, found);
  }
  FindPrefixesOf(text, found);  // the empty item is part of the empty text too
}

void PrefixTable::FindEqual(std::string_view text, FoundRows& found) const {
  const size_t end = EndUpTo(text);
  if (end > 0 && rows_[end - 1].text == text) found.insert(RowsBefore(end));
}

// --- PatternIndex ---

PatternIndex::PatternIndex(const std::vector<WorkloadClass>& classes, PatternList WorkloadClass::*list)
    : count_(classes.size()),
      contained_(TableOf(classes, list, PatternForm::CONTAINS)),
      starts_(TableOf(classes, list, PatternForm::STARTS)),
      ends_(TableOf(classes, list, PatternForm::ENDS)),
      equals_(TableOf(classes, list, PatternForm::EQUALS)) {
  for (size_t i = 0; i < count_; ++i) {
    if ((classes[i].*list).items.empty()) empty_.push_back(i);
  }
}

PatternIndex::Matches::Matches(const PatternIndex& index, std::string_view text)
    : index_(index), length_(text.size()) {
  index.contained_.FindPartsOf(SkipBlanks(text), rows_);
  index.starts_.FindPrefixesOf(text, rows_);
  index.ends_.FindPrefixesOf(Backwards(text), rows_);
  index.equals_.FindEqual(text, rows_);
}

size_t PatternIndex::Matches::NextFrom(size_t place) const {
  const auto empty = std::ranges::lower_bound(index_.empty_, place);
  size_t next = empty == index_.empty_.end() ? index_.count_ : *empty;
  for (const PatternRows& rows : rows_) {
    auto row = std::ranges::lower_bound(rows, place, {}, &PatternRow::list);
    while (row != rows.end() && row->list < next && row->shortest > length_) ++row;
    if (row != rows.end()) next = std::min<size_t>(next, row->list);
  }
  return next;
}

}  // namespace ozmo
