#include "readers/collector_file.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "readers/field_rules.h"
#include "runtime/messages.h"
#include "runtime/process_end.h"
#include "runtime/runtime.h"
#include "runtime/terminal_text.h"

namespace ozmo {
namespace {

constexpr size_t HEADER_SIZE = 8;  // recordLength and recordType
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

}  // namespace

CollectorFile::CollectorFile(const CollectorFormat& format, Runtime& runtime)
    : format_(&format), runtime_(&runtime), types_(format) {}

// --- Passes ---

ReaderResult CollectorFile::EntryPass(const std::string& path) {
  order_ = format_->byteOrderOf(path);
  UseTable(*format_->entryTable);
  ReaderResult result = ReaderResult::NO_OPEN;
  if (file_.Open(path) == OpenResult::DONE) result = TakeHead(path);
  ReportResult(result, path);
  return result;
}

ReaderResult CollectorFile::TakeHead(const std::string& path) {
  // What survives a pass is the last time stamp, and what an earlier file of the run has switched on.
  ReaderState fresh;
  fresh.filePath = path;
  fresh.activeTable = state_.activeTable;
  fresh.previousRawTime = state_.previousRawTime;
  fresh.defaultInterval = state_.defaultInterval;
  fresh.wideCounters = state_.wideCounters && format_->keepsWideCounters;
  fresh.diskTimesAreTrusted = state_.diskTimesAreTrusted;
  fresh.intervalSeconds = ENTRY_INTERVAL;
  state_ = std::move(fresh);

  ReaderResult result = ReaderResult::DONE;
  while (result == ReaderResult::DONE && CheckEntry() != ReaderResult::DONE) result = TakeEntryRecord();
  file_.Close();
  types_.DropOrderLists();  // the walk reads them again
  if (result != ReaderResult::BASIC_DATA && result != ReaderResult::NO_READ) result = CheckEntry();
  if (result == ReaderResult::DONE) {
    state_.firstRecordTime = FormatLocalTime(state_.firstRecordTime, state_.utcOffset);
  }
  return result;
}

OpenResult CollectorFile::Open(const std::string& path) {
  order_ = format_->byteOrderOf(path);
  const OpenResult result = file_.Open(path);
  if (result == OpenResult::NO_FILE) ReportResult(ReaderResult::NO_OPEN, path);
  return result;
}

ReaderResult CollectorFile::WalkPass(VmrContext& context) {
  state_.windowStart = context.periodStart;
  state_.windowEnd = context.periodEnd;
  state_.currentRecordTime = 0;
  ++state_.pass;
  ReaderResult result = ReaderResult::DONE;
  while (result == ReaderResult::DONE) result = TakeWalkRecord(context);
  if (result == ReaderResult::NOTHING) result = ReaderResult::DONE;  // the window is over
  const bool endsBeforeWindow =
      state_.currentRecordTime != 0 && state_.currentRecordTime < state_.windowStart;
  if (endsBeforeWindow && result != ReaderResult::NO_READ) result = ReaderResult::OUTSIDE_WINDOW;
  ReportResult(result, state_.filePath);
  return result;
}

// Says what a result means, where it means anything to the user.
void CollectorFile::ReportResult(ReaderResult result, const std::string& path) {
  switch (result) {
    case ReaderResult::DONE:
    case ReaderResult::NOTHING:
    case ReaderResult::END_OF_FILE:
    case ReaderResult::OUTSIDE_WINDOW:
      break;
    case ReaderResult::UNSUPPORTED_VERSION:
      MessageEmit(*runtime_, "MW_VERSION",
                  {state_.collectorVersion.empty() ? "???" : state_.collectorVersion, path});
      break;
    case ReaderResult::NO_OPEN:
      MessageEmit(*runtime_, "NOOPEN", {path});
      break;
    case ReaderResult::NO_READ:
      MessageEmit(*runtime_, "NOREAD", {path});
      break;
    case ReaderResult::BASIC_DATA:
      MessageEmit(*runtime_, "MW_BASIC_DATA", {path});
      break;
  }
}

// --- Records ---

ReaderResult CollectorFile::ReadHeader(Header& header) {
  const uint8_t* bytes = file_.Read(HEADER_SIZE);
  if (bytes == nullptr) return file_.Left() <= 0 ? ReaderResult::END_OF_FILE : Fault();
  const uint32_t recordLength = LoadUint32(bytes, order_);
  if (recordLength < HEADER_SIZE) return ReaderResult::END_OF_FILE;
  header.recordType = static_cast<int32_t>(LoadUint32(bytes + 4, order_));
  header.size = int64_t{recordLength} - static_cast<int64_t>(HEADER_SIZE);
  return ReaderResult::DONE;
}

ReaderResult CollectorFile::ReadPayload(const Header& header, size_t reach, Payload& payload) {
  const bool isThere = file_.IsInBlock(header.size) || header.size <= file_.Left();
  if (!isThere) return ReaderResult::END_OF_FILE;  // cut off by the end of the file
  payload.size = static_cast<size_t>(std::min(header.size, static_cast<int64_t>(reach)));
  payload.bytes = file_.Read(payload.size);
  if (payload.bytes == nullptr) return Fault();
  file_.Skip(header.size - static_cast<int64_t>(payload.size));
  return ReaderResult::DONE;
}

// Why a read has failed. A file that has become shorter ends where it ends.
ReaderResult CollectorFile::Fault() const {
  const bool isError = file_.fault() == ReadFault::ERROR;
  if (!isError || file_.IsCompressed()) file_.ReportFault();
  return isError ? ReaderResult::NO_READ : ReaderResult::END_OF_FILE;
}

ReaderResult CollectorFile::TakeEntryRecord() {
  Header header;
  if (const ReaderResult result = ReadHeader(header); result != ReaderResult::DONE) return result;
  if (header.recordType == TAG_RECORD) return TakeTag(header);
  const bool isTime = header.recordType == format_->timeRecord;
  const bool isConfiguration = header.recordType == CONFIG_RECORD;
  // Data and divisors say nothing to this pass. Types in steps of 100 aren't passed over, known or not.
  if (!isTime && !isConfiguration && static_cast<uint32_t>(header.recordType) % 100 != 0) {
    file_.Skip(header.size);
    return ReaderResult::DONE;
  }
  const RecordMeaning meaning = types_.MeaningOf(header.recordType);
  if (meaning.sort == RecordSort::UNKNOWN) return PassOverUnknown(header);
  if (meaning.sort != RecordSort::DATA) return TakeList(meaning, header);
  return isTime ? TakeEntryTime(header) : TakeEntryFields(header);
}

ReaderResult CollectorFile::TakeWalkRecord(VmrContext& context) {
  if (IsOutsideWindow()) file_.SkipUnmarked();
  Header header;
  if (const ReaderResult result = ReadHeader(header); result != ReaderResult::DONE) return result;
  if (header.recordType == TAG_RECORD) return TakeTag(header);
  if (header.recordType != format_->timeRecord && IsOutsideWindow()) {
    file_.Skip(header.size);
    return ReaderResult::DONE;
  }
  const RecordMeaning meaning = types_.MeaningOf(header.recordType);
  if (meaning.sort == RecordSort::UNKNOWN) return PassOverUnknown(header);
  if (meaning.sort != RecordSort::DATA) return TakeList(meaning, header);
  if (header.recordType == format_->timeRecord) return TakeTime(header);
  const DecoderRow* decoder = types_.DecoderOf(header.recordType);
  if (decoder != nullptr) return TakeData(*decoder, header, context);
  file_.Skip(header.size);
  return ReaderResult::DONE;
}

// An unknown type ends the pass as if the interval were over; the file goes on after the record.
ReaderResult CollectorFile::PassOverUnknown(const Header& header) {
  if (header.size > file_.Left()) return ReaderResult::END_OF_FILE;
  file_.Skip(header.size);
  return ReaderResult::NOTHING;
}

// Records before the pass's first time record aren't checked: those after the time stamp that ended the
// previous pass count for this one.
bool CollectorFile::IsOutsideWindow() const {
  return state_.currentRecordTime >= 1 &&
         (state_.currentRecordTime < state_.windowStart || state_.currentRecordTime > state_.windowEnd);
}

ReaderResult CollectorFile::TakeTag(const Header& header) {
  if (!format_->keepsTag) {
    file_.Skip(header.size);
    return ReaderResult::DONE;
  }
  Payload payload;
  const ReaderResult result = ReadPayload(header, LONGEST_FIELD, payload);
  if (result != ReaderResult::DONE) return result;
  state_.collectorTag.clear();
  if (payload.size == 0) return ReaderResult::DONE;
  // A length byte that claims more than there is: the text is what there is.
  const std::string_view text(reinterpret_cast<const char*>(payload.bytes + 1),
                              std::min<size_t>(payload.bytes[0], payload.size - 1));
  state_.collectorTag = text.substr(0, text.find('\0'));
  return ReaderResult::DONE;
}

ReaderResult CollectorFile::TakeList(const RecordMeaning& meaning, const Header& header) {
  Payload payload;
  const ReaderResult result = ReadPayload(header, types_.ListReach(), payload);
  if (result == ReaderResult::DONE) types_.StoreList(meaning, {payload.bytes, payload.size});
  return result;
}

ReaderResult CollectorFile::TakeData(const DecoderRow& decoder, const Header& header, VmrContext& context) {
  RecordPlan* plan = types_.PlanOf(header.recordType);
  Payload payload;
  const ReaderResult result = ReadPayload(header, plan->reach(), payload);
  if (result != ReaderResult::DONE) return result;
  Decoding decoding{context, state_, header.recordType == decoder.twin,
                    plan->Place(payload.bytes, payload.size)};
  decoder.decode(decoding);
  return ReaderResult::DONE;
}

template <class Visit>
void CollectorFile::VisitFields(int32_t recordType, const Payload& payload, Visit visit) {
  size_t offset = 0;
  for (size_t position = 0; offset < payload.size; ++position) {
    // Looked up at each position: after a version field that chooses another table the record goes on in
    // that table's layout.
    const RecordPlan* plan = types_.PlanOf(recordType);
    if (plan == nullptr || position >= plan->PositionCount()) return;
    const FieldValue* known = plan->FieldAt(position);
    if (known == nullptr) continue;
    const size_t taken = SizeInFile(known->size, payload.bytes + offset);
    if (taken > payload.size - offset) return;  // the field runs past its record
    FieldValue field = *known;
    field.data = payload.bytes + offset;
    offset += taken;
    if (!visit(field)) return;
  }
}

// --- The entry pass ---

ReaderResult CollectorFile::CheckEntry() const {
  if (state_.collectorVersion.empty()) {
    return format_->missingVersionIsUnsupported ? ReaderResult::UNSUPPORTED_VERSION
                                                : ReaderResult::BASIC_DATA;
  }
  if (state_.firstRecordTime < 1 || state_.nodeName.empty()) return ReaderResult::BASIC_DATA;
  return ReaderResult::DONE;
}

ReaderResult CollectorFile::TakeEntryTime(const Header& header) {
  Payload payload;
  ReaderResult result = ReadPayload(header, types_.RecordReach(), payload);
  if (result != ReaderResult::DONE) return result;
  VisitFields(header.recordType, payload, [&](const FieldValue& field) {
    if (field.fieldId != format_->timeField) return true;
    state_.firstRecordTime = TimeOf(field);
    if (state_.collectorVersion.empty()) result = ReaderResult::BASIC_DATA;
    return result == ReaderResult::DONE;
  });
  return result;
}

ReaderResult CollectorFile::TakeEntryFields(const Header& header) {
  Payload payload;
  const ReaderResult result = ReadPayload(header, types_.RecordReach(), payload);
  if (result != ReaderResult::DONE) return result;
  VisitFields(header.recordType, payload, [&](const FieldValue& field) {
    StoreEntryField(field);
    return true;
  });
  return ReaderResult::DONE;
}

void CollectorFile::StoreEntryField(const FieldValue& field) {
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

void CollectorFile::ChooseVersion(std::string_view version) {
  if (version.empty() || !state_.collectorVersion.empty()) return;  // an empty text counts as none
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
    if (texts.unknownEndsProcess) EndProcess(EXIT_FAILURE);
    return;
  }
  const RecordTable& table = *rule->table;
  if (!rule->leavesCounterWidth) state_.wideCounters = table.counters == FieldSize::INT8;
  if (!table.diskTimesAreTrusted) state_.diskTimesAreTrusted = false;
  UseTable(table);
}

void CollectorFile::UseTable(const RecordTable& table) {
  state_.activeTable = &table;
  types_.Use(table, order_);
}

// --- Times ---

ReaderResult CollectorFile::TakeTime(const Header& header) {
  Payload payload;
  const ReaderResult result = ReadPayload(header, types_.RecordReach(), payload);
  if (result != ReaderResult::DONE) return result;
  bool isInWindow = true;
  VisitFields(header.recordType, payload, [&](const FieldValue& field) {
    if (field.fieldId == format_->timeField) isInWindow = StoreTime(TimeOf(field));
    return isInWindow;
  });
  return isInWindow ? ReaderResult::DONE : ReaderResult::NOTHING;
}

Seconds CollectorFile::TimeOf(const FieldValue& field) const {
  const auto raw = static_cast<Seconds>(ValueAsInteger(field, Form::NATURAL, state_));
  return std::clamp(raw, -FARTHEST_TIME, FARTHEST_TIME);
}

// False when the time is after the window.
bool CollectorFile::StoreTime(Seconds raw) {
  if (state_.previousRawTime != 0) {
    const Seconds measured = raw - state_.previousRawTime;
    state_.intervalSeconds = ClampTo<int32_t>(static_cast<double>(measured));
    if (format_->intervalBelowOneIsDefault && measured < 1) state_.intervalSeconds = state_.defaultInterval;
  }
  state_.previousRawTime = raw;
  state_.currentRecordTime = FormatLocalTime(raw, state_.utcOffset);
  return state_.currentRecordTime <= state_.windowEnd;
}

}  // namespace ozmo
