// The class file, a text file with one definition a line:
//
//   QTX_MEMORY_VERSION 1
//   (a line that is not looked at)
//   class_name    1 "payroll"
//   class_uid     2 "pay*,root"
//   class_command 2 "*batch run*"
//
// A definition is a keyword, a number that is not used, and a value; it acts on the class that the last
// class_name started. With version 1 a value is in double quotes and may hold blanks; in older files it
// is one bare word. Lines that start with ";" or "/*" are comments.
#include <cstdlib>

#include "runtime/numbers.h"
#include "runtime/text.h"
#include "runtime/text_file.h"
#include "workload/workload.h"

namespace ozmo {
namespace {

constexpr size_t LONGEST_LINE = 1023;

// One letter short of the keyword QTX_MEMORY_VERSION: files exist whose first line ends in another letter.
constexpr std::string_view VERSION_MARK = "QTX_MEMORY_VERSIO";

struct Value {
  std::string text;
  double number = 0.0;
};

// What a keyword changes: the list it appends to, or the field that `set` fills.
struct Keyword {
  std::string_view word;
  size_t shortest;
  PatternList WorkloadClass::*list;
  void (*set)(WorkloadClassList& list, const Value& value) = nullptr;
};

struct ProcessType {
  std::string_view word;
  size_t shortest;
  int classType;
};

constexpr ProcessType PROCESS_TYPES[] = {
    {"interactive", 1, 1}, {"subprocess", 1, 2}, {"detached", 1, 3}, {"batch", 1, 4},
    {"network", 1, 5},     {"istack", 2, 10},    {"mscp", 1, 11},
};
constexpr int OTHER_PROCESS_TYPE = 7;

int ProcessTypeOf(const std::string& text) {
  const std::string word = LowerText(text);
  for (const ProcessType& row : PROCESS_TYPES) {
    if (Abbreviates(word, row.word, row.shortest)) return row.classType;
  }
  return OTHER_PROCESS_TYPE;
}

void StartClass(WorkloadClassList& list, const Value& value) {
  list.classes.emplace_back().name = value.text;
}

void SetLimit(WorkloadClassList& list, const Value& value) { list.classes.back().limit = value.number; }

void SetGrowth(WorkloadClassList& list, const Value& value) { list.classes.back().growth = value.number; }

void SetType(WorkloadClassList& list, const Value& value) {
  list.classes.back().classType = ProcessTypeOf(value.text);
}

void SetCatchAll(WorkloadClassList& list, const Value& value) {
  WorkloadClass& last = list.classes.back();
  last.catchAll = ClampTo<int>(value.number);
  if (last.catchAll > 0) list.catchAllClass = list.classes.size() - 1;
}

constexpr Keyword KEYWORDS[] = {
    {"class_name", 10, nullptr, StartClass},
    {"class_limit", 10, nullptr, SetLimit},
    {"class_type", 10, nullptr, SetType},
    {"class_user", 10, &WorkloadClass::user},
    {"class_account", 13, &WorkloadClass::account},
    {"class_uic", 9, &WorkloadClass::uic},
    {"class_procname", 14, &WorkloadClass::procname},
    {"class_protocol", 14, &WorkloadClass::protocol},
    {"class_uid", 9, &WorkloadClass::uid},
    {"class_gid", 9, &WorkloadClass::gid},
    {"class_command", 13, &WorkloadClass::command},
    {"class_growth", 12, nullptr, SetGrowth},
    {"class_catch_all", 15, nullptr, SetCatchAll},
    {"class_image", 11, &WorkloadClass::image},
    {"class_volume", 12, &WorkloadClass::volume},
    {"class_node", 10, &WorkloadClass::node},
};

// The next line that isn't empty, its non-printable characters, tabs included, made blanks.
bool ReadLine(std::FILE* file, std::string& line) {
  while (TextFileReadLine(file, LONGEST_LINE, line)) {
    if (line.ends_with('\r')) line.pop_back();
    for (char& c : line) {
      if (c < ' ' || c > '~') c = ' ';
    }
    if (!line.empty()) return true;
  }
  return false;
}

long VersionOf(const std::string& firstLine) {
  const std::string line = UpperText(TrimText(firstLine));
  if (!line.starts_with(VERSION_MARK)) return 0;
  std::string_view rest = line;
  TakeWord(rest);
  return std::strtol(std::string(TakeWord(rest)).c_str(), nullptr, 10);
}

// With version 1 from here to the next double quote, a quote in front left out; else the next word as it is.
std::string ValueText(std::string_view rest, long version) {
  if (version != 1) return std::string(TakeWord(rest));
  rest = SkipBlanks(rest);
  if (rest.starts_with('"')) rest.remove_prefix(1);
  return std::string(rest.substr(0, rest.find('"')));
}

void ApplyDefinition(WorkloadClassList& list, std::string_view line, long version) {
  line = TrimText(line);
  if (line.starts_with("/*") || line.starts_with(';')) return;
  const std::string word = LowerText(TakeWord(line));
  for (const Keyword& keyword : KEYWORDS) {
    if (!Abbreviates(word, keyword.word, keyword.shortest)) continue;
    // A definition before the first class has nothing to act on.
    if (list.classes.empty() && keyword.set != StartClass) return;
    TakeWord(line);
    Value value{ValueText(line, version)};
    value.number = std::strtod(value.text.c_str(), nullptr);
    if (keyword.list != nullptr) {
      (list.classes.back().*keyword.list).Append(value.text);
    } else {
      keyword.set(list, value);
    }
    return;
  }
}

}  // namespace

int WorkloadLoad(WorkloadClassList& list, const std::string& path) {
  list.classes.clear();
  list.catchAllClass.reset();
  const Stream file = TextFileOpen(path);
  std::string line;
  if (!file || !ReadLine(file.get(), line)) return 0;
  list.file = IdentityOf(fileno(file.get()));
  const long version = VersionOf(line);
  if (!ReadLine(file.get(), line)) return 0;
  while (ReadLine(file.get(), line)) ApplyDefinition(list, line, version);
  return list.classes.empty() ? 0 : 1;
}

}  // namespace ozmo
