// The text of a program whose recordings can be imported, from its lines to a data file.
#include <filesystem>

#include "fuzz/harness.h"
#include "programs/import/import.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo;
  fuzz::WriteScratch("text", fuzz::TextOf(data, size));
  import::Options options;
  options.from = OZMO_FUZZ_SOURCE;
  options.directory = "data";
  options.sources = {"text"};
  import::ImportRecordings(options, nullptr);
  std::filesystem::remove_all("data");
  return 0;
}
