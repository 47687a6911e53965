// Hashes of names from data files, so that names can be looked up without making a text first.
//
// The names come from anywhere, so the hash has a seed of the run: nobody can write a file whose names all
// meet in one place.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace ozmo {

// Of this run, and of no other.
uint64_t NameSeed();

uint64_t HashName(std::string_view name, uint64_t seed);

struct NameHash {
  using is_transparent = void;
  size_t operator()(std::string_view name) const { return HashName(name, seed); }
  uint64_t seed = NameSeed();
};

template <class Value>
using NameTable = std::unordered_map<std::string, Value, NameHash, std::equal_to<>>;

}  // namespace ozmo
