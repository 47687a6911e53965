#include "fuzz/records.h"

#include <algorithm>
#include <utility>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace ozmo::fuzz {
namespace {

constexpr size_t HEAD_SIZE = 8;
constexpr size_t ROOM_TO_GROW = 64;  // bytes that a payload may gain by one change
constexpr size_t MOST_RECORDS = 4000;

constexpr uint32_t ODD_NUMBERS[] = {0,          1,          7,          8,          9,
                                    10,         99,         100,        255,        256,
                                    400,        1000,       65535,      65536,      86400,
                                    0x4F44F000, 0x7FFFFFFE, 0x7FFFFFFF, 0x80000000, 0x80000001,
                                    0xC0000000, 0xFFFFFF00, 0xFFFFFFF8, 0xFFFFFFFE, 0xFFFFFFFF};
constexpr const char* ODD_TEXTS[] = {"",
                                     "0",
                                     "-1",
                                     "1",
                                     "7",
                                     "400",
                                     "1e39",
                                     "nan",
                                     "-nan",
                                     "2147483647",
                                     "-2147483648",
                                     "4294967296",
                                     "\\ep",
                                     "%n%s",
                                     "@",
                                     ".",
                                     "<CONFIG>",
                                     "1970",
                                     "99999999999999999999"};

size_t Below(Random& random, size_t bound) { return bound == 0 ? 0 : random() % bound; }

template <class Table>
auto OneOf(const Table& table, Random& random) {
  return table[Below(random, std::size(table))];
}

uint32_t LoadNumber(const std::string& bytes, size_t offset, Framing framing) {
  uint32_t number = 0;
  for (size_t i = 0; i < 4; ++i) {
    const size_t place = framing == Framing::BIG ? offset + i : offset + 3 - i;
    number = number << 8 | static_cast<uint8_t>(bytes[place]);
  }
  return number;
}

void StoreNumber(std::string& bytes, size_t offset, uint32_t number, Framing framing) {
  for (size_t i = 0; i < 4; ++i) {
    const size_t place = framing == Framing::BIG ? offset + 3 - i : offset + i;
    bytes[place] = static_cast<char>(number >> (8 * i));
  }
}

std::string& AnyRecord(RecordRow& row, Random& random) {
  // Half of them at the head, where lists and configuration are.
  const size_t count = random() % 2 == 0 ? row.records.size() : std::min<size_t>(row.records.size(), 40);
  return row.records[Below(random, count)];
}

bool HasHead(const RecordRow& row, const std::string& record) {
  return row.framing != Framing::LINES && record.size() >= HEAD_SIZE;
}

// Makes the record's length right again.
void SettleLength(const RecordRow& row, std::string& record) {
  if (HasHead(row, record)) StoreNumber(record, 0, static_cast<uint32_t>(record.size()), row.framing);
}

// --- Changes of the row ---

void DropRecord(RecordRow& row, Random& random) {
  row.records.erase(row.records.begin() + static_cast<std::ptrdiff_t>(Below(random, row.records.size())));
}

void CopyRecord(RecordRow& row, Random& random) {
  const std::string record = AnyRecord(row, random);
  const auto place = static_cast<std::ptrdiff_t>(Below(random, row.records.size()));
  const size_t times = random() % 4 == 0 ? 1 + Below(random, 30) : 1;
  row.records.insert(row.records.begin() + place, times, record);
}

void SwapRecords(RecordRow& row, Random& random) {
  std::swap(AnyRecord(row, random), row.records[Below(random, row.records.size())]);
}

void CutTail(RecordRow& row, Random& random) {
  row.records.resize(1 + Below(random, row.records.size()));
  std::string& last = row.records.back();
  if (random() % 2 == 0) last.resize(Below(random, last.size() + 1));
}

// --- Changes of a record ---

void MutatePayload(RecordRow& row, Random& random) {
  std::string& record = AnyRecord(row, random);
  const size_t head = HasHead(row, record) ? HEAD_SIZE : 0;
  std::string payload = record.substr(head);
  const size_t size = payload.size();
  payload.resize(size + ROOM_TO_GROW);
  payload.resize(LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(payload.data()), size, payload.size()));
  record.replace(head, std::string::npos, payload);
  if (random() % 8 != 0) SettleLength(row, record);
}

void LieAboutLength(RecordRow& row, Random& random) {
  std::string& record = AnyRecord(row, random);
  if (!HasHead(row, record)) return;
  const uint32_t length = LoadNumber(record, 0, row.framing);
  const bool isNear = random() % 2 == 0;
  StoreNumber(record, 0,
              isNear ? length + static_cast<uint32_t>(random() % 17) - 8 : OneOf(ODD_NUMBERS, random),
              row.framing);
}

// Another record's type, the lists of one, or an odd one.
void ChangeType(RecordRow& row, Random& random) {
  std::string& record = AnyRecord(row, random);
  const std::string& other = AnyRecord(row, random);
  if (!HasHead(row, record) || !HasHead(row, other)) return;
  const uint32_t type = LoadNumber(other, 4, row.framing);
  const uint32_t types[] = {type, type * 10, type * 100, type / 10, type / 100, OneOf(ODD_NUMBERS, random)};
  StoreNumber(record, 4, OneOf(types, random), row.framing);
}

void ChangeNumber(RecordRow& row, Random& random) {
  std::string& record = AnyRecord(row, random);
  if (!HasHead(row, record) || record.size() < HEAD_SIZE + 4) return;
  const size_t place = HEAD_SIZE + Below(random, record.size() - HEAD_SIZE - 3);
  const size_t aligned = random() % 4 == 0 ? place : place / 4 * 4;
  StoreNumber(record, aligned, OneOf(ODD_NUMBERS, random), row.framing);
}

// A list said twice in one record, or less than once.
void ChangeLength(RecordRow& row, Random& random) {
  std::string& record = AnyRecord(row, random);
  if (!HasHead(row, record)) return;
  if (random() % 2 == 0) {
    record += record.substr(HEAD_SIZE);
  } else {
    record.resize(HEAD_SIZE + Below(random, record.size() - HEAD_SIZE + 1));
  }
  SettleLength(row, record);
}

void ChangeField(RecordRow& row, Random& random) {
  std::string& record = AnyRecord(row, random);
  if (row.framing != Framing::LINES) return;
  const auto fields = static_cast<size_t>(std::count(record.begin(), record.end(), '~'));
  size_t begin = 0;
  for (size_t n = Below(random, fields + 1); n > 0; --n) begin = record.find('~', begin) + 1;
  const size_t end = std::min(record.find_first_of("~\n", begin), record.size());
  const std::string text =
      random() % 2 == 0 ? OneOf(ODD_TEXTS, random) : std::to_string(OneOf(ODD_NUMBERS, random));
  record.replace(begin, end - begin, text);
}

using Change = void (*)(RecordRow& row, Random& random);

constexpr Change COLLECTOR_CHANGES[] = {DropRecord,    CopyRecord,    SwapRecords,   CutTail,
                                        MutatePayload, MutatePayload, ChangeType,    ChangeLength,
                                        ChangeNumber,  ChangeNumber,  LieAboutLength};
constexpr Change TEXT_CHANGES[] = {DropRecord,    CopyRecord,  SwapRecords, CutTail,
                                   MutatePayload, ChangeField, ChangeField};

}  // namespace

RecordRow SplitCollectorFile(std::string_view bytes) {
  RecordRow row;
  const std::string head(bytes.substr(0, HEAD_SIZE));
  const bool isLittle =
      head.size() == HEAD_SIZE && LoadNumber(head, 0, Framing::LITTLE) < LoadNumber(head, 0, Framing::BIG);
  row.framing = isLittle ? Framing::LITTLE : Framing::BIG;
  while (!bytes.empty()) {
    const std::string length(bytes.substr(0, HEAD_SIZE));
    size_t size = length.size() < HEAD_SIZE ? bytes.size() : LoadNumber(length, 0, row.framing);
    if (size < HEAD_SIZE) size = HEAD_SIZE;
    size = std::min(size, bytes.size());
    row.records.emplace_back(bytes.substr(0, size));
    bytes.remove_prefix(size);
  }
  return row;
}

RecordRow SplitTextFile(std::string_view bytes) {
  RecordRow row;
  while (!bytes.empty()) {
    const size_t feed = bytes.find('\n');
    const size_t size = feed == std::string_view::npos ? bytes.size() : feed + 1;
    row.records.emplace_back(bytes.substr(0, size));
    bytes.remove_prefix(size);
  }
  return row;
}

std::string Join(const RecordRow& row) {
  std::string bytes;
  for (const std::string& record : row.records) bytes += record;
  return bytes;
}

void ChangeRecords(RecordRow& row, Random& random) {
  if (row.records.empty() || row.records.size() > MOST_RECORDS) return;
  const Change change =
      row.framing == Framing::LINES ? OneOf(TEXT_CHANGES, random) : OneOf(COLLECTOR_CHANGES, random);
  change(row, random);
}

}  // namespace ozmo::fuzz
