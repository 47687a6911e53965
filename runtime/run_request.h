// What the command line asked for. Filled by the option parser, read by every later stage.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace ozmo {

// Bits of dataFlags, which are added and not or-ed: an option given twice cancels itself, and sixteen -mw add
// up to the bit of -vmrunix.
inline constexpr uint64_t REQUEST_MW = 0x40;
inline constexpr uint64_t REQUEST_VMRUNIX = 0x400;

enum class SizeUnit { INCHES = 0, CENTIMETRES = 1, PIXELS = 3 };
enum class GraphType { CSV = 0, POSTSCRIPT = 1, GIF = 2, JPEG = 3 };

struct RunRequest {
  uint64_t dataFlags = 0;  // which kinds of data files were named
  std::optional<std::string> dataFile;
  std::optional<std::string> graphFile;  // the output file
  std::string hostName;                  // -host, until a first pass finds the node name of the file
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
