// The index of a compressed recording; compressed_recording.h has its form.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ozmo::host_file {

class RecordIndex {
 public:
  // The next bytes of the recording.
  void Take(std::string_view bytes);
  // The index of all that was taken.
  std::string Finish();

 private:
  void TakeHeader();
  void Note(std::string_view bytes);

  std::string index_ = "ozmo1";
  std::string record_;      // of the present record what counts: its header, or all of it
  uint64_t begin_ = 0;      // of the present record
  uint64_t left_ = 0;       // of it, what hasn't been seen yet
  bool hasHeader_ = false;  // all of its header has been seen
  bool counts_ = false;     // it belongs into the index
  bool isBroken_ = false;   // no record follows the ones before
};

}  // namespace ozmo::host_file
