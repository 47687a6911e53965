#include "readers/vmr/file.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace ozmo {
namespace {

// Printable in the C locale, whatever the locale of the run.
bool IsPrintable(char c) { return c >= ' ' && c <= '~'; }

std::string Printable(std::string_view bytes) {
  std::string text;
  CopyPrintable(bytes, text);
  return text;
}

}  // namespace

bool VmrLine::Assign(std::string_view text) {
  // Whatever was read last is taken for the line end: a file's last line needs one like all others.
  text.remove_suffix(std::min<size_t>(text.size(), 1));
  if (text.ends_with('\r')) text.remove_suffix(1);
  text_ = text;
  GoToStart();
  return !text.empty();
}

size_t VmrLine::FieldCount() const {
  return 1 + static_cast<size_t>(std::count(text_.begin(), text_.end(), SEPARATOR));
}

std::string VmrLine::Text(size_t index) { return Printable(Bytes(index)); }

int32_t VmrLine::OddInteger(std::string_view bytes) { return VmrInteger(Printable(bytes)); }

float VmrLine::OddNumber(std::string_view bytes) { return std::strtof(Printable(bytes).c_str(), nullptr); }

void CopyPrintable(std::string_view bytes, std::string& text) {
  text = bytes;
  for (char& c : text) {
    if (!IsPrintable(c)) c = ' ';
  }
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
      file_.ReportFault();
      file_.Close();
    } else if (line_.Assign(text)) {
      return true;
    }
  }
  return false;
}

}  // namespace ozmo
