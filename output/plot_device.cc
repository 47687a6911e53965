#include "output/plot_device.h"

#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <string>

#include "output/grapher_messages.h"
#include "output/jpeg.h"
#include "output/libplot.h"
#include "output/temp_map.h"
#include "runtime/numbers.h"

namespace ozmo {
namespace {

constexpr mode_t FILE_CREATION_MASK = 9;  // decimal
constexpr double INCHES_IN_A_CENTIMETRE = 0.394;

// By GraphType; a table of text draws nothing.
constexpr std::array<PlotterForm, 4> PLOTTER_FORMS = {
    {{"", 0.0}, {"ps", 72.0}, {"gif", 96.0}, {"pnm", 96.0}}};

// Libplot draws a bitmap it can't make in its own default size, or ends the process for want of memory
// (a dot takes 4 bytes). The side is what a GIF header can hold.
constexpr int BITMAP_SIDE_MAX = 65535;
constexpr int64_t BITMAP_DOTS_MAX = int64_t{1} << 28;

bool IsPossible(const BitmapSize& size) {
  return size.width > 0 && size.height > 0 && size.width <= BITMAP_SIDE_MAX &&
         size.height <= BITMAP_SIDE_MAX && int64_t{size.width} * size.height <= BITMAP_DOTS_MAX;
}

double DotsInUnit(const GraphJob& job) {
  const double dotsPerInch = PlotterFormOf(job.graphType).dotsPerInch;
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

Stream OpenPlotFile(const GraphJob& job) {
  umask(FILE_CREATION_MASK);
  if (job.graphType == GraphType::JPEG) {
    Stream map = TempMapCreate();
    if (!map) JpegInputFail();
    return map;
  }
  Stream file(std::fopen(job.graphFile.c_str(), "w"));
  if (!file) GrapherFail("could not open output file " + job.graphFile);
  return file;
}

// Libplot's parameters are text, but come by a pointer that is not const.
void SetParameter(const char* name, std::string value) { pl_parampl(name, value.data()); }

}  // namespace

const PlotterForm& PlotterFormOf(GraphType type) { return PLOTTER_FORMS[static_cast<size_t>(type)]; }

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
  if (job.graphType != GraphType::POSTSCRIPT && !IsPossible(BitmapSizeOf(job))) return -1;
  device.stream = OpenPlotFile(job);
  device.handle = pl_newpl(PlotterFormOf(job.graphType).type, nullptr, device.stream.get(), stderr);
  if (device.handle < 0) return -1;
  pl_selectpl(device.handle);
  if (pl_openpl() < 0) return -1;
  pl_erase();
  pl_fspace(0.0, 0.0, DEVICE_SIZE, DEVICE_SIZE);
  return 0;
}

int GrapherClose(PlotDevice& device) {
  if (pl_closepl() < 0) {
    device.stream.reset();
    return -1;
  }
  pl_selectpl(0);
  pl_deletepl(device.handle);
  device.stream.reset();
  return 0;
}

}  // namespace ozmo
