// Compressed data files: any bytes as such a file, or as the index of one that is otherwise in order.
#include <zstd.h>

#include <cstdlib>

#include "fuzz/harness.h"
#include "readers/block_file.h"

namespace ozmo::fuzz {
namespace {

constexpr const char* NAME = "qtxl_f_2012Feb22.dat_1.zst";

std::string Compressed(std::string_view plain) {
  std::string bytes(ZSTD_compressBound(plain.size()), '\0');
  bytes.resize(ZSTD_compress(bytes.data(), bytes.size(), plain.data(), plain.size(), 1));
  return bytes;
}

void PutWord(std::string& bytes, size_t word) {
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(word >> shift);
}

// A file of two frames of `plain` and that index.
std::string FileWithIndex(std::string_view plain, std::string_view index) {
  const std::string frame = Compressed(plain);
  const std::string indexFrame = Compressed(index);
  std::string bytes = frame + frame;
  PutWord(bytes, 0x184D2A50);
  PutWord(bytes, indexFrame.size());
  bytes += indexFrame;
  PutWord(bytes, 0x184D2A5E);
  PutWord(bytes, 3 * 8 + 9);
  for (int i = 0; i < 2; ++i) {
    PutWord(bytes, frame.size());
    PutWord(bytes, plain.size());
  }
  PutWord(bytes, 8 + indexFrame.size());
  PutWord(bytes, 0);
  PutWord(bytes, 3);
  bytes += '\0';
  PutWord(bytes, 0x8F92EAB1);
  return bytes;
}

// Walks the file as a reader does: records by their lengths, with and without the index. Input decompresses
// to a lot more than it is; a walk of so many steps has met all there is to meet.
void Walk(bool usesMarks) {
  constexpr int MOST_STEPS = 1000;
  BlockFile file;
  if (file.Open(NAME) != OpenResult::DONE) return;
  for (int step = 0; step < MOST_STEPS && file.Left() > 0; ++step) {
    if (usesMarks) file.SkipUnmarked();
    const uint8_t* length = file.Read(2);
    if (length == nullptr) return;
    file.Skip(length[0] * 16 + length[1]);
  }
}

}  // namespace
}  // namespace ozmo::fuzz

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  constexpr std::string_view PLAIN =
      "What a recorder has written of a host, in so many words that frames differ.";
  const std::string_view input = TextOf(data, size);
  const bool isIndex = input.starts_with("ozmo1");
  WriteScratch(NAME, isIndex ? FileWithIndex(PLAIN, input) : std::string(input));
  Walk(false);
  Walk(true);
  if (isIndex) {  // an index that lies does no harm to who reads on without it
    ozmo::BlockFile file;
    if (file.Open(NAME) != ozmo::OpenResult::DONE || file.Size() != 2 * PLAIN.size()) std::abort();
    for (int i = 0; i < 2; ++i) {
      const uint8_t* bytes = file.Read(PLAIN.size());
      if (bytes == nullptr || TextOf(bytes, PLAIN.size()) != PLAIN) std::abort();
    }
  }
  return 0;
}
