// The kinds of files, one row each, and the way from what is asked for to the files of a sample.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "programs/sample/day_files.h"
#include "programs/sample/host_model.h"
#include "programs/sample/layouts.h"

namespace ozmo::sample {

// What a file is made from, with every option settled.
struct SampleContext {
  const SampleOptions& options;
  HostDescription host;
  std::string node;
  std::string versionText;  // as it is in the file
  uint32_t versionBit;      // the layout that it selects; 0: a kind without versions
};

struct SampleKind {
  std::string_view name;
  const HostDescription& host;
  std::span<const VersionLayout> versions;  // the host's own first; none: a text file
  std::string_view filePrefix;              // with its "_"
  std::string_view numberMark = ".dat_";    // between the date and the number of the file
  std::string_view suffix{};                // after the number
  std::string_view littleEndianPrefix{};    // of files in the other byte order; empty: there are none
  std::string (*fileBytes)(const SampleContext& context, const FileOfDay& file);
};

// Each is described in the file of its name.
namespace solaris_sample {
extern const SampleKind KIND;
}
namespace linux_sample {
extern const SampleKind KIND;
}
namespace aix_sample {
extern const SampleKind KIND;
}
namespace hpux_sample {
extern const SampleKind KIND;
}
namespace tru64_sample {
extern const SampleKind KIND;
}
namespace vmr_sample {
extern const SampleKind KIND;
}

// In the order in which they are listed to users.
std::span<const SampleKind* const> SampleKinds();

// Null for an unknown name.
const SampleKind* FindSampleKind(std::string_view name);

// What the kind can't do of what is asked, and what it can; empty: nothing.
std::string CheckOptions(const SampleKind& kind, const SampleOptions& options);

// The files written, in the order of their times, and what went wrong, with the system's reason.
struct SampleResult {
  std::vector<std::string> files;
  std::string error;
};

// Writes "<prefix><node>_<date><mark><number><suffix>" for each file of the span. Files that the directory
// has of one of the days already are a failure, and nothing is written: a reader takes all numbers of a day
// in a row. With `replace` they are written over, and those with higher numbers are removed. A file that
// can't be written whole is removed.
SampleResult WriteSample(const SampleKind& kind, const SampleOptions& options);

}  // namespace ozmo::sample
