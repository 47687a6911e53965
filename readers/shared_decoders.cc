#include "readers/shared_decoders.h"

#include <string>

namespace ozmo {
namespace {

template <size_t Index>
constexpr FieldRule<LoadItem> ItemRate(int32_t fieldId) {
  return {fieldId, ToElement<&LoadItem::itemRates, Index>, Form::UINT64, Per::INTERVAL};
}

template <size_t Index>
constexpr FieldRule<SystemSummary> SummaryValue(int32_t fieldId) {
  return {fieldId, ToElement<&SystemSummary::values, Index>, Form::UINT64, Per::RECORD, Divide::AT_LEAST_1};
}

}  // namespace

int DecodeLoadItem(Decoding& decoding) {
  static const RuleTable<LoadItem> rules{
      {1, To<&LoadItem::itemName>},
      ItemRate<0>(2),
      ItemRate<1>(3),
      ItemRate<2>(4),
      ItemRate<3>(5),
      ItemRate<4>(6),
      ItemRate<5>(7),
  };
  return DecodeToList(rules, decoding.context.loadItems, decoding);
}

int DecodeSummary(Decoding& decoding) {
  static const RuleTable<SystemSummary> rules{
      SummaryValue<0>(1), SummaryValue<1>(2), SummaryValue<2>(3), SummaryValue<3>(4),
      SummaryValue<4>(5), SummaryValue<5>(6), SummaryValue<6>(7), SummaryValue<7>(8),
  };
  return DecodeToSlot(rules, decoding.context.summary.Of(decoding.isTwin), decoding);
}

RuleTable<LanRecord> LanRules(Divide divide, double limit) {
  const auto rate = [&](int32_t fieldId, FieldRule<LanRecord>::Store store) {
    return FieldRule<LanRecord>{fieldId, store, Form::UINT64, Per::INTERVAL, divide, Sign::ANY, 1.0, limit};
  };
  return {
      {1501, To<&LanRecord::adapterName>},        rate(1502, To<&LanRecord::packetsInRate>),
      rate(1503, To<&LanRecord::bytesInRate>),    rate(1504, To<&LanRecord::errorsInRate>),
      rate(1505, To<&LanRecord::packetsOutRate>), rate(1506, To<&LanRecord::bytesOutRate>),
      rate(1507, To<&LanRecord::errorsOutRate>),  rate(1508, To<&LanRecord::collisionRate>),
  };
}

RuleTable<FileSystemRecord> FileSystemRules(int32_t deviceField, int32_t mountField, int32_t firstNumber) {
  const auto number = [&](int32_t place, FieldRule<FileSystemRecord>::Store store) {
    return FieldRule<FileSystemRecord>{firstNumber + place, store, Form::WIDE, Per::RECORD,
                                       Divide::AT_LEAST_1};
  };
  return {
      {deviceField, To<&FileSystemRecord::deviceName>}, {mountField, To<&FileSystemRecord::mountName>},
      number(0, To<&FileSystemRecord::blockSize>),      number(1, To<&FileSystemRecord::totalBlocks>),
      number(2, To<&FileSystemRecord::freeBlocks>),     number(3, To<&FileSystemRecord::availableBlocks>),
      number(4, To<&FileSystemRecord::totalFiles>),     number(5, To<&FileSystemRecord::freeFiles>),
      number(6, To<&FileSystemRecord::lastField>),
  };
}

int DecodeCounters(std::span<const CounterRange> ranges, Form form, std::optional<ProtocolCounters>& slot,
                   Decoding& decoding) {
  if (!slot) slot.emplace();
  int counted = 0;
  for (const FieldValue& field : decoding.fields) {
    if (field.data == nullptr) continue;
    const auto range = std::find_if(ranges.begin(), ranges.end(), [&](const CounterRange& row) {
      return field.fieldId >= row.firstField && field.fieldId <= row.lastField;
    });
    if (range == ranges.end()) continue;
    ++counted;
    auto value = static_cast<float>(ValueAsDouble(field, form, decoding.state));
    if (range->per == Per::INTERVAL) value /= static_cast<float>(decoding.state.intervalSeconds);
    slot->counters[range->element + static_cast<size_t>(field.fieldId - range->firstField)] = value;
  }
  if (counted == 0) slot.reset();
  return counted;
}

void StoreProcessIdText(ProcessRecord& process, const FieldValue& field,
                        const FieldRule<ProcessRecord>& /*rule*/, Decoding& /*decoding*/) {
  process.idText = std::to_string(field.Int32());
}

void StoreMachinePageSize(MemoryRecord& /*memory*/, const FieldValue& field,
                          const FieldRule<MemoryRecord>& rule, Decoding& decoding) {
  if (!decoding.context.config) return;
  decoding.context.config->pageSize = ClampTo<int32_t>(ValueAsDouble(field, rule.form, decoding.state));
}

void StoreMemoryMb(SystemConfig& config, const FieldValue& field, const FieldRule<SystemConfig>& rule,
                   Decoding& decoding) {
  const double value = ValueAsDouble(field, rule.form, decoding.state);
  config.memoryMb = static_cast<float>(field.divisor > 0 ? value / (1024.0 * field.divisor) : value);
}

}  // namespace ozmo
