#include "runtime/library_path.h"

#include <gtest/gtest.h>

#include "runtime/runtime.h"
#include "tests/support/environment.h"

namespace ozmo {
namespace {

using testing::ScopedVariable;

TEST(LibraryDirectory, EndsInOneSlashAndKeepsItsFirstValue) {
  for (const auto& [value, directory] : {std::pair("/opt/v", "/opt/v/"), {"/opt/v/", "/opt/v/"}, {"", "/"}}) {
    const ScopedVariable library("VELTRIX_LIBRARY", value);
    Runtime runtime;
    EXPECT_EQ(LibraryDirectory(runtime, "veltrix"), directory);
    const ScopedVariable second("VELTRIX_LIBRARY", "/second");
    EXPECT_EQ(LibraryDirectory(runtime, "veltrix"), directory);
  }
}

TEST(LibraryDirectory, FallsBackToTheVariableOfItsKindAndToTheDefaultRoot) {
  const ScopedVariable library("VELTRIX_LIBRARY", std::nullopt);
  const ScopedVariable other("NABBER_LIBRARY", "/nabber");
  Runtime runtime;
  EXPECT_EQ(LibraryPathGet(runtime), OZMO_LIBRARY_DIRECTORY "/");
  Runtime second;
  EXPECT_EQ(LibraryDirectory(second, "nabber"), "/nabber/");
}

TEST(VersionText, LeavesOutABlankPatchLetterAndMarksOtherLetters) {
  EXPECT_EQ(ProductIdentityInit().versionText, "V10.0-001");
  EXPECT_EQ(VersionText('T', 9, 2, '\0', 12), "T9.2-012");
  EXPECT_EQ(VersionText('V', 9, 2, 'b', 3), "V9.2b-003");
  EXPECT_EQ(VersionText('X', 9, 2, ' ', 3), "X9.2-003 001");
}

}  // namespace
}  // namespace ozmo
