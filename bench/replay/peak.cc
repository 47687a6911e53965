// Runs a command and prints its greatest resident size in KiB. Small itself, since a process counts what it
// was before it became another program.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

int main(int /*argc*/, char* argv[]) {
  const pid_t child = fork();
  if (child == 0) {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) _exit(EXIT_FAILURE);
    execv(argv[1], argv + 1);
    _exit(EXIT_FAILURE);
  }
  rusage usage{};
  wait4(child, nullptr, 0, &usage);
  std::printf("%ld\n", usage.ru_maxrss);
  return EXIT_SUCCESS;
}
