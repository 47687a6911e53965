// What a catalog doesn't say: how the figures of an item come about.
#pragma once

#include <span>
#include <string_view>

namespace ozmo::items {

// Traces of a Top list: its ranks, and what follows them.
inline constexpr std::string_view RANKED = "ranked";

struct Description {
  std::string_view title;   // of the item, a run of blanks as one; DISK, ADAPTER, CPU-N in place of names
  std::string_view source;  // what the item is computed from
  std::string_view traces = {};  // of an item whose traces come at run time; empty: as in the catalog
  std::string_view platforms =
      {};                     // words of the platforms that it holds for; empty: all that no other row names
  std::string_view top = {};  // of an item whose top comes at run time; empty: as in the catalog
};

std::span<const Description> Descriptions();

// The description of an item on a platform; null if there is none.
const Description* FindDescription(std::string_view title, std::string_view platform);

}  // namespace ozmo::items
