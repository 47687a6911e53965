// What makes one collector format: the constant description that the engine of collector_reader.h runs on.
//
// A collector file is a flat chain of typed records without a file header. Of each data record type R the
// file itself gives the field order, in a record of type R * 100, and the divisors, in one of type R * 10;
// both come before the data. The tables here say which R and which fields we understand.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "readers/field_value.h"
#include "readers/record_kinds.h"
#include "readers/vmr_context.h"

namespace ozmo {

struct FieldSpec {
  int32_t fieldId;
  FieldSize size;
  int32_t fixedDivisor = NOT_FOUND_ID;  // holds whatever the file's divisor list says
};

// One data record type of a version. Its slots are in table order, which is the order decoders see.
struct RecordLayout {
  int32_t recordType;
  int32_t listType;  // whose definition lists describe it: twins may share those of their base
  std::span<const FieldSpec> fields;
  bool positional = false;  // fields are in table order, whatever the order list says
};

// The record types of one collector version, and what else of its files differs by version. A format in which
// a fact differs makes its tables by a function that takes it, so that no version is without.
struct RecordTable {
  std::string_view name;
  std::span<const RecordLayout> rows;
  FieldSize counters = FieldSize::INT4;  // how wide its counters are
  double processTimeUnits = 1.0;         // Solaris, Tru64: of a process's times in a second
  bool diskTimesAreTrusted = true;       // HP-UX: false once, in a run, is false for all files that follow
};

// The processors that the records of a walk have named, by number, for formats whose records of one number
// merge. An entry holds for the pass that made it; entries stay, so that a walk over the same processors
// makes none.
struct NamedProcessor {
  ProcessorRecord* record = nullptr;
  uint64_t pass = 0;
};
using NamedProcessors = std::map<int32_t, NamedProcessor>;

// What a reader remembers of its file, and what decoders may ask.
struct ReaderState {
  Seconds firstRecordTime = 0;
  Seconds windowStart = 0;
  Seconds windowEnd = 0;
  Seconds utcOffset = DEFAULT_UTC_OFFSET;
  int32_t dstFlag = 0;  // no option reaches it, as that of VmrContext
  std::string collectorVersion;
  std::string nodeName;
  std::string filePath;
  Seconds currentRecordTime = 0;              // 0 until a time record has been seen in this pass
  Seconds previousRawTime = 0;                // as stored in the file; survives passes
  int32_t intervalSeconds = 60;               // configured, then measured from the time records
  int32_t defaultInterval = 120;              // what a measured interval below 1 becomes
  bool wideCounters = false;                  // the file's counters are 8 bytes wide
  bool diskTimesAreTrusted = true;            // HP-UX
  std::string collectorTag;                   // Linux: text of the latest tag record
  uint64_t pass = 0;                          // counts the passes of a walk
  TwinPair<NamedProcessors> namedProcessors;  // AIX
  const RecordTable* activeTable = nullptr;
};

// What a decoder works on: one record, its fields in table order. Fields that the file hasn't got have null
// data.
struct Decoding {
  VmrContext& context;
  ReaderState& state;
  bool isTwin;
  std::span<const FieldValue> fields;
};

// Leaves the record's figures in the context.
using Decoder = void (*)(Decoding& decoding);

inline constexpr int32_t NO_TYPE = -1;

// A field that builders read the figure of, and what has to be wanted for it: CONFIGURATION always is.
struct BuilderField {
  int32_t field;
  RecordKind wantedFor;
};

struct DecoderRow {
  int32_t type;
  int32_t twin = NO_TYPE;  // a second record type that is read the same way, to stores of its own
  RecordKind kind;         // what the record is to a builder
  Decoder decode;
  std::span<const BuilderField> builderFields = {};  // none: builders read all
};

// Tests of the version text, in order; the first that holds chooses the table.
enum class VersionMatch : uint8_t { EQUALS, CONTAINS };

struct VersionRule {
  VersionMatch match = VersionMatch::EQUALS;
  std::string_view text;
  const RecordTable* table;
  bool leavesCounterWidth = false;  // as an earlier file of the run has set it, whatever the table says
};

// How a format speaks of versions. Each text holds one "%s".
enum class VersionNotice : uint8_t { NONE, WHEN_ACCEPTED, ALWAYS };

struct VersionTexts {
  VersionNotice notice;
  std::string_view file;     // of the path, on standard output
  std::string_view version;  // of the version, on standard output
  std::string_view unknown;  // of the version, on the stream below
  bool unknownOnStandardError;
  bool unknownEndsProcess;  // with exit status 1; otherwise the table in force stays
};

// Fields of the configuration record (type 5) that the frame itself needs.
struct EntryFields {
  int32_t version;
  int32_t nodeName;
  int32_t utcOffset;
  int32_t dstFlag;
  int32_t interval;
};

struct CollectorFormat {
  ByteOrder (*byteOrderOf)(std::string_view path);
  int32_t timeRecord;
  int32_t timeField;
  EntryFields entryFields;
  bool intervalBelowOneIsDefault;    // a measured interval below 1 becomes defaultInterval
  bool configuredIntervalIsDefault;  // the configured interval, when above 0, becomes defaultInterval
  bool missingVersionIsUnsupported;  // a file without a version is unsupported rather than lacking data
  bool keepsTag;                     // the text of record 99 goes to collectorTag
  const RecordTable* entryTable;     // in force at the start of an entry pass
  std::span<const VersionRule> versions;
  VersionTexts versionTexts;
  std::span<const DecoderRow> decoders;
  bool keepsWideCounters = false;  // until a version says otherwise they are as wide as an earlier file's
};

inline constexpr int32_t CONFIG_RECORD = 5;
inline constexpr int32_t TAG_RECORD = 99;

}  // namespace ozmo
