// Decoders and rows that several formats share. What differs between formats is a parameter; a finishing
// step of its own stays in the format's file.
#pragma once

#include <limits>
#include <optional>
#include <span>

#include "readers/field_rules.h"

namespace ozmo {

// A named item with six rates: field 1 the name, 2 to 7 the rates.
int DecodeLoadItem(Decoding& decoding);

// The system summary: eight figures as they stand, / divisor.
int DecodeSummary(Decoding& decoding);

// Rows of a LAN adapter record: field 1501 the name, 1502 to 1508 the rates per second. A value not below
// `limit` counts as 0.
RuleTable<LanRecord> LanRules(Divide divide = Divide::AT_LEAST_1,
                              double limit = std::numeric_limits<double>::infinity());

// Rows of a file system record: two texts, and seven whole numbers that stand one behind the other from
// `firstNumber` on. Their order in the file is block size, total, free and available blocks, total and free
// files, and a last one.
RuleTable<FileSystemRecord> FileSystemRules(int32_t deviceField, int32_t mountField, int32_t firstNumber);

// Fields of a protocol record that stand one behind the other, and the element of `counters` that takes the
// first.
struct CounterRange {
  int32_t firstField;
  int32_t lastField;
  size_t element;
  Per per = Per::INTERVAL;  // RECORD: a setting or a level, kept as it stands
};

// Whether each range is one, and has its elements.
constexpr bool RangesFit(std::span<const CounterRange> ranges) {
  constexpr size_t ELEMENTS = std::tuple_size_v<decltype(ProtocolCounters::counters)>;
  for (const CounterRange& range : ranges) {
    if (range.firstField > range.lastField || range.element >= ELEMENTS) return false;
    if (static_cast<size_t>(range.lastField - range.firstField) >= ELEMENTS - range.element) return false;
  }
  return true;
}

// Protocol counters to the interval's one record, which is made when there is none. Fields outside the ranges
// don't count. A record without a counted field leaves no ProtocolCounters.
int DecodeCounters(std::span<const CounterRange> ranges, Form form, std::optional<ProtocolCounters>& slot,
                   Decoding& decoding);

// Stores the number of a process as text.
void StoreProcessIdText(ProcessRecord& process, const FieldValue& field, const FieldRule<ProcessRecord>& rule,
                        Decoding& decoding);

// Stores the page size that comes with a memory record: it belongs to the machine, and stays until the next
// record brings another.
void StoreMachinePageSize(MemoryRecord& memory, const FieldValue& field, const FieldRule<MemoryRecord>& rule,
                          Decoding& decoding);

// Stores the memory size of a configuration record, which comes in kilobytes: MB where the field has a
// divisor, else as it stands.
void StoreMemoryMb(SystemConfig& config, const FieldValue& field, const FieldRule<SystemConfig>& rule,
                   Decoding& decoding);

}  // namespace ozmo
