// Numbers that look random and are a function of what they belong to: seed, stream and step. They
// are the same on every machine and need no state.
#pragma once

#include <cstdint>
#include <string_view>

namespace ozmo::sample {

constexpr uint64_t MixBits(uint64_t value) {
  value += 0x9E3779B97F4A7C15U;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
  return value ^ (value >> 31);
}

// A stream of its own for a named thing and an index.
constexpr uint64_t StreamOf(uint64_t seed, std::string_view name, int index = 0) {
  uint64_t stream = MixBits(seed + static_cast<uint64_t>(index));
  for (char character : name) {
    stream = MixBits(stream ^ static_cast<unsigned char>(character));
  }
  return stream;
}

// 0 up to, not including, 1.
constexpr double NoiseAt(uint64_t stream, int64_t step) {
  return static_cast<double>(MixBits(stream ^ MixBits(static_cast<uint64_t>(step))) >> 11) * 0x1p-53;
}

// The same, wandering from one value to the next over `period` seconds.
constexpr double SmoothNoise(uint64_t stream, int64_t time, int period) {
  const int64_t step = time / period;
  const double share = static_cast<double>(time % period) / period;
  return NoiseAt(stream, step) * (1 - share) + NoiseAt(stream, step + 1) * share;
}

}  // namespace ozmo::sample
