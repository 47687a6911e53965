#include "programs/report/pieces.h"

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <thread>

namespace ozmo::report {
namespace {

// What the processes share: which number is the next one, and a byte for each that is done.
class Board {
 public:
  explicit Board(size_t count)
      : size_(sizeof(Next) + count),
        shared_(mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
    if (isThere()) new (shared_) Next(0);
  }
  ~Board() {
    if (isThere()) munmap(shared_, size_);
  }
  Board(const Board&) = delete;
  Board& operator=(const Board&) = delete;

  bool isThere() const { return shared_ != MAP_FAILED; }
  size_t count() const { return size_ - sizeof(Next); }
  size_t Take() { return next()->fetch_add(1); }
  bool IsTaken() const { return next()->load() >= count(); }
  void SetDone(size_t number) { marks()[number] = 1; }
  bool IsDone(size_t number) const { return marks()[number] != 0; }

 private:
  using Next = std::atomic<size_t>;
  static_assert(Next::is_always_lock_free);  // one with a lock would hold it in one process alone

  Next* next() const { return std::launder(static_cast<Next*>(shared_)); }
  char* marks() const { return static_cast<char*>(shared_) + sizeof(Next); }

  size_t size_;
  void* shared_;
};

[[noreturn]] void TakeNumbers(Board& board, const std::function<bool(size_t)>& work) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  for (size_t number = board.Take(); number < board.count(); number = board.Take()) {
    if (!work(number)) _exit(1);
    board.SetDone(number);
  }
  _exit(0);
}

// The process, or -1.
pid_t Start(Board& board, const std::function<bool(size_t)>& work) {
  std::fflush(nullptr);  // what is still to be printed would come once from each
  const pid_t child = fork();
  if (child == 0) TakeNumbers(board, work);
  return child;
}

}  // namespace

PiecesResult RunInProcesses(size_t count, const std::function<bool(size_t number)>& work) {
  PiecesResult result{std::vector<bool>(count), ""};
  Board board(count);
  const size_t atOnce = std::min<size_t>(count, std::max(1U, std::thread::hardware_concurrency()));
  std::vector<pid_t> children;
  for (size_t i = 0; i < atOnce && board.isThere(); ++i) {
    if (const pid_t child = Start(board, work); child > 0) children.push_back(child);
  }
  if (children.empty() && count > 0) {
    result.failure = std::string("can't start a process: ") + std::strerror(errno);
    return result;
  }
  for (size_t place = 0; place < children.size(); ++place) {
    while (waitpid(children[place], nullptr, 0) < 0 && errno == EINTR) continue;
    // One that has ended early has had a number; beyond that many something else ends them.
    if (board.IsTaken() || children.size() >= atOnce + count) continue;
    if (const pid_t child = Start(board, work); child > 0) children.push_back(child);
  }
  for (size_t number = 0; number < count; ++number) result.done[number] = board.IsDone(number);
  return result;
}

}  // namespace ozmo::report
