// The lines of a monitor text file.
//
// A line's fields are cut by "~"; field 0 says what the line is. A number is read as far as its text goes,
// and a field that is no number is 0.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "readers/block_file.h"

namespace ozmo {

// One line, cleaned and cut into fields.
class VmrLine {
 public:
  static constexpr size_t MAX_LENGTH = 2047;

  // Takes over a line as it was read: the line end goes, and what can't be printed becomes a blank. False if
  // nothing is left.
  bool Assign(std::string_view text);

  // A line without a separator is one field; two separators in a row hold an empty field between them.
  size_t FieldCount() const { return starts_.size(); }
  // A field behind the last is an empty text.
  const char* Field(size_t index) const {
    return index < starts_.size() ? buffer_.data() + starts_[index] : "";
  }
  bool Is(std::string_view kind) const { return Field(0) == kind; }
  int32_t Integer(size_t index) const;
  float Number(size_t index) const;

 private:
  std::array<char, MAX_LENGTH + 1> buffer_{};  // each field ends with a 0
  std::vector<size_t> starts_;                 // of the fields in the buffer
};

// A decimal integer; out of range goes to the nearest end.
int32_t VmrInteger(const char* text);

class VmrFile {
 public:
  // A file that can't be opened stays closed, and so has no lines.
  void Open(const std::string& path) { file_.Open(path); }
  void Close() { file_.Close(); }
  bool IsOpen() const { return file_.IsOpen(); }

  // The next line that isn't empty; a longer one than a line may be is read in pieces. False at the end of
  // the file, which is then closed.
  bool ReadLine();
  // The line read last.
  const VmrLine& line() const { return line_; }

 private:
  BlockFile file_;
  VmrLine line_;
};

}  // namespace ozmo
