#include "output/jpeg.h"

#include <array>
#include <cstdio>
#include <vector>

#include "output/output_file.h"
#include "output/portable_map.h"
#include "runtime/process_end.h"
#include "runtime/terminal_text.h"

// clang-format off
#include <jpeglib.h>
#include <jerror.h>
// clang-format on

namespace ozmo {
namespace {

constexpr const char* JPEG_NAME = "cjpeg";

// Codes of the messages that are added to libjpeg's own.
constexpr int MAP_MESSAGE_FIRST = 1000;
constexpr int MAP_MESSAGE_LAST = 1043;
constexpr int MAP_NONNUMERIC = 1026;
constexpr int MAP_NOT = 1027;

using MapMessages = std::array<const char*, MAP_MESSAGE_LAST - MAP_MESSAGE_FIRST + 1>;

// Only two of the codes can come up; libjpeg reports one without a text as a bogus code.
constexpr MapMessages MakeMapMessages() {
  MapMessages messages = {};
  messages[MAP_NONNUMERIC - MAP_MESSAGE_FIRST] = "Nonnumeric data in PPM file";
  messages[MAP_NOT - MAP_MESSAGE_FIRST] = "Not a PPM/PGM file";
  return messages;
}
constexpr MapMessages MAP_MESSAGES = MakeMapMessages();

int MessageCodeOf(MapStatus status) {
  switch (status) {
    case MapStatus::NONNUMERIC:
      return MAP_NONNUMERIC;
    case MapStatus::END_OF_INPUT:
      return JERR_INPUT_EOF;
    case MapStatus::NOT_A_MAP:
    case MapStatus::OK:
      break;
  }
  return MAP_NOT;
}

// Libjpeg's error exit prints the message and ends the process with status 1.
void Expect(jpeg_compress_struct& compressor, MapStatus status) {
  if (status != MapStatus::OK) {
    compressor.err->msg_code = MessageCodeOf(status);
    compressor.err->error_exit(reinterpret_cast<j_common_ptr>(&compressor));
  }
}

void WriteRows(jpeg_compress_struct& compressor, PortableMap& map) {
  std::vector<JSAMPLE> row(size_t{map.width} * static_cast<size_t>(map.components));
  JSAMPROW rows[] = {row.data()};
  while (compressor.next_scanline < compressor.image_height) {
    Expect(compressor, MapReadRow(map, row));
    jpeg_write_scanlines(&compressor, rows, 1);
  }
}

void Compress(jpeg_compress_struct& compressor, std::FILE* input, std::FILE* output) {
  PortableMap map;
  Expect(compressor, MapReadHeader(map, input));
  compressor.image_width = map.width;
  compressor.image_height = map.height;
  compressor.input_components = map.components;
  compressor.in_color_space = map.components == 3 ? JCS_RGB : JCS_GRAYSCALE;
  compressor.data_precision = 8;
  jpeg_default_colorspace(&compressor);
  jpeg_stdio_dest(&compressor, output);
  jpeg_start_compress(&compressor, TRUE);
  WriteRows(compressor, map);
  jpeg_finish_compress(&compressor);
}

int JpegFromTemp(const TempMap& map, const GraphJob& job) {
  jpeg_error_mgr errors;
  jpeg_compress_struct compressor = {};
  compressor.err = jpeg_std_error(&errors);
  errors.addon_message_table = MAP_MESSAGES.data();
  errors.first_addon_message = MAP_MESSAGE_FIRST;
  errors.last_addon_message = MAP_MESSAGE_LAST;
  jpeg_create_compress(&compressor);
  compressor.in_color_space = JCS_RGB;
  jpeg_set_defaults(&compressor);
  errors.trace_level = 0;

  const Stream input = map.OpenToRead();
  if (!input) JpegInputFail();
  DraftFile draft;
  const Stream output = OutputFileOpen(job, draft);
  if (!output) {
    std::fprintf(stderr, "%s: can't open %s\n", JPEG_NAME, TextFor(stderr, job.graphFile).c_str());
    EndProcess(1);
  }
  Compress(compressor, input.get(), output.get());
  jpeg_destroy_compress(&compressor);
  draft.Finish();
  return 0;
}

}  // namespace

void JpegInputFail() {
  std::fprintf(stderr, "%s: can't open input file\n", JPEG_NAME);
  EndProcess(1);
}

int JpegFinish(TempMap& map, const GraphJob& job) {
  if (IdentityOf(job.graphFile) == map.Identity()) OutputIsInput(job.graphFile);
  map.KeepOnExit();
  JpegFromTemp(map, job);
  if (map.Delete() < 0) std::fprintf(stderr, "Unable to delete the jpeg temp file\n");
  return 0;
}

}  // namespace ozmo
