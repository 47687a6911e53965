// What the fuzz targets share. A target is a program of libFuzzer's: it calls LLVMFuzzerTestOneInput with one
// input after the other in the same process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace ozmo::fuzz {

// What runtime/process_end.h throws here in place of an end, so that what the run held is given back on the
// way.
struct ProcessEnd {
  int status;
};

// What has to happen before that while the run's objects still exist.
inline void (*beforeProcessEnd)() = nullptr;

// Runs `work` as a run of the tool: where it ends the process, only `work` ends.
template <class Work>
void AsRun(Work work) {
  try {
    work();
  } catch (const ProcessEnd&) {  // any status will do: it is the tool's own end
  }
}

// Writes a file into the working directory, which is a scratch directory of the process's own in memory.
void WriteScratch(const std::string& name, std::string_view bytes);

// Cuts off and returns the text up to `mark`, the mark left out; all of it where there is no mark.
std::string_view CutUpTo(std::string_view& text, char mark);

// Words as main takes them, with a null after the last.
std::vector<char*> ArgumentsOf(std::vector<std::string>& words);

inline std::string_view TextOf(const uint8_t* data, size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace ozmo::fuzz
