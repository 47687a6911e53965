#include "fuzz/harness.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "runtime/process_end.h"

void ozmo::EndProcess(int status) {
  if (fuzz::beforeProcessEnd != nullptr) fuzz::beforeProcessEnd();
  throw fuzz::ProcessEnd{status};
}

namespace ozmo::fuzz {
namespace {

namespace fs = std::filesystem;

void Expect(bool isDone, const char* what) {
  if (isDone) return;
  std::perror(what);
  std::abort();
}

// Where TMPDIR says, else in memory.
fs::path ScratchParent() {
  const char* named = std::getenv("TMPDIR");
  if (named != nullptr) return named;
  std::error_code ignored;
  return fs::is_directory("/dev/shm", ignored) ? fs::path("/dev/shm") : fs::temp_directory_path();
}

fs::path& ScratchPath() {
  static fs::path path;
  return path;
}

void EnterScratch() {
  std::string name = (ScratchParent() / "ozmo_fuzz_XXXXXX").string();
  Expect(mkdtemp(name.data()) != nullptr, name.c_str());
  ScratchPath() = name;
  std::atexit([] {
    std::error_code ignored;
    fs::remove_all(ScratchPath(), ignored);
  });
  Expect(chdir(name.c_str()) == 0, name.c_str());
}

// An input depends on nothing around it.
void SettleEnvironment() {
  setenv("TZ", "UTC", 1);
  setenv("HOME", ScratchPath().c_str(), 1);
  setenv("VELTRIX_LIBRARY", OZMO_SOURCE_DIR, 1);
}

}  // namespace

void WriteScratch(const std::string& name, std::string_view bytes) {
  const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  Expect(file >= 0, name.c_str());
  Expect(write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), name.c_str());
  close(file);
}

std::string_view CutUpTo(std::string_view& text, char mark) {
  const size_t length = std::min(text.find(mark), text.size());
  const std::string_view taken = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  return taken;
}

std::vector<char*> ArgumentsOf(std::vector<std::string>& words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  return arguments;
}

}  // namespace ozmo::fuzz

// Called by libFuzzer before everything else. Paths among the arguments stay good in the new directory.
extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  static std::vector<std::string> words(*arguments, *arguments + *count);
  for (size_t i = 1; i < words.size(); ++i) {
    if (!words[i].starts_with('-')) words[i] = std::filesystem::absolute(words[i]).string();
  }
  static std::vector<char*> pointers = ozmo::fuzz::ArgumentsOf(words);
  *arguments = pointers.data();
  ozmo::fuzz::EnterScratch();
  ozmo::fuzz::SettleEnvironment();
  return 0;
}
