#include "readers/aix/decoders.h"
#include "readers/field_rules.h"

namespace ozmo {
namespace {

using PartitionRule = FieldRule<PartitionRecord>;

// A figure as it stands, or divided by `scale`.
template <auto Member>
constexpr PartitionRule Figure(int32_t fieldId, double scale = 1.0) {
  return {fieldId, To<Member>, Form::UINT64, Per::RECORD, Divide::NEVER, Sign::ANY, scale};
}
template <auto Member, size_t Index>
constexpr PartitionRule FigureOf(int32_t fieldId) {
  return {fieldId, ToElement<Member, Index>, Form::UINT64};
}
template <int32_t Field>
constexpr PartitionRule Unread(double scale = 1.0) {
  return {
      Field, ToElement<&PartitionRecord::unread, Field>, Form::UINT64, Per::RECORD, Divide::NEVER, Sign::ANY,
      scale};
}
template <auto Member>
constexpr PartitionRule Rate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::UINT64, Per::INTERVAL};
}

}  // namespace

int AixDecodeLpar(Decoding& decoding) {
  static const RuleTable<PartitionRecord> rules{
      {1, To<&PartitionRecord::name>},
      {3, To<&PartitionRecord::isCapped>},
      {4, To<&PartitionRecord::isShared>},
      {5, To<&PartitionRecord::seesPool>},
      {6, To<&PartitionRecord::isDonating>},
      {7, ToElement<&PartitionRecord::unread, 7>},
      Unread<8>(),
      Unread<9>(),
      Unread<10>(),
      Unread<11>(),
      {12, ToElement<&PartitionRecord::unread, 12>, Form::UINT64, Per::INTERVAL},
      Figure<&PartitionRecord::entitledProcessors>(15, 100.0),
      Figure<&PartitionRecord::onlineProcessors>(16),
      Unread<17>(),
      Unread<18>(),
      Unread<19>(),
      Unread<20>(),
      Unread<21>(),
      Unread<22>(),
      Unread<23>(100.0),
      Unread<24>(100.0),
      Unread<25>(100.0),
      Unread<26>(),
      Unread<27>(),
      Unread<28>(),
      Unread<29>(),
      Figure<&PartitionRecord::poolProcessors>(30),
      Unread<31>(100.0),
      Unread<32>(1000.0),
      Unread<33>(1000.0),
      FigureOf<&PartitionRecord::timeByMode, 0>(34),
      FigureOf<&PartitionRecord::timeByMode, 1>(35),
      FigureOf<&PartitionRecord::timeByMode, 2>(36),
      FigureOf<&PartitionRecord::timeByMode, 3>(37),
      Figure<&PartitionRecord::donatedTime>(38),
      FigureOf<&PartitionRecord::spareTime, 0>(39),
      Unread<40>(),
      FigureOf<&PartitionRecord::spareTime, 1>(41),
      Unread<42>(),
      FigureOf<&PartitionRecord::spareTime, 2>(43),
      Unread<44>(),
      Unread<45>(),
      Unread<46>(),
      Rate<&PartitionRecord::phantomInterruptRate>(47),
      Rate<&PartitionRecord::involuntarySwitchRate>(48),
      Rate<&PartitionRecord::voluntarySwitchRate>(49),
      {50, To<&PartitionRecord::timeBase>, Form::UINT64},
  };
  return DecodeToSlot(rules, decoding.context.partition, decoding);
}

}  // namespace ozmo
