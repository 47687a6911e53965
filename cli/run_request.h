// What the command line asked for. Filled by the option parser, read by the sequence of a run; no other
// folder knows it.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

#include "output/graph_job.h"

namespace ozmo {

// Bits of requestFlags. The first two are added and not or-ed: an option given twice cancels itself.
inline constexpr uint64_t REQUEST_MW = 0x40;
inline constexpr uint64_t REQUEST_VMRUNIX = 0x400;
inline constexpr uint64_t REQUEST_GRAPH_FILE = 0x40000;  // nothing asks for it

// What is marked "kept" is accepted, and nothing reads it.
struct RunRequest {
  int runMode = 0;  // 9 after -mw, 3 after -vmrunix; the last of the two wins; kept
  uint64_t requestFlags = 0;
  std::optional<std::string> mwFile;       // kept
  std::optional<std::string> vmrUnixFile;  // the data file
  std::optional<std::string> graphFile;    // the output file
  std::optional<std::string> beginText;    // as typed; kept
  std::optional<std::string> endText;      // as typed; kept
  std::string hostName;                    // -host, until a first pass finds the node name of the file
  std::optional<std::string> memoryFile;   // kept
  std::optional<std::tm> beginTime;
  std::optional<std::tm> endTime;
  double width = 0.0;
  double height = 0.0;
  SizeUnit sizeUnit = SizeUnit::INCHES;  // one unit for both sizes
  GraphType graphType = GraphType::CSV;
  std::optional<std::string> itemName;
  std::optional<std::string> overlayName;  // "graph name@trace label"
};

}  // namespace ozmo
