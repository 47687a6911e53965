#include "runtime/memory.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "runtime/messages.h"
#include "runtime/process_end.h"
#include "runtime/runtime.h"

namespace ozmo {
namespace {

constexpr int MORE_TRIES = 5;
constexpr size_t RESERVE_SIZE = 65536;  // what the message itself needs when nothing else is left

// The one state of the process that isn't handed down: operator new has no argument that could carry it.
struct FailureState {
  Runtime* runtime = nullptr;
  void* reserve = nullptr;
  int exitStatus = 0;
  bool failing = false;
};

constinit FailureState failureState;

void* AllocateOnce(size_t size, size_t alignment) {
  if (size == 0) size = 1;
  if (alignment <= alignof(std::max_align_t)) return std::malloc(size);
  void* storage = nullptr;
  return posix_memalign(&storage, alignment, size) == 0 ? storage : nullptr;
}

void* Allocate(size_t size, size_t alignment = 0) {
  for (int attempt = 0; attempt <= MORE_TRIES; ++attempt) {
    if (void* storage = AllocateOnce(size, alignment)) return storage;
  }
  MemFail(static_cast<int64_t>(size));
}

}  // namespace

void MemAttach(Runtime& runtime, int exitStatus) {
  failureState.runtime = &runtime;
  failureState.exitStatus = exitStatus;
  if (failureState.reserve == nullptr) failureState.reserve = std::malloc(RESERVE_SIZE);
}

void MemDetach() {
  failureState.runtime = nullptr;
  failureState.exitStatus = 0;
  std::free(failureState.reserve);
  failureState.reserve = nullptr;
}

void MemFail(int64_t size) {
  const auto shownSize = static_cast<int32_t>(size);  // sizes are shown in 32 bits
  if (failureState.runtime != nullptr && !failureState.failing) {
    failureState.failing = true;
    std::free(failureState.reserve);
    failureState.reserve = nullptr;
    MessageEmit(*failureState.runtime, "NOALLOC", {static_cast<long long>(shownSize)});
  } else {
    std::fprintf(stderr, "Cannot allocate %d bytes\n", shownSize);
  }
  EndProcess(failureState.runtime == nullptr ? EXIT_FAILURE : failureState.exitStatus);
}

}  // namespace ozmo

// The whole family is replaced, so that storage is always given back the way it was got.

void* operator new(size_t size) { return ozmo::Allocate(size); }
void* operator new[](size_t size) { return ozmo::Allocate(size); }
void* operator new(size_t size, std::align_val_t alignment) {
  return ozmo::Allocate(size, static_cast<size_t>(alignment));
}
void* operator new[](size_t size, std::align_val_t alignment) {
  return ozmo::Allocate(size, static_cast<size_t>(alignment));
}

// Whoever asks with nothrow copes with a null.
void* operator new(size_t size, const std::nothrow_t&) noexcept { return ozmo::AllocateOnce(size, 0); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return ozmo::AllocateOnce(size, 0); }
void* operator new(size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return ozmo::AllocateOnce(size, static_cast<size_t>(alignment));
}
void* operator new[](size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return ozmo::AllocateOnce(size, static_cast<size_t>(alignment));
}

void operator delete(void* storage) noexcept { std::free(storage); }
void operator delete[](void* storage) noexcept { std::free(storage); }
void operator delete(void* storage, size_t) noexcept { std::free(storage); }
void operator delete[](void* storage, size_t) noexcept { std::free(storage); }
void operator delete(void* storage, std::align_val_t) noexcept { std::free(storage); }
void operator delete[](void* storage, std::align_val_t) noexcept { std::free(storage); }
void operator delete(void* storage, size_t, std::align_val_t) noexcept { std::free(storage); }
void operator delete[](void* storage, size_t, std::align_val_t) noexcept { std::free(storage); }
void operator delete(void* storage, const std::nothrow_t&) noexcept { std::free(storage); }
void operator delete[](void* storage, const std::nothrow_t&) noexcept { std::free(storage); }
void operator delete(void* storage, std::align_val_t, const std::nothrow_t&) noexcept { std::free(storage); }
void operator delete[](void* storage, std::align_val_t, const std::nothrow_t&) noexcept {
  std::free(storage);
}
