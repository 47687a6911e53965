// The lines of a monitor text file.
//
// A line's fields are cut by "~"; field 0 says what the line is. A number is read as far as its text goes,
// and a field that is no number is 0.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

#include "readers/block_file.h"

namespace ozmo {

// One line, as it is in the block that it was read with: valid until the next is read. A field is found from
// the one that was asked for before it, so fields are best asked for in their order; of most lines only the
// first few are read.
//
// What can't be printed counts as a blank, in texts and numbers alike.
class VmrLine {
 public:
  static constexpr size_t MAX_LENGTH = 2047;
  static constexpr char SEPARATOR = '~';

  VmrLine() = default;
  // A line without its line end.
  explicit VmrLine(std::string_view text) : text_(text) {}

  // Takes over a line as it was read, without its line end. False if nothing is left.
  bool Assign(std::string_view text);

  std::string_view text() const { return text_; }
  // Whether field 0 is `kind`, a text without a separator.
  bool Is(std::string_view kind) const {
    return text_.starts_with(kind) && (text_.size() == kind.size() || text_[kind.size()] == SEPARATOR);
  }
  // A line without a separator is one field; two separators in a row hold an empty field between them.
  size_t FieldCount() const;
  // A field with its bytes as they were read; after the last field an empty text, which is 0 as a number.
  std::string_view Bytes(size_t index) {
    const std::string_view rest = From(index);
    const size_t separator = rest.find(SEPARATOR);
    if (separator != rest.npos) {  // the next field is found with it
      ++field_;
      start_ += separator + 1;
    }
    return rest.substr(0, separator);
  }
  std::string Text(size_t index);
  int32_t Integer(size_t index) { return NumberAt<int32_t>(index, OddInteger); }
  float Number(size_t index) { return NumberAt<float>(index, OddNumber); }

 private:
  // What is left of the line from a field on; nothing after the last field.
  std::string_view From(size_t index) {
    if (index < field_) GoToStart();
    for (; field_ < index; ++start_) {  // fields are short: a loop is cheaper than a call for each
      if (start_ == text_.size()) {
        GoToStart();
        return {};
      }
      if (text_[start_] == SEPARATOR) ++field_;
    }
    return text_.substr(start_);
  }
  void GoToStart() {
    field_ = 0;
    start_ = 0;
  }

  // Nearly all fields are a plain decimal number from end to end. std::from_chars gives the same value for
  // it as the C library's functions, much faster, and stops at the field's end by itself: no number goes on
  // after a separator. What it doesn't take whole (a plus sign, blanks, words, a range) is odd.
  template <class Value>
  Value NumberAt(size_t index, Value (*convertOdd)(std::string_view bytes)) {
    const std::string_view rest = From(index);
    const char* const end = rest.data() + rest.size();
    Value value = 0;
    const auto [stop, error] = std::from_chars(rest.data(), end, value);
    const bool isWhole = error == std::errc() && (stop == end || *stop == SEPARATOR);
    return isWhole ? value : convertOdd(rest.substr(0, rest.find(SEPARATOR)));
  }
  static int32_t OddInteger(std::string_view bytes);
  static float OddNumber(std::string_view bytes);

  std::string_view text_;
  size_t field_ = 0;  // the one that was found last
  size_t start_ = 0;  // its first byte in text_
};

// Copies the bytes of a field into a text whose room is used again. What can't be printed becomes a blank.
void CopyPrintable(std::string_view bytes, std::string& text);

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
