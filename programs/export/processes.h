// The table of processes: a line for each process of each interval, straight from the walk.
#pragma once

#include <cstdio>
#include <string>

#include "programs/report/data_day.h"
#include "readers/file_kind.h"

namespace ozmo::exporting {

class ProcessTable {
 public:
  // Writes the head of the table to `stream`, which has to live as long as this does.
  ProcessTable(std::FILE* stream, ReaderKind kind, const std::string& host);

  // Writes a process's line. What the kind's files don't have is empty.
  void Write(Seconds time, const SystemConfig& config, const ProcessRecord& process, double percent);

 private:
  std::FILE* stream_;
  ReaderKind kind_;
  std::string hostCell_;
  std::string line_;
};

}  // namespace ozmo::exporting
