#include "readers/aix/decoders.h"
#include "readers/field_rules.h"

namespace ozmo::aix_files {

constexpr Conversion PARTITION_FIGURE{.form = Form::UINT64};
constexpr Conversion HUNDREDTHS{.form = Form::UINT64, .scale = 100.0};
constexpr Conversion THOUSANDTHS{.form = Form::UINT64, .scale = 1000.0};
constexpr Conversion PARTITION_RATE{.form = Form::UINT64, .per = Per::INTERVAL};

constexpr FieldRule<PartitionRecord> PARTITION_RULES[] = {
    {.field = 1, .to = To<&PartitionRecord::name>()},
    {.field = 3, .to = To<&PartitionRecord::isCapped>()},
    {.field = 4, .to = To<&PartitionRecord::isShared>()},
    {.field = 5, .to = To<&PartitionRecord::seesPool>()},
    {.field = 6, .to = To<&PartitionRecord::isDonating>()},
    {.field = 7, .to = Detail<&PartitionRecord::unread, 7>()},
    {.field = 8, .last = 11, .to = Detail<&PartitionRecord::unread, 8>(), .as = PARTITION_FIGURE},
    {.field = 12, .to = Detail<&PartitionRecord::unread, 12>(), .as = PARTITION_RATE},
    {.field = 15, .to = To<&PartitionRecord::entitledProcessors>(), .as = HUNDREDTHS},
    {.field = 16, .to = To<&PartitionRecord::onlineProcessors>(), .as = PARTITION_FIGURE},
    {.field = 17, .last = 22, .to = Detail<&PartitionRecord::unread, 17>(), .as = PARTITION_FIGURE},
    {.field = 23, .last = 25, .to = Detail<&PartitionRecord::unread, 23>(), .as = HUNDREDTHS},
    {.field = 26, .last = 29, .to = Detail<&PartitionRecord::unread, 26>(), .as = PARTITION_FIGURE},
    {.field = 30, .to = To<&PartitionRecord::poolProcessors>(), .as = PARTITION_FIGURE},
    {.field = 31, .to = Detail<&PartitionRecord::unread, 31>(), .as = HUNDREDTHS},
    {.field = 32, .last = 33, .to = Detail<&PartitionRecord::unread, 32>(), .as = THOUSANDTHS},
    {.field = 34, .last = 37, .to = To<&PartitionRecord::timeByMode>(), .as = PARTITION_FIGURE},
    {.field = 38, .to = To<&PartitionRecord::donatedTime>(), .as = PARTITION_FIGURE},
    {.field = 39, .to = To<&PartitionRecord::spareTime, 0>(), .as = PARTITION_FIGURE},
    {.field = 40, .to = Detail<&PartitionRecord::unread, 40>(), .as = PARTITION_FIGURE},
    {.field = 41, .to = To<&PartitionRecord::spareTime, 1>(), .as = PARTITION_FIGURE},
    {.field = 42, .to = Detail<&PartitionRecord::unread, 42>(), .as = PARTITION_FIGURE},
    {.field = 43, .to = To<&PartitionRecord::spareTime, 2>(), .as = PARTITION_FIGURE},
    {.field = 44, .last = 46, .to = Detail<&PartitionRecord::unread, 44>(), .as = PARTITION_FIGURE},
    {.field = 47, .to = To<&PartitionRecord::phantomInterruptRate>(), .as = PARTITION_RATE},
    {.field = 48, .to = To<&PartitionRecord::involuntarySwitchRate>(), .as = PARTITION_RATE},
    {.field = 49, .to = To<&PartitionRecord::voluntarySwitchRate>(), .as = PARTITION_RATE},
    {.field = 50, .to = To<&PartitionRecord::timeBase>(), .as = PARTITION_FIGURE},
};

void DecodePartition(Decoding& decoding) { FillSlot<PARTITION_RULES>(decoding.context.partition, decoding); }

}  // namespace ozmo::aix_files
