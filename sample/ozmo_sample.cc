// ozmo_sample: writes a day of collector data for the demo, the tests and the benchmarks.

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "sample/day.h"

namespace {

using ozmo::sample::SampleOptions;
using ozmo::sample::SampleResult;

struct KindName {
  std::string_view name;
  SampleResult (*write)(const SampleOptions& options);
};

constexpr KindName KINDS[] = {
    {"solaris", ozmo::sample::WriteSolarisSample}, {"linux", ozmo::sample::WriteLinuxSample},
    {"aix", ozmo::sample::WriteAixSample},         {"hpux", ozmo::sample::WriteHpuxSample},
    {"tru64", ozmo::sample::WriteTru64Sample},     {"vmr", ozmo::sample::WriteVmrSample},
};

struct NumberOption {
  std::string_view name;
  int SampleOptions::*target;
  int smallest;
  int largest;
};

constexpr NumberOption NUMBER_OPTIONS[] = {
    {"--start-hour", &SampleOptions::startHour, 0, 23},
    {"--hours", &SampleOptions::hours, 1, 24 * 366},
    {"--interval", &SampleOptions::intervalSeconds, 1, 86400},
    {"--seed", &SampleOptions::seed, 0, 1000000000},
    {"--files", &SampleOptions::filesPerDay, 1, 1440},
    {"--utc-offset", &SampleOptions::utcOffset, -86400, 86400},
    {"--scale", &SampleOptions::scale, 1, 1000},
};

struct TextOption {
  std::string_view name;
  std::string SampleOptions::*target;
};

constexpr TextOption TEXT_OPTIONS[] = {
    {"--node", &SampleOptions::node},
    {"--version", &SampleOptions::version},
};

constexpr char USAGE[] =
    "usage: ozmo_sample KIND DIR [option ...]\n"
    "KIND: solaris linux aix hpux tru64 vmr; the files go to the directory DIR\n"
    "  --date YYYY-MM-DD    first day (2012-02-22)\n"
    "  --start-hour H       hour of the first sample (0)\n"
    "  --hours N            length of the span; each day has files of its own (24)\n"
    "  --interval SECONDS   time between samples (60)\n"
    "  --seed N             another number, another day (1)\n"
    "  --version TEXT       collector version (the newest of the kind)\n"
    "  --node NAME          host name (node)\n"
    "  --files N            files a day, numbered from 1 (1)\n"
    "  --utc-offset SECONDS the host's offset from UTC (0)\n"
    "  --scale N            N times the processes (1)\n"
    "  --little-endian      Solaris: little-endian numbers, file prefix qtxsx_\n";

bool ParseNumber(std::string_view text, int& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

bool ParseDate(const std::string& text, std::chrono::year_month_day& date) {
  int year = 0;
  unsigned month = 0;
  unsigned day = 0;
  char rest = 0;
  if (std::sscanf(text.c_str(), "%4d-%2u-%2u%c", &year, &month, &day, &rest) != 3) {
    return false;
  }
  date = {std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
  return date.ok() && year >= 1970;
}

// Takes one option with its value; false when it is unknown or the value can't be.
bool TakeOption(std::string_view name, const std::string& value, SampleOptions& options) {
  for (const NumberOption& option : NUMBER_OPTIONS) {
    if (name == option.name) {
      int number = 0;
      const bool good = ParseNumber(value, number) && number >= option.smallest && number <= option.largest;
      options.*option.target = number;
      return good;
    }
  }
  for (const TextOption& option : TEXT_OPTIONS) {
    if (name == option.name) {
      options.*option.target = value;
      return !value.empty();
    }
  }
  return name == "--date" && ParseDate(value, options.date);
}

// The place of the argument that can't be taken, or 0.
int ParseArguments(int argc, char** argv, SampleOptions& options) {
  for (int i = 3; i < argc; ++i) {
    if (std::strcmp(argv[i], "--little-endian") == 0) {
      options.littleEndian = true;
    } else if (i + 1 == argc || !TakeOption(argv[i], argv[i + 1], options)) {
      return i;
    } else {
      ++i;
    }
  }
  return 0;
}

int WriteKind(std::string_view name, const SampleOptions& options) {
  for (const KindName& kind : KINDS) {
    if (name == kind.name) {
      const SampleResult result = kind.write(options);
      for (const std::string& file : result.files) {
        std::printf("%s\n", file.c_str());
      }
      if (!result.error.empty()) {
        std::fprintf(stderr, "ozmo_sample: %s\n", result.error.c_str());
        return 1;
      }
      return 0;
    }
  }
  std::fprintf(stderr, "ozmo_sample: unknown kind %s\n%s", std::string(name).c_str(), USAGE);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs(USAGE, stderr);
    return 2;
  }
  SampleOptions options;
  options.directory = argv[2];
  if (const int bad = ParseArguments(argc, argv, options); bad != 0) {
    std::fprintf(stderr, "ozmo_sample: can't take %s\n%s", argv[bad], USAGE);
    return 2;
  }
  return WriteKind(argv[1], options);
}
