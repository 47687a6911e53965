// The files that an import makes: DIR/qtxl_<node>_<date>.dat_1, a file a host and day.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "programs/import/sample.h"

namespace ozmo::import {

class DayFile;

// Samples of a host come in the order of time; hosts may come mixed. Until Finish a file is a draft of
// another name, which any end of the process takes away, so a file is whole or not there. A day that the
// directory has already, as a plain file or compressed, is left as it is.
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
  [[nodiscard]] std::string Finish();

  // The paths of the files that are finished, and of the days that were there before.
  const std::vector<std::string>& Finished() const { return finished_; }
  const std::vector<std::string>& LeftAsTheyWere() const { return leftAsTheyWere_; }
  // Samples that were left out because their clock had gone back.
  int64_t OutOfOrder() const { return outOfOrder_; }

 private:
  std::string FinishDay(const std::string& node);

  std::string directory_;
  std::map<std::string, std::unique_ptr<DayFile>> files_;  // by node; null: a day that was there
  std::map<std::string, std::string> dates_;               // the day that each node is at
  std::vector<std::string> finished_;
  std::vector<std::string> leftAsTheyWere_;
  int64_t outOfOrder_ = 0;
};

}  // namespace ozmo::import
