#include "programs/host_file/compressed_recording.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "programs/host_file/collector_records.h"
#include "programs/host_file/record_index.h"
#include "readers/file_kind.h"

#ifdef OZMO_HAS_ZSTD
#include <zstd.h>
#endif

namespace ozmo::host_file {
namespace {

constexpr size_t FRAME_SIZE = size_t{1} << 18U;  // of the plain file; larger ones cost more to begin in

class OpenFile {
 public:
  explicit OpenFile(int file) : file_(file) {}
  ~OpenFile() { Close(); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool IsOpen() const { return file_ >= 0; }
  int get() const { return file_; }
  bool Close() {
    const bool closed = file_ < 0 || close(file_) == 0;
    file_ = -1;
    return closed;
  }

  // Up to `size` bytes, fewer only at the end of the file; false on a failure, with errno set.
  bool Read(std::string& bytes, size_t size) const {
    bytes.resize(size);
    size_t filled = 0;
    while (filled < size) {
      const ssize_t got = read(file_, bytes.data() + filled, size - filled);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) return false;
      if (got == 0) break;
      filled += static_cast<size_t>(got);
    }
    bytes.resize(filled);
    return true;
  }
  bool Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(file_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return false;
      bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
  }

 private:
  int file_;
};

// A plain file alone, and no link to one.
int OpenToRead(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  struct stat status {};
  if (file >= 0 && (fstat(file, &status) != 0 || !S_ISREG(status.st_mode))) {
    close(file);
    errno = EINVAL;
    return -1;
  }
  return file;
}

std::string FailureOf(const std::string& path) { return path + ": " + std::strerror(errno); }

constexpr uint32_t FRAME_MAGIC = 0xFD2FB528;

#ifdef OZMO_HAS_ZSTD

constexpr uint32_t INDEX_MAGIC = 0x184D2A50;
constexpr uint32_t SEEK_TABLE_MAGIC = 0x184D2A5E;
constexpr uint32_t SEEK_TABLE_END = 0x8F92EAB1;
constexpr size_t WORD = 4;

// Compresses one frame after the other and keeps the books that the end of the file is made of.
class Compressor {
 public:
  Compressor() : context_(ZSTD_createCCtx(), ZSTD_freeCCtx) {
    if (context_) ZSTD_CCtx_setParameter(context_.get(), ZSTD_c_checksumFlag, 1);
  }

  std::string Frame(std::string_view plain) {
    index_.Take(plain);
    std::string frame = Compressed(plain);
    failed_ = failed_ || frame.empty();
    NoteFrame(frame.size(), plain.size());
    return frame;
  }

  // What follows the frames.
  std::string End() {
    const std::string index = Compressed(index_.Finish());
    failed_ = failed_ || index.empty();
    std::string bytes;
    PutNumber(bytes, INDEX_MAGIC, WORD);
    PutNumber(bytes, index.size(), WORD);
    bytes += index;
    NoteFrame(bytes.size(), 0);

    constexpr size_t FOOTER_SIZE = 9;
    constexpr char NO_FLAGS = 0;
    PutNumber(bytes, SEEK_TABLE_MAGIC, WORD);
    PutNumber(bytes, entries_.size() + FOOTER_SIZE, WORD);
    bytes += entries_;
    PutNumber(bytes, frames_, WORD);
    bytes += NO_FLAGS;
    PutNumber(bytes, SEEK_TABLE_END, WORD);
    return bytes;
  }

  // For want of memory. The room is what zstd needs at the worst, so there is no other reason.
  bool HasFailed() const { return failed_; }

 private:
  std::string Compressed(std::string_view plain) {
    if (!context_) return "";
    std::string bytes(ZSTD_compressBound(plain.size()), '\0');
    const size_t size =
        ZSTD_compress2(context_.get(), bytes.data(), bytes.size(), plain.data(), plain.size());
    bytes.resize(ZSTD_isError(size) != 0 ? 0 : size);
    return bytes;
  }
  void NoteFrame(size_t size, size_t plainSize) {
    PutNumber(entries_, size, WORD);
    PutNumber(entries_, plainSize, WORD);
    ++frames_;
  }

  std::unique_ptr<ZSTD_CCtx, size_t (*)(ZSTD_CCtx*)> context_;
  RecordIndex index_;
  std::string entries_;
  size_t frames_ = 0;
  bool failed_ = false;
};

// Writes what `plain` compresses to, and has it on the disk.
bool CompressTo(const OpenFile& draft, const OpenFile& plain) {
  Compressor compressor;
  std::string bytes;
  do {
    if (!plain.Read(bytes, FRAME_SIZE)) return false;
    if (!bytes.empty() && !draft.Write(compressor.Frame(bytes))) return false;
  } while (bytes.size() == FRAME_SIZE);
  const std::string end = compressor.End();
  if (compressor.HasFailed()) errno = ENOMEM;
  return !compressor.HasFailed() && draft.Write(end) && fsync(draft.get()) == 0;
}

// The first bytes of a compressed file, as far as they can be made out.
std::string Decompressed(std::string_view compressed, size_t room) {
  const std::unique_ptr<ZSTD_DCtx, size_t (*)(ZSTD_DCtx*)> context(ZSTD_createDCtx(), ZSTD_freeDCtx);
  std::string plain(room, '\0');
  ZSTD_inBuffer in{compressed.data(), compressed.size(), 0};
  ZSTD_outBuffer out{plain.data(), plain.size(), 0};
  size_t before = 1;
  while (out.pos < out.size && before != out.pos + in.pos) {
    before = out.pos + in.pos;
    if (ZSTD_isError(ZSTD_decompressStream(context.get(), &out, &in)) != 0) break;
  }
  plain.resize(out.pos);
  return plain;
}

#else

bool CompressTo(const OpenFile& /*draft*/, const OpenFile& /*plain*/) {
  errno = ENOSYS;
  return false;
}
std::string Decompressed(std::string_view /*compressed*/, size_t /*room*/) { return ""; }

#endif

bool HoldTheSame(const std::string& first, const std::string& second) {
  const OpenFile files[] = {OpenFile(OpenToRead(first)), OpenFile(OpenToRead(second))};
  std::string bytes[2];
  do {
    for (size_t i = 0; i < 2; ++i) {
      if (!files[i].IsOpen() || !files[i].Read(bytes[i], FRAME_SIZE)) return false;
    }
    if (bytes[0] != bytes[1]) return false;
  } while (bytes[0].size() == FRAME_SIZE);
  return true;
}

void BringDirectoryToDisk(const std::string& directory) {
  const OpenFile file(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (file.IsOpen()) fsync(file.get());
}

// Gives the draft the name `path` and fails where something has it. Every file system but those without hard
// links, as vfat, can do the first.
bool PlaceNew(const std::string& draft, const std::string& path) {
  if (link(draft.c_str(), path.c_str()) == 0) return true;
  if (errno == EEXIST) return false;
  return renameat2(AT_FDCWD, draft.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) == 0;
}

// What has the name already may be the same file from an earlier try.
std::string Place(const std::string& draft, const std::string& path) {
  if (!PlaceNew(draft, path)) {
    if (errno != EEXIST) return FailureOf(path);
    if (!HoldTheSame(draft, path)) return path + ": is there already and holds something else";
  }
  return "";
}

}  // namespace

bool CanCompress() {
#ifdef OZMO_HAS_ZSTD
  return true;
#else
  return false;
#endif
}

std::string CompressRecording(const std::string& path) {
  const size_t nameBegin = path.rfind('/') + 1;
  const std::string directory = nameBegin == 0 ? "." : path.substr(0, nameBegin);
  const std::string compressedPath = path + std::string(COMPRESSED_ENDING);
  const std::string draftPath = path.substr(0, nameBegin) + "." + compressedPath.substr(nameBegin) + ".draft";

  const OpenFile plain(OpenToRead(path));
  struct stat status {};
  if (!plain.IsOpen() || fstat(plain.get(), &status) != 0) return FailureOf(path);
  unlink(draftPath.c_str());  // of a run that was killed; the lock keeps others away
  OpenFile draft(
      open(draftPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (!draft.IsOpen()) return FailureOf(draftPath);
  std::string failure;
  const timespec times[] = {status.st_atim, status.st_mtim};
  if (fchmod(draft.get(), status.st_mode & ~mode_t{S_IFMT}) != 0 || !CompressTo(draft, plain) ||
      futimens(draft.get(), times) != 0 || !draft.Close()) {
    failure = FailureOf(compressedPath);
  }
  if (failure.empty()) failure = Place(draftPath, compressedPath);
  unlink(draftPath.c_str());
  if (!failure.empty()) return failure;
  BringDirectoryToDisk(directory);
  return unlink(path.c_str()) == 0 ? "" : FailureOf(path);
}

std::string NodeOfRecording(const std::string& path) {
  constexpr size_t HEAD_SIZE = 65536;
  const OpenFile file(OpenToRead(path));
  std::string head;
  if (!file.IsOpen() || !file.Read(head, HEAD_SIZE)) return "";
  if (NumberAt(head, 0) == FRAME_MAGIC) head = Decompressed(head, HEAD_SIZE);
  return NodeInHead(head);
}

}  // namespace ozmo::host_file
