// What is asked of a sample, and how its span is cut into days and files.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace ozmo::sample {

struct SampleOptions {
  std::string directory;  // made if it isn't there
  std::chrono::year_month_day date{std::chrono::year{2012}, std::chrono::February, std::chrono::day{22}};
  int startHour = 0;
  int hours = 24;
  int intervalSeconds = 60;
  int seed = 1;
  int filesPerDay = 1;
  // The host's offset from UTC. A time stamp is the host's wall clock less this offset, so a reader
  // whose own zone is UTC shows the wall clock whatever the offset is.
  int utcOffset = 0;
  int scale = 1;              // multiplies the processes: more bytes for a benchmark
  bool littleEndian = false;  // numbers in the other byte order, where a kind has files of both
  bool replace = false;       // files that the directory has of these days already
  std::string node;           // empty: the host's own name
  std::string version;        // empty: the host's own
  std::string plant;          // the name of a change (plant.h); empty: none
  int plantHour = 0;          // of each day, from which the change is there
};

// One file of a day: its number from 1 and the times of its samples, on the host's wall clock.
struct FileOfDay {
  std::chrono::year_month_day date;
  int number = 1;
  std::vector<int64_t> times;
};

// Cuts the span into days and the samples of each day into filesPerDay files. No file is empty. The samples
// are taken `second` seconds past the full minute or the like: on it, a reader would find two of them in the
// first interval.
std::vector<FileOfDay> CutIntoFiles(const SampleOptions& options, int second);

// "2012Feb22".
std::string FileDate(const std::chrono::year_month_day& date);

}  // namespace ozmo::sample
