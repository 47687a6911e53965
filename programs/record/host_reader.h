// Reads the figures of this host.
//
// Processors, memory, disks and processes come through libproc2, file systems through libmount. Protocols and
// adapters have no library; network_files.h has them.
#pragma once

#include <memory>
#include <string>

#include "programs/host_file/host_figures.h"
#include "programs/record/file_system_probe.h"
#include "programs/record/notices.h"

namespace ozmo::record {

class HostReader {
 public:
  explicit HostReader(Notices& notices);
  ~HostReader();
  HostReader(const HostReader&) = delete;
  HostReader& operator=(const HostReader&) = delete;

  // Fills `host` with the present figures. What this host or this user can't read is left out, with a notice.
  // False without processors, memory or processes, as nothing can be recorded then; Failure says why.
  [[nodiscard]] bool Read(host_file::HostFigures& host);
  const std::string& Failure() const { return failure_; }

 private:
  struct Libraries;

  bool ReadProcessors(host_file::HostFigures& host);
  bool ReadMemory(host_file::HostFigures& host);
  void ReadPaging(host_file::HostFigures& host);
  void ReadDisks(host_file::HostFigures& host);
  bool ReadProcesses(host_file::HostFigures& host);
  bool Fail(const char* source);

  Notices& notices_;
  FileSystemProbe fileSystems_;
  std::unique_ptr<Libraries> libraries_;
  std::string failure_;
};

}  // namespace ozmo::record
