// The types of output file, one row each: what -type calls it, who writes it, and how libplot draws it.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "output/graph_job.h"
#include "output/temp_map.h"

namespace ozmo {

struct Runtime;

struct OutputType {
  GraphType type;
  std::array<std::string_view, 2> words;                 // as -type takes them
  void (*write)(const GraphJob& job, Runtime& runtime);  // to the job's file; failures are reported there

  // The rest is of drawn types.
  const char* plotter;  // libplot's name of it
  double dotsPerInch;   // that sizes are taken at
  int sideMax;          // of a bitmap, in dots; 0: the page isn't one
  // Makes the file from a temporary map that libplot has drawn; null: libplot draws the file.
  int (*finishMap)(TempMap& map, const GraphJob& job);
};

std::span<const OutputType> OutputTypes();
const OutputType& OutputTypeOf(GraphType type);

}  // namespace ozmo
