// The lines of a monitor text file.
//
// A line's fields are cut by "~"; field 0 says what the line is. A number is read as far as its text goes,
// and a field that is no number is 0.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "readers/block_file.h"

namespace ozmo {

// One line, as it is in the block that it was read with: valid until the next is read. It is cut into
// fields no further than it was asked for, since of most lines only the first few fields are read.
//
// What can't be printed counts as a blank, in texts and numbers alike.
class VmrLine {
 public:
  static constexpr size_t MAX_LENGTH = 2047;
  static constexpr char SEPARATOR = '~';

  // Takes over a line as it was read, without its line end. False if nothing is left.
  bool Assign(std::string_view text);

  // Whether field 0 is `kind`, a text without a separator.
  bool Is(std::string_view kind) const {
    return text_.starts_with(kind) && (text_.size() == kind.size() || text_[kind.size()] == SEPARATOR);
  }
  // A line without a separator is one field; two separators in a row hold an empty field between them.
  size_t FieldCount();
  // A field after the last is an empty text.
  std::string Text(size_t index);
  // The same into a text that is there already, and whose room is used again.
  void CopyText(size_t index, std::string& text);
  int32_t Integer(size_t index);
  float Number(size_t index);

 private:
  // A field with its bytes as they were read.
  std::string_view Field(size_t index);
  // Finds the end of one more field; false at the end of the line.
  bool CutNext();

  std::string_view text_;
  std::vector<size_t> ends_;  // of the fields found so far; a separator or the end of the line is there
};

// A decimal integer; out of range goes to the nearest end.
int32_t VmrInteger(const std::string& text);

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
  VmrLine& line() { return line_; }

 private:
  BlockFile file_;
  VmrLine line_;
};

}  // namespace ozmo
