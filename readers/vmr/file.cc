#include "readers/vmr/file.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <system_error>

namespace ozmo {
namespace {

constexpr char SEPARATOR = '~';

// Printable in the C locale, whatever the locale of the run.
bool IsPrintable(char c) { return c >= ' ' && c <= '~'; }

}  // namespace

bool VmrLine::Assign(std::string_view text) {
  starts_.clear();
  // Whatever was read last stands for the line end: a file's last line needs one like all others.
  text.remove_suffix(std::min<size_t>(text.size(), 1));
  if (text.ends_with('\r')) text.remove_suffix(1);
  if (text.empty()) return false;

  text = text.substr(0, MAX_LENGTH);
  starts_.push_back(0);
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == SEPARATOR) {
      buffer_[i] = '\0';
      starts_.push_back(i + 1);
    } else {
      buffer_[i] = IsPrintable(text[i]) ? text[i] : ' ';
    }
  }
  buffer_[text.size()] = '\0';
  return true;
}

int32_t VmrLine::Integer(size_t index) const { return VmrInteger(Field(index)); }

float VmrLine::Number(size_t index) const {
  const char* text = Field(index);
  const char* end = text + std::strlen(text);
  float value = 0.0F;
  // Most fields are a plain decimal number, for which from_chars gives the same value much faster. Whatever
  // it doesn't take whole (a sign, blanks, words, a range) is strtof's.
  const auto [stop, error] = std::from_chars(text, end, value);
  return error == std::errc() && stop == end ? value : std::strtof(text, nullptr);
}

int32_t VmrInteger(const char* text) {
  constexpr int DECIMAL = 10;
  return static_cast<int32_t>(std::clamp<long>(std::strtol(text, nullptr, DECIMAL),
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
