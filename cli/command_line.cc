#include "cli/command_line.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "output/output_type.h"
#include "runtime/process_end.h"
#include "runtime/text.h"
#include "runtime/times.h"

namespace ozmo {
namespace {

constexpr int MISSING_REQUIREMENT_STATUS = 0;
constexpr int USAGE_SHOWN_STATUS = 1;
constexpr int MISSING_VALUE_STATUS = 2;

// What the tests fill in.
struct ParseState {
  RunRequest& request;
  bool typeSeen = false;
};

// An option's effect; may shorten its value in place, for the tests that come after it.
using OptionAction = void (*)(ParseState& state, std::string& value);

void SetMwFile(ParseState& state, std::string& value) {
  state.request.mwFile = value;
  state.request.requestFlags += REQUEST_MW;
  state.request.runMode = 9;
}

void SetVmrUnixFile(ParseState& state, std::string& value) {
  state.request.vmrUnixFile = value;
  state.request.requestFlags += REQUEST_VMRUNIX;
  state.request.runMode = 3;
}

std::tm ParseOptionTime(const std::string& value) {
  std::tm time{};
  time.tm_isdst = -1;
  TimeParse(time, value, TimeFormatNumber::DAY_MONTH_YEAR_TIME);
  return time;
}

void SetBegin(ParseState& state, std::string& value) {
  state.request.beginText = value;
  state.request.beginTime = ParseOptionTime(value);
}

void SetEnd(ParseState& state, std::string& value) {
  state.request.endText = value;
  state.request.endTime = ParseOptionTime(value);
}

void SetGraphFile(ParseState& state, std::string& value) {
  state.request.graphFile = value;
  state.request.requestFlags |= REQUEST_GRAPH_FILE;
}

struct UnitRow {
  std::string_view word;  // searched for anywhere in the value
  SizeUnit unit;
};

constexpr UnitRow UNIT_ROWS[] = {
    {"IN", SizeUnit::INCHES},      {"in", SizeUnit::INCHES},  {"CM", SizeUnit::CENTIMETRES},
    {"cm", SizeUnit::CENTIMETRES}, {"PIX", SizeUnit::PIXELS}, {"pix", SizeUnit::PIXELS},
};

// The first unit found in `value`, whose last characters are then cut off, as many as the unit has and
// wherever the unit is. Null if there is none.
const UnitRow* CutUnit(std::string& value) {
  for (const UnitRow& row : UNIT_ROWS) {
    if (value.find(row.word) == std::string::npos) continue;
    value.resize(value.size() - row.word.size());
    return &row;
  }
  return nullptr;
}

// A number without a unit always goes to the width, that of -height too: a call of "-height 6" alone has one
// size of the two and so gets the default size.
void SetSize(RunRequest& request, double& size, std::string& value) {
  const UnitRow* row = CutUnit(value);
  const double number = std::atof(value.c_str());
  (row != nullptr ? size : request.width) = number;
  request.sizeUnit = row != nullptr ? row->unit : SizeUnit::INCHES;
}

void SetWidth(ParseState& state, std::string& value) { SetSize(state.request, state.request.width, value); }
void SetHeight(ParseState& state, std::string& value) { SetSize(state.request, state.request.height, value); }

void SetItem(ParseState& state, std::string& value) { state.request.itemName = value; }
void SetOverlay(ParseState& state, std::string& value) { state.request.overlayName = value; }

// Any other word is ignored, and an earlier valid type stays.
void SetType(ParseState& state, std::string& value) {
  for (const OutputType& row : OutputTypes()) {
    if (std::ranges::count(row.words, value) == 0) continue;
    state.request.graphType = row.type;
    state.typeSeen = true;
  }
}

void SetHost(ParseState& state, std::string& value) { state.request.hostName = value; }
void SetMemory(ParseState& state, std::string& value) { state.request.memoryFile = value; }

struct OptionRow {
  std::string_view name;
  size_t minimum;       // characters that an abbreviation must have
  OptionAction action;  // null: shows the usage text, takes no value
};

// In the order of the tests.
constexpr OptionRow OPTION_ROWS[] = {
    {"-mw", 2, SetMwFile},
    {"-vmrunix", 4, SetVmrUnixFile},
    {"-begin", 1, SetBegin},
    {"-end", 1, SetEnd},
    {"-graph_file", 3, SetGraphFile},
    {"-width", 1, SetWidth},
    {"-height", 4, SetHeight},
    {"-item", 1, SetItem},
    {"-overlay", 1, SetOverlay},
    {"-type", 1, SetType},
    {"-host", 4, SetHost},
    {"-memory", 2, SetMemory},
    {"-help", 4, nullptr},
    {"-?", 1, nullptr},
};

[[noreturn]] void ExitWithUsage(int status) {
  PrintUsage();
  EndProcess(status);
}

[[noreturn]] void ExitForMissingValue(std::string_view option) {
  std::fprintf(stderr, "ozmo_graph: option %s needs a value\n", std::string(option).c_str());
  EndProcess(MISSING_VALUE_STATUS);
}

// Puts the word at `index` to all tests. Moves `index` on to the last word used.
void TestWord(ParseState& state, std::vector<std::string>& words, size_t& index) {
  for (const OptionRow& row : OPTION_ROWS) {
    if (!OptionMatches(words[index], row.name, row.minimum)) continue;
    if (row.action == nullptr) ExitWithUsage(USAGE_SHOWN_STATUS);
    ++index;
    if (index == words.size()) ExitForMissingValue(row.name);
    row.action(state, words[index]);
  }
}

[[noreturn]] void ExitForRequirement(const char* text) {
  std::fputs(text, stdout);
  ExitWithUsage(MISSING_REQUIREMENT_STATUS);
}

void CheckRequirements(const ParseState& state) {
  if (!state.request.itemName) {
    ExitForRequirement(
        "\nozmo_graph requires -item to specify graph\n"
        "See the release notes for list of items\n\n");
  }
  if (!state.request.graphFile) ExitForRequirement("\nozmo_graph requires -graph to specify output file\n");
  if (!state.typeSeen) ExitForRequirement("\nozmo_graph requires -type to specify graph type\n");
}

}  // namespace

bool OptionMatches(std::string_view argument, std::string_view option, size_t minimum) {
  return Abbreviates(argument, option, minimum);
}

void PrintUsage() {
  std::fputs(
      "ozmo_graph accepts the following command line options:\n\n"
      "-mw <filename>                 (MeasureWare data file)\n"
      "-vmrunix <filename>            (Veltrix Monitor for UNIX data file)\n"
      "-begin <DD-MMM-YYYY:HH:MM:SS>\n"
      "-end   <DD-MMM-YYYY:HH:MM:SS>\n\n"
      "-graph <filename>              (output graph file)\n"
      "-type  <CSV|JPG|GIF|PS>        (graph file type)\n"
      "-item  <graphname>             (graph name string)\n"
      "-overlay <overlayname>         (overlay name string)\n\n",
      stdout);
}

void ParseCommandLine(int argc, char* const argv[], RunRequest& request) {
  request.hostName.clear();
  if (argc < 2) ExitWithUsage(USAGE_SHOWN_STATUS);

  std::vector<std::string> words;  // a copy, since size values are cut short
  for (int index = 1; index < argc && argv[index] != nullptr; ++index) words.emplace_back(argv[index]);

  ParseState state{request};
  for (size_t index = 0; index < words.size(); ++index) TestWord(state, words, index);
  CheckRequirements(state);
}

}  // namespace ozmo
