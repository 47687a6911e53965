#include "programs/report/options.h"

#include <getopt.h>

#include <ctime>

#include "programs/report/baseline.h"
#include "runtime/option_words.h"

namespace ozmo::report {
namespace {

constexpr int END_OF_OPTIONS = -1;

// A value of its own for each option without a letter.
enum LongOption {
  BEGIN = 256,
  END,
  ITEM,
  CLASSES,
  BASELINE,
  MARKS,
  GRAPHS,
  TYPE,
  SIZE,
  LIST,
  SUMMARY,
  CSV,
  VERSION
};

constexpr option LONG_OPTIONS[] = {
    {"begin", required_argument, nullptr, BEGIN},       {"end", required_argument, nullptr, END},
    {"item", required_argument, nullptr, ITEM},         {"classes", required_argument, nullptr, CLASSES},
    {"baseline", required_argument, nullptr, BASELINE}, {"marks", required_argument, nullptr, MARKS},
    {"graphs", required_argument, nullptr, GRAPHS},     {"type", required_argument, nullptr, TYPE},
    {"size", required_argument, nullptr, SIZE},         {"list", no_argument, nullptr, LIST},
    {"summary", optional_argument, nullptr, SUMMARY},   {"csv", required_argument, nullptr, CSV},
    {"output", required_argument, nullptr, 'o'},        {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, VERSION},         {nullptr, 0, nullptr, 0}};

std::string TakeTime(std::optional<Seconds>& time, const char* option, const char* text, DayEdge edge) {
  time = TimeOf(text, edge);
  if (time) return "";
  return std::string(option) + " takes a time as 2012-02-22T08:00 or 22-Feb-2012:08:00:00, and not \"" +
         text + "\"";
}

std::string TakeText(std::string& target, const char* option, const char* text) {
  target = text;
  return target.empty() ? std::string(option) + " takes a name" : "";
}

std::string TakeType(PictureForm& form, const char* word) {
  const std::optional<GraphType> type = PictureTypeOf(word);
  if (!type) return std::string("--type takes gif, ps or jpeg, and not \"") + word + "\"";
  form.type = *type;
  return "";
}

// Takes one option; returns what is wrong with it.
std::string TakeOption(Options& options, int number, const char* value) {
  switch (number) {
    case BEGIN:
      return TakeTime(options.begin, "--begin", value, DayEdge::BEGIN);
    case END:
      return TakeTime(options.end, "--end", value, DayEdge::END);
    case ITEM:
      options.items.emplace_back(value);
      return "";
    case CLASSES:
      return TakeText(options.classFile, "--classes", value);
    case BASELINE:
      if (std::string failure = BadTimeBack(value); !failure.empty()) return failure;
      return TakeText(options.baseline, "--baseline", value);
    case MARKS:
      return TakeText(options.marksFile, "--marks", value);
    case GRAPHS:
      return TakeText(options.pictureDirectory, "--graphs", value);
    case TYPE:
      return TakeType(options.picture, value);
    case SIZE:
      if (TakeSize(value, options.picture)) return "";
      return std::string("--size takes width and height in dots as 720x556, and not \"") + value + "\"";
    case CSV:
      return TakeText(options.csvDirectory, "--csv", value);
    case 'o':
      return TakeText(options.pageFile, "-o", value);
    case LIST:
      options.list = true;
      return "";
    case SUMMARY:
      options.summary = true;
      return value == nullptr ? "" : TakeText(options.summaryFile, "--summary=", value);
    case 'h':
      options.action = Action::HELP;
      return "";
    case VERSION:
      options.action = Action::VERSION;
      return "";
    default:
      return "unknown option";
  }
}

std::string CheckOptions(const Options& options) {
  if (options.begin && options.end && *options.begin >= *options.end) return "--end is not after --begin";
  return "";
}

}  // namespace

ParsedOptions ParseOptions(int argc, char* const argv[]) {
  ParsedOptions parsed;
  optind = 1;
  opterr = 0;
  for (;;) {
    const int result = getopt_long(argc, argv, ":ho:", LONG_OPTIONS, nullptr);
    if (result == END_OF_OPTIONS) break;
    parsed.failure = result == '?' || result == ':' ? RefusedOption(result, argc, argv, LONG_OPTIONS)
                                                    : TakeOption(parsed.options, result, optarg);
    if (!parsed.failure.empty() || parsed.options.action != Action::REPORT) return parsed;
  }
  if (optind + 1 == argc && argv[optind][0] != '\0') {
    parsed.options.dataFile = argv[optind];
    parsed.failure = CheckOptions(parsed.options);
  } else {
    parsed.failure = optind + 1 < argc ? "more than one data file" : "no data file";
  }
  return parsed;
}

std::optional<Seconds> TimeOf(const std::string& text, DayEdge edge) {
  if (const std::optional<Seconds> time = ozmo::TimeOf(text)) return time;
  std::tm clock{};
  if (edge == DayEdge::END) {
    clock.tm_hour = 23;
    clock.tm_min = 59;
    clock.tm_sec = 59;
  }
  return ozmo::TimeOf(text, "%Y-%m-%d", clock);
}

std::string HelpText() {
  return "usage: ozmo_report [option ...] FILE\n"
         "Shows all graphs of a data file on one page.\n"
         "\n"
         "  -o, --output PAGE.html  the page (the data file's name with .html, in the working directory)\n"
         "      --csv DIR           a CSV file for each item, into the directory DIR\n"
         "      --graphs DIR        a picture of each item, as ozmo_graph draws it, into the directory DIR\n"
         "      --type TYPE         of the pictures: gif (also without it), ps or jpeg\n"
         "      --size WxH          of the pictures, in dots (the page of ozmo_graph, 11 by 8.5 inches)\n"
         "      --list              the items of the file with their traces, on standard output\n"
         "      --summary[=FILE]    the figures by which hosts are compared, on standard output or into "
         "FILE\n"
         "      --begin TIME        first minute of the span (the first day of the file)\n"
         "      --end TIME          last minute of the span (the end of the day of the begin)\n"
         "      --item TITLE        only this item; may be given more than once\n"
         "      --baseline WHAT     compare with WHAT: a data file, or so long before as 1d, 7d or 2w\n"
         "      --marks FILE        moments to show in all charts: a line a mark, its time and a text\n"
         "      --classes FILE      workload classes (QTX.memory in the working directory)\n"
         "  -h, --help\n"
         "      --version\n"
         "\n"
         "With --list, --summary, --csv or --graphs a page is written only if -o names it. DIR is made if "
         "it\n"
         "isn't there. A TIME is local: 2012-02-22T08:00, 2012-02-22 or 22-Feb-2012:08:00:00. Status: 0 "
         "done,\n"
         "1 nothing to show or a failure, 2 usage.\n";
}

}  // namespace ozmo::report
