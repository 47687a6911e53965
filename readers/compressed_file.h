// A data file that zstd has compressed, read as the plain file that it holds.
//
// Any file that zstd writes can be read from front to back. One that ends in a seek table, in the seekable
// format of zstd's contrib/seekable_format, can be read from the middle, a frame at a time; ozmo_record
// writes such. It also has an index of the records that count outside the span of a walk, so that the frames
// of the hours before a span aren't opened at all:
//
//   frames of data | a skippable frame of type 0 with the index |
//   the seek table, a skippable frame of type 14
//
// The index is a frame of zstd's with a checksum. It holds the text "ozmo1", and for each of these records
// its place in the plain file (8 bytes), its size (4 bytes) and its bytes. All numbers are little-endian. A
// size of 0 is a place where a walk has to look for itself. An index that doesn't hold together is passed
// over.
//
// Memory is bounded whatever a file claims: a window of 128 MB at most, zstd's own limit, and an index of 64.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>

namespace ozmo {

class CompressedFile {
 public:
  // The end of a file without a seek table is known only when it is met.
  static constexpr int64_t UNKNOWN_SIZE = std::numeric_limits<int64_t>::max() / 2;

  // Whether the file at `path`, open as `file`, is compressed: ".zst" ends its name, and it begins as zstd's
  // files do. Anything else is a plain file, whatever its name.
  static bool Is(const std::string& path, int file);

  // Takes the file, open as `file`, which stays the caller's.
  explicit CompressedFile(int file);
  ~CompressedFile();
  CompressedFile(const CompressedFile&) = delete;
  CompressedFile& operator=(const CompressedFile&) = delete;

  // Of the plain file.
  int64_t Size() const;

  // As pread of the plain file: up to `room` bytes from `place` on, 0 at its end, -1 on a fault. Meant for
  // places in ascending order; without a seek table a place must not come before the end of the last read.
  int64_t Read(uint8_t* bytes, size_t room, int64_t place);
  // What the fault of the last read was; never null.
  const char* Failure() const;

  // The first place from `place` on where there is a record that counts outside the span of a walk, or the
  // end of the file. `place` itself without an index.
  int64_t NextMark(int64_t place);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace ozmo
