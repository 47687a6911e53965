#include "readers/vmr/file.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <optional>
#include <system_error>

namespace ozmo {
namespace {

// Printable in the C locale, whatever the locale of the run.
bool IsPrintable(char c) { return c >= ' ' && c <= '~'; }

void CopyPrintable(std::string_view text, std::string& printable) {
  printable = text;
  for (char& c : printable) c = IsPrintable(c) ? c : ' ';
}

std::string Printable(std::string_view text) {
  std::string printable;
  CopyPrintable(text, printable);
  return printable;
}

// A field that is a plain decimal number from end to end, as nearly all are: from_chars gives the same value
// as the C library's functions much faster. What it doesn't take whole (a plus sign, blanks, words, a range)
// is theirs.
template <class Number>
std::optional<Number> PlainNumber(std::string_view text) {
  Number value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && stop == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

}  // namespace

bool VmrLine::Assign(std::string_view text) {
  // Whatever was read last is taken for the line end: a file's last line needs one like all others.
  text.remove_suffix(std::min<size_t>(text.size(), 1));
  if (text.ends_with('\r')) text.remove_suffix(1);
  text_ = text;
  ends_.clear();
  return !text.empty();
}

bool VmrLine::CutNext() {
  const size_t start = ends_.empty() ? 0 : ends_.back() + 1;
  if (start > text_.size()) return false;
  size_t end = start;  // fields are short: a loop is cheaper than a call for each
  while (end < text_.size() && text_[end] != SEPARATOR) ++end;
  ends_.push_back(end);
  return true;
}

size_t VmrLine::FieldCount() {
  while (CutNext()) {
  }
  return ends_.size();
}

std::string_view VmrLine::Field(size_t index) {
  while (ends_.size() <= index) {
    if (!CutNext()) return {};
  }
  const size_t start = index == 0 ? 0 : ends_[index - 1] + 1;
  return text_.substr(start, ends_[index] - start);
}

std::string VmrLine::Text(size_t index) { return Printable(Field(index)); }

void VmrLine::CopyText(size_t index, std::string& text) { CopyPrintable(Field(index), text); }

int32_t VmrLine::Integer(size_t index) {
  const std::string_view text = Field(index);
  const std::optional<int32_t> plain = PlainNumber<int32_t>(text);
  return plain ? *plain : VmrInteger(Printable(text));
}

float VmrLine::Number(size_t index) {
  const std::string_view text = Field(index);
  const std::optional<float> plain = PlainNumber<float>(text);
  return plain ? *plain : std::strtof(Printable(text).c_str(), nullptr);
}

int32_t VmrInteger(const std::string& text) {
  constexpr int DECIMAL = 10;
  return static_cast<int32_t>(std::clamp<long>(std::strtol(text.c_str(), nullptr, DECIMAL),
                                               std::numeric_limits<int32_t>::min(),
                                               std::numeric_limits<int32_t>::max()));
}

bool VmrFile::ReadLine() {
  while (file_.IsOpen()) {
    const std::string_view text = file_.ReadLine(VmrLine::MAX_LENGTH);
    if (text.empty()) {
      file_.TellFault();
      file_.Close();
    } else if (line_.Assign(text)) {
      return true;
    }
  }
  return false;
}

}  // namespace ozmo
