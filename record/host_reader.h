// Reads the figures of this host.
//
// Processors, memory, disks and processes come through libproc2, file systems through libmount. Protocols and
// adapters have no library; network_files.h has them.
#pragma once

#include <memory>
#include <string>

#include "record/host_figures.h"
#include "record/notices.h"

namespace ozmo::record {

class HostReader {
 public:
  explicit HostReader(Notices& notices);
  ~HostReader();
  HostReader(const HostReader&) = delete;
  HostReader& operator=(const HostReader&) = delete;

  // Fills `host` with the present figures. What this host or this user can't read is left out, with a notice.
  // False without processors, memory or processes, as nothing can be recorded then; Failure tells why.
  [[nodiscard]] bool Read(HostFigures& host);
  const std::string& Failure() const { return failure_; }

 private:
  struct Libraries;

  bool ReadProcessors(HostFigures& host);
  bool ReadMemory(HostFigures& host);
  void ReadPaging(HostFigures& host);
  void ReadDisks(HostFigures& host);
  bool ReadProcesses(HostFigures& host);
  bool Fail(const char* source);

  Notices& notices_;
  std::unique_ptr<Libraries> libraries_;
  std::string failure_;
};

}  // namespace ozmo::record
