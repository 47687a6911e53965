// Texts that are made with a name at run time.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace ozmo {

// Appends `format` to `text`, each %s replaced by the next of `names`.
inline void AppendNames(std::string& text, std::string_view format,
                        std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) {
    const size_t place = format.find("%s");
    if (place == std::string_view::npos) break;
    text.append(format.substr(0, place)).append(name);
    format.remove_prefix(place + 2);
  }
  text.append(format);
}

inline std::string NameText(std::string_view format, std::string_view name) {
  std::string text;
  AppendNames(text, format, {name});
  return text;
}

}  // namespace ozmo
