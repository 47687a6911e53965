// The mounted file systems, through libmount.
#pragma once

#include <vector>

#include "programs/host_file/host_figures.h"
#include "programs/record/file_system_probe.h"
#include "programs/record/notices.h"

namespace ozmo::record {

// The file systems on this host's disks, each once, at its first mount point, and whatever is mounted at "/".
// Left out are those in memory and on other hosts, where a server that doesn't respond would hold up the
// recorder, and images that can't be written and so are always full.
// One that doesn't respond is left out as well, with a notice.
std::vector<host_file::FileSystemFigures> ReadFileSystems(FileSystemProbe& probe, Notices& notices);

}  // namespace ozmo::record
