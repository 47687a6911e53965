#include "runtime/draft_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

namespace fs = std::filesystem;
using ::testing::ExitedWithCode;
using ::testing::KilledBySignal;

class DraftFileTest : public ::testing::Test {
 protected:
  // Makes the file and has it watched, in a process that then ends as `end` does.
  template <typename End>
  void WatchAnd(End end) {
    const int file = open(path_.c_str(), O_WRONLY | O_CREAT, 0600);
    DraftFile draft;
    draft.Watch(path_, file);
    end(draft);
  }

  testing::TempDirectory directory_;
  std::string path_ = directory_ / "file";
};

TEST_F(DraftFileTest, WhateverEndsTheRunTakesTheDraftAway) {
  const auto stop = [](int signal) { return [signal](DraftFile&) { raise(signal); }; };
  for (int signal : {SIGHUP, SIGINT, SIGTERM, SIGXCPU, SIGXFSZ}) {
    EXPECT_EXIT(WatchAnd(stop(signal)), KilledBySignal(signal), "");
    EXPECT_FALSE(fs::exists(path_)) << signal;
  }
  EXPECT_EXIT(WatchAnd([](DraftFile&) { std::exit(3); }), ExitedWithCode(3), "");
  EXPECT_FALSE(fs::exists(path_));
  WatchAnd([](DraftFile&) {});
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(DraftFileTest, WhatIsFinishedStays) {
  WatchAnd([](DraftFile& draft) { draft.Finish(); });
  EXPECT_TRUE(fs::exists(path_));
}

TEST_F(DraftFileTest, OnceItIsKeptOnExitOnlyASignalTakesItAway) {
  const auto keepAnd = [](void (*end)()) {
    return [end](DraftFile& draft) {
      draft.KeepOnExit();
      end();
    };
  };
  EXPECT_EXIT(WatchAnd(keepAnd([] { std::exit(3); })), ExitedWithCode(3), "");
  EXPECT_TRUE(fs::exists(path_));
  EXPECT_EXIT(WatchAnd(keepAnd([] { raise(SIGTERM); })), KilledBySignal(SIGTERM), "");
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(DraftFileTest, AnIgnoredSignalStaysIgnored) {
  EXPECT_EXIT(
      {
        std::signal(SIGHUP, SIG_IGN);
        WatchAnd([](DraftFile& draft) {
          raise(SIGHUP);
          draft.Finish();
          std::exit(4);
        });
      },
      ExitedWithCode(4), "");
  EXPECT_TRUE(fs::exists(path_));
}

TEST_F(DraftFileTest, AnotherFileOfTheNameStays) {
  WatchAnd([this](DraftFile&) {
    fs::rename(path_, directory_ / "moved");
    std::ofstream(path_) << "theirs";
  });
  EXPECT_TRUE(fs::exists(path_));
}

TEST_F(DraftFileTest, BehindALinkTheFileGoesAndNotTheLink) {
  fs::create_symlink(directory_ / "target", path_);
  WatchAnd([](DraftFile&) {});
  EXPECT_TRUE(fs::is_symlink(path_));
  EXPECT_FALSE(fs::exists(directory_ / "target"));
}

TEST_F(DraftFileTest, ADeviceStays) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  const int file = open(path_.c_str(), O_RDWR);
  {
    DraftFile draft;
    draft.Watch(path_, file);
  }
  EXPECT_TRUE(fs::exists(path_));
  close(file);
}

}  // namespace
}  // namespace ozmo
