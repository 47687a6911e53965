#include "programs/import/options.h"

#include <getopt.h>

#include "programs/host_file/node_name.h"
#include "programs/import/source.h"
#include "runtime/option_words.h"
#include "runtime/times.h"

namespace ozmo::import {
namespace {

constexpr int END_OF_OPTIONS = -1;

enum LongOption { FROM = 256, NODE_NAME, PASSWD, BEGIN, END, VERSION };

constexpr option LONG_OPTIONS[] = {{"output", required_argument, nullptr, 'o'},
                                   {"directory", required_argument, nullptr, 'o'},  // another name of it
                                   {"from", required_argument, nullptr, FROM},
                                   {"node", required_argument, nullptr, NODE_NAME},
                                   {"passwd", required_argument, nullptr, PASSWD},
                                   {"begin", required_argument, nullptr, BEGIN},
                                   {"end", required_argument, nullptr, END},
                                   {"help", no_argument, nullptr, 'h'},
                                   {"version", no_argument, nullptr, VERSION},
                                   {nullptr, 0, nullptr, 0}};

std::string TakeText(std::string& target, const char* option) {
  target = optarg;
  return target.empty() ? std::string(option) + " takes a name" : "";
}

std::string TakeTime(std::optional<int64_t>& time, const char* option) {
  time = TimeOf(optarg);
  if (time) return "";
  return std::string(option) + " takes a time as 2012-02-22T08:00 or 22-Feb-2012:08:00:00, and not \"" +
         optarg + "\"";
}

std::string TakeSource(std::string& from) {
  from = optarg;
  if (FindSource(from) != nullptr) return "";
  std::string known;
  for (const Source* source : Sources()) known += " " + std::string(source->name);
  return "--from takes one of" + known + ", and not \"" + from + "\"";
}

std::string TakeNode(std::string& node) {
  node = optarg;
  return node.empty() ? "--node takes a name" : host_file::CheckNode(node);
}

std::string TakeOption(int number, Options& options) {
  switch (number) {
    case 'o':
      return TakeText(options.directory, "-o");
    case FROM:
      return TakeSource(options.from);
    case NODE_NAME:
      return TakeNode(options.node);
    case PASSWD:
      return TakeText(options.passwdFile, "--passwd");
    case BEGIN:
      return TakeTime(options.begin, "--begin");
    case END:
      return TakeTime(options.end, "--end");
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
    const int number = getopt_long(argc, argv, ":ho:", LONG_OPTIONS, nullptr);
    if (number == END_OF_OPTIONS) break;
    parsed.failure = number == '?' || number == ':' ? RefusedOption(number, argc, argv, LONG_OPTIONS)
                                                    : TakeOption(number, parsed.options);
    if (!parsed.failure.empty() || parsed.options.action != Action::IMPORT) return parsed;
  }
  parsed.options.sources.assign(argv + optind, argv + argc);
  if (parsed.options.sources.empty()) parsed.failure = "no recording to import";
  const Options& options = parsed.options;
  if (options.begin && options.end && *options.begin > *options.end) {
    parsed.failure = "--begin is after --end";
  }
  return parsed;
}

std::string HelpText() {
  std::string names;
  for (const Source* source : Sources()) names += (names.empty() ? "" : ", ") + std::string(source->name);
  return "usage: ozmo_import [option ...] RECORDING...\n"
         "Makes Linux data files of what other programs recorded: a file a host and day, and prints their "
         "names.\n"
         "A RECORDING is a file of one of these programs, or the text that it prints; - is standard input.\n"
         "\n"
         "  -o, --output DIR     where the files go; it is made if it isn't there (the working directory)\n"
         "      --from SOURCE    one of " +
         names +
         " (what the content says)\n"
         "      --node NAME      name of the host (the one in the recording)\n"
         "      --passwd FILE    names of users, as /etc/passwd has them (this host's, for its own "
         "recordings)\n"
         "      --begin TIME     leave out samples that end before: 2012-02-22T08:00 or "
         "22-Feb-2012:08:00:00\n"
         "      --end TIME       leave out samples that end after\n"
         "  -h, --help\n"
         "      --version\n"
         "\n"
         "No file that is there is changed; a day goes on in one of the next number.\n"
         "Status: 0 done, 1 a failure, 2 usage.\n";
}

}  // namespace ozmo::import
