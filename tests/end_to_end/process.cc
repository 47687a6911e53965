#include "tests/end_to_end/process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace ozmo {
namespace {

constexpr int NOT_STARTED = 127;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

void Redirect(const std::string& path, int target) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (file < 0 || dup2(file, target) < 0) _exit(NOT_STARTED);
  close(file);
}

}  // namespace

ProcessResult RunProcess(const std::vector<std::string>& arguments,
                         const std::map<std::string, std::string>& environment, const std::string& directory,
                         const std::string& scratch) {
  const std::string outputPath = scratch + "/stdout";
  const std::string errorPath = scratch + "/stderr";
  std::vector<std::string> argumentTexts = arguments;
  std::vector<std::string> environmentTexts;
  environmentTexts.reserve(environment.size());
  for (const auto& [name, value] : environment) environmentTexts.emplace_back(name).append("=").append(value);
  const std::vector<char*> argumentPointers = Pointers(argumentTexts);
  const std::vector<char*> environmentPointers = Pointers(environmentTexts);

  const pid_t child = fork();
  if (child == 0) {
    Redirect(outputPath, STDOUT_FILENO);
    Redirect(errorPath, STDERR_FILENO);
    if (chdir(directory.c_str()) != 0) _exit(NOT_STARTED);
    execve(argumentPointers[0], argumentPointers.data(), environmentPointers.data());
    _exit(NOT_STARTED);
  }
  ProcessResult result;
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) return result;
  if (WIFEXITED(status)) result.exitStatus = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) result.signal = WTERMSIG(status);
  result.standardOutput = ReadWholeFile(outputPath);
  result.standardError = ReadWholeFile(errorPath);
  return result;
}

std::string ReadWholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

}  // namespace ozmo
