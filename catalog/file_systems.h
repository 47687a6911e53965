// The series of the file system Top list.
#pragma once

#include <string>
#include <vector>

#include "catalog/name_series.h"
#include "catalog/platform.h"

namespace ozmo {

// Names a file system in the list: first its mount point, then its device.
inline constexpr const char* FILE_SYSTEM_KEY_PLAIN = "%s (on %s)";
inline constexpr const char* FILE_SYSTEM_KEY_SPACED = "%s on ( %s )";

// Percent of the space that is used. A file system with all its blocks free counts as full.
float FileSystemPercent(const FileSystemRecord& record);

// The file systems seen so far.
class FileSystemPass {
 public:
  FileSystemPass(const char* keyFormat, SeriesBudget& budget) : keyFormat_(keyFormat), pages_(budget) {}

  void Run(const Minute& minute, const VmrContext& interval);

  // In ascending order of their keys.
  std::vector<NamedSeries> Named() const;

 private:
  const char* keyFormat_;
  SeriesPages pages_;
  SeriesTable series_;
  std::string key_;  // of the record in hand
};

}  // namespace ozmo
