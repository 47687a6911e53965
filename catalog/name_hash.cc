#include "catalog/name_hash.h"

#include <sys/random.h>

#include <cstring>
#include <ctime>

namespace ozmo {
namespace {

constexpr uint64_t MULTIPLIER = 0x9E3779B97F4A7C15U;
constexpr size_t WORD = sizeof(uint64_t);

// Both halves of the product, folded: each bit of the state reaches all others.
uint64_t Mix(uint64_t state) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(state) * MULTIPLIER;
  return static_cast<uint64_t>(product) ^ static_cast<uint64_t>(product >> 64U);
}

uint64_t WordOf(const char* bytes, size_t count) {
  uint64_t word = 0;
  if (count > 0) std::memcpy(&word, bytes, count);  // an empty name may have no bytes to point at
  return word;
}

}  // namespace

uint64_t NameSeed() {
  static const uint64_t SEED = [] {
    uint64_t seed = 0;
    // Without a source of randomness the clock has to do: it differs from run to run as well.
    if (getrandom(&seed, sizeof(seed), GRND_NONBLOCK) != sizeof(seed)) {
      seed = static_cast<uint64_t>(std::clock());
    }
    return seed;
  }();
  return SEED;
}

uint64_t HashName(std::string_view name, uint64_t seed) {
  uint64_t state = Mix(seed ^ name.size());
  for (; name.size() > WORD; name.remove_prefix(WORD)) state = Mix(state ^ WordOf(name.data(), WORD)) + seed;
  return Mix(state ^ WordOf(name.data(), name.size()));
}

}  // namespace ozmo
