#include "programs/import/line_source.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "runtime/text_file.h"

namespace ozmo::import {

LineSource::~LineSource() {
  if (program_ <= 0) return;
  stream_.reset();
  kill(program_, SIGTERM);
  waitpid(program_, nullptr, 0);
}

std::FILE* LineSource::file() const { return stream_ ? stream_.get() : stdin; }

std::string LineSource::OpenFile(const std::string& path) {
  name_ = path;
  stream_.reset(std::fopen(path.c_str(), "re"));
  return stream_ ? "" : path + ": " + std::strerror(errno);
}

void LineSource::OpenStandardInput() { name_ = "standard input"; }

std::string LineSource::OpenProgram(const std::vector<std::string>& words, const std::string& package,
                                    Messages messages) {
  name_ = words[0];
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return name_ + ": " + std::strerror(errno);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  if (messages == Messages::DROPPED) {
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  std::vector<std::string> copies = words;
  std::vector<char*> arguments;
  arguments.reserve(copies.size() + 1);
  for (std::string& word : copies) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const int error = posix_spawnp(&program_, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  stream_.reset(fdopen(ends[0], "re"));
  if (error == 0) return "";
  program_ = 0;
  if (error == ENOENT) return "there is no program " + name_ + " here; the package " + package + " has it";
  return name_ + ": " + std::strerror(error);
}

bool LineSource::Next(std::string& line) {
  if (hasPeeked_) {
    hasPeeked_ = false;
    line = std::move(peeked_);
    return true;
  }
  return TextFileReadLine(file(), LONGEST_LINE, line);
}

bool LineSource::Peek(std::string& line) {
  if (!hasPeeked_) hasPeeked_ = TextFileReadLine(file(), LONGEST_LINE, peeked_);
  line = peeked_;
  return hasPeeked_;
}

std::string LineSource::Finish() {
  if (std::ferror(file()) != 0) return name_ + ": " + std::strerror(errno);
  stream_.reset();
  if (program_ <= 0) return "";
  int status = 0;
  waitpid(program_, &status, 0);
  program_ = 0;
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return "";
  if (WIFSIGNALED(status)) return name_ + " was ended by " + strsignal(WTERMSIG(status));
  return name_ + " ended with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace ozmo::import
