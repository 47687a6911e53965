#include "tests/end_to_end/case_file.h"

#include <fstream>

namespace ozmo {
namespace {

// Splits at blanks; double quotes hold a word together, also in its middle, as in 421="a b".
std::vector<std::string> SplitWords(const std::string& line) {
  std::vector<std::string> words;
  bool inWord = false;
  bool inQuotes = false;
  for (char c : line) {
    if (c == '"') {
      inQuotes = !inQuotes;
    } else if (c == ' ' && !inQuotes) {
      inWord = false;
      continue;
    }
    if (!inWord) words.emplace_back();
    inWord = true;
    if (c != '"') words.back() += c;
  }
  return words;
}

}  // namespace

std::vector<Statement> ReadCaseFile(const std::string& path) {
  std::vector<Statement> statements;
  std::ifstream file(path);
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    const size_t start = line.find_first_not_of(' ');
    if (start == std::string::npos || line[start] == '#') continue;
    if (line[start] == '|') {
      const std::string text = line.substr(start + 1);
      if (!statements.empty())
        statements.back().text.push_back(text.starts_with(' ') ? text.substr(1) : text);
      continue;
    }
    std::vector<std::string> words = SplitWords(line);
    const std::string keyword = words.front();
    words.erase(words.begin());
    statements.push_back({number, keyword, std::move(words), {}});
  }
  return statements;
}

}  // namespace ozmo
