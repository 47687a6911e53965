// Which of a recording's block devices are disks.
#pragma once

#include <vector>

#include "programs/host_file/host_figures.h"

namespace ozmo::import {

// Leaves out what would count twice, by the kernel's names: partitions of a disk that is there too, and
// devices that lie on others or in memory. They are what our own recorder leaves out.
void KeepWholeDisks(std::vector<host_file::DiskFigures>& disks);

}  // namespace ozmo::import
