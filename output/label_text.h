// Texts as libplot takes them.
#pragma once

#include <string>
#include <string_view>

namespace ozmo {

// A label that is drawn as the characters of `text`. Titles and trace labels hold names of processes and
// disks, and a backslash in one of them would act as markup: "\\ep" makes all that follows larger, for one.
std::string LabelText(std::string_view text);

}  // namespace ozmo
