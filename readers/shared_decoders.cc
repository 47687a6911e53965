#include "readers/shared_decoders.h"

#include <string>

namespace ozmo {
namespace shared_files {

constexpr FieldRule<LoadItem> LOAD_ITEM_RULES[] = {
    {.field = 1, .to = To<&LoadItem::itemName>()},
    {.field = 2,
     .last = 7,
     .to = To<&LoadItem::itemRates>(),
     .as = {.form = Form::UINT64, .per = Per::INTERVAL}},
};

constexpr FieldRule<SystemSummary> SUMMARY_RULES[] = {
    {.field = 1,
     .last = 8,
     .to = To<&SystemSummary::values>(),
     .as = {.form = Form::UINT64, .divide = Divide::AT_LEAST_1}},
};

}  // namespace shared_files

void DecodeLoadItem(Decoding& decoding) {
  DecodeToList<shared_files::LOAD_ITEM_RULES, &VmrContext::loadItems>(decoding);
}

void DecodeSummary(Decoding& decoding) {
  DecodeToSlot<shared_files::SUMMARY_RULES, &VmrContext::summary>(decoding);
}

uint64_t PageSizeOf(const VmrContext& context) {
  const bool isKnown = context.config && context.config->pageSize > 0;
  return isKnown ? static_cast<uint64_t>(context.config->pageSize) : 1;
}

void StoreProcessIdText(ProcessRecord& process, const Source& from) {
  process.idText = std::to_string(from.field.Int32());
}

void StoreMachinePageSize(MemoryRecord& /*memory*/, const Source& from) {
  std::optional<SystemConfig>& config = from.decoding.context.config;
  if (config) config->pageSize = ClampTo<int32_t>(ValueAsDouble(from));
}

}  // namespace ozmo
