// What processes used that ended in an interval.
//
// The catalog counts process records as processes, so a record for each ended one would make a busy host look
// crowded. What they used goes to a process that is alive, of the same image and user; where there is none,
// to one record for all that ended of that image and user.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "programs/host_file/host_figures.h"

namespace ozmo::host_file {

struct EndedProcess {
  int32_t id = 0;
  int32_t parent = 0;
  std::string image;  // the kernel's name of the program: at most 15 letters, no path, no arguments
  std::string user;
  ProcessUse use;       // in the interval, as of every process here
  std::string command;  // with arguments, where it was seen alive; else empty
};

// Adds what `ended` used to `living`, whose images are `images`, one for each. A record that is added has the
// id of the first that ended, and as the command that one's, or its image.
void AddEnded(std::vector<ProcessFigures>& living, std::span<const std::string> images,
              std::span<const EndedProcess> ended);

}  // namespace ozmo::host_file
