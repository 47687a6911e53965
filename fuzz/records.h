// A data file as a row of records, for changes that a byte-wise mutator hardly finds.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace ozmo::fuzz {

enum class Framing {
  BIG,     // length, which counts itself, and type, four bytes each, then the payload
  LITTLE,  // the same in the other order of bytes
  LINES    // of text
};

// A record has its head, or its line feed. What can't be cut is the last one. The order of bytes is given by
// which makes the first record the shorter one.
struct RecordRow {
  Framing framing = Framing::LINES;
  std::vector<std::string> records;
};

RecordRow SplitCollectorFile(std::string_view bytes);
RecordRow SplitTextFile(std::string_view bytes);
std::string Join(const RecordRow& row);

using Random = std::minstd_rand;

// Changes a row by one damage or another: records that go, come twice, change places or types, lengths that
// lie, lists that grow, payloads with the numbers in them that things break at, tails that are cut off.
void ChangeRecords(RecordRow& row, Random& random);

}  // namespace ozmo::fuzz
