#include "output/output_type.h"

#include "output/export_csv.h"
#include "output/jpeg.h"
#include "output/plot_driver.h"

namespace ozmo {
namespace {

constexpr int GIF_SIDE_MAX = 65535;  // what a GIF header can hold

void WriteTable(const GraphJob& job, Runtime& runtime) { ExportCsv(job, runtime); }
void WritePlot(const GraphJob& job, Runtime& /*runtime*/) { PlotGraphJob(job); }

constexpr OutputType OUTPUT_TYPES[] = {
    {.type = GraphType::CSV,
     .words = {"CSV", "csv"},
     .write = WriteTable,
     .plotter = "",
     .dotsPerInch = 0.0,
     .sideMax = 0,
     .finishMap = nullptr},
    {.type = GraphType::POSTSCRIPT,
     .words = {"PS", "ps"},
     .write = WritePlot,
     .plotter = "ps",
     .dotsPerInch = 72.0,
     .sideMax = 0,
     .finishMap = nullptr},
    {.type = GraphType::GIF,
     .words = {"GIF", "gif"},
     .write = WritePlot,
     .plotter = "gif",
     .dotsPerInch = 96.0,
     .sideMax = GIF_SIDE_MAX,
     .finishMap = nullptr},
    {.type = GraphType::JPEG,
     .words = {"JPG", "jpg"},
     .write = WritePlot,
     .plotter = "pnm",
     .dotsPerInch = 96.0,
     .sideMax = JPEG_SIDE_MAX,
     .finishMap = JpegFinish},
};

// Each type's row is at the type's number.
constexpr bool AreInOrder(std::span<const OutputType> rows) {
  for (size_t i = 0; i < rows.size(); ++i) {
    if (static_cast<size_t>(rows[i].type) != i) return false;
  }
  return true;
}
static_assert(AreInOrder(OUTPUT_TYPES));

}  // namespace

std::span<const OutputType> OutputTypes() { return OUTPUT_TYPES; }

const OutputType& OutputTypeOf(GraphType type) { return OUTPUT_TYPES[static_cast<size_t>(type)]; }

}  // namespace ozmo
