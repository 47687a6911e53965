// The engine that walks any binary collector file, driven by a CollectorFormat.
//
// An entry pass finds a file's version, node and first time stamp. A walk then delivers the records of one
// collection interval at each call, through the files of a day set. The layout of a record type is worked
// out once, when its definition lists arrive, and data fields are pointers into the file's block.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "readers/block_file.h"
#include "readers/collector_format.h"
#include "readers/reader_status.h"

namespace ozmo {

struct Runtime;

class CollectorReader {
 public:
  CollectorReader(const CollectorFormat& format, Runtime& runtime);

  // 1 and both outputs filled, else 0.
  int EntryPass(const std::string& path, std::string& nodeName, Seconds& firstRecordTime);
  // Number of files in the set of the context's span.
  int Open(VmrContext& context);
  // 1: the context holds the next interval, or is empty after a file that couldn't be opened. -1: no more.
  int Next(VmrContext& context);
  int Close(VmrContext& context);

  const ReaderState& state() const { return state_; }

 private:
  // The definition lists of one record type, as the file brought them.
  struct DefinitionLists {
    std::vector<int32_t> order;
    std::vector<int32_t> divisors;
    int32_t DivisorOf(int32_t fieldId) const;
  };
  // Where the fields of a record type stand: for each position in the file its slot, and the slots.
  struct RecordPlan {
    bool ready = false;
    const RecordLayout* layout = nullptr;
    const DecoderRow* decoder = nullptr;
    std::vector<int32_t> slotAt;  // NOT_FOUND_ID: no step, no field
    std::vector<FieldValue> slots;
  };
  static constexpr int32_t TYPE_COUNT = 100;  // data record types lie below

  // Passes.
  int RunEntryPass(const std::string& path);
  int RunWalkPass(VmrContext& context);
  int RunPass();
  int ReadRecord();
  bool IsSkipped(int32_t recordType) const;
  int CheckEntry() const;
  int MapStatus(int result, const std::string& path);

  // Records.
  int Dispatch(int32_t recordType, const uint8_t* payload, size_t size);
  int StoreDefinition(int32_t recordType, std::vector<int32_t> DefinitionLists::*member,
                      const uint8_t* payload, size_t size);
  int WalkFields(int32_t recordType, const uint8_t* payload, size_t size);
  int StoreField(int32_t recordType, const FieldValue& field);
  int StoreTime(Seconds raw);
  void StoreEntryField(const FieldValue& field);
  void StoreTag(const uint8_t* payload, size_t size);
  void ChooseVersion(std::string_view version);

  // Layouts.
  void UseTable(const RecordTable* table);
  bool HasLayout(int32_t recordType) const;
  RecordPlan* FindPlan(int32_t recordType);
  void BuildPlan(RecordPlan& plan) const;
  void DropPlans();

  // The walk through the file set.
  int OpenCurrentFile(VmrContext& context);
  int MoveCursor(VmrContext& context);

  const CollectorFormat* format_;
  Runtime* runtime_;
  ReaderState state_;
  ByteOrder order_ = ByteOrder::BIG;
  BlockFile file_;
  VmrContext* context_ = nullptr;  // of the running walk pass
  bool entryPass_ = false;
  bool tableChanged_ = false;
  std::array<DefinitionLists, TYPE_COUNT> definitions_;
  std::array<RecordPlan, TYPE_COUNT> plans_;
  bool opened_ = false;
  std::vector<std::string> fileSet_;
  size_t cursor_ = 0;
  Seconds savedPeriodEnd_ = 0;
};

}  // namespace ozmo
