// The kernel's files on protocols and adapters.
//
// Figures are found by the names in the head lines: newer kernels have more columns, also between the older
// ones.
#pragma once

#include <vector>

#include "programs/host_file/host_figures.h"
#include "programs/record/notices.h"

namespace ozmo::record {

// The counters of /proc/net/snmp. False, with a notice, where there is no such file.
[[nodiscard]] bool ReadProtocols(host_file::ProtocolFigures& protocols, Notices& notices);

// The adapters of /proc/net/dev that have carried anything since boot.
std::vector<host_file::AdapterFigures> ReadAdapters(Notices& notices);

}  // namespace ozmo::record
