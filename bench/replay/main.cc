// The least program that draws a picture: the statements of CALLS, and for a JPEG the compression of the map
// that they leave. bench/compare compiles it for each picture.
#include <cstdio>
#include <cstdlib>
#include <vector>

// clang-format off
#include <plot.h>
#include <jpeglib.h>
// clang-format on

namespace {

// At the library's defaults, as `output` leaves it: a raw portable map after three numbers.
void Compress(std::FILE* map, std::FILE* target) {
  jpeg_compress_struct compressor;
  jpeg_error_mgr errors;
  compressor.err = jpeg_std_error(&errors);
  jpeg_create_compress(&compressor);
  unsigned width = 0;
  unsigned height = 0;
  int c = std::getc(map);  // of "P6"
  if (std::getc(map) != '6') std::exit(EXIT_FAILURE);
  while ((c = std::getc(map)) == '\n') continue;
  while (c == '#') {
    while (std::getc(map) != '\n') continue;
    c = std::getc(map);
  }
  std::ungetc(c, map);
  if (std::fscanf(map, "%u %u 255", &width, &height) != 2) std::exit(EXIT_FAILURE);
  std::getc(map);
  jpeg_stdio_dest(&compressor, target);
  compressor.image_width = width;
  compressor.image_height = height;
  compressor.input_components = 3;
  compressor.in_color_space = JCS_RGB;
  jpeg_set_defaults(&compressor);
  jpeg_start_compress(&compressor, TRUE);
  std::vector<JSAMPLE> row(size_t{width} * 3);
  JSAMPROW rows[] = {row.data()};
  while (compressor.next_scanline < height && std::fread(row.data(), 1, row.size(), map) == row.size())
    jpeg_write_scanlines(&compressor, rows, 1);
  jpeg_finish_compress(&compressor);
  jpeg_destroy_compress(&compressor);
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc < 2) return EXIT_SUCCESS;  // loads the libraries, and does nothing
  std::FILE* output = std::fopen(argv[1], "w+");
  if (output == nullptr) return EXIT_FAILURE;
#include CALLS
  if (argc < 3) return EXIT_SUCCESS;
  std::rewind(output);
  std::FILE* target = std::fopen(argv[2], "w");
  if (target != nullptr) Compress(output, target);
  return EXIT_SUCCESS;
}
