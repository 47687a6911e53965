#include "runtime/message_format.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "runtime/text.h"

namespace ozmo {
namespace {

constexpr int WIDEST_FIELD = 1023;  // a wider one is no message any more
constexpr std::string_view FLAGS = "-+ #0";
constexpr std::string_view LENGTH_MODIFIERS = "hlLqjzt";
constexpr std::string_view SIGNED_CONVERSIONS = "di";
constexpr std::string_view UNSIGNED_CONVERSIONS = "uxXo";
constexpr std::string_view FLOAT_CONVERSIONS = "eEfFgGaA";

bool Contains(std::string_view set, char c) { return set.find(c) != std::string_view::npos; }

// One "%..." of a format.
struct Conversion {
  std::string flags;
  int width = 0;
  int precision = -1;  // below 0: none
  std::string length;
  char type = '\0';
  std::string_view source;  // as it is in the format
};

// Hands out the arguments, each once.
class ArgumentReader {
 public:
  explicit ArgumentReader(std::span<const MessageArgument> arguments) : arguments_(arguments) {}

  const MessageArgument* Next() { return next_ < arguments_.size() ? &arguments_[next_++] : nullptr; }

  // For a "*": 0 where there is no number.
  int NextSize() {
    const MessageArgument* argument = Next();
    const long long* number = argument != nullptr ? std::get_if<long long>(argument) : nullptr;
    return number != nullptr ? static_cast<int>(std::clamp<long long>(*number, -WIDEST_FIELD, WIDEST_FIELD))
                             : 0;
  }

 private:
  std::span<const MessageArgument> arguments_;
  size_t next_ = 0;
};

class FormatScanner {
 public:
  FormatScanner(std::string_view format, ArgumentReader& arguments) : rest_(format), arguments_(arguments) {}

  bool AtEnd() const { return rest_.empty(); }

  // The plain text up to the next conversion.
  std::string_view TakeText() {
    const std::string_view text = rest_.substr(0, rest_.find('%'));
    rest_.remove_prefix(text.size());
    return text;
  }

  // The conversion that `rest_` begins with; its type is 0 if the format ends inside it.
  Conversion TakeConversion() {
    const std::string_view start = rest_;
    Conversion conversion;
    rest_.remove_prefix(1);
    conversion.flags = TakeSet(FLAGS);
    conversion.width = TakeSize();
    if (conversion.width < 0) {
      conversion.flags += '-';
      conversion.width = -conversion.width;
    }
    if (rest_.starts_with('.')) {
      rest_.remove_prefix(1);
      conversion.precision = TakeSize();
    }
    conversion.length = TakeSet(LENGTH_MODIFIERS);
    if (!rest_.empty()) {
      conversion.type = rest_.front();
      rest_.remove_prefix(1);
    }
    conversion.source = start.substr(0, start.size() - rest_.size());
    return conversion;
  }

 private:
  std::string TakeSet(std::string_view set) {
    const size_t length = std::min(rest_.find_first_not_of(set), rest_.size());
    std::string taken(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return taken;
  }

  int TakeSize() {
    if (rest_.starts_with('*')) {
      rest_.remove_prefix(1);
      return arguments_.NextSize();
    }
    int size = 0;
    while (!rest_.empty() && IsDigit(rest_.front())) {
      size = std::min(size * 10 + (rest_.front() - '0'), WIDEST_FIELD);
      rest_.remove_prefix(1);
    }
    return size;
  }

  std::string_view rest_;
  ArgumentReader& arguments_;
};

std::string FormatText(const Conversion& conversion, std::string text) {
  if (conversion.precision >= 0) {
    text.resize(std::min(text.size(), static_cast<size_t>(conversion.precision)));
  }
  const auto width = static_cast<size_t>(conversion.width);
  if (text.size() >= width) return text;
  const std::string padding(width - text.size(), ' ');
  return Contains(conversion.flags, '-') ? text + padding : padding + text;
}

// Prints one number by a format that is put together here from checked parts.
template <class Number>
std::string FormatNumber(const Conversion& conversion, std::string_view type, Number number) {
  std::string format = "%" + conversion.flags + "*.*";
  format += type;
  std::array<char, 2 * WIDEST_FIELD> buffer;
  std::snprintf(buffer.data(), buffer.size(), format.c_str(), conversion.width, conversion.precision, number);
  return buffer.data();
}

long long CutToLength(const std::string& length, long long number) {
  if (length.empty()) return static_cast<int32_t>(number);
  if (length == "h") return static_cast<int16_t>(number);
  if (length == "hh") return static_cast<int8_t>(number);
  return number;
}

unsigned long long CutToUnsignedLength(const std::string& length, long long number) {
  if (length.empty()) return static_cast<uint32_t>(number);
  if (length == "h") return static_cast<uint16_t>(number);
  if (length == "hh") return static_cast<uint8_t>(number);
  return static_cast<unsigned long long>(number);
}

std::string FormatInteger(const Conversion& conversion, long long number) {
  if (Contains(SIGNED_CONVERSIONS, conversion.type)) {
    return FormatNumber(conversion, "lld", CutToLength(conversion.length, number));
  }
  if (Contains(UNSIGNED_CONVERSIONS, conversion.type)) {
    const std::string type = std::string("ll") + conversion.type;
    return FormatNumber(conversion, type, CutToUnsignedLength(conversion.length, number));
  }
  if (Contains(FLOAT_CONVERSIONS, conversion.type)) {
    return FormatNumber(conversion, std::string(1, conversion.type), static_cast<double>(number));
  }
  if (conversion.type == 'c') return FormatText(conversion, std::string(1, static_cast<char>(number)));
  if (conversion.type == 'p') {
    return FormatNumber(conversion, "#llx", static_cast<unsigned long long>(number));
  }
  return FormatText(conversion, std::to_string(number));
}

bool TakesArgument(char type) {
  return Contains(SIGNED_CONVERSIONS, type) || Contains(UNSIGNED_CONVERSIONS, type) ||
         Contains(FLOAT_CONVERSIONS, type) || Contains("scpn", type);
}

std::string FormatArgument(const Conversion& conversion, const MessageArgument& argument) {
  if (conversion.type == 'n') return {};
  if (const auto* number = std::get_if<long long>(&argument)) return FormatInteger(conversion, *number);
  const auto& text = std::get<std::string>(argument);
  return FormatText(conversion, conversion.type == 'c' ? text.substr(0, 1) : text);
}

}  // namespace

std::string FormatMessage(std::string_view format, std::span<const MessageArgument> arguments) {
  ArgumentReader reader(arguments);
  FormatScanner scanner(format, reader);
  std::string result;
  while (!scanner.AtEnd()) {
    result += scanner.TakeText();
    if (scanner.AtEnd()) break;
    const Conversion conversion = scanner.TakeConversion();
    if (conversion.type == '%') {
      result += '%';
    } else if (!TakesArgument(conversion.type)) {
      result += conversion.source;
    } else if (const MessageArgument* argument = reader.Next()) {
      result += FormatArgument(conversion, *argument);
    }
  }
  return result;
}

}  // namespace ozmo
