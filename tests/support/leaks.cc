// Where leaks are looked for.
#include <gtest/gtest.h>

// The leak sanitizer asks this at the end of a process (sanitizer/lsan_interface.h). The process of a death
// test ends in the middle of what it does, and looking for leaks takes ten times as long as all else in it.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" int __lsan_is_turned_off();
extern "C" int __lsan_is_turned_off() { return ::testing::internal::InDeathTestChild() ? 1 : 0; }
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
