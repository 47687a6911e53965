#include "programs/import/line_source.h"

#include <fcntl.h>
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
  const int error = Spawn(words, ends[1], messages, program_);
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
