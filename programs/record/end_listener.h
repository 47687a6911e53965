// Listens to what the kernel reports of tasks that end: "taskstats" of generic netlink, see the kernel's
// Documentation/accounting/taskstats.rst. It takes CAP_NET_ADMIN, in the first namespaces of users and
// processes.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "programs/host_file/process_accounting.h"
#include "programs/record/end_reports.h"
#include "programs/record/notices.h"

struct nl_sock;

namespace ozmo::record {

class EndListener {
 public:
  explicit EndListener(Notices& notices) : notices_(notices) {}
  ~EndListener();
  EndListener(const EndListener&) = delete;
  EndListener& operator=(const EndListener&) = delete;

  // Begins to listen, after the first reading, which shows `living`. Where it can't, a notice says so, and no
  // ends are reported.
  void Begin(const std::vector<host_file::ProcessFigures>& living);

  // Nanoseconds after which Drain is due, before there are more reports than the kernel keeps.
  int64_t DrainInterval() const;
  void Drain();

  // Around each later reading of the host: `living` is what it shows. The ends are put into `ends`.
  void BeginReading();
  void EndReading(const std::vector<host_file::ProcessFigures>& living, host_file::ProcessEnds& ends);

 private:
  std::string Listen();
  bool IsListening() const { return socket_ != nullptr; }

  Notices& notices_;
  nl_sock* socket_ = nullptr;
  EndSums sums_;
};

}  // namespace ozmo::record
