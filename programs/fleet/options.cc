#include "programs/fleet/options.h"

#include <getopt.h>

#include <charconv>
#include <string_view>

#include "runtime/option_words.h"

namespace ozmo::fleet {
namespace {

constexpr int END_OF_OPTIONS = -1;
constexpr int MOST_JOBS = 1024;

enum LongOption { PAGES = 256, TSV, LIMIT, VERSION };

constexpr option LONG_OPTIONS[] = {
    {"output", required_argument, nullptr, 'o'},  {"jobs", required_argument, nullptr, 'j'},
    {"pages", required_argument, nullptr, PAGES}, {"tsv", required_argument, nullptr, TSV},
    {"limit", required_argument, nullptr, LIMIT}, {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, VERSION},   {nullptr, 0, nullptr, 0}};

std::string TakeName(std::string& target, const char* option) {
  target = optarg;
  return target.empty() ? std::string(option) + " takes a name" : "";
}

std::string TakeJobs(int& jobs) {
  const std::string_view text = optarg;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), jobs);
  if (error == std::errc() && end == text.data() + text.size() && jobs >= 1 && jobs <= MOST_JOBS) return "";
  return "-j takes a number from 1 to " + std::to_string(MOST_JOBS) + ", and not \"" + optarg + "\"";
}

std::string TakeLimit(std::vector<Limit>& limits) {
  const std::optional<Limit> limit = LimitOf(optarg);
  if (!limit) return std::string("--limit takes ") + LimitForm() + ", and not \"" + optarg + "\"";
  limits.push_back(*limit);
  return "";
}

// Takes one option; returns what is wrong with it.
std::string TakeOption(int number, Options& options) {
  switch (number) {
    case 'o':
      return TakeName(options.pageFile, "-o");
    case 'j':
      return TakeJobs(options.jobs);
    case PAGES:
      return TakeName(options.pagesDirectory, "--pages");
    case TSV:
      return TakeName(options.tableFile, "--tsv");
    case LIMIT:
      return TakeLimit(options.limits);
    case 'h':
      options.action = Action::HELP;
      return "";
    default:
      options.action = Action::VERSION;
      return "";
  }
}

}  // namespace

ParsedOptions ParseOptions(int argc, char* const argv[]) {
  ParsedOptions parsed;
  optind = 1;
  opterr = 0;
  for (;;) {
    const int number = getopt_long(argc, argv, ":ho:j:", LONG_OPTIONS, nullptr);
    if (number == END_OF_OPTIONS) break;
    parsed.failure = number == '?' || number == ':' ? RefusedOption(number, argc, argv, LONG_OPTIONS)
                                                    : TakeOption(number, parsed.options);
    if (!parsed.failure.empty() || parsed.options.action != Action::SHOW) return parsed;
  }
  parsed.options.inputs.assign(argv + optind, argv + argc);
  if (parsed.options.inputs.empty()) parsed.failure = "no data file, directory or summary";
  return parsed;
}

std::string HelpText() {
  return "usage: ozmo_fleet [option ...] INPUT...\n"
         "Shows many hosts on one page: a table, a row a host and day, and a map of their hours.\n"
         "An INPUT is a data file of any kind, a recording of atop, sysstat or Performance Co-Pilot, a "
         "directory\n"
         "of them, or summaries of ozmo_report.\n"
         "\n"
         "  -o, --output PAGE.html  the page (fleet.html)\n"
         "  -j, --jobs N            work on N data files at a time (one for each processor)\n"
         "      --pages DIR         a page of ozmo_report for each data file, into the directory DIR\n"
         "      --tsv FILE          the table as text, columns separated by tabs\n"
         "      --limit LIMIT       say who is over it: \"cpu p95 > 90\", \"missing > 60\"; may be given "
         "more than "
         "once\n"
         "  -h, --help\n"
         "      --version\n"
         "\n"
         "What was worked out is kept in PAGE.summaries and used again while the data files are the same.\n"
         "Status: 0 done, 1 a failure, 2 usage, 3 somebody is over a limit.\n";
}

}  // namespace ozmo::fleet
