// Passes over a file and the records in it; the walk through a file set is in collector_walk.cc.
#include "readers/collector_reader.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "readers/field_rules.h"
#include "runtime/messages.h"
#include "runtime/runtime.h"
#include "runtime/terminal_text.h"

namespace ozmo {
namespace {

constexpr int64_t HEADER_SIZE = 8;  // recordLength and recordType
constexpr size_t NUMBER_SIZE = 4;   // of a definition list's elements
constexpr int32_t ENTRY_INTERVAL = 60;
constexpr Seconds FARTHEST_TIME = Seconds{1} << 40;  // no clock reads beyond; keeps differences exact

// Prints a text that holds one "%s".
void PrintWith(std::FILE* stream, std::string_view text, std::string_view argument) {
  const size_t place = text.find("%s");
  std::string line(text.substr(0, place));
  line += TextFor(stream, argument);
  line += text.substr(place + 2);
  std::fwrite(line.data(), 1, line.size(), stream);
}

void Change(bool& flag, FlagChange change) {
  if (change != FlagChange::UNCHANGED) flag = change == FlagChange::SET;
}

}  // namespace

CollectorReader::CollectorReader(const CollectorFormat& format, Runtime& runtime)
    : format_(&format), runtime_(&runtime) {}

// --- Passes ---

int CollectorReader::EntryPass(const std::string& path, std::string& nodeName, Seconds& firstRecordTime) {
  if (RunEntryPass(path) != READER_DONE) return READER_NOTHING;
  nodeName = state_.nodeName;
  firstRecordTime = state_.firstRecordTime;
  return READER_DONE;
}

int CollectorReader::RunEntryPass(const std::string& path) {
  UseTable(format_->entryTable);
  order_ = format_->byteOrderOf(path);
  if (!file_.Open(path)) return MapStatus(READER_NO_OPEN, path);

  // What survives a pass is the last time stamp, and what an earlier file of the run has switched on.
  ReaderState fresh;
  fresh.filePath = path;
  fresh.activeTable = state_.activeTable;
  fresh.previousRawTime = state_.previousRawTime;
  fresh.defaultInterval = state_.defaultInterval;
  fresh.wideCounters = state_.wideCounters && format_->keepsWideCounters;
  fresh.legacyDiskData = state_.legacyDiskData;
  fresh.intervalSeconds = ENTRY_INTERVAL;
  state_ = std::move(fresh);
  entryPass_ = true;
  tableChanged_ = false;
  RunPass();
  file_.Close();
  // The walk reads the order lists again.
  for (DefinitionLists& lists : definitions_) lists.order.clear();
  DropPlans();
  const int result = CheckEntry();
  if (result == READER_DONE)
    state_.firstRecordTime = FormatLocalTime(state_.firstRecordTime, state_.utcOffset);
  return MapStatus(result, path);
}

int CollectorReader::RunWalkPass(VmrContext& context) {
  entryPass_ = false;
  context_ = &context;
  state_.windowStart = context.periodStart;
  state_.windowEnd = context.periodEnd;
  state_.currentRecordTime = 0;
  state_.status = READER_DONE;
  int result = RunPass();
  context_ = nullptr;
  if (state_.currentRecordTime != 0 && state_.currentRecordTime < state_.windowStart) {
    result = READER_OUTSIDE_WINDOW;
  }
  return MapStatus(result, state_.filePath);
}

int CollectorReader::RunPass() {
  int result = READER_DONE;
  while (result >= READER_DONE) {
    if (file_.Position() >= file_.Size()) {
      result = READER_END_OF_FILE;
    } else {
      result = ReadRecord();
      if (entryPass_ && CheckEntry() == READER_DONE) break;
    }
  }
  if (state_.status != READER_DONE) return state_.status;
  return result < 0 ? result : READER_DONE;
}

// One record: 1 when the pass goes on, 0 when it stops there, or a negative code.
int CollectorReader::ReadRecord() {
  const uint8_t* header = file_.Read(HEADER_SIZE);
  if (header == nullptr) return READER_END_OF_FILE;
  const int64_t recordLength = LoadUint32(header, order_);
  const auto recordType = static_cast<int32_t>(LoadUint32(header + 4, order_));
  if (recordLength < HEADER_SIZE) return READER_END_OF_FILE;
  const int64_t size = recordLength - HEADER_SIZE;
  if (IsSkipped(recordType)) {
    file_.Skip(size);
    return READER_DONE;
  }
  const uint8_t* payload = file_.Read(size);
  if (payload == nullptr) return READER_END_OF_FILE;  // cut off by the end of the file
  if (recordType == TAG_RECORD) {
    StoreTag(payload, static_cast<size_t>(size));
    return READER_DONE;
  }
  const int result = Dispatch(recordType, payload, static_cast<size_t>(size));
  if (state_.status == READER_NOTHING) {  // the window has ended: a stop, not a failure
    state_.status = READER_DONE;
    return READER_NOTHING;
  }
  return state_.status == READER_DONE ? result : state_.status;
}

bool CollectorReader::IsSkipped(int32_t recordType) const {
  if (recordType == TAG_RECORD) return !format_->keepsTag;
  if (entryPass_) {
    return recordType != CONFIG_RECORD && recordType != format_->timeRecord &&
           static_cast<uint32_t>(recordType) % 100 != 0;
  }
  // Records ahead of the pass's first time record aren't checked: those behind the time stamp that ended the
  // previous pass count for this one.
  return state_.currentRecordTime >= 1 && recordType != format_->timeRecord &&
         (state_.currentRecordTime < state_.windowStart || state_.currentRecordTime > state_.windowEnd);
}

int CollectorReader::CheckEntry() const {
  if (state_.status == READER_BASIC_DATA) return READER_BASIC_DATA;
  if (state_.collectorVersion.empty() || state_.status == READER_UNSUPPORTED_VERSION) {
    return format_->missingVersionIsUnsupported ? READER_UNSUPPORTED_VERSION : READER_BASIC_DATA;
  }
  if (state_.firstRecordTime < 1 || state_.nodeName.empty()) return READER_BASIC_DATA;
  return READER_DONE;
}

// Tells the user what a result means, where it means anything to them.
int CollectorReader::MapStatus(int result, const std::string& path) {
  switch (result) {
    case READER_DONE:
    case READER_END_OF_FILE:
    case READER_OUTSIDE_WINDOW:
      break;
    case READER_UNSUPPORTED_VERSION:
      MessageEmit(*runtime_, "MW_VERSION",
                  {state_.collectorVersion.empty() ? "???" : state_.collectorVersion, path});
      break;
    case READER_NO_OPEN:
      MessageEmit(*runtime_, "NOOPEN", {path});
      break;
    case READER_NO_READ:
      MessageEmit(*runtime_, "NOREAD", {path});
      break;
    case READER_UNSUPPORTED:
      MessageEmit(*runtime_, "MW_UNSUPPORTED");
      break;
    case READER_BASIC_DATA:
      MessageEmit(*runtime_, "MW_BASIC_DATA", {path});
      break;
    case READER_NO_CONFIGURATION:
      MessageEmit(*runtime_, "NO_REC_DATA_IN_INTERVAL", {"CONFIGURATION"});
      break;
    default:
      MessageEmit(*runtime_, "MW_FILE_PROC", {path});
      break;
  }
  return result;
}

// --- Records ---

int CollectorReader::Dispatch(int32_t recordType, const uint8_t* payload, size_t size) {
  if (recordType < 0) return READER_NOTHING;
  if (recordType < TYPE_COUNT && HasLayout(recordType)) return WalkFields(recordType, payload, size);
  if (recordType % 100 == 0 && HasLayout(recordType / 100)) {
    return StoreDefinition(recordType / 100, &DefinitionLists::order, payload, size);
  }
  if (recordType % 10 == 0 && HasLayout(recordType / 10)) {
    return StoreDefinition(recordType / 10, &DefinitionLists::divisors, payload, size);
  }
  return READER_NOTHING;  // an unknown type: as if the interval were over
}

// Takes one list of a type that has a layout. Only the plans made from it are dropped, so that a file that
// repeats the lists of one type doesn't pay for those of the others.
int CollectorReader::StoreDefinition(int32_t recordType, std::vector<int32_t> DefinitionLists::*member,
                                     const uint8_t* payload, size_t size) {
  const int32_t listType = plans_[static_cast<size_t>(recordType)].layout->listType;
  std::vector<int32_t>& list = definitions_[static_cast<size_t>(listType)].*member;
  list.resize(size / NUMBER_SIZE);
  for (size_t i = 0; i < list.size(); ++i) {
    list[i] = static_cast<int32_t>(LoadUint32(payload + i * NUMBER_SIZE, order_));
  }
  for (RecordPlan& plan : plans_) {
    if (plan.layout != nullptr && plan.layout->listType == listType) plan.ready = false;
  }
  return READER_DONE;
}

int CollectorReader::WalkFields(int32_t recordType, const uint8_t* payload, size_t size) {
  RecordPlan* plan = FindPlan(recordType);
  for (FieldValue& slot : plan->slots) slot.data = nullptr;
  size_t offset = 0;
  for (size_t position = 0; position < plan->slotAt.size() && offset < size; ++position) {
    const int32_t slotIndex = plan->slotAt[position];
    if (slotIndex == NOT_FOUND_ID) continue;
    FieldValue& slot = plan->slots[static_cast<size_t>(slotIndex)];
    const size_t step =
        slot.size == FieldSize::TEXT ? size_t{payload[offset]} + 1 : static_cast<size_t>(slot.size);
    if (step > size - offset) break;  // the field runs past its record
    slot.data = payload + offset;
    offset += step;
    if (StoreField(recordType, slot) < 0 || state_.status != READER_DONE) break;
    if (tableChanged_) {
      // The version field has chosen another table: the record goes on in its layout.
      tableChanged_ = false;
      if (!HasLayout(recordType)) break;
      plan = FindPlan(recordType);
    }
  }
  if (!entryPass_ && state_.status == READER_DONE && plan->decoder != nullptr) {
    Decoding decoding{*context_, state_, recordType, plan->decoder->isTwin, plan->slots};
    plan->decoder->decode(decoding);
  }
  return READER_DONE;
}

int CollectorReader::StoreField(int32_t recordType, const FieldValue& field) {
  if (recordType == format_->timeRecord) {
    if (field.fieldId != format_->timeField) return READER_DONE;
    const auto raw = static_cast<Seconds>(ValueAsInteger(field, Form::NATURAL, state_));
    return StoreTime(std::clamp(raw, -FARTHEST_TIME, FARTHEST_TIME));
  }
  if (entryPass_) StoreEntryField(field);
  return READER_DONE;
}

int CollectorReader::StoreTime(Seconds raw) {
  if (entryPass_) {
    state_.firstRecordTime = raw;
    if (state_.collectorVersion.empty()) state_.status = READER_BASIC_DATA;
    return READER_DONE;
  }
  if (state_.previousRawTime != 0) {
    const Seconds measured = raw - state_.previousRawTime;
    state_.intervalSeconds = ClampTo<int32_t>(static_cast<double>(measured));
    if (format_->intervalBelowOneIsDefault && measured < 1) state_.intervalSeconds = state_.defaultInterval;
  }
  state_.previousRawTime = raw;
  state_.currentRecordTime = FormatLocalTime(raw, state_.utcOffset);
  if (state_.currentRecordTime <= state_.windowEnd) return READER_DONE;
  state_.status = READER_NOTHING;
  return READER_NOTHING;
}

void CollectorReader::StoreEntryField(const FieldValue& field) {
  const EntryFields& fields = format_->entryFields;
  if (field.fieldId == fields.version) {
    ChooseVersion(field.Text());
  } else if (field.fieldId == fields.nodeName) {
    state_.nodeName = field.Text();
  } else if (field.fieldId == fields.utcOffset) {
    state_.utcOffset = field.Int32();
  } else if (field.fieldId == fields.dstFlag) {
    state_.dstFlag = field.Int32();
  } else if (field.fieldId == fields.interval) {
    state_.intervalSeconds = field.Int32();
    if (format_->configuredIntervalIsDefault && field.Int32() > 0) state_.defaultInterval = field.Int32();
  }
}

void CollectorReader::StoreTag(const uint8_t* payload, size_t size) {
  if (size == 0) {
    state_.collectorTag.clear();
    return;
  }
  // A length byte that tells more than there is: the text is what there is.
  const std::string_view text(reinterpret_cast<const char*>(payload + 1),
                              std::min<size_t>(payload[0], size - 1));
  state_.collectorTag = text.substr(0, text.find('\0'));
}

void CollectorReader::ChooseVersion(std::string_view version) {
  if (version.empty()) return;  // an empty text counts as none
  if (!state_.collectorVersion.empty() && state_.status != READER_UNSUPPORTED_VERSION) return;
  state_.collectorVersion = version;

  const VersionTexts& texts = format_->versionTexts;
  const auto rule =
      std::find_if(format_->versions.begin(), format_->versions.end(), [&](const VersionRule& row) {
        return row.match == VersionMatch::EQUALS ? version == row.text
                                                 : version.find(row.text) != version.npos;
      });
  const bool known = rule != format_->versions.end();
  if (texts.notice == VersionNotice::ALWAYS || (texts.notice == VersionNotice::WHEN_ACCEPTED && known)) {
    PrintWith(stdout, texts.file, state_.filePath);
    PrintWith(stdout, texts.version, version);
    std::fflush(stdout);
  }
  if (!known) {
    PrintWith(texts.unknownOnStandardError ? stderr : stdout, texts.unknown, version);
    std::fflush(nullptr);
    if (texts.unknownEndsProcess) std::exit(EXIT_FAILURE);
    return;
  }
  Change(state_.wideCounters, rule->wideCounters);
  Change(state_.legacyDiskData, rule->legacyDiskData);
  UseTable(rule->table);
  tableChanged_ = true;
}

// --- Layouts ---

void CollectorReader::UseTable(const RecordTable* table) {
  state_.activeTable = table;
  plans_.fill(RecordPlan{});
  for (const RecordLayout& row : table->rows) plans_[static_cast<size_t>(row.recordType)].layout = &row;
  for (const DecoderRow& row : format_->decoders) plans_[static_cast<size_t>(row.recordType)].decoder = &row;
}

bool CollectorReader::HasLayout(int32_t recordType) const {
  return recordType < TYPE_COUNT && plans_[static_cast<size_t>(recordType)].layout != nullptr;
}

CollectorReader::RecordPlan* CollectorReader::FindPlan(int32_t recordType) {
  RecordPlan& plan = plans_[static_cast<size_t>(recordType)];
  if (!plan.ready) BuildPlan(plan);
  return &plan;
}

void CollectorReader::BuildPlan(RecordPlan& plan) const {
  const std::span<const FieldSpec> fields = plan.layout->fields;
  const DefinitionLists& lists = definitions_[static_cast<size_t>(plan.layout->listType)];
  plan.slots.clear();
  for (const FieldSpec& spec : fields) {
    const int32_t divisor =
        spec.fixedDivisor != NOT_FOUND_ID ? spec.fixedDivisor : lists.DivisorOf(spec.fieldId);
    plan.slots.push_back({spec.fieldId, divisor, nullptr, spec.size, order_});
  }
  // As many positions as the row has slots, whatever the length of the list.
  plan.slotAt.assign(fields.size(), NOT_FOUND_ID);
  for (size_t position = 0; position < fields.size(); ++position) {
    if (plan.layout->positional) {
      plan.slotAt[position] = static_cast<int32_t>(position);
    } else if (position < lists.order.size()) {
      const auto slot = std::find_if(fields.begin(), fields.end(), [&](const FieldSpec& spec) {
        return spec.fieldId == lists.order[position];
      });
      if (slot != fields.end()) plan.slotAt[position] = static_cast<int32_t>(slot - fields.begin());
    }
  }
  plan.ready = true;
}

void CollectorReader::DropPlans() {
  for (RecordPlan& plan : plans_) plan.ready = false;
}

int32_t CollectorReader::DefinitionLists::DivisorOf(int32_t fieldId) const {
  // A position beyond the shorter list has no divisor.
  const size_t known = std::min(order.size(), divisors.size());
  for (size_t i = 0; i < known; ++i) {
    if (order[i] == fieldId) return divisors[i];
  }
  return NOT_FOUND_ID;
}

}  // namespace ozmo
