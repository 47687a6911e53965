// The files that an import makes: DIR/qtxl_<node>_<date>.dat_<n>, a file a recording, host and day.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "programs/import/present_day.h"
#include "programs/import/sample.h"

namespace ozmo::import {

class DayFile;

// Samples of a host come in the order of time; hosts may come mixed. Until FinishRecording or a sample of a
// later day a file is a draft of another name, which any end of the process takes away, so a file is whole or
// not there.
//
// Nothing that is there is ever changed. A day goes on in a file of the next number, with what is after the
// end of the last one, as readers take all files of a day together. So a day may come in parts, and what
// comes again leaves everything as it is. A day that something else has written is left as it is, too: its
// end is not known, and its recorder may still be at it.
//
// Readers walk a file in windows that begin at whole multiples of the interval, ends included, so a sample on
// such an end would count twice. The stamps of a file are moved away from there, by a quarter of an interval
// and fifteen seconds at the most, or by half a minute where samples are put together.
class DayFiles {
 public:
  explicit DayFiles(std::string directory);
  ~DayFiles();
  DayFiles(const DayFiles&) = delete;
  DayFiles& operator=(const DayFiles&) = delete;

  // Results are empty, or the text of a failure.
  [[nodiscard]] std::string Add(const Sample& sample);
  // The next sample is another recording's, which may be of any time.
  [[nodiscard]] std::string FinishRecording();

  // The paths of the files that are finished.
  const std::vector<std::string>& Finished() const { return finished_; }
  // Lines on days that were there before.
  const std::vector<std::string>& Notes() const { return notes_; }
  // Samples that were left out because their clock had gone back.
  int64_t OutOfOrder() const { return outOfOrder_; }

 private:
  // What is known of a host while a recording is read.
  struct Host {
    int64_t last = 0;                // time of the last sample
    std::string date;                // of the day that it is at
    PresentDay present;              // what there was of that day
    int64_t leftOut = 0;             // samples that end when that does, or before
    std::unique_ptr<DayFile> added;  // null: there was nothing to add yet
  };

  std::string FinishDay(Host& host);

  std::string directory_;
  std::map<std::string, Host> hosts_;  // by node
  std::vector<std::string> finished_;
  std::vector<std::string> notes_;
  int64_t outOfOrder_ = 0;
};

}  // namespace ozmo::import
