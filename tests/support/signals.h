// Whoever started the tests may have had signals ignored, as nohup does.
#pragma once

#include <csignal>

namespace ozmo::testing {

inline void TakeSignalsAgain() {
  for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGXFSZ}) {
    struct sigaction action = {};
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
      std::signal(signal, SIG_DFL);
  }
}

}  // namespace ozmo::testing
