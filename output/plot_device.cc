#include "output/plot_device.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#include "output/grapher_messages.h"
#include "output/jpeg.h"
#include "output/libplot.h"
#include "output/output_file.h"
#include "output/output_type.h"
#include "output/plot_settings.h"
#include "runtime/numbers.h"

namespace ozmo {
namespace {

constexpr double INCHES_IN_A_CENTIMETRE = 0.394;

// Libplot draws a bitmap it can't make in its own default size, or ends the process for want of memory
// (a dot takes 4 bytes).
constexpr int64_t BITMAP_DOTS_MAX = int64_t{1} << 28;

// Libplot's parameters that act on our plotters. BITMAPSIZE is set and needs no clearing.
constexpr const char* PARAMETER_VARIABLES[] = {
    "BG_COLOR", "EMULATE_COLOR",   "GIF_ANIMATION", "GIF_DELAY", "GIF_ITERATIONS",   "INTERLACE",
    "PAGESIZE", "MAX_LINE_LENGTH", "PNM_PORTABLE",  "ROTATION",  "TRANSPARENT_COLOR"};

bool IsPossible(const BitmapSize& size, int sideMax) {
  return size.width > 0 && size.height > 0 && size.width <= sideMax && size.height <= sideMax &&
         int64_t{size.width} * size.height <= BITMAP_DOTS_MAX;
}

double DotsInUnit(const GraphJob& job) {
  const double dotsPerInch = OutputTypeOf(job.graphType).dotsPerInch;
  switch (job.sizeUnit) {
    case SizeUnit::INCHES:
      return dotsPerInch;
    case SizeUnit::CENTIMETRES:
      return dotsPerInch * INCHES_IN_A_CENTIMETRE;
    case SizeUnit::PIXELS:
      break;
  }
  return 1.0;
}

// A map that can't be made is reported as one that the JPEG step can't read.
Stream OpenMap(PlotDevice& device, const GraphJob& job) {
  device.map = job.hasOwnMap ? TempMap::CreateUnnamed() : TempMap::Create(job.inputs);
  Stream stream = device.map ? device.map->OpenToDraw() : nullptr;
  if (!stream) JpegInputFail();
  return stream;
}

Stream OpenPicture(PlotDevice& device, const GraphJob& job) {
  Stream stream = OutputFileOpen(job, device.draft);
  if (!stream) GrapherFail("could not open output file " + job.graphFile);
  return stream;
}

// A picture depends on the job alone: libplot takes parameters that nobody has set from variables of their
// names.
void ClearParameterVariables() {
  for (const char* name : PARAMETER_VARIABLES) unsetenv(name);
}

// Libplot's parameters are text, but come by a pointer that is not const.
void SetParameter(const char* name, std::string value) { pl_parampl(name, value.data()); }

}  // namespace

BitmapSize BitmapSizeOf(const GraphJob& job) {
  const double unit = DotsInUnit(job);
  // Sizes pass through single precision before they are cut.
  const auto dots = [unit](double size) {
    return ClampTo<int>(static_cast<double>(static_cast<float>(unit * size)));
  };
  return {dots(job.width), dots(job.height)};
}

void GrapherSetBitmapSize(const BitmapSize& size) {
  SetParameter("BITMAPSIZE", "950x950");
  SetParameter("BITMAPSIZE", std::to_string(size.width) + "x" + std::to_string(size.height));
}

int GrapherOpen(PlotDevice& device, const GraphJob& job, const PlotSettings& settings) {
  if (settings.backgroundColour) SetParameter("BG_COLOR", *settings.backgroundColour);
  const OutputType& type = OutputTypeOf(job.graphType);
  if (type.sideMax != 0 && !IsPossible(BitmapSizeOf(job), type.sideMax)) return -1;
  ClearParameterVariables();
  device.stream = type.finishMap != nullptr ? OpenMap(device, job) : OpenPicture(device, job);
  device.handle = pl_newpl(type.plotter, nullptr, device.stream.get(), stderr);
  if (device.handle < 0) return -1;
  pl_selectpl(device.handle);
  if (pl_openpl() < 0) return -1;
  pl_erase();
  pl_fspace(0.0, 0.0, DEVICE_SIZE, DEVICE_SIZE);
  return 0;
}

int GrapherClose(PlotDevice& device) {
  const bool isClosed = pl_closepl() >= 0;
  if (isClosed) {
    pl_selectpl(0);
    pl_deletepl(device.handle);
  }
  const bool isWhole = isClosed && StreamIsSound(device.stream.get());
  device.stream.reset();
  if (!isWhole) return -1;
  device.draft.Finish();
  return 0;
}

}  // namespace ozmo
