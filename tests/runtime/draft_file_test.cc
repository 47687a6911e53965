#include "runtime/draft_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/support/signals.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

namespace fs = std::filesystem;
using ::testing::ExitedWithCode;
using ::testing::KilledBySignal;

class DraftFileTest : public ::testing::Test {
 protected:
  DraftFileTest() { testing::TakeSignalsAgain(); }

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

TEST_F(DraftFileTest, WhateverEndsTheRunTakesADraftAwayThatIsNotFinishedOrKept) {
  struct Case {
    std::function<void(DraftFile&)> first;
    int signal;  // 0: exit with 3
    bool stays;
  };
  const auto nothing = [](DraftFile&) {};
  const auto keep = [](DraftFile& draft) { draft.KeepOnExit(); };
  const auto finish = [](DraftFile& draft) { draft.Finish(); };
  for (const Case& row : {Case{nothing, SIGHUP, false},
                          {nothing, SIGINT, false},
                          {nothing, SIGTERM, false},
                          {nothing, 0, false},
                          {keep, 0, true},
                          {keep, SIGTERM, false},
                          {finish, 0, true},
                          {finish, SIGTERM, true}}) {
    const auto end = [&](DraftFile& draft) {
      row.first(draft);
      if (row.signal == 0) std::exit(3);
      raise(row.signal);
    };
    if (row.signal == 0) {
      EXPECT_EXIT(WatchAnd(end), ExitedWithCode(3), "");
    } else {
      EXPECT_EXIT(WatchAnd(end), KilledBySignal(row.signal), "");
    }
    EXPECT_EQ(fs::exists(path_), row.stays) << row.signal;
    fs::remove(path_);
  }
  WatchAnd(nothing);
  EXPECT_FALSE(fs::exists(path_)) << "in a run that goes on";
}

TEST_F(DraftFileTest, AnIgnoredSignalStaysIgnored) {
  const auto end = [](DraftFile& draft) {
    raise(SIGHUP);
    draft.Finish();
    std::exit(4);
  };
  EXPECT_EXIT((std::signal(SIGHUP, SIG_IGN), WatchAnd(end)), ExitedWithCode(4), "");
  EXPECT_TRUE(fs::exists(path_));
}

// A draft that was renamed, with another file in its place; one that a link leads to; a pipe.
TEST_F(DraftFileTest, OnlyTheFileItselfGoes) {
  WatchAnd([this](DraftFile&) {
    fs::rename(path_, directory_ / "moved");
    std::ofstream(path_) << "theirs";
  });
  EXPECT_TRUE(fs::exists(path_));
  fs::remove(path_);

  fs::create_symlink(directory_ / "target", path_);
  WatchAnd([](DraftFile&) {});
  EXPECT_TRUE(fs::is_symlink(path_));
  EXPECT_FALSE(fs::exists(directory_ / "target"));
  fs::remove(path_);

  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  const int pipe = open(path_.c_str(), O_RDWR);
  DraftFile().Watch(path_, pipe);
  EXPECT_TRUE(fs::exists(path_));
  close(pipe);
}

}  // namespace
}  // namespace ozmo
