// The portable map and the JPEG that is made of it, at the place where a JPEG run has its map.
#include "fuzz/harness.h"
#include "output/jpeg.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  AsRun([&] {
    ozmo::GraphJob job;
    job.graphType = ozmo::GraphType::JPEG;
    job.graphFile = "out.jpg";
    const std::unique_ptr<ozmo::TempMap> map = ozmo::TempMap::Create({});
    if (!map) return;
    std::fwrite(data, 1, size, map->OpenToDraw().get());
    ozmo::JpegFinish(*map, job);
  });
  return 0;
}
