#include "runtime/whole_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <vector>

#include "tests/end_to_end/process.h"
#include "tests/support/signals.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

namespace fs = std::filesystem;

class WholeFileTest : public ::testing::Test {
 protected:
  WholeFileTest() {
    testing::TakeSignalsAgain();
    EXPECT_EQ(WriteWholeFile({Path("file")}, "older"), "");
    fs::create_symlink(Path("file"), Path("link"));
  }

  std::string Path(const std::string& name) const { return directory_ / name; }
  std::string Text(const std::string& name) const { return ReadWholeFile(Path(name)); }
  long Files() const { return std::distance(fs::directory_iterator(directory_.path()), {}); }

  testing::TempDirectory directory_;
};

TEST_F(WholeFileTest, OlderFileStaysUntilTheNewOneIsWhole) {
  {
    WholeFile file;
    ASSERT_EQ(file.Open({Path("file")}), "");
    std::fputs("part", file.stream());
    std::fflush(file.stream());
    EXPECT_EQ(Text("file"), "older");
  }
  const auto writeAnd = [&](const std::function<void()>& end) {
    WholeFile file;
    if (!file.Open({Path("link"), LinkRule::FOLLOW, {}, true}).empty()) std::exit(9);
    end();
    std::fwrite(std::string(100'000, 'x').data(), 1, 100'000, file.stream());
    std::exit(file.Commit().empty() ? 0 : 3);
  };
  for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGXFSZ}) {
    const auto end = [&] {
      const rlimit limit{4096, 4096};
      signal == SIGXFSZ ? setrlimit(RLIMIT_FSIZE, &limit) : raise(signal);
    };
    EXPECT_EXIT(writeAnd(end), ::testing::KilledBySignal(signal), "");
    EXPECT_EQ(Text("file"), "older") << signal;
    EXPECT_EQ(Files(), 2) << signal;
  }
  EXPECT_EXIT(writeAnd([] {}), ::testing::ExitedWithCode(0), "");
  EXPECT_EQ(Text("file").size(), 100'000U);
  EXPECT_TRUE(fs::is_symlink(Path("link")));
  EXPECT_EQ(Files(), 2);
}

TEST_F(WholeFileTest, ManyAtATimeLeaveNoDraft) {
  std::vector<WholeFile> files(20);
  const auto open = [&] {
    for (WholeFile& file : files)
      EXPECT_EQ(file.Open({Path("n" + std::to_string(&file - files.data())), LinkRule::NEW}), "");
  };
  EXPECT_EXIT((open(), raise(SIGTERM)), ::testing::KilledBySignal(SIGTERM), "");
  EXPECT_EQ(Files(), 2);
  open();
  for (WholeFile& file : files) EXPECT_EQ(file.Commit(), "");
  EXPECT_EQ(Files(), 22);
}

TEST_F(WholeFileTest, LinksAndInputsAreKeptByTheRuleOfThePath) {
  EXPECT_EQ(WriteWholeFile({Path("link"), LinkRule::REPLACE}, "new"), "");
  EXPECT_EQ(Text("file"), "older");
  EXPECT_EQ(Text("link"), "new");
  EXPECT_FALSE(fs::is_symlink(Path("link")));

  const FileIdentity inputs[] = {*IdentityOf(Path("file"))};
  fs::create_symlink(Path("file"), Path("way"));
  fs::create_hard_link(Path("file"), Path("name"));
  for (const char* name : {"file", "way", "name"}) {
    EXPECT_EQ(WriteWholeFile({Path(name), LinkRule::FOLLOW, inputs}, "new"),
              Path(name) + " is read by this run and can't be its output file");
  }
  EXPECT_EQ(Text("file"), "older");

  EXPECT_EQ(WriteWholeFile({"/dev/full"}, "x"), "/dev/full: No space left on device");
  EXPECT_EQ(WriteWholeFile({directory_.path()}, "x"), directory_.path() + ": Is a directory");
  EXPECT_EQ(WriteWholeFile({Path("none/file")}, "x"), Path("none/file") + ": No such file or directory");
  if (geteuid() == 0) {
    ASSERT_EQ(lchown(Path("way").c_str(), 65534, 65534), 0);
    EXPECT_EQ(WriteWholeFile({Path("way")}, "x"),
              Path("way") + " is a link of another user, which isn't followed");
  }
}

TEST_F(WholeFileTest, RightsAreThoseOfTheOlderFileOrOfTheMask) {
  const mode_t mask = umask(027);
  chmod(Path("file").c_str(), 0604);
  for (const char* name : {"file", "new"}) EXPECT_EQ(WriteWholeFile({Path(name)}, ""), "");
  umask(mask);
  EXPECT_EQ(fs::status(Path("file")).permissions(), fs::perms{0604});
  EXPECT_EQ(fs::status(Path("new")).permissions(), fs::perms{0640});
}

}  // namespace
}  // namespace ozmo
