// The record types of one file: which the version in force knows, and what the file's definition lists say
// of them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "readers/collector_format.h"
#include "readers/record_plan.h"

namespace ozmo {

enum class RecordSort { UNKNOWN, DATA, ORDER_LIST, DIVISOR_LIST };

struct RecordMeaning {
  RecordSort sort = RecordSort::UNKNOWN;
  int32_t dataType = 0;  // of the data that the record is or describes
};

class RecordTypes {
 public:
  explicit RecordTypes(const CollectorFormat& format);

  // What the walk that begins wants of the records.
  void SetWanted(const RecordKinds& kinds);
  // Puts a version's table in force, for a file of the given byte order. The lists stay.
  void Use(const RecordTable& table, ByteOrder order);

  RecordMeaning MeaningOf(int32_t recordType) const {
    if (HasLayout(recordType)) return {RecordSort::DATA, recordType};
    return MeaningOfList(recordType);
  }
  // Of a data type; null when nobody wants its records.
  const DecoderRow* DecoderOf(int32_t dataType) const { return types_[Index(dataType)].decoder; }
  // The plan of a data type; null when the version in force doesn't know the type. It holds until the next
  // list, table or call of DropOrderLists.
  RecordPlan* PlanOf(int32_t dataType) {
    DataType& type = types_[Index(dataType)];
    return type.plan ? &*type.plan : MakePlan(type);
  }

  // Takes the list of a data type that has a layout.
  void StoreList(const RecordMeaning& meaning, std::span<const uint8_t> bytes);
  // No row takes more bytes of a list than this, and none of its records more than that.
  size_t ListReach() const { return mostFields_ * NUMBER_SIZE; }
  size_t RecordReach() const { return mostFields_ * LONGEST_FIELD; }

  void DropOrderLists();
  void DropLists();

 private:
  static constexpr int32_t TYPE_COUNT = 100;  // data record types lie below
  static constexpr size_t NUMBER_SIZE = 4;    // of a list's elements

  struct DataType {
    const RecordLayout* layout = nullptr;
    const DecoderRow* decoder = nullptr;  // null: not wanted
    std::optional<RecordPlan> plan;       // made when it is asked for
  };

  static size_t Index(int32_t dataType) { return static_cast<size_t>(dataType); }
  bool HasLayout(int32_t recordType) const {
    return recordType >= 0 && recordType < TYPE_COUNT && types_[Index(recordType)].layout != nullptr;
  }
  RecordMeaning MeaningOfList(int32_t recordType) const;
  RecordPlan* MakePlan(DataType& type) const;
  void FindDecoders();
  void DropPlans();

  const CollectorFormat* format_;
  size_t mostFields_ = 0;  // of any row of any version
  RecordKinds wanted_ = RecordKinds::All();
  ByteOrder order_ = ByteOrder::BIG;
  std::array<DataType, TYPE_COUNT> types_;
  std::array<DefinitionLists, TYPE_COUNT> lists_;
};

}  // namespace ozmo
