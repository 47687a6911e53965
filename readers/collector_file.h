// One binary collector file at a time, driven by a CollectorFormat.
//
// An entry pass finds a file's version, node and first time stamp. Walk passes then deliver the records of
// one window each. A window ends at the first time record beyond it, and the next begins after that record
// without a seek back: the data after it are delivered by the next pass, whatever its window.
//
// A record's length is a claim. What a record is decides how much of it is read: nothing of one that is
// unknown or not wanted, and of others what their fields can take.
#pragma once

#include <string>

#include "readers/block_file.h"
#include "readers/collector_format.h"
#include "readers/reader_result.h"
#include "readers/record_types.h"

namespace ozmo {

struct Runtime;

class CollectorFile {
 public:
  CollectorFile(const CollectorFormat& format, Runtime& runtime);

  // A result other than DONE has given its message. The file is closed again.
  ReaderResult EntryPass(const std::string& path);

  // Opens a file for walk passes. The message is for a file that isn't there; a leading block without an end
  // has none, since the entry pass gives one.
  OpenResult Open(const std::string& path);
  bool IsOpen() const { return file_.IsOpen(); }
  void Close() { file_.Close(); }
  // The context's period is the window. DONE: its records are in the context.
  ReaderResult WalkPass(VmrContext& context);

  // Before a walk: what it wants of the records.
  void SetWanted(const RecordKinds& kinds) { types_.SetWanted(kinds); }
  // Forgets the last time stamp, before a walk, or the definition lists, after it.
  void ForgetTime() { state_.previousRawTime = 0; }
  void ForgetLists() { types_.DropLists(); }

  const ReaderState& state() const { return state_; }

 private:
  struct Header {
    int32_t recordType = 0;
    int64_t size = 0;  // of the payload
  };
  // The bytes of a payload that are of use; the file goes on after the payload.
  struct Payload {
    const uint8_t* bytes = nullptr;
    size_t size = 0;
  };

  // The entry pass over the open file.
  ReaderResult TakeHead(const std::string& path);
  // Each takes one record. NOTHING: the pass stops there.
  ReaderResult TakeEntryRecord();
  ReaderResult TakeWalkRecord(VmrContext& context);
  ReaderResult PassOverUnknown(const Header& header);
  ReaderResult TakeTag(const Header& header);
  ReaderResult TakeList(const RecordMeaning& meaning, const Header& header);
  ReaderResult TakeEntryTime(const Header& header);
  ReaderResult TakeEntryFields(const Header& header);
  ReaderResult TakeTime(const Header& header);
  ReaderResult TakeData(const DecoderRow& decoder, const Header& header, VmrContext& context);

  ReaderResult ReadHeader(Header& header);
  ReaderResult ReadPayload(const Header& header, size_t reach, Payload& payload);
  ReaderResult Fault() const;
  bool IsOutsideWindow() const;
  // Calls `visit` for one field after the other, until it says false.
  template <class Visit>
  void VisitFields(int32_t recordType, const Payload& payload, Visit visit);

  ReaderResult CheckEntry() const;
  void StoreEntryField(const FieldValue& field);
  void ChooseVersion(std::string_view version);
  Seconds TimeOf(const FieldValue& field) const;
  bool StoreTime(Seconds raw);
  void UseTable(const RecordTable& table);
  void ReportResult(ReaderResult result, const std::string& path);

  const CollectorFormat* format_;
  Runtime* runtime_;
  ReaderState state_;
  ByteOrder order_ = ByteOrder::BIG;
  BlockFile file_;
  RecordTypes types_;
};

}  // namespace ozmo
