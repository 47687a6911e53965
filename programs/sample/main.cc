// ozmo_sample: writes days of sample data of every kind, for the demo, the tests and the benchmarks.

#include <getopt.h>

#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "programs/sample/kinds.h"
#include "runtime/console.h"
#include "runtime/identity.h"
#include "runtime/option_words.h"

namespace {

using ozmo::sample::SampleKind;
using ozmo::sample::SampleOptions;
using ozmo::sample::SampleResult;

constexpr const char* PROGRAM = "ozmo_sample";

constexpr char HELP[] =
    "usage: ozmo_sample KIND DIRECTORY [option ...]\n"
    "Writes the data files of a host that doesn't exist into DIRECTORY, which is made if it isn't there,\n"
    "and lists them on standard output. The same arguments give the same bytes.\n"
    "\n"
    "KIND is solaris, linux, aix, hpux, tru64 or vmr, each a host of its own.\n"
    "\n"
    "      --date YYYY-MM-DD     first day (2012-02-22)\n"
    "      --start-hour HOUR     hour of the first sample (0)\n"
    "      --hours NUMBER        length of the span; each day has files of its own (24)\n"
    "      --interval SECONDS    time between samples (60)\n"
    "      --files NUMBER        files a day, numbered from 1 (1)\n"
    "      --seed NUMBER         another number, another day (1)\n"
    "      --scale NUMBER        so many times the processes (1)\n"
    "      --node NAME           host name (the host's own)\n"
    "      --collector VERSION   collector version (the host's own); --version VERSION says the same\n"
    "      --utc-offset SECONDS  the host's offset from UTC (0)\n"
    "      --plant CHANGE        a change against the other days: runaway (processes that take all they "
    "get),\n"
    "                            slow-disk, system-time (in place of the user's) or leak (of memory)\n"
    "      --plant-hour HOUR     from this hour of each day on (0)\n"
    "      --little-endian       Solaris: little-endian numbers, file prefix qtxsx_\n"
    "  -f, --force               replace the files that DIRECTORY has of these days: files of the same\n"
    "                            names are written over, those with higher numbers are removed\n"
    "      --list                the kinds, their hosts and collector versions, on standard output\n"
    "  -h, --help\n"
    "      --version             without other arguments\n"
    "\n"
    "Without --force nothing is written if one of the files is there already. Status: 0 done, 1 a failure,\n"
    "2 usage.\n";

struct NumberOption {
  const char* name;
  int SampleOptions::*target;
  int smallest;
  int largest;
};

constexpr NumberOption NUMBER_OPTIONS[] = {
    {"start-hour", &SampleOptions::startHour, 0, 23},
    {"hours", &SampleOptions::hours, 1, 24 * 366},
    {"interval", &SampleOptions::intervalSeconds, 1, 86400},
    {"files", &SampleOptions::filesPerDay, 1, 1440},
    {"seed", &SampleOptions::seed, 0, 1000000000},
    {"scale", &SampleOptions::scale, 1, 1000},
    {"plant-hour", &SampleOptions::plantHour, 0, 23},
    {"utc-offset", &SampleOptions::utcOffset, -86400, 86400},
};

struct TextOption {
  const char* name;
  std::string SampleOptions::*target;
};

constexpr TextOption TEXT_OPTIONS[] = {
    {"node", &SampleOptions::node},
    {"collector", &SampleOptions::version},
    {"version", &SampleOptions::version},
    {"plant", &SampleOptions::plant},
};

constexpr int END_OF_OPTIONS = -1;

// What getopt_long returns: these, or the place of the option in its table.
enum Letter {
  DATE = 256,
  LIST,
  LITTLE_ENDIAN_NUMBERS,
  FORCE = 'f',
  HELP_TEXT = 'h',
  NUMBERS = 512,
  TEXTS = 1024
};

std::vector<option> LongOptions() {
  std::vector<option> options = {{"date", required_argument, nullptr, DATE},
                                 {"little-endian", no_argument, nullptr, LITTLE_ENDIAN_NUMBERS},
                                 {"force", no_argument, nullptr, FORCE},
                                 {"list", no_argument, nullptr, LIST},
                                 {"help", no_argument, nullptr, HELP_TEXT}};
  int place = NUMBERS;
  for (const NumberOption& row : NUMBER_OPTIONS) {
    options.push_back({row.name, required_argument, nullptr, place++});
  }
  place = TEXTS;
  for (const TextOption& row : TEXT_OPTIONS) {
    options.push_back({row.name, required_argument, nullptr, place++});
  }
  options.push_back({nullptr, 0, nullptr, 0});
  return options;
}

std::string TakeNumber(const NumberOption& row, std::string_view text, SampleOptions& options) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = error == std::errc() && end == text.data() + text.size();
  if (isNumber && number >= row.smallest && number <= row.largest) {
    options.*row.target = number;
    return "";
  }
  return std::string("--") + row.name + " takes a whole number from " + std::to_string(row.smallest) +
         " to " + std::to_string(row.largest) + ", and not \"" + std::string(text) + "\"";
}

std::string TakeText(const TextOption& row, std::string_view text, SampleOptions& options) {
  options.*row.target = text;
  return text.empty() ? std::string("--") + row.name + " takes a name" : "";
}

// Time stamps have 32 bits, so the last year is 2037.
std::string TakeDate(const char* text, SampleOptions& options) {
  int year = 0;
  unsigned month = 0;
  unsigned day = 0;
  char rest = 0;
  if (std::sscanf(text, "%4d-%2u-%2u%c", &year, &month, &day, &rest) == 3) {
    options.date = {std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
    if (options.date.ok() && year > 1970 && year < 2038) return "";
  }
  return std::string("--date takes a day from 1971 to 2037 as 2012-02-22, and not \"") + text + "\"";
}

// Takes an option that getopt_long has met; returns what is wrong with it.
std::string TakeOption(int letter, SampleOptions& options) {
  switch (letter) {
    case DATE:
      return TakeDate(optarg, options);
    case LITTLE_ENDIAN_NUMBERS:
      options.littleEndian = true;
      return "";
    case FORCE:
      options.replace = true;
      return "";
    default:
      return letter >= TEXTS ? TakeText(TEXT_OPTIONS[letter - TEXTS], optarg, options)
                             : TakeNumber(NUMBER_OPTIONS[letter - NUMBERS], optarg, options);
  }
}

int UsageError(const std::string& reason) {
  ozmo::Complain(PROGRAM, reason);
  std::fputs("ozmo_sample --help says more.\n", stderr);
  return ozmo::USAGE_STATUS;
}

int ShowHelp() {
  std::fputs(HELP, stdout);
  return ozmo::DONE_STATUS;
}

int ListKinds() {
  for (const SampleKind* kind : ozmo::sample::SampleKinds()) {
    std::printf("%-8.*s %-8.*s", static_cast<int>(kind->name.size()), kind->name.data(),
                static_cast<int>(kind->host.name.size()), kind->host.name.data());
    for (const auto& version : kind->versions) std::printf(" %s", std::string(version.text).c_str());
    std::printf("\n");
  }
  return ozmo::DONE_STATUS;
}

std::string UnknownKind(const std::string& name) {
  std::string known;
  for (const SampleKind* kind : ozmo::sample::SampleKinds()) known += " " + std::string(kind->name);
  return "unknown kind \"" + name + "\"; there are" + known;
}

int Write(const std::string& kindName, const SampleOptions& options) {
  const SampleKind* kind = ozmo::sample::FindSampleKind(kindName);
  if (kind == nullptr) return UsageError(UnknownKind(kindName));
  const std::string wrong = CheckOptions(*kind, options);
  if (!wrong.empty()) return UsageError(wrong);
  const SampleResult result = WriteSample(*kind, options);
  for (const std::string& file : result.files) std::printf("%s\n", file.c_str());
  if (result.error.empty()) return ozmo::DONE_STATUS;
  ozmo::Complain(PROGRAM, result.error);
  return ozmo::FAILED_STATUS;
}

int Run(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--version") {
    std::printf("ozmo_sample %s\n", ozmo::ProductIdentityInit().versionText.c_str());
    return ozmo::DONE_STATUS;
  }
  const std::vector<option> longOptions = LongOptions();
  SampleOptions options;
  opterr = 0;
  for (;;) {
    const int letter = getopt_long(argc, argv, ":fh", longOptions.data(), nullptr);
    if (letter == END_OF_OPTIONS) break;
    if (letter == HELP_TEXT) return ShowHelp();
    if (letter == LIST) return ListKinds();
    const std::string wrong = letter == '?' || letter == ':'
                                  ? ozmo::RefusedOption(letter, argc, argv, longOptions.data())
                                  : TakeOption(letter, options);
    if (!wrong.empty()) return UsageError(wrong);
  }
  if (argc - optind != 2) return UsageError("a kind and a directory are wanted, and nothing else");
  options.directory = argv[optind + 1];
  return Write(argv[optind], options);
}

}  // namespace

int main(int argc, char** argv) {
  ozmo::OpenStandardStreams();
  return ozmo::CloseOutput(PROGRAM, Run(argc, argv));
}
