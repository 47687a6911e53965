// Sample days of every kind, written once for a benchmark program and removed at its end.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "programs/sample/kinds.h"
#include "readers/file_kind.h"

namespace ozmo::bench {

struct SampleDay {
  std::string firstFile;
  int64_t bytes = 0;
};

class SampleDays {
 public:
  explicit SampleDays(sample::SampleOptions options) {
    std::string name = (std::filesystem::temp_directory_path() / "ozmo_bench_XXXXXX").string();
    directory_ = mkdtemp(name.data());
    options.directory = directory_.string();
    for (const KindRow& row : ReaderKinds()) Write(row.kind, row.word, options);
  }
  ~SampleDays() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
  }
  SampleDays(const SampleDays&) = delete;
  SampleDays& operator=(const SampleDays&) = delete;

  const SampleDay& Of(ReaderKind kind) const { return days_.at(kind); }

 private:
  void Write(ReaderKind kind, std::string_view name, const sample::SampleOptions& options) {
    const sample::SampleResult result = sample::WriteSample(*sample::FindSampleKind(name), options);
    SampleDay& day = days_[kind];
    if (result.files.empty()) return;
    day.firstFile = result.files.front();
    for (const std::string& file : result.files)
      day.bytes += static_cast<int64_t>(std::filesystem::file_size(file));
  }

  std::filesystem::path directory_;
  std::map<ReaderKind, SampleDay> days_;
};

}  // namespace ozmo::bench
