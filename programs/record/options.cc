#include "programs/record/options.h"

#include <getopt.h>

#include <charconv>
#include <optional>
#include <string_view>

#include "programs/record/host_clock.h"
#include "runtime/option_words.h"
#include "runtime/times.h"

namespace ozmo::record {
namespace {

constexpr int END_OF_OPTIONS = -1;

enum LongOption { INTERVAL = 256, COUNT, UNTIL, NODE, KEEP, KEEP_SIZE, NO_COMPRESS, VERSION };

constexpr option LONG_OPTIONS[] = {
    {"interval", required_argument, nullptr, INTERVAL}, {"count", required_argument, nullptr, COUNT},
    {"until", required_argument, nullptr, UNTIL},       {"node", required_argument, nullptr, NODE},
    {"keep", required_argument, nullptr, KEEP},         {"keep-size", required_argument, nullptr, KEEP_SIZE},
    {"no-compress", no_argument, nullptr, NO_COMPRESS}, {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, VERSION},         {nullptr, 0, nullptr, 0}};

template <class Number>
std::string TakeNumber(const char* option, Number largest, Number& number) {
  const std::string_view text = optarg;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && end == text.data() + text.size() && number >= 1 && number <= largest) return "";
  return std::string(option) + " takes a whole number from 1 to " + std::to_string(largest) + ", and not \"" +
         optarg + "\"";
}

std::string TakeUntil(int64_t& until) {
  const std::optional<Seconds> time = TimeOf(optarg);
  if (!time) {
    return std::string("--until takes a time as 2012-02-22T08:00 or 22-Feb-2012:08:00:00, and not \"") +
           optarg + "\"";
  }
  until = *time;
  return until > Now().Stamp() ? "" : std::string("--until ") + optarg + " is past";
}

// A number of bytes, or of units of 1024 and its powers.
std::string TakeSize(int64_t& size) {
  constexpr std::string_view UNITS = "KMGT";
  constexpr int64_t LARGEST = int64_t{1} << 50U;
  const std::string_view text = optarg;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
  const std::string_view unit = text.substr(static_cast<size_t>(end - text.data()));
  const size_t power = unit.empty() ? 0 : UNITS.find(unit) + 1;  // 0 again for what is no unit
  const bool isUnit = unit.empty() || (unit.size() == 1 && power > 0);
  if (error == std::errc() && isUnit && size >= 1 && size <= LARGEST >> (10 * power)) {
    size <<= 10 * power;
    return "";
  }
  return "--keep-size takes a size as 800M or 20G, and not \"" + std::string(text) + "\"";
}

std::string TakeOption(int number, int argc, char* const argv[], ParsedOptions& parsed) {
  constexpr int32_t DAY = 86400;
  constexpr int64_t MANY = 1'000'000'000;
  constexpr int32_t MOST_DAYS = 36500;
  switch (number) {
    case INTERVAL:
      return TakeNumber("--interval", DAY, parsed.options.intervalSeconds);
    case COUNT:
      return TakeNumber("--count", MANY, parsed.options.count);
    case UNTIL:
      return TakeUntil(parsed.options.until);
    case NODE:
      parsed.options.node = optarg;
      return parsed.options.node.empty() ? "--node takes a name" : "";
    case KEEP:
      return TakeNumber("--keep", MOST_DAYS, parsed.options.retention.keepDays);
    case KEEP_SIZE:
      return TakeSize(parsed.options.retention.keepBytes);
    case NO_COMPRESS:
      parsed.options.retention.compresses = false;
      return "";
    case 'h':
      parsed.action = Action::HELP;
      return "";
    case VERSION:
      parsed.action = Action::VERSION;
      return "";
    default:
      return RefusedOption(number, argc, argv, LONG_OPTIONS);
  }
}

}  // namespace

ParsedOptions ParseOptions(int argc, char* const argv[]) {
  ParsedOptions parsed;
  opterr = 0;
  for (;;) {
    const int number = getopt_long(argc, argv, ":h", LONG_OPTIONS, nullptr);
    if (number == END_OF_OPTIONS) break;
    parsed.failure = TakeOption(number, argc, argv, parsed);
    if (!parsed.failure.empty() || parsed.action != Action::RECORD) return parsed;
  }
  if (optind + 1 == argc && argv[optind][0] != '\0') {
    parsed.options.directory = argv[optind];
  } else {
    parsed.failure = "a directory is wanted, and nothing else";
  }
  if (parsed.options.count != 0 && parsed.options.until != 0) {
    parsed.failure = "--count and --until can't both be given";
  }
  return parsed;
}

std::string HelpText() {
  return "usage: ozmo_record DIRECTORY [option ...]\n"
         "Records this host into a Linux collector file in DIRECTORY, and prints the file's path.\n"
         "A new file is begun each day.\n"
         "\n"
         "      --interval SECONDS  time between samples, 1 to 86400 (60)\n"
         "      --count NUMBER      stop after so many samples\n"
         "      --until TIME        stop at that time: 2012-02-22T08:00 or 22-Feb-2012:08:00:00\n"
         "      --node NAME         host name in the file and in its name (this host's)\n"
         "      --keep DAYS         remove older days than so many before the present one\n"
         "      --keep-size SIZE    remove the oldest days while all take more, as 800M or 20G\n"
         "      --no-compress       leave finished days as they are\n"
         "  -h, --help\n"
         "      --version\n"
         "\n"
         "Without --count and --until it goes on until SIGTERM or SIGINT. The first sample is complete one\n"
         "interval after the start, which may be put off by half a minute. Status: 0 done, 1 a failure, 2 "
         "usage.\n";
}

}  // namespace ozmo::record
