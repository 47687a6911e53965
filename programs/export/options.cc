#include "programs/export/options.h"

#include <getopt.h>

#include "runtime/option_words.h"

namespace ozmo::exporting {
namespace {

constexpr int END_OF_OPTIONS = -1;

enum LongOption { TO = 256, VERSION };

constexpr option LONG_OPTIONS[] = {{"to", required_argument, nullptr, TO},
                                   {"output", required_argument, nullptr, 'o'},
                                   {"help", no_argument, nullptr, 'h'},
                                   {"version", no_argument, nullptr, VERSION},
                                   {nullptr, 0, nullptr, 0}};

std::string FormatWords() {
  std::string words;
  for (const Format& format : Formats()) words += (words.empty() ? "" : " or ") + std::string(format.word);
  return words;
}

std::string TakeOption(int number, Options& options) {
  switch (number) {
    case TO:
      options.format = FindFormat(optarg);
      return options.format != nullptr ? "" : "--to takes " + FormatWords() + ", and not \"" + optarg + "\"";
    case 'o':
      options.directory = optarg;
      return options.directory.empty() ? "-o takes a directory" : "";
    case 'h':
      options.action = Action::HELP;
      return "";
    default:
      options.action = Action::VERSION;
      return "";
  }
}

std::string CheckOptions(const Options& options) {
  if (options.format == nullptr) return "no --to: it takes " + FormatWords();
  if (options.dataFiles.empty()) return "no data file";
  return "";
}

}  // namespace

ParsedOptions ParseOptions(int argc, char* const argv[]) {
  ParsedOptions parsed;
  optind = 1;
  opterr = 0;
  for (;;) {
    const int number = getopt_long(argc, argv, ":ho:", LONG_OPTIONS, nullptr);
    if (number == END_OF_OPTIONS) break;
    parsed.failure = number == '?' || number == ':' ? RefusedOption(number, argc, argv, LONG_OPTIONS)
                                                    : TakeOption(number, parsed.options);
    if (!parsed.failure.empty() || parsed.options.action != Action::EXPORT) return parsed;
  }
  parsed.options.dataFiles.assign(argv + optind, argv + argc);
  parsed.failure = CheckOptions(parsed.options);
  return parsed;
}

std::string HelpText() {
  return "usage: ozmo_export --to " + FormatWords() +
         " [-o DIR] FILE...\n"
         "Writes the figures of data files for other programs to read, below DIR/day=YYYY-MM-DD/host=NAME/.\n"
         "\n"
         "      --to openmetrics  items.om, text for VictoriaMetrics and Prometheus\n"
         "      --to csv          items.csv, a line a value, and processes.csv, a line a process and "
         "interval,\n"
         "                        for DuckDB and others that read tables in place\n"
         "  -o, --output DIR      where to; it is made if it isn't there (the working directory)\n"
         "  -h, --help\n"
         "      --version\n"
         "\n"
         "A FILE is a data file of any kind, and is taken as its day, or a recording of atop, sysstat or\n"
         "Performance Co-Pilot. Files of an earlier export are replaced.\n"
         "Days are local, times in the files are in UTC.\n"
         "Status: 0 done, 1 a failure, 2 usage.\n";
}

}  // namespace ozmo::exporting
