// Texts that are read line by line: a file, standard input, or what another program prints.
#pragma once

#include <sys/types.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "programs/import/spawn.h"
#include "runtime/stream.h"

namespace ozmo::import {

// A longer line is cut: what is left of it comes as the next line.
constexpr size_t LONGEST_LINE = 65536;

class LineSource {
 public:
  LineSource() = default;
  ~LineSource();
  LineSource(const LineSource&) = delete;
  LineSource& operator=(const LineSource&) = delete;

  // Results are empty, or the text of a failure.
  [[nodiscard]] std::string OpenFile(const std::string& path);
  void OpenStandardInput();
  // Runs a program. `package` is named where it is missing.
  [[nodiscard]] std::string OpenProgram(const std::vector<std::string>& words, const std::string& package,
                                        Messages messages = Messages::SHOWN);

  // The next line, without its line feed; false at the end.
  bool Next(std::string& line);
  // The first line is given again by the next call of Next.
  bool Peek(std::string& line);

  // After the last line: whether all was read, and the program ended well.
  [[nodiscard]] std::string Finish();

 private:
  std::FILE* file() const;

  std::string name_;  // for messages
  Stream stream_;
  pid_t program_ = 0;
  bool hasPeeked_ = false;
  std::string peeked_;
};

// Texts of one recording, which don't move.
using Texts = std::deque<LineSource>;

}  // namespace ozmo::import
