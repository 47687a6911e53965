#include "runtime/memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <new>

#include "runtime/runtime.h"
#include "tests/support/environment.h"

// The address sanitizer would otherwise end the process itself where malloc returns null.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace ozmo {
namespace {

using testing::ScopedVariable;

// More than any machine has. Kept from the compiler, which knows that it can't work.
size_t HugeSize() {
  volatile size_t size = size_t{1} << 62;
  return size;
}

TEST(MemFailDeathTest, IssuesNoallocWithTheSizeAndEndsWithStatus0) {
  const ScopedVariable library("VELTRIX_LIBRARY", OZMO_SOURCE_DIR);
  Runtime runtime;
  MemAttach(runtime);
  const auto ended = ::testing::ExitedWithCode(0);
  EXPECT_EXIT(MemFail(-480), ended, "^VELTRIX-ERROR  Cannot allocate -480 bytes");
  EXPECT_EXIT(MemFail((int64_t{1} << 32) + 16), ended, "Cannot allocate 16 bytes");
  EXPECT_EXIT(MemFail(0x80000000), ended, "Cannot allocate -2147483648 bytes");
  EXPECT_EXIT(static_cast<void>(::operator new(HugeSize() + 7)), ended, "VELTRIX-ERROR.* 7 bytes");
  EXPECT_EXIT(static_cast<void>(::operator new[](HugeSize() + 7)), ended, "VELTRIX-ERROR.* 7 bytes");
  MemDetach();
}

TEST(MemFailDeathTest, ReportsWithoutARuntimeToo) {
  EXPECT_EXIT(static_cast<void>(::operator new(HugeSize() + 7)), ::testing::ExitedWithCode(EXIT_FAILURE),
              "Cannot allocate 7 bytes");
}

TEST(OperatorNew, ReturnsNullToWhoeverAsksForThat) {
  EXPECT_EQ(::operator new(HugeSize(), std::nothrow), nullptr);
  EXPECT_EQ(::operator new[](HugeSize(), std::nothrow), nullptr);
}

TEST(OperatorNew, KeepsAlignments) {
  void* storage = ::operator new (100, std::align_val_t{256});
  EXPECT_EQ(reinterpret_cast<uintptr_t>(storage) % 256, 0U);
  ::operator delete (storage, std::align_val_t{256});
}

}  // namespace
}  // namespace ozmo
