#include "programs/report/summary_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <tuple>

#include "output/number_text.h"
#include "runtime/terminal_text.h"
#include "runtime/text.h"

namespace ozmo::report {
namespace {

constexpr std::string_view FORMAT_VERSION = "1";
constexpr std::string_view END_MARK = "# end ";
constexpr std::string_view HEAD =
    "host\tsystem\tfigure\tname\tmean\tp95\tpeak\tpeak_time\tbusiest_"
    "hour\tmissing\tprocessors\tbegin\tend\thours";
enum Column {
  HOST,
  SYSTEM,
  FIGURE,
  NAME,
  MEAN,
  P95,
  PEAK,
  PEAK_TIME,
  BUSIEST_HOUR,
  MISSING,
  PROCESSORS,
  BEGIN_TIME,
  END_TIME,
  HOURS,
  COLUMNS
};
using Fields = std::array<std::string_view, COLUMNS>;

constexpr const char* SECOND = "%Y-%m-%dT%H:%M:%S";
constexpr const char* MINUTE = "%Y-%m-%dT%H:%M";

constexpr int MOST_MINUTES = 366 * 24 * 60 * 100;
constexpr double LARGEST_FIGURE = 1e13;

std::string ValueText(double value) { return NumberText(value, 2); }

// Cuts `text` at the first `separator`, and takes that off it too.
std::string_view TakeUpTo(char separator, std::string_view& text) {
  const size_t end = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

template <class Number>
std::optional<Number> NumberOf(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// Reads the fields of a line; what is wrong is kept, the first of it.
class LineReader {
 public:
  explicit LineReader(const Fields& fields) : fields_(fields) {}

  double Value(std::string_view text) {
    const std::optional<double> number = NumberOf<double>(text);
    if (number && std::abs(*number) <= LARGEST_FIGURE) return *number;
    return Wrong("no figure", text), 0.0;
  }
  int Count(Column column) {
    const std::optional<int> number = NumberOf<int>(fields_[column]);
    if (number && *number >= 0 && *number <= MOST_MINUTES) return *number;
    return Wrong("no count", fields_[column]), 0;
  }
  Seconds Time(Column column) {
    const std::optional<Seconds> time = ozmo::TimeOf(std::string(fields_[column]));
    if (time) return *time;
    return Wrong("no time", fields_[column]), 0;
  }
  Figure Kind() {
    for (const FigureRow& row : FigureRows()) {
      if (row.word == fields_[FIGURE]) return row.figure;
    }
    return Wrong("no kind of figure", fields_[FIGURE]), Figure::CPU;
  }
  std::vector<double> Hours() {
    std::vector<double> hours;
    for (std::string_view rest = fields_[HOURS];;) {
      const std::string_view text = rest.substr(0, rest.find(','));
      hours.push_back(text.empty() ? std::numeric_limits<double>::quiet_NaN() : Value(text));
      if (text.size() == rest.size()) return hours;
      rest.remove_prefix(text.size() + 1);
    }
  }
  void Wrong(std::string_view what, std::string_view text) {
    if (!wrong_.empty()) return;
    wrong_ = std::string(what) + ": \"" + std::string(text) + '"';
  }
  const std::string& wrong() const { return wrong_; }

 private:
  const Fields& fields_;
  std::string wrong_;
};

// Puts a line to its summary; returns what is wrong with it.
std::string TakeLine(Summary& summary, std::string_view text) {
  if (std::ranges::count(text, '\t') != COLUMNS - 1) return "not as many columns as there are names";
  Fields fields;
  for (std::string_view& field : fields) field = TakeUpTo('\t', text);
  LineReader read(fields);
  const Summary host{.host = UnescapedName(fields[HOST]),
                     .system = UnescapedName(fields[SYSTEM]),
                     .processors = read.Count(PROCESSORS),
                     .begin = read.Time(BEGIN_TIME),
                     .end = read.Time(END_TIME),
                     .missing = read.Count(MISSING)};
  SummaryLine line{.figure = read.Kind(),
                   .name = UnescapedName(fields[NAME]),
                   .mean = read.Value(fields[MEAN]),
                   .p95 = read.Value(fields[P95]),
                   .peak = read.Value(fields[PEAK]),
                   .peakTime = read.Time(PEAK_TIME),
                   .busiestHour = read.Time(BUSIEST_HOUR),
                   .hours = read.Hours()};
  if (!read.wrong().empty()) return read.wrong();
  if (host.begin >= host.end) return "the end is not after the begin";
  if (summary.lines.empty()) summary = host;
  const auto facts = [](const Summary& of) {
    return std::tie(of.host, of.system, of.processors, of.begin, of.end, of.missing);
  };
  if (facts(host) != facts(summary)) return "another host or span than in the lines before";
  if (!summary.lines.empty() && summary.lines.front().hours.size() != line.hours.size()) {
    return "not as many hours as in the lines before";
  }
  summary.lines.push_back(std::move(line));
  return "";
}

// Takes a text line by line. After something wrong all is stepped over up to the next summary.
class TextReader {
 public:
  void Take(std::string_view line) {
    ++number_;
    if (line.starts_with(SUMMARY_MARK)) return Begin(line.substr(SUMMARY_MARK.size()));
    if (line.starts_with(END_MARK)) return End(line.substr(END_MARK.size()));
    if (line.empty() || line.starts_with('#')) return;
    switch (state_) {
      case State::OUTSIDE:
        return Wrong("a line outside of a summary");
      case State::AT_HEAD:
        state_ = State::IN_LINES;
        return line == HEAD ? void() : Wrong("not the columns of a summary");
      case State::IN_LINES:
        if (const std::string wrong = TakeLine(summary_, line); !wrong.empty()) Wrong(wrong);
        return;
      case State::STEPPED_OVER:
        return;
    }
  }
  SummariesResult Finish() {
    if (IsOpen()) Wrong("the summary has no end: it was cut");
    return std::move(result_);
  }

 private:
  enum class State { OUTSIDE, AT_HEAD, IN_LINES, STEPPED_OVER };

  bool IsOpen() const { return state_ == State::AT_HEAD || state_ == State::IN_LINES; }
  void Begin(std::string_view version) {
    if (IsOpen()) Wrong("the summary before has no end: it was cut");
    summary_ = {};
    state_ = State::AT_HEAD;
    if (version != FORMAT_VERSION)
      Wrong("a summary of version \"" + std::string(version) + "\", and not " + std::string(FORMAT_VERSION));
  }
  void End(std::string_view count) {
    if (state_ == State::STEPPED_OVER) return;
    if (state_ != State::IN_LINES || NumberOf<size_t>(count) != summary_.lines.size() ||
        summary_.lines.empty()) {
      return Wrong("an end that doesn't fit the summary");
    }
    result_.summaries.push_back(std::move(summary_));
    state_ = State::OUTSIDE;
  }
  void Wrong(const std::string& text) {
    result_.wrong.push_back("line " + std::to_string(number_) + ": " + text);
    state_ = State::STEPPED_OVER;
  }

  SummariesResult result_;
  Summary summary_;
  State state_ = State::OUTSIDE;
  int number_ = 0;
};

// What neither ends a column or a line nor begins a comment or an escape, here or in programs that read such
// tables, and is UTF-8.
bool IsPlain(const std::optional<Character>& character) {
  return character && IsPrintable(character->code) && character->code != '\\' && character->code != '#';
}

std::string EscapeOf(char c) {
  char escape[5];
  std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
  return escape;
}

}  // namespace

std::string SummaryText(const Summary& summary) {
  std::string text =
      std::string(SUMMARY_MARK) + std::string(FORMAT_VERSION) + '\n' + std::string(HEAD) + '\n';
  const std::string host = EscapedName(summary.host) + '\t' + EscapedName(summary.system) + '\t';
  const std::string span = '\t' + std::to_string(summary.missing) + '\t' +
                           std::to_string(summary.processors) + '\t' + TimeFormat(summary.begin, SECOND) +
                           '\t' + TimeFormat(summary.end, SECOND) + '\t';
  for (const SummaryLine& line : summary.lines) {
    text += host + std::string(RowOf(line.figure).word) + '\t' + EscapedName(line.name);
    for (const double figure : {line.mean, line.p95, line.peak}) text += '\t' + ValueText(figure);
    for (const Seconds time : {line.peakTime, line.busiestHour}) text += '\t' + TimeFormat(time, MINUTE);
    text += span;
    const char* comma = "";
    for (const double hour : line.hours) {
      text += comma + (std::isnan(hour) ? "" : ValueText(hour));
      comma = ",";
    }
    text += '\n';
  }
  return text + std::string(END_MARK) + std::to_string(summary.lines.size()) + '\n';
}

SummariesResult ReadSummaries(std::string_view text) {
  TextReader reader;
  while (!text.empty()) reader.Take(TakeUpTo('\n', text));
  return reader.Finish();
}

std::string EscapedName(std::string_view name) {
  std::string text;
  while (!name.empty()) {
    const std::optional<Character> character = FirstCharacter(name);
    const std::string_view bytes = name.substr(0, character ? character->length : 1);
    for (const char c : bytes) text += IsPlain(character) ? std::string(1, c) : EscapeOf(c);
    name.remove_prefix(bytes.size());
  }
  return text;
}

std::string UnescapedName(std::string_view text) {
  std::string name;
  while (!text.empty()) {
    unsigned code = 0;
    const std::string_view digits = text.substr(std::min<size_t>(2, text.size()), 2);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    const bool isEscape = text.starts_with("\\x") && error == std::errc() && digits.size() == 2 &&
                          end == digits.data() + digits.size();
    name += isEscape ? static_cast<char>(code) : text.front();
    text.remove_prefix(isEscape ? 4 : 1);
  }
  return name;
}

}  // namespace ozmo::report
