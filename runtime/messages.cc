#include "runtime/messages.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "runtime/message_format.h"
#include "runtime/runtime.h"
#include "runtime/terminal_text.h"
#include "runtime/text.h"
#include "runtime/text_file.h"

namespace ozmo {
namespace {

enum class Severity { WARNING = 2, ERROR = 3, INFO = 4, NONE = 5 };

struct SeverityWord {
  std::string_view word;  // as in the file, and as printed
  Severity severity;
};

constexpr SeverityWord SEVERITY_WORDS[] = {
    {"WARNING", Severity::WARNING}, {"ERROR", Severity::ERROR}, {"INFO", Severity::INFO}};

// Marks in a head where a word processor would have no blank; removed everywhere when printing.
constexpr char NO_PRINT = '^';

// What a line of the file says.
struct MessageEntry {
  std::string severityWord;
  std::string text;  // a printf format
};

constexpr std::string_view MESSAGE_BLANKS = " \t";
constexpr size_t LONGEST_MESSAGE_LINE = 1023;

// The characters up to a delimiter, a tab or the end of the line; the delimiter is stepped over.
std::string_view TakeUpTo(std::string_view& rest, char delimiter) {
  const char stops[] = {delimiter, '\t', '\n'};
  const size_t length = std::min(rest.find_first_of(std::string_view(stops, sizeof stops)), rest.size());
  const std::string_view taken = rest.substr(0, length);
  rest.remove_prefix(std::min(length + 1, rest.size()));
  return taken;
}

std::string_view TakeToken(std::string_view& rest) {
  rest = SkipBlanks(rest, MESSAGE_BLANKS);
  return TakeUpTo(rest, ' ');
}

std::string_view TakeQuotedText(std::string_view& rest) {
  rest = SkipBlanks(rest, MESSAGE_BLANKS);
  if (rest.starts_with('"')) rest.remove_prefix(1);
  return TakeUpTo(rest, '"');
}

std::optional<MessageEntry> FindEntry(std::FILE* file, const std::string& code) {
  std::string line;
  while (TextFileReadLine(file, LONGEST_MESSAGE_LINE, line)) {
    if (line.ends_with('\r')) line.pop_back();
    std::string_view rest = line;
    if (UpperText(TakeToken(rest)) != code) continue;
    MessageEntry entry;
    entry.severityWord = TakeToken(rest);
    entry.text = TakeQuotedText(rest);
    return entry;
  }
  return std::nullopt;
}

void MessageDeliver(const Runtime& runtime, const std::string& code, std::string text, Severity severity) {
  text.erase(std::remove(text.begin(), text.end(), NO_PRINT), text.end());
  const bool isProblem = severity == Severity::WARNING || severity == Severity::ERROR;
  if (runtime.messageSink) {
    runtime.messageSink({code, text, isProblem});
    return;
  }
  std::FILE* const stream = isProblem ? stderr : stdout;
  std::fprintf(stream, "%s\n", TextFor(stream, text).c_str());
}

// "VELTRIX" of "VELTRIX_".
std::string MessagePrefix(const ProductIdentity& identity) {
  std::string prefix = identity.upperPrefix;
  if (prefix.ends_with('_') || prefix.ends_with('$')) prefix.pop_back();
  return prefix;
}

}  // namespace

int MessageEmit(Runtime& runtime, const std::string& code, std::initializer_list<MessageArgument> arguments) {
  const ProductIdentity& identity = runtime.identity;
  const std::string path =
      LibraryDirectory(runtime, "veltrix") + "db/" + identity.filePrefix + "messages.msg";
  const Stream file = TextFileOpen(path);
  if (!file) {
    MessageDeliver(runtime, code, "Cannot open message file: " + path, Severity::WARNING);
    return 0;
  }
  NoteInput(runtime, IdentityOf(fileno(file.get())));
  const std::optional<MessageEntry> entry = FindEntry(file.get(), code);
  if (!entry) {
    MessageDeliver(runtime, code, "Cannot find error message " + code, Severity::WARNING);
    return 0;
  }

  std::string head;
  Severity severity = Severity::NONE;
  for (const SeverityWord& row : SEVERITY_WORDS) {
    if (row.word != entry->severityWord) continue;
    severity = row.severity;
    head = MessagePrefix(identity) + "-" + entry->severityWord + NO_PRINT + " " + NO_PRINT;
  }
  MessageDeliver(runtime, code,
                 FormatMessage(head + " " + entry->text, {arguments.begin(), arguments.size()}), severity);
  return 1;
}

}  // namespace ozmo
