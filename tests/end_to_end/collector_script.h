// Collector files from the statements of a case.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/sample/collector_writer.h"
#include "tests/end_to_end/case_file.h"

namespace ozmo {

// Whether the statement describes a part of a collector file.
bool IsCollectorStatement(const Statement& statement);

struct CollectorBytes {
  std::string bytes;
  std::string error;  // what is wrong with the statements; empty when nothing is
};

// The file that the statements describe. `midnight` is the day that times such as @08:05 are of.
CollectorBytes WriteCollectorFile(const std::vector<Statement>& statements, sample::WrittenOrder order,
                                  int64_t midnight);

}  // namespace ozmo
