#include "programs/record/file_system_probe.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include "programs/record/host_clock.h"

namespace ozmo::record {
namespace {

constexpr int LONGEST_WAIT = 2000;  // milliseconds

FileSystemReply AskOne(const std::string& mountPoint) {
  FileSystemReply reply;
  const bool isGiven = statvfs(mountPoint.c_str(), &reply.figures) == 0;
  reply.state = isGiven ? FileSystemReply::GIVEN : FileSystemReply::FAILED;
  reply.reason = isGiven ? 0 : errno;
  return reply;
}

// What the other process does. It keeps nothing open, neither the lock nor the streams, so that whoever waits
// for the end of those doesn't wait for a file system.
[[noreturn]] void AskAll(int file, size_t place, const std::vector<std::string>& mountPoints) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGPIPE}) std::signal(signal, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  dup2(file, STDIN_FILENO);
  close_range(STDIN_FILENO + 1, ~0U, 0);
  for (; place < mountPoints.size(); ++place) {
    const FileSystemReply reply = AskOne(mountPoints[place]);
    if (write(STDIN_FILENO, &reply, sizeof reply) != sizeof reply) break;  // nobody waits any more
  }
  _exit(0);
}

enum class Wait { ANSWERED, SIGNALLED, TOO_LONG };

Wait WaitFor(int file) {
  pollfd files[] = {{file, POLLIN, 0}, {HeldSignalsFile(), POLLIN, 0}};
  int ready = poll(files, 2, LONGEST_WAIT);
  while (ready < 0 && errno == EINTR) ready = poll(files, 2, LONGEST_WAIT);
  if (files[0].revents != 0) return Wait::ANSWERED;
  return files[1].revents != 0 ? Wait::SIGNALLED : Wait::TOO_LONG;
}

}  // namespace

bool FileSystemProbe::IsLeftBehind(const std::string& mountPoint) const {
  return std::ranges::count(leftBehind_, mountPoint, &LeftBehind::mountPoint) != 0;
}

std::vector<FileSystemReply> FileSystemProbe::Ask(const std::vector<std::string>& mountPoints) {
  std::erase_if(leftBehind_,
                [](const LeftBehind& one) { return waitpid(one.process, nullptr, WNOHANG) != 0; });
  // One process serves all but those that are left out.
  std::vector<std::string> asked;
  for (const std::string& mountPoint : mountPoints) {
    if (!IsLeftBehind(mountPoint)) asked.push_back(mountPoint);
  }
  std::vector<FileSystemReply> given(asked.size());
  for (size_t place = 0; place < asked.size();) place = AskFrom(place, asked, given);

  std::vector<FileSystemReply> replies;
  for (const std::string& mountPoint : mountPoints) {
    const auto place = static_cast<size_t>(std::ranges::find(asked, mountPoint) - asked.begin());
    replies.push_back(place < asked.size() ? given[place] : FileSystemReply{FileSystemReply::SILENT, 0, {}});
  }
  return replies;
}

// Returns the place to go on from in a new process.
size_t FileSystemProbe::AskFrom(size_t place, const std::vector<std::string>& mountPoints,
                                std::vector<FileSystemReply>& replies) {
  int ends[2];
  if (pipe(ends) != 0) return mountPoints.size();
  const pid_t process = fork();
  if (process < 0) replies[place] = {FileSystemReply::FAILED, errno, {}};
  if (process == 0) AskAll(ends[1], place, mountPoints);
  close(ends[1]);
  Wait wait = process < 0 ? Wait::SIGNALLED : Wait::ANSWERED;
  for (; wait == Wait::ANSWERED && place < mountPoints.size(); ++place) {
    wait = WaitFor(ends[0]);
    if (wait != Wait::ANSWERED) break;
    if (read(ends[0], &replies[place], sizeof replies[place]) != sizeof replies[place]) {
      replies[place] = {FileSystemReply::FAILED, EIO, {}};
      break;
    }
  }
  close(ends[0]);
  if (process < 0) return mountPoints.size();
  if (place == mountPoints.size()) {
    waitpid(process, nullptr, 0);
    return place;
  }
  leftBehind_.push_back({process, mountPoints[place]});
  if (wait == Wait::TOO_LONG) replies[place].state = FileSystemReply::SILENT;
  return wait == Wait::TOO_LONG ? place + 1 : mountPoints.size();
}

}  // namespace ozmo::record
