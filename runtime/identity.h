// Which product this is: the words that head banners and messages and name its files and variables.
#pragma once

namespace ozmo {

inline constexpr const char* VERSION_TEXT = "V10.0-001";
inline constexpr const char* PRODUCT_NAME = "Ozmo Plan";
inline constexpr const char* MESSAGE_HEAD = "VELTRIX";
inline constexpr const char* LIBRARY_VARIABLE = "VELTRIX_LIBRARY";
inline constexpr const char* MESSAGE_FILE = "db/veltrix_messages.msg";  // below the library directory

}  // namespace ozmo
