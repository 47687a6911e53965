#include "readers/compressed_file.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <vector>

#include "readers/file_kind.h"

#ifdef OZMO_HAS_ZSTD
#include <zstd.h>
#endif

namespace ozmo {
namespace {

constexpr uint32_t FRAME_MAGIC = 0xFD2FB528;
constexpr uint32_t SKIPPABLE_MAGIC = 0x184D2A50;  // of type 0; the low four bits are the type
constexpr size_t MAGIC_SIZE = 4;

// A little-endian number.
uint64_t NumberAt(const uint8_t* bytes, size_t size) {
  uint64_t number = 0;
  for (size_t i = size; i > 0; --i) number = number << 8U | bytes[i - 1];
  return number;
}
uint32_t WordAt(const uint8_t* bytes) { return static_cast<uint32_t>(NumberAt(bytes, sizeof(uint32_t))); }

// Fills `bytes` from `place` on; false where the file ends before or can't be read.
bool ReadExactly(int file, uint8_t* bytes, size_t size, int64_t place) {
  while (size > 0) {
    const ssize_t got = pread(file, bytes, size, place);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    bytes += got;
    place += got;
    size -= static_cast<size_t>(got);
  }
  return true;
}

}  // namespace

bool CompressedFile::Is(const std::string& path, int file) {
  uint8_t magic[MAGIC_SIZE];
  if (!path.ends_with(COMPRESSED_ENDING) || !ReadExactly(file, magic, sizeof magic, 0)) return false;
  const uint32_t number = WordAt(magic);
  return number == FRAME_MAGIC || (number & ~uint32_t{15}) == SKIPPABLE_MAGIC;
}

#ifdef OZMO_HAS_ZSTD

namespace {

constexpr size_t SKIPPABLE_HEADER_SIZE = 8;  // magic and size
constexpr uint32_t SEEK_TABLE_MAGIC = SKIPPABLE_MAGIC + 14;
constexpr uint32_t SEEK_TABLE_END = 0x8F92EAB1;
constexpr size_t SEEK_TABLE_FOOTER_SIZE = 9;  // number of frames, flags, SEEK_TABLE_END
constexpr uint8_t SEEK_TABLE_HAS_CHECKSUMS = 0x80;
constexpr uint32_t MOST_FRAMES = 1U << 20U;

constexpr std::string_view INDEX_TITLE = "ozmo1";
constexpr uint64_t LARGEST_INDEX = uint64_t{64} << 20U;
constexpr size_t MARK_HEADER_SIZE = 12;  // place and size

}  // namespace

struct CompressedFile::State {
  // A frame, by where it begins in the compressed and in the plain file.
  struct Frame {
    int64_t place = 0;
    int64_t plainPlace = 0;
  };
  static bool BeginsBefore(const Frame& frame, int64_t place) { return frame.plainPlace < place; }

  // A record of the index; its bytes are in the index from `begin` on.
  struct Mark {
    int64_t place = 0;
    size_t size = 0;
    size_t begin = 0;
  };

  explicit State(int wantedFile)
      : file(wantedFile), decoder(ZSTD_createDCtx(), ZSTD_freeDCtx), input(ZSTD_DStreamInSize()) {}

  void ReadSeekTable();
  void ReadIndex();
  bool TakeIndex(std::vector<uint8_t> bytes);
  // The mark that holds `place`, or null.
  const Mark* MarkAt(int64_t place) const;

  int64_t Fail(const char* reason) {
    failure = reason;
    return -1;
  }
  void BeginAt(const Frame& frame);
  // Moves the decoder to `place`; false on a fault or where the file ends before.
  bool GoTo(int64_t place);
  int64_t Decode(uint8_t* bytes, size_t room);
  bool FillInput();
  // Whether a frame may end at that place of the plain file.
  bool IsEndOfFrame(int64_t place) const {
    const auto found = std::lower_bound(frames.begin(), frames.end(), place, BeginsBefore);
    return frames.empty() || (found != frames.end() && found->plainPlace == place);
  }

  int file;
  const char* failure = "";

  std::vector<Frame> frames;  // those of data, and the end; empty without a seek table
  Frame indexFrame;           // where the index is, up to the seek table
  int64_t indexEnd = 0;
  bool indexIsRead = false;
  std::vector<uint8_t> index;
  std::vector<Mark> marks;  // by place

  std::unique_ptr<ZSTD_DCtx, size_t (*)(ZSTD_DCtx*)> decoder;
  std::vector<uint8_t> input;
  size_t inputNext = 0;
  size_t inputEnd = 0;
  int64_t inputPlace = 0;  // in the compressed file, of what follows the input
  int64_t plainPlace = 0;  // in the plain file, of what the decoder gives next
  bool isInFrame = false;
  std::vector<uint8_t> discarded;
};

// A table that doesn't fit the file is passed over: then the file is read as any other.
void CompressedFile::State::ReadSeekTable() {
  const off_t fileSize = lseek(file, 0, SEEK_END);
  uint8_t footer[SEEK_TABLE_FOOTER_SIZE];
  const int64_t footerPlace = fileSize - static_cast<int64_t>(sizeof footer);
  if (footerPlace < 0 || !ReadExactly(file, footer, sizeof footer, footerPlace)) return;
  const uint32_t count = WordAt(footer);
  if (WordAt(footer + 5) != SEEK_TABLE_END || count > MOST_FRAMES) return;
  const size_t entrySize = (footer[4] & SEEK_TABLE_HAS_CHECKSUMS) != 0 ? 12 : 8;
  const size_t contentSize = count * entrySize + sizeof footer;
  const int64_t tablePlace = fileSize - static_cast<int64_t>(contentSize + SKIPPABLE_HEADER_SIZE);
  std::vector<uint8_t> table(contentSize + SKIPPABLE_HEADER_SIZE);
  if (tablePlace < 0 || !ReadExactly(file, table.data(), table.size(), tablePlace)) return;
  if (WordAt(table.data()) != SEEK_TABLE_MAGIC) return;
  if (WordAt(table.data() + MAGIC_SIZE) != contentSize) return;

  std::vector<Frame> found(1);
  for (size_t i = 0; i < count; ++i) {
    const uint8_t* entry = table.data() + SKIPPABLE_HEADER_SIZE + i * entrySize;
    Frame next = found.back();
    next.place += WordAt(entry);
    next.plainPlace += WordAt(entry + 4);
    found.push_back(next);
  }
  if (found.back().place != tablePlace) return;
  // Frames without data hold none that is asked for; the last may be the index.
  indexEnd = tablePlace;
  while (found.size() > 1 && found[found.size() - 2].plainPlace == found.back().plainPlace) {
    found.pop_back();
    indexFrame = found.back();
  }
  frames = std::move(found);
}

void CompressedFile::State::ReadIndex() {
  indexIsRead = true;
  const int64_t size = indexEnd - indexFrame.place;
  if (indexFrame.plainPlace == 0 || size <= static_cast<int64_t>(SKIPPABLE_HEADER_SIZE)) return;
  if (size > static_cast<int64_t>(LARGEST_INDEX)) return;
  std::vector<uint8_t> bytes(static_cast<size_t>(size));
  if (!ReadExactly(file, bytes.data(), bytes.size(), indexFrame.place)) return;
  if (WordAt(bytes.data()) != SKIPPABLE_MAGIC) return;
  const uint8_t* frame = bytes.data() + SKIPPABLE_HEADER_SIZE;
  const size_t frameSize = bytes.size() - SKIPPABLE_HEADER_SIZE;
  // Also more than any index where the frame doesn't say its size, or is none.
  const uint64_t plainSize = ZSTD_getFrameContentSize(frame, frameSize);
  if (plainSize > LARGEST_INDEX) return;
  std::vector<uint8_t> content(plainSize);
  const size_t got = ZSTD_decompress(content.data(), content.size(), frame, frameSize);
  if (ZSTD_isError(got) == 0 && got == content.size() && TakeIndex(std::move(content))) return;
  marks.clear();
}

// False where the index doesn't hold together.
bool CompressedFile::State::TakeIndex(std::vector<uint8_t> bytes) {
  index = std::move(bytes);
  const std::string_view text(reinterpret_cast<const char*>(index.data()), index.size());
  if (!text.starts_with(INDEX_TITLE)) return false;
  const auto plainSize = static_cast<uint64_t>(frames.back().plainPlace);
  uint64_t end = 0;  // of the mark before
  for (size_t next = INDEX_TITLE.size(); next < index.size();) {
    if (index.size() - next < MARK_HEADER_SIZE) return false;
    const uint64_t place = NumberAt(index.data() + next, sizeof(uint64_t));
    const size_t size = WordAt(index.data() + next + 8);
    next += MARK_HEADER_SIZE;
    if (size > index.size() - next || place < end || place > plainSize || size > plainSize - place)
      return false;
    marks.push_back({static_cast<int64_t>(place), size, next});
    next += size;
    end = place + size;
  }
  return true;
}

const CompressedFile::State::Mark* CompressedFile::State::MarkAt(int64_t place) const {
  const auto after = std::upper_bound(marks.begin(), marks.end(), place,
                                      [](int64_t wanted, const Mark& mark) { return wanted < mark.place; });
  if (after == marks.begin()) return nullptr;
  const Mark& mark = *std::prev(after);
  return place - mark.place < static_cast<int64_t>(mark.size) ? &mark : nullptr;
}

void CompressedFile::State::BeginAt(const Frame& frame) {
  ZSTD_DCtx_reset(decoder.get(), ZSTD_reset_session_only);
  inputNext = 0;
  inputEnd = 0;
  inputPlace = frame.place;
  plainPlace = frame.plainPlace;
  isInFrame = false;
}

bool CompressedFile::State::GoTo(int64_t place) {
  if (place == plainPlace) return true;
  if (!frames.empty()) {
    const auto after =
        std::upper_bound(frames.begin(), frames.end(), place,
                         [](int64_t wanted, const Frame& frame) { return wanted < frame.plainPlace; });
    const Frame& frame = *std::prev(after);
    if (place < plainPlace || frame.plainPlace > plainPlace) BeginAt(frame);
  }
  discarded.resize(ZSTD_DStreamOutSize());
  while (plainPlace < place) {
    const int64_t wanted = std::min(place - plainPlace, static_cast<int64_t>(discarded.size()));
    if (Decode(discarded.data(), static_cast<size_t>(wanted)) <= 0) return false;
  }
  return true;
}

bool CompressedFile::State::FillInput() {
  const ssize_t got = pread(file, input.data(), input.size(), inputPlace);
  if (got < 0 && errno == EINTR) return FillInput();
  inputNext = 0;
  inputEnd = static_cast<size_t>(std::max<ssize_t>(got, 0));
  inputPlace += static_cast<int64_t>(inputEnd);
  if (got < 0) failure = std::strerror(errno);
  return got > 0;
}

// The next bytes of the plain file, as Read gives them.
int64_t CompressedFile::State::Decode(uint8_t* bytes, size_t room) {
  failure = "";
  ZSTD_outBuffer out{bytes, room, 0};
  while (out.pos == 0) {
    if (!frames.empty() && plainPlace >= frames.back().plainPlace) return 0;
    // Also without input, as the decoder may hold some of the last.
    ZSTD_inBuffer in{input.data(), inputEnd, inputNext};
    const size_t left = ZSTD_decompressStream(decoder.get(), &out, &in);
    if (ZSTD_isError(left) != 0) return Fail(ZSTD_getErrorName(left));
    if (left == 0 && !IsEndOfFrame(plainPlace + static_cast<int64_t>(out.pos))) {
      return Fail("the seek table doesn't fit the data");
    }
    if (left == 0 || in.pos > inputNext) isInFrame = left != 0;
    inputNext = in.pos;
    if (out.pos == 0 && inputNext == inputEnd && !FillInput()) {
      if (*failure != '\0') return -1;
      return isInFrame || !frames.empty() ? Fail("the compressed data end too early") : 0;
    }
  }
  plainPlace += static_cast<int64_t>(out.pos);
  return static_cast<int64_t>(out.pos);
}

CompressedFile::CompressedFile(int file) : state_(std::make_unique<State>(file)) { state_->ReadSeekTable(); }

int64_t CompressedFile::Size() const {
  return state_->frames.empty() ? UNKNOWN_SIZE : state_->frames.back().plainPlace;
}

int64_t CompressedFile::Read(uint8_t* bytes, size_t room, int64_t place) {
  if (place != state_->plainPlace) {
    if (const State::Mark* mark = state_->MarkAt(place); mark != nullptr) {
      const auto passed = static_cast<size_t>(place - mark->place);
      const size_t size = std::min(room, mark->size - passed);
      std::memcpy(bytes, state_->index.data() + mark->begin + passed, size);
      return static_cast<int64_t>(size);
    }
    if (!state_->GoTo(place)) return *state_->failure == '\0' ? 0 : -1;
  }
  return state_->Decode(bytes, room);
}

const char* CompressedFile::Failure() const { return state_->failure; }

int64_t CompressedFile::NextMark(int64_t place) {
  if (!state_->indexIsRead) state_->ReadIndex();
  if (state_->marks.empty()) return place;
  const auto next =
      std::lower_bound(state_->marks.begin(), state_->marks.end(), place,
                       [](const State::Mark& mark, int64_t wanted) { return mark.place < wanted; });
  return next == state_->marks.end() ? Size() : next->place;
}

#else

// Built without libzstd.
struct CompressedFile::State {};
CompressedFile::CompressedFile(int /*file*/) {}
int64_t CompressedFile::Size() const { return UNKNOWN_SIZE; }
int64_t CompressedFile::Read(uint8_t* /*bytes*/, size_t /*room*/, int64_t /*place*/) { return -1; }
const char* CompressedFile::Failure() const {
  return "it is compressed, and this program was built without libzstd";
}
int64_t CompressedFile::NextMark(int64_t place) { return place; }

#endif

CompressedFile::~CompressedFile() = default;

}  // namespace ozmo
