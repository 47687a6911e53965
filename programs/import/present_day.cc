#include "programs/import/present_day.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "programs/host_file/collector_records.h"
#include "readers/compressed_file.h"
#include "readers/file_set.h"
#include "runtime/stream.h"

namespace ozmo::import {
namespace {

constexpr size_t END_SIZE = host_file::END_MARK_SIZE;

// The last bytes of the plain file.
std::string EndOf(const Stream& file) {
  std::string end(END_SIZE, '\0');
  if (std::fseek(file.get(), -static_cast<long>(END_SIZE), SEEK_END) != 0) return "";
  end.resize(std::fread(end.data(), 1, end.size(), file.get()));
  return end;
}

// The same of the file that a compressed one holds. Without a seek table all of it is read.
std::string EndOf(CompressedFile& file) {
  constexpr size_t ROOM = size_t{1} << 16U;
  const int64_t size = file.Size();
  int64_t place = size == CompressedFile::UNKNOWN_SIZE ? 0 : std::max<int64_t>(0, size - int64_t{ROOM});
  std::string end;
  std::string bytes(ROOM, '\0');
  for (;;) {
    const int64_t count = file.Read(reinterpret_cast<uint8_t*>(bytes.data()), bytes.size(), place);
    if (count < 0) return "";
    if (count == 0) return end;
    place += count;
    end.append(bytes, 0, static_cast<size_t>(count));
    end.erase(0, end.size() - std::min(end.size(), END_SIZE));
  }
}

std::optional<int64_t> ImportedUntil(const std::string& path) {
  const Stream file(std::fopen(path.c_str(), "re"));
  if (!file) return std::nullopt;
  if (!CompressedFile::Is(path, fileno(file.get()))) return host_file::TimeInEndMark(EndOf(file));
  CompressedFile compressed(fileno(file.get()));
  return host_file::TimeInEndMark(EndOf(compressed));
}

}  // namespace

PresentDay PresentDayOf(const std::string& directory, const std::string& node, const std::string& date) {
  PresentDay day;
  const std::string stem = directory + "/qtxl_" + node + "_" + date + ".dat_";
  for (int number = 1;; ++number) {
    day.next = stem + std::to_string(number);
    const std::string path = DataFilePath(day.next);
    if (access(path.c_str(), F_OK) != 0) break;
    day.last = path;
  }
  if (!day.last.empty()) day.end = ImportedUntil(day.last);
  return day;
}

}  // namespace ozmo::import
