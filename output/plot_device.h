// The plotter and the file that it draws into. Everything drawn between GrapherOpen and GrapherClose goes to
// the file of the job; a type that is finished from a map draws into the temporary map instead.
#pragma once

#include <memory>

#include "output/graph_job.h"
#include "output/plot_settings.h"
#include "output/temp_map.h"
#include "runtime/draft_file.h"
#include "runtime/stream.h"

namespace ozmo {

struct BitmapSize {
  int width = 0;
  int height = 0;
};

struct PlotDevice {
  Stream stream;
  int handle = -1;
  DraftFile draft;               // the job's file, unless
  std::unique_ptr<TempMap> map;  // the drawing goes here
};

// The job's size in dots.
BitmapSize BitmapSizeOf(const GraphJob& job);

// Gives libplot the size of bitmaps. A PostScript page has no use for it and stays a letter page.
void GrapherSetBitmapSize(const BitmapSize& size);

// Opens the file and a plotter on it, with a blank page of DEVICE_SIZE. Returns 0, or -1 when libplot can't
// make the plotter or its bitmap. A file that can't be created ends the process with a message.
int GrapherOpen(PlotDevice& device, const GraphJob& job, const PlotSettings& settings);

// Returns 0, or -1 when libplot can't finish the page or not all of it has reached the file. The file is
// closed either way, and taken away if there is no whole picture in it.
int GrapherClose(PlotDevice& device);

}  // namespace ozmo
