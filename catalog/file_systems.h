// The feed of the file system Top list.
#pragma once

#include <string_view>

#include "catalog/build_state.h"
#include "readers/vmr_context.h"

namespace ozmo {

// Names a file system in the list: first its mount point, then its device.
inline constexpr const char* FILE_SYSTEM_KEY_PLAIN = "%s (on %s)";
inline constexpr const char* FILE_SYSTEM_KEY_SPACED = "%s on ( %s )";

// Percent of the space that is used. A file system with all its blocks free counts as full.
float FileSystemPercent(const FileSystemRecord& record);

// One interval's file systems, under keys of the platform's format.
void AddFileSystems(BuildState& state, const VmrContext& context);

}  // namespace ozmo
