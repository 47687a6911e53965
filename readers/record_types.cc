#include "readers/record_types.h"

#include <algorithm>

namespace ozmo {
namespace {

size_t MostFields(const RecordTable& table) {
  size_t most = 0;
  for (const RecordLayout& row : table.rows) most = std::max(most, row.fields.size());
  return most;
}

}  // namespace

RecordTypes::RecordTypes(const CollectorFormat& format) : format_(&format) {
  mostFields_ = MostFields(*format.entryTable);
  for (const VersionRule& rule : format.versions) {
    mostFields_ = std::max(mostFields_, MostFields(*rule.table));
  }
}

void RecordTypes::SetWanted(const RecordKinds& kinds) {
  wanted_ = kinds;
  FindDecoders();
}

void RecordTypes::Use(const RecordTable& table, ByteOrder order) {
  order_ = order;
  types_.fill(DataType{});
  for (const RecordLayout& row : table.rows) types_[Index(row.recordType)].layout = &row;
  FindDecoders();
}

void RecordTypes::FindDecoders() {
  for (const DecoderRow& row : format_->decoders) {
    const DecoderRow* decoder = wanted_.Has(row.kind) ? &row : nullptr;
    types_[Index(row.type)].decoder = decoder;
    if (row.twin != NO_TYPE) types_[Index(row.twin)].decoder = decoder;
  }
  DropPlans();
}

RecordMeaning RecordTypes::MeaningOfList(int32_t recordType) const {
  if (recordType % 100 == 0 && HasLayout(recordType / 100)) return {RecordSort::ORDER_LIST, recordType / 100};
  if (recordType % 10 == 0 && HasLayout(recordType / 10)) return {RecordSort::DIVISOR_LIST, recordType / 10};
  return {};
}

RecordPlan* RecordTypes::MakePlan(DataType& type) const {
  if (type.layout == nullptr) return nullptr;
  std::vector<int32_t> fields;
  if (type.decoder != nullptr && !wanted_.Has(RecordKind::DETAILS)) {
    for (const BuilderField& row : type.decoder->builderFields) {
      if (wanted_.Has(row.wantedFor)) fields.push_back(row.field);
    }
  }
  return &type.plan.emplace(*type.layout, lists_[Index(type.layout->listType)], order_, fields);
}

// Only the plans made from the list are dropped, so that a file that repeats the lists of one type doesn't
// pay for those of the others.
void RecordTypes::StoreList(const RecordMeaning& meaning, std::span<const uint8_t> bytes) {
  const int32_t listType = types_[Index(meaning.dataType)].layout->listType;
  DefinitionLists& lists = lists_[Index(listType)];
  std::vector<int32_t>& list = meaning.sort == RecordSort::ORDER_LIST ? lists.order : lists.divisors;
  list.resize(bytes.size() / NUMBER_SIZE);
  for (size_t i = 0; i < list.size(); ++i) {
    list[i] = static_cast<int32_t>(LoadUint32(bytes.data() + i * NUMBER_SIZE, order_));
  }
  for (DataType& type : types_) {
    if (type.layout != nullptr && type.layout->listType == listType) type.plan.reset();
  }
}

void RecordTypes::DropOrderLists() {
  for (DefinitionLists& lists : lists_) lists.order.clear();
  DropPlans();
}

void RecordTypes::DropLists() {
  for (DefinitionLists& lists : lists_) lists = {};
  DropPlans();
}

void RecordTypes::DropPlans() {
  for (DataType& type : types_) type.plan.reset();
}

}  // namespace ozmo
