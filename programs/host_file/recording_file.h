// The files of a recording: DIR/qtxl_<node>_<date>.dat_<n>.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ozmo::host_file {

// Keeps other recorders of the same node away from a directory, as long as it lives. The lock is on a file of
// its own, .qtxl_<node>.lock, so that hosts may share a directory; it ends with the process, whatever becomes
// of that.
class DirectoryLock {
 public:
  DirectoryLock() = default;
  ~DirectoryLock();
  DirectoryLock(const DirectoryLock&) = delete;
  DirectoryLock& operator=(const DirectoryLock&) = delete;

  // Empty, or why not. Only this user can open the lock, so that no other can hold it.
  [[nodiscard]] std::string Take(const std::string& directory, const std::string& node);

 private:
  int file_ = -1;
};

// One file. Results are empty, or the text of a failure with the file's name.
class RecordingFile {
 public:
  RecordingFile() = default;
  ~RecordingFile();
  RecordingFile(const RecordingFile&) = delete;
  RecordingFile& operator=(const RecordingFile&) = delete;

  // Makes the next file of the day of `time`, in local time: the first number that isn't taken, by a
  // compressed file either. Nothing is overwritten. Its user and group can read it, less the mask.
  [[nodiscard]] std::string Create(const std::string& directory, const std::string& node, int64_t time);

  // Appends `bytes` to the file, whole or not at all.
  [[nodiscard]] std::string Append(std::string_view bytes);

  // Empty as long as the file is what was written here. Otherwise says what became of it and closes it: what
  // is written to a file without a name is lost, and a piece of a record is where readers stop. Another file
  // may be created then.
  [[nodiscard]] std::string GiveUpIfLost();

  // Has the file on the disk before it ends.
  [[nodiscard]] std::string Close();

  // Takes the file away, for one in which nothing was recorded.
  void Remove();

  bool IsOpen() const { return file_ >= 0; }
  const std::string& Path() const { return path_; }
  const std::string& Date() const { return date_; }

 private:
  std::string Failure() const;

  int file_ = -1;
  int64_t size_ = 0;  // bytes that were written
  std::string path_;
  std::string date_;
};

// The date in the name of a file: 2012Feb22, in local time and with the English name of the month.
std::string FileDate(int64_t time);

}  // namespace ozmo::host_file
