// A data file read once, front to back, in large blocks; what is skipped is stepped over.
//
// The file ends where it ended when it was opened. If fewer bytes can be read, `fault` says why.
//
// A file that zstd has compressed reads as the plain one. All places and sizes are those of the plain file;
// the size of one without a seek table is known only when its end is met, and is taken for endless before.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "readers/compressed_file.h"

namespace ozmo {

enum class ReadFault {
  NONE,
  ERROR,    // the system's, a bad sector, a server that went away; or compressed data that are damaged
  SHORTER,  // the file has been cut since it was opened
};

enum class OpenResult {
  DONE,
  NO_FILE,        // there is none that may be read
  ENDLESS_BLOCK,  // the leading text block has no end
};

class BlockFile {
 public:
  BlockFile() = default;
  ~BlockFile();
  BlockFile(BlockFile&& other) noexcept;
  BlockFile& operator=(BlockFile&& other) noexcept;
  BlockFile(const BlockFile&) = delete;
  BlockFile& operator=(const BlockFile&) = delete;

  // Opens `path`, notes its size, and steps over a leading text block. If that isn't done no file is open.
  OpenResult Open(const std::string& path);
  void Close();
  bool IsOpen() const { return descriptor_ >= 0; }
  bool IsCompressed() const { return compressed_ != nullptr; }

  int64_t Position() const { return blockStart_ + static_cast<int64_t>(next_); }
  int64_t Size() const { return size_; }
  int64_t Left() const { return size_ - Position(); }
  ReadFault fault() const { return fault_; }
  // The fault in words, one line on standard error; nothing where there is none.
  void ReportFault() const;

  // The next `size` bytes, valid until the next read; null when the file has fewer, or on a fault.
  const uint8_t* Read(size_t size) {
    if (size > filled_ - next_ && !Fill(size)) return nullptr;
    const uint8_t* bytes = block_.data() + next_;
    next_ += size;
    return bytes;
  }
  // The next line with its line feed, at most `limit` bytes of it, valid until the next read; empty at the
  // end of the file, or on a fault.
  std::string_view ReadLine(size_t limit) {
    const size_t available = IsInBlock(static_cast<int64_t>(limit)) ? limit : FillForLine(limit);
    if (available == 0) return {};
    const char* begin = reinterpret_cast<const char*>(block_.data() + next_);
    const void* feed = std::memchr(begin, '\n', available);
    const size_t length =
        feed != nullptr ? static_cast<size_t>(static_cast<const char*>(feed) - begin) + 1 : available;
    next_ += length;
    return {begin, length};
  }
  // Whether the next `size` bytes can be read without going to the file.
  bool IsInBlock(int64_t size) const { return size <= static_cast<int64_t>(filled_ - next_); }
  void Skip(int64_t size) {
    if (size >= 0 && IsInBlock(size)) {
      next_ += static_cast<size_t>(size);
    } else {
      SkipFurther(size);
    }
  }
  // Steps over the records that don't count outside the span of a walk, as far as an index of them goes.
  void SkipUnmarked() {
    if (compressed_) Skip(compressed_->NextMark(Position()) - Position());
  }

 private:
  void SkipFurther(int64_t size);
  // Makes `size` bytes from next_ on lie in the block; false when the file has fewer, or on a fault.
  bool Fill(size_t size);
  // Makes as much of a line as may be asked for lie in the block; how much that is, 0 at the end of the file
  // or on a fault.
  size_t FillForLine(size_t limit);
  // As pread of the plain file.
  int64_t ReadAt(uint8_t* bytes, size_t room, int64_t place);
  bool SkipLeadingBlock();
  // Steps past the line feed at or after the present position; false at the end of the file.
  bool SkipLine();
  bool StartsWith(const char* text);

  std::string path_;
  int descriptor_ = -1;
  int64_t size_ = 0;
  int64_t blockStart_ = 0;  // file offset of block_[0]
  size_t next_ = 0;         // next byte in block_
  size_t filled_ = 0;
  std::vector<uint8_t> block_;
  std::unique_ptr<CompressedFile> compressed_;  // null: a plain file
  ReadFault fault_ = ReadFault::NONE;
  int error_ = 0;  // the system's number of an ERROR
};

}  // namespace ozmo
