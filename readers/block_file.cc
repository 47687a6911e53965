#include "readers/block_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "runtime/terminal_text.h"

namespace ozmo {
namespace {

constexpr size_t BLOCK_SIZE = size_t{256} * 1024;

// A file may open with a text block, bounded by these marker lines.
constexpr char LEADING_BLOCK_BEGIN[] = "-----BEGIN ";
constexpr char LEADING_BLOCK_END[] = "-----END ";

}  // namespace

BlockFile::~BlockFile() { Close(); }

BlockFile::BlockFile(BlockFile&& other) noexcept { *this = std::move(other); }

BlockFile& BlockFile::operator=(BlockFile&& other) noexcept {
  if (this != &other) {
    Close();
    path_ = std::move(other.path_);
    descriptor_ = std::exchange(other.descriptor_, -1);
    size_ = other.size_;
    blockStart_ = other.blockStart_;
    next_ = other.next_;
    filled_ = other.filled_;
    block_ = std::move(other.block_);
    compressed_ = std::move(other.compressed_);
    fault_ = other.fault_;
    error_ = other.error_;
  }
  return *this;
}

OpenResult BlockFile::Open(const std::string& path) {
  Close();
  path_ = path;
  fault_ = ReadFault::NONE;
  descriptor_ = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor_ < 0) return OpenResult::NO_FILE;
  struct stat status {};
  // Only a regular file has a size to read up to; anything else counts as empty.
  size_ = fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : 0;
  if (size_ > 0 && CompressedFile::Is(path, descriptor_)) {
    compressed_ = std::make_unique<CompressedFile>(descriptor_);
    size_ = compressed_->Size();
  }
  blockStart_ = 0;
  next_ = 0;
  filled_ = 0;
  if (SkipLeadingBlock()) return OpenResult::DONE;
  Close();
  return OpenResult::ENDLESS_BLOCK;
}

void BlockFile::Close() {
  if (descriptor_ >= 0) close(descriptor_);
  descriptor_ = -1;
  compressed_.reset();
}

void BlockFile::ReportFault() const {
  const std::string path = TextFor(stderr, path_);
  if (fault_ == ReadFault::ERROR) {
    const char* reason = compressed_ ? compressed_->Failure() : std::strerror(error_);
    std::fprintf(stderr, "Can't read file %s: %s\n", path.c_str(), reason);
  }
  if (fault_ == ReadFault::SHORTER) {
    std::fprintf(stderr, "File %s has become shorter while it was read\n", path.c_str());
  }
}

size_t BlockFile::FillForLine(size_t limit) {
  const auto upToEnd = [&] { return static_cast<size_t>(std::min(static_cast<int64_t>(limit), Left())); };
  size_t available = upToEnd();
  if (!Fill(available) && fault_ == ReadFault::NONE) available = upToEnd();  // the end is known by now
  return Fill(available) ? available : 0;
}

void BlockFile::SkipFurther(int64_t size) {
  const int64_t target = std::min(size_, Position() + std::max<int64_t>(size, 0));
  if (target <= blockStart_ + static_cast<int64_t>(filled_)) {
    next_ = static_cast<size_t>(target - blockStart_);
    return;
  }
  blockStart_ = target;
  next_ = 0;
  filled_ = 0;
}

bool BlockFile::Fill(size_t size) {
  if (static_cast<int64_t>(size) > Left()) return false;
  if (filled_ - next_ >= size) return true;
  std::copy(block_.begin() + static_cast<std::ptrdiff_t>(next_),
            block_.begin() + static_cast<std::ptrdiff_t>(filled_), block_.begin());
  blockStart_ += static_cast<int64_t>(next_);
  filled_ -= next_;
  next_ = 0;
  if (block_.size() < std::max(size, BLOCK_SIZE)) block_.resize(std::max(size, BLOCK_SIZE));
  while (filled_ < size) {
    const int64_t place = blockStart_ + static_cast<int64_t>(filled_);
    const auto room = std::min(static_cast<int64_t>(block_.size() - filled_), size_ - place);
    const int64_t got = ReadAt(block_.data() + filled_, static_cast<size_t>(room), place);
    if (got == 0 && size_ == CompressedFile::UNKNOWN_SIZE) {
      size_ = place;
      return false;
    }
    if (got <= 0) {
      fault_ = got < 0 ? ReadFault::ERROR : ReadFault::SHORTER;
      error_ = errno;
      return false;
    }
    filled_ += static_cast<size_t>(got);
  }
  return true;
}

int64_t BlockFile::ReadAt(uint8_t* bytes, size_t room, int64_t place) {
  if (compressed_) return compressed_->Read(bytes, room, place);
  for (;;) {
    const ssize_t got = pread(descriptor_, bytes, room, place);
    if (got >= 0 || errno != EINTR) return got;
  }
}

bool BlockFile::SkipLeadingBlock() {
  if (!StartsWith(LEADING_BLOCK_BEGIN)) return true;
  do {
    if (!SkipLine()) return false;
  } while (!StartsWith(LEADING_BLOCK_END));
  if (!SkipLine()) Skip(size_);  // an end line without a line feed ends the file
  return true;
}

bool BlockFile::StartsWith(const char* text) {
  const size_t length = std::strlen(text);
  return Fill(length) && std::memcmp(block_.data() + next_, text, length) == 0;
}

bool BlockFile::SkipLine() {
  while (Position() < size_) {
    if (!Fill(1)) return false;
    const uint8_t* begin = block_.data() + next_;
    const auto* end = static_cast<const uint8_t*>(std::memchr(begin, '\n', filled_ - next_));
    if (end != nullptr) {
      next_ += static_cast<size_t>(end - begin) + 1;
      return true;
    }
    next_ = filled_;
  }
  return false;
}

}  // namespace ozmo
