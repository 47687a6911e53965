// Decoders and rules that several formats share. What differs between formats is a parameter; a finishing
// step of its own stays in the format's file.
#pragma once

#include <array>
#include <optional>

#include "readers/field_rules.h"

namespace ozmo {

// A named item with six rates.
void DecodeLoadItem(Decoding& decoding);

// The system summary: eight figures as they are, / divisor.
void DecodeSummary(Decoding& decoding);

// Rules of a LAN adapter record: the name and seven rates.
constexpr auto LanRules(const Conversion& rate) {
  return std::array<FieldRule<LanRecord>, 8>{{
      {.field = 1501, .to = To<&LanRecord::adapterName>()},
      {.field = 1502, .to = To<&LanRecord::packetsInRate>(), .as = rate},
      {.field = 1503, .to = To<&LanRecord::bytesInRate>(), .as = rate},
      {.field = 1504, .to = To<&LanRecord::errorsInRate>(), .as = rate},
      {.field = 1505, .to = To<&LanRecord::packetsOutRate>(), .as = rate},
      {.field = 1506, .to = To<&LanRecord::bytesOutRate>(), .as = rate},
      {.field = 1507, .to = To<&LanRecord::errorsOutRate>(), .as = rate},
      {.field = 1508, .to = To<&LanRecord::collisionRate>(), .as = rate},
  }};
}

// Rules of a file system record: two texts, and seven whole numbers, one after the other from
// `firstNumber` on.
constexpr auto FileSystemRules(int32_t deviceField, int32_t mountField, int32_t firstNumber) {
  constexpr Conversion NUMBER{.form = Form::WIDE, .divide = Divide::AT_LEAST_1};
  return std::array<FieldRule<FileSystemRecord>, 9>{{
      {.field = deviceField, .to = To<&FileSystemRecord::deviceName>()},
      {.field = mountField, .to = To<&FileSystemRecord::mountName>()},
      {.field = firstNumber, .to = To<&FileSystemRecord::blockSize>(), .as = NUMBER},
      {.field = firstNumber + 1, .to = To<&FileSystemRecord::totalBlocks>(), .as = NUMBER},
      {.field = firstNumber + 2, .to = To<&FileSystemRecord::freeBlocks>(), .as = NUMBER},
      {.field = firstNumber + 3, .to = To<&FileSystemRecord::availableBlocks>(), .as = NUMBER},
      {.field = firstNumber + 4, .to = To<&FileSystemRecord::totalFiles>(), .as = NUMBER},
      {.field = firstNumber + 5, .to = To<&FileSystemRecord::freeFiles>(), .as = NUMBER},
      {.field = firstNumber + 6, .to = To<&FileSystemRecord::lastField>(), .as = NUMBER},
  }};
}

// The configuration, to the walk's one SystemConfig: one that is there is written over. An interval that
// isn't above 0 becomes 60 seconds. A record without a counted field leaves no SystemConfig.
template <const auto& Rules>
void DecodeConfigBy(Decoding& decoding) {
  constexpr float FALLBACK_INTERVAL = 60.0F;
  std::optional<SystemConfig>& config = decoding.context.config;
  if (!config) config.emplace();
  const bool counts = ApplyRules<Rules>(*config, decoding);
  if (!(config->intervalSeconds > 0.0F)) config->intervalSeconds = FALLBACK_INTERVAL;
  if (!counts) config.reset();
}

// Protocol counters to the interval's one record, which is made when there is none. A record without a
// counted field leaves no ProtocolCounters.
template <const auto& Rules>
void FillCounters(std::optional<ProtocolCounters>& slot, Decoding& decoding) {
  if (!slot) slot.emplace();
  if (!ApplyRules<Rules>(*slot, decoding)) slot.reset();
}
template <const auto& Rules>
void DecodeCountersBy(Decoding& decoding) {
  FillCounters<Rules>(decoding.context.protocolCounters.Of(decoding.isTwin), decoding);
}

// The size of the machine's pages in bytes; 1 where no record has given it.
uint64_t PageSizeOf(const VmrContext& context);

// Stores the number of a process as text.
void StoreProcessIdText(ProcessRecord& process, const Source& from);

// Stores the page size that comes with a memory record: it belongs to the machine, and stays until the next
// record brings another.
void StoreMachinePageSize(MemoryRecord& memory, const Source& from);

// Stores the memory size of a configuration record, which comes in kilobytes: MB where the field has a
// divisor, else as it is. A megabyte has `KilobytesPerMb`.
template <int KilobytesPerMb = 1024>
void StoreMemoryMb(SystemConfig& config, const Source& from) {
  const double value = ValueAsDouble(from);
  const int32_t divisor = from.field.divisor;
  config.memoryMb = static_cast<float>(divisor > 0 ? value / (double{KilobytesPerMb} * divisor) : value);
}

}  // namespace ozmo
