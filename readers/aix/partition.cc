#include "readers/aix/decoders.h"
#include "readers/field_rules.h"

namespace ozmo {
namespace {

using PartitionRule = FieldRule<PartitionRecord>;

// A figure as it stands, or divided by `scale`.
template <size_t Index>
constexpr PartitionRule Figure(int32_t fieldId, double scale = 1.0) {
  return {fieldId,       ToElement<&PartitionRecord::lparValue, Index>,
          Form::UINT64,  Per::RECORD,
          Divide::NEVER, Sign::ANY,
          scale};
}
template <size_t Index>
constexpr PartitionRule Rate(int32_t fieldId) {
  return {fieldId, ToElement<&PartitionRecord::lparValue, Index>, Form::UINT64, Per::INTERVAL};
}
// One of the leading fields of 4 bytes.
template <size_t Index>
constexpr PartitionRule Flag(int32_t fieldId) {
  return {fieldId, ToElement<&PartitionRecord::lparValue, Index>};
}

// Field 3 fills two elements.
void StoreField3(PartitionRecord& partition, const FieldValue& field, const PartitionRule& /*rule*/,
                 Decoding& /*decoding*/) {
  partition.lparValue[4] = field.Int32();
  partition.lparValue[8] = field.Int32();
}

}  // namespace

int AixDecodeLpar(Decoding& decoding) {
  static const RuleTable<PartitionRecord> rules{
      {1, To<&PartitionRecord::lparName>},
      {3, StoreField3},
      Flag<5>(4),
      Flag<6>(5),
      Flag<7>(6),
      Flag<9>(7),
      Figure<15>(8),
      Figure<16>(9),
      Figure<17>(10),
      {11, To<&PartitionRecord::lparRaw>, Form::UINT64},
      {12, To<&PartitionRecord::lparRate>, Form::UINT64, Per::INTERVAL},
      Figure<14>(15, 100.0),
      Figure<18>(16),
      Figure<20>(17),
      Figure<19>(18),
      Figure<21>(19),
      Figure<23>(20),
      Figure<22>(21),
      Figure<24>(22),
      Figure<25>(23, 100.0),
      Figure<26>(24, 100.0),
      Figure<27>(25, 100.0),
      Figure<28>(26),
      Figure<29>(27),
      Figure<30>(28),
      Figure<31>(29),
      Figure<32>(30),
      Figure<33>(31, 100.0),
      Figure<37>(32, 1000.0),
      Figure<38>(33, 1000.0),
      Figure<39>(34),
      Figure<40>(35),
      Figure<41>(36),
      Figure<42>(37),
      Figure<43>(38),
      Figure<44>(39),
      Figure<45>(40),
      Figure<46>(41),
      Figure<47>(42),
      Figure<48>(43),
      Figure<49>(44),
      Figure<50>(45),
      Figure<51>(46),
      Rate<34>(47),
      Rate<35>(48),
      Rate<36>(49),
      {50, To<&PartitionRecord::lparTicks>, Form::UINT64},
  };
  return DecodeToSlot(rules, decoding.context.partition, decoding);
}

}  // namespace ozmo
