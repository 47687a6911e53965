// Sample days of every kind, written once for a benchmark program and removed at its end.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "readers/file_kind.h"
#include "sample/day.h"

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
    Write(ReaderKind::SOLARIS, sample::WriteSolarisSample(options));
    Write(ReaderKind::LINUX, sample::WriteLinuxSample(options));
    Write(ReaderKind::AIX, sample::WriteAixSample(options));
    Write(ReaderKind::HPUX, sample::WriteHpuxSample(options));
    Write(ReaderKind::TRU64, sample::WriteTru64Sample(options));
    Write(ReaderKind::VMR, sample::WriteVmrSample(options));
  }
  ~SampleDays() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
  }
  SampleDays(const SampleDays&) = delete;
  SampleDays& operator=(const SampleDays&) = delete;

  const SampleDay& Of(ReaderKind kind) const { return days_.at(kind); }

 private:
  void Write(ReaderKind kind, const sample::SampleResult& result) {
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
