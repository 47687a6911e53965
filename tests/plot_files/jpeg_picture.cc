#include "tests/plot_files/jpeg_picture.h"

#include <cstdio>
#include <cstdlib>

#include "runtime/stream.h"

// clang-format off
#include <jpeglib.h>
// clang-format on

namespace ozmo::testing {

std::vector<int> JpegPicture::At(unsigned x, unsigned y) const {
  const auto first = samples.begin() + (std::ptrdiff_t{y} * width + x) * components;
  return {first, first + components};
}

JpegPicture ReadJpeg(const std::string& path) {
  const Stream input(std::fopen(path.c_str(), "rb"));
  if (!input) {
    std::abort();
  }
  jpeg_error_mgr errors;
  jpeg_decompress_struct reader = {};
  reader.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&reader);
  jpeg_stdio_src(&reader, input.get());
  jpeg_read_header(&reader, TRUE);
  jpeg_start_decompress(&reader);

  JpegPicture picture;
  picture.width = reader.output_width;
  picture.height = reader.output_height;
  picture.components = reader.output_components;
  picture.progressive = reader.progressive_mode != FALSE;
  picture.lumaSampling = {reader.comp_info[0].h_samp_factor, reader.comp_info[0].v_samp_factor};
  picture.firstLumaStep = reader.quant_tbl_ptrs[0]->quantval[0];
  const size_t rowSize = size_t{picture.width} * static_cast<size_t>(picture.components);
  picture.samples.resize(rowSize * picture.height);
  while (reader.output_scanline < reader.output_height) {
    JSAMPROW row = picture.samples.data() + rowSize * reader.output_scanline;
    jpeg_read_scanlines(&reader, &row, 1);
  }
  jpeg_finish_decompress(&reader);
  jpeg_destroy_decompress(&reader);
  return picture;
}

}  // namespace ozmo::testing
