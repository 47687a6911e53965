#include "runtime/library_path.h"

#include <gtest/gtest.h>

#include "runtime/runtime.h"
#include "tests/support/environment.h"

namespace ozmo {
namespace {

using testing::ScopedVariable;

TEST(LibraryDirectory, EndsInOneSlashHoweverTheVariableIsWritten) {
  for (const auto& [value, directory] : {std::pair("/opt/v", "/opt/v/"), {"/opt/v/", "/opt/v/"}, {"", "/"}}) {
    const ScopedVariable library("VELTRIX_LIBRARY", value);
    Runtime runtime;
    EXPECT_EQ(LibraryDirectory(runtime), directory);
  }
}

TEST(LibraryDirectory, KeepsTheFirstValueItFound) {
  Runtime runtime;
  const ScopedVariable first("VELTRIX_LIBRARY", "/first");
  LibraryDirectory(runtime);
  const ScopedVariable second("VELTRIX_LIBRARY", "/second");
  EXPECT_EQ(LibraryDirectory(runtime), "/first/");
}

TEST(LibraryDirectory, FallsBackToTheDefaultRoot) {
  const ScopedVariable library("VELTRIX_LIBRARY", std::nullopt);
  Runtime runtime;
  EXPECT_EQ(LibraryDirectory(runtime), OZMO_LIBRARY_DIRECTORY "/");
}

}  // namespace
}  // namespace ozmo
