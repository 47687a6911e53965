// A JPEG file as a viewer sees it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace ozmo::testing {

struct JpegPicture {
  unsigned width = 0;
  unsigned height = 0;
  int components = 0;
  bool progressive = false;
  std::array<int, 2> lumaSampling = {};  // across and down, where chroma has 1
  int firstLumaStep = 0;                 // first entry of the luma quantization table
  std::vector<uint8_t> samples;          // row by row, `components` a dot

  // The samples of one dot.
  std::vector<int> At(unsigned x, unsigned y) const;
};

// Ends the process when the file is no whole JPEG.
JpegPicture ReadJpeg(const std::string& path);

}  // namespace ozmo::testing
