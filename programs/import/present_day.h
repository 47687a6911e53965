// What a directory has of a host's day: qtxl_<node>_<date>.dat_1 and on, each of them plain or compressed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ozmo::import {

struct PresentDay {
  std::string last;  // the path of its last file; empty: there is none
  std::string next;  // the first path that is free
  // When the last sample of that file ended, which an import says at the file's end; absent where something
  // else has written it.
  std::optional<int64_t> end;
};

PresentDay PresentDayOf(const std::string& directory, const std::string& node, const std::string& date);

}  // namespace ozmo::import
