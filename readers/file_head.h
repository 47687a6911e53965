// What a reader's entry pass finds of a file.
#pragma once

#include <string>

#include "runtime/times.h"

namespace ozmo {

struct FileHead {
  std::string nodeName;         // the host that the data is of
  Seconds firstRecordTime = 0;  // in the reader's zone
};

}  // namespace ozmo
