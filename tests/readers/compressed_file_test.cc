// Data files that are there compressed read as the plain ones, whoever has compressed them.
#include "readers/compressed_file.h"

#include <gtest/gtest.h>
#include <zstd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "programs/host_file/compressed_recording.h"
#include "programs/sample/kinds.h"
#include "readers/data_reader.h"
#include "runtime/runtime.h"
#include "tests/support/environment.h"
#include "tests/support/interval_text.h"
#include "tests/support/sample_day.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

constexpr Seconds TEN = NOON - 2 * 3600;

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

void Write(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// As `zstd FILE` writes it, or as `zstd < FILE`, which doesn't know the size beforehand.
std::string Compressed(const std::string& plain, bool saysSize = true) {
  ZSTD_CCtx* context = ZSTD_createCCtx();
  ZSTD_CCtx_setParameter(context, ZSTD_c_contentSizeFlag, saysSize ? 1 : 0);
  std::string bytes(ZSTD_compressBound(plain.size()), '\0');
  bytes.resize(ZSTD_compress2(context, bytes.data(), bytes.size(), plain.data(), plain.size()));
  ZSTD_freeCCtx(context);
  return bytes;
}

class CompressedFileTest : public ::testing::Test {
 protected:
  std::vector<std::string> Sample(const sample::SampleKind& kind, int hours, int interval, int files = 1) {
    sample::SampleOptions options;
    options.directory = directory_.path();
    options.startHour = 9;
    options.hours = hours;
    options.intervalSeconds = interval;
    options.filesPerDay = files;
    options.replace = true;
    return sample::WriteSample(kind, options).files;
  }

  // All that a walk of an hour delivers, a text a record.
  static std::vector<std::string> Walk(const std::string& path, Seconds begin = TEN) {
    Runtime runtime;
    DataReader reader(path, runtime);
    VmrContext context;
    std::vector<std::string> texts;
    if (const std::optional<FileHead>& head = reader.Head()) {
      context.nodeName = head->nodeName;
      texts.push_back(head->nodeName + " " + std::to_string(head->firstRecordTime));
    }
    context.periodStart = begin;
    context.periodEnd = begin + 3600;
    reader.Open(context);
    while (reader.Next(context) == ReaderResult::DONE) {
      texts.push_back(std::to_string(context.periodEnd));
      for (std::string& text : IntervalTexts(context, true)) texts.push_back(std::move(text));
    }
    return texts;
  }

  ScopedVariable zone_{"TZ", "UTC"};
  TempDirectory directory_;
};

TEST_F(CompressedFileTest, EveryKindReadsAsThePlainFile) {
  for (const sample::SampleKind* kind : sample::SampleKinds()) {
    const std::vector<std::string> files = Sample(*kind, 3, 600, 2);
    const std::vector<std::string> plain = Walk(files[0]);
    EXPECT_GT(plain.size(), 50U) << kind->name;
    for (const bool saysSize : {true, false}) {
      for (const std::string& file : files) Write(file + ".zst", Compressed(BytesOf(file), saysSize));
      std::filesystem::rename(files[0], directory_ / "away");
      EXPECT_EQ(Walk(files[0]), plain) << kind->name;
      EXPECT_EQ(Walk(files[0] + ".zst"), plain) << kind->name;
      std::filesystem::rename(directory_ / "away", files[0]);
    }
    // The plain one is taken where it is there.
    Write(files[0] + ".zst", "no file of any kind");
    EXPECT_EQ(Walk(files[1] + ".zst"), Walk(files[1])) << kind->name;
  }
}

TEST_F(CompressedFileTest, ARecordingReadsFromTheMiddle) {
  const std::string file = Sample(sample::linux_sample::KIND, 5, 60)[0];
  const std::vector<std::string> plain = Walk(file, NOON);
  ASSERT_EQ(host_file::CompressRecording(file), "");
  ASSERT_FALSE(std::filesystem::exists(file));
  EXPECT_EQ(Walk(file, NOON), plain);

  // Damage in an hour before changes nothing. With the seek table cut off it is met, and so it is in the
  // hour.
  std::string bytes = BytesOf(file + ".zst");
  const std::string whole = bytes;
  bytes[bytes.size() / 7] = static_cast<char>(~bytes[bytes.size() / 7]);
  Write(file + ".zst", bytes);
  EXPECT_EQ(Walk(file, NOON), plain);
  bytes.resize(bytes.size() - 1);
  Write(file + ".zst", bytes);
  ::testing::internal::CaptureStderr();
  EXPECT_LT(Walk(file, NOON).size(), plain.size());
  EXPECT_NE(::testing::internal::GetCapturedStderr().find("Can't read file " + file + ".zst: "),
            std::string::npos);

  // Without its end the file reads all the same, as far as it goes.
  Write(file + ".zst", whole.substr(0, whole.size() - 1));
  EXPECT_EQ(Walk(file, NOON), plain);
  Write(file + ".zst", whole.substr(0, whole.size() / 3));
  EXPECT_NE(Walk(file, NOON), plain);
}

TEST_F(CompressedFileTest, ASmallFileThatOpensToTerabytesEnds) {
  const std::string file = Sample(sample::linux_sample::KIND, 1, 600)[0];
  const std::string zeros = Compressed(std::string(size_t{8} << 20U, '\0'));
  std::string bytes = Compressed(BytesOf(file));
  for (int i = 0; i < 100'000; ++i) bytes += zeros;  // 800 GB
  const std::vector<std::string> plain = Walk(file);
  std::filesystem::remove(file);
  Write(file + ".zst", bytes);
  EXPECT_EQ(Walk(file), plain);
}

}  // namespace
}  // namespace ozmo::testing
