// A data file read once, front to back, in large blocks; what is skipped is stepped over.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ozmo {

class BlockFile {
 public:
  BlockFile() = default;
  ~BlockFile();
  BlockFile(BlockFile&& other) noexcept;
  BlockFile& operator=(BlockFile&& other) noexcept;
  BlockFile(const BlockFile&) = delete;
  BlockFile& operator=(const BlockFile&) = delete;

  // Opens `path`, notes its size, and steps over a leading text block. False when the file can't be opened
  // or its leading block has no end.
  bool Open(const std::string& path);
  void Close();
  bool IsOpen() const { return descriptor_ >= 0; }

  int64_t Position() const { return blockStart_ + static_cast<int64_t>(next_); }
  int64_t Size() const { return size_; }

  // The next `size` bytes, valid until the next call; null when the file has fewer.
  const uint8_t* Read(int64_t size);
  // The next line with its line feed, at most `limit` bytes of it, valid until the next call; empty at the
  // end of the file.
  std::string_view ReadLine(size_t limit);
  void Skip(int64_t size);

 private:
  bool Fill(size_t size);
  bool SkipLeadingBlock();
  // Steps behind the line feed at or after the present position; false at the end of the file.
  bool SkipLine();
  bool StartsWith(const char* text);

  int descriptor_ = -1;
  int64_t size_ = 0;
  int64_t blockStart_ = 0;  // file offset of block_[0]
  size_t next_ = 0;         // next byte in block_
  size_t filled_ = 0;
  std::vector<uint8_t> block_;
};

}  // namespace ozmo
