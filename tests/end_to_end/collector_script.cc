#include "tests/end_to_end/collector_script.h"

#include <charconv>
#include <cstdio>
#include <map>

namespace ozmo {
namespace {

using sample::EncodedField;

// A field of a record as a case writes it: "id", "id:size", "id=value" or "id:size=value"; a size is 4, 8 or
// text, 4 when it isn't given.
struct FieldWord {
  std::string id;
  std::string size;
  std::string value;
};

FieldWord ReadFieldWord(const std::string& word) {
  FieldWord field;
  const size_t equals = word.find('=');
  const std::string head = word.substr(0, equals);
  if (equals != std::string::npos) field.value = word.substr(equals + 1);
  const size_t colon = head.find(':');
  field.id = head.substr(0, colon);
  if (colon != std::string::npos) field.size = head.substr(colon + 1);
  return field;
}

// Each "\0" of a text is a NUL byte.
std::string WithNulBytes(std::string text) {
  for (size_t at = text.find("\\0"); at != std::string::npos; at = text.find("\\0", at)) {
    text.replace(at, 2, 1, '\0');
  }
  return text;
}

class ScriptWriter {
 public:
  ScriptWriter(sample::WrittenOrder order, int64_t midnight) : writer_(order), midnight_(midnight) {}

  CollectorBytes Result() const { return {writer_.Bytes(), error_}; }

  void Apply(const Statement& statement) {
    line_ = statement.line;
    if (statement.words.empty() && statement.keyword != "block") return Fail("a word is missing");
    if (statement.keyword == "order") return WriteOrder(statement.words);
    if (statement.keyword == "divisors") return WriteDivisors(statement.words);
    if (statement.keyword == "record") return WriteRecord(statement, std::nullopt);
    if (statement.keyword == "stamps") return WriteStamps(statement.words);
    if (statement.keyword == "length") {
      if (statement.words.size() < 2) return Fail("length wants a length and a record type");
      return WriteRecord(statement, static_cast<uint32_t>(Number(statement.words[0])));
    }
    if (statement.keyword == "tag") {
      writer_.Tag(WithNulBytes(statement.words[0]));
    } else if (statement.keyword == "cut") {
      writer_.CutTail(static_cast<size_t>(Number(statement.words[0])));
    } else if (statement.keyword == "raw") {
      for (const std::string& byte : statement.words) {
        writer_.RawBytes(std::string(1, static_cast<char>(std::stoi(byte, nullptr, 16))));
      }
    } else if (statement.keyword == "block") {
      std::string lines;
      for (const std::string& line : statement.text) lines += line + "\n";
      writer_.LeadingBlock(lines);
    }
  }

 private:
  void Fail(const std::string& what) {
    if (error_.empty()) error_ = "line " + std::to_string(line_) + ": " + what;
  }

  // Decimal, up to the largest of 8 bytes without a sign, or a time of the case's day: @HH:MM or @HH:MM:SS.
  int64_t Number(const std::string& text) {
    long hours = 0;
    long minutes = 0;
    long seconds = 0;
    if (std::sscanf(text.c_str(), "@%ld:%ld:%ld", &hours, &minutes, &seconds) >= 2) {
      return midnight_ + hours * 3600 + minutes * 60 + seconds;
    }
    const bool isNegative = text.starts_with('-');
    uint64_t number = 0;
    const auto [end, code] = std::from_chars(text.data() + isNegative, text.data() + text.size(), number);
    if (code != std::errc() || end != text.data() + text.size()) Fail("not a number: " + text);
    return static_cast<int64_t>(isNegative ? -number : number);
  }

  EncodedField Encode(const std::string& size, const std::string& value) {
    if (size == "text") return sample::Text(WithNulBytes(value));
    if (size == "8") return sample::Int64(value.empty() ? 0 : Number(value));
    if (!size.empty() && size != "4") Fail("not a size: " + size);
    return sample::Int32(value.empty() ? 0 : Number(value));
  }

  void WriteOrder(const std::vector<std::string>& words) {
    const auto type = static_cast<uint32_t>(Number(words.at(0)));
    std::vector<FieldWord>& layout = layouts_[type];
    layout.clear();
    std::vector<int32_t> ids;
    for (size_t i = 1; i < words.size(); ++i) {
      layout.push_back(ReadFieldWord(words[i]));
      ids.push_back(static_cast<int32_t>(Number(layout.back().id)));
    }
    writer_.OrderList(type, ids);
  }

  void WriteDivisors(const std::vector<std::string>& words) {
    std::vector<int32_t> divisors;
    for (size_t i = 1; i < words.size(); ++i) divisors.push_back(static_cast<int32_t>(Number(words[i])));
    writer_.DivisorList(static_cast<uint32_t>(Number(words.at(0))), divisors);
  }

  // The values of a record in the order that was given for its type; a field that isn't named is 0 or empty.
  // A record of a type without an order names its fields with their sizes and in place.
  std::vector<EncodedField> Fields(uint32_t type, const std::vector<std::string>& words) {
    std::vector<EncodedField> fields;
    std::map<std::string, std::string> values;
    const auto layout = layouts_.find(type);
    for (const std::string& word : words) {
      const FieldWord field = ReadFieldWord(word);
      if (layout == layouts_.end()) fields.push_back(Encode(field.size, field.value));
      values[field.id] = field.value;
    }
    if (layout == layouts_.end()) return fields;
    for (const FieldWord& field : layout->second) {
      const auto value = values.extract(field.id);
      fields.push_back(Encode(field.size, value.empty() ? "" : value.mapped()));
    }
    if (!values.empty()) Fail("field " + values.begin()->first + " has no place in the order of its record");
    return fields;
  }

  void WriteRecord(const Statement& statement, std::optional<uint32_t> falseLength) {
    std::vector<std::string> words = statement.words;
    if (falseLength) words.erase(words.begin());
    const auto type = static_cast<uint32_t>(Number(words.at(0)));
    words.erase(words.begin());
    const std::vector<EncodedField> fields = Fields(type, words);
    if (falseLength) {
      writer_.RecordWithLength(*falseLength, type, fields);
    } else {
      writer_.Record(type, fields);
    }
  }

  // "7 701 08:00 08:01": a record 7 with the field 701 alone for each time.
  void WriteStamps(const std::vector<std::string>& words) {
    for (size_t i = 2; i < words.size(); ++i) {
      WriteRecord({line_, "record", {words[0], words[1] + "=@" + words[i]}, {}}, std::nullopt);
    }
  }

  sample::CollectorWriter writer_;
  int64_t midnight_;
  int line_ = 0;
  std::string error_;
  std::map<uint32_t, std::vector<FieldWord>> layouts_;  // by record type: the order statement's fields
};

}  // namespace

bool IsCollectorStatement(const Statement& statement) {
  for (const char* keyword :
       {"order", "divisors", "record", "stamps", "length", "tag", "cut", "raw", "block", "include"}) {
    if (statement.keyword == keyword) return true;
  }
  return false;
}

CollectorBytes WriteCollectorFile(const std::vector<Statement>& statements, sample::WrittenOrder order,
                                  int64_t midnight) {
  ScriptWriter writer(order, midnight);
  for (const Statement& statement : statements) writer.Apply(statement);
  return writer.Result();
}

}  // namespace ozmo
