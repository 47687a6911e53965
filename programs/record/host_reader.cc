#include "programs/record/host_reader.h"

#include <libproc2/diskstats.h>
#include <libproc2/meminfo.h>
#include <libproc2/misc.h>
#include <libproc2/pids.h>
#include <libproc2/stat.h>
#include <libproc2/vmstat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <iterator>

#include "programs/record/file_systems.h"
#include "programs/record/network_files.h"

namespace ozmo::record {

// A handle of libproc2, taken when it is first used and given back in the end. Null, with errno set, where
// the kernel hasn't got its file.
template <class Info, int (*Release)(Info**)>
class Handle {
 public:
  Handle() = default;
  ~Handle() {
    if (info_ != nullptr) Release(&info_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  template <class... Arguments>
  Info* Get(int (*take)(Info**, Arguments...), Arguments... arguments) {
    if (info_ != nullptr) return info_;
    const int result = take(&info_, arguments...);
    if (result < 0) {
      info_ = nullptr;
      errno = -result;
    }
    return info_;
  }

 private:
  Info* info_ = nullptr;
};

namespace {

// libproc2 gives the values in the order of the items asked for. It takes the lists as writable and leaves
// them as they are.
stat_item PROCESSOR_ITEMS[] = {STAT_TIC_ID,   STAT_TIC_USER,   STAT_TIC_NICE, STAT_TIC_SYSTEM,
                               STAT_TIC_IDLE, STAT_TIC_IOWAIT, STAT_TIC_IRQ,  STAT_TIC_SOFTIRQ};
meminfo_item MEMORY_ITEMS[] = {MEMINFO_MEM_TOTAL, MEMINFO_MEM_FREE, MEMINFO_MEM_SHARED, MEMINFO_MEM_BUFFERS,
                               MEMINFO_MEM_CACHED};
vmstat_item PAGING_ITEMS[] = {VMSTAT_PGPGIN, VMSTAT_PGPGOUT, VMSTAT_PSWPIN, VMSTAT_PSWPOUT};
diskstats_item DISK_ITEMS[] = {DISKSTATS_NAME,          DISKSTATS_READS,         DISKSTATS_READS_MERGED,
                               DISKSTATS_READ_SECTORS,  DISKSTATS_READ_TIME,     DISKSTATS_WRITES,
                               DISKSTATS_WRITES_MERGED, DISKSTATS_WRITE_SECTORS, DISKSTATS_WRITE_TIME,
                               DISKSTATS_IO_INPROGRESS, DISKSTATS_IO_TIME,       DISKSTATS_WEIGHTED_TIME};

namespace process {
enum Place {
  ID,
  PARENT,
  STATE,
  FLAGS,
  START,
  USER,
  USER_ALL,
  SYSTEM,
  SYSTEM_ALL,
  MINOR,
  MINOR_ALL,
  MAJOR,
  MAJOR_ALL,
  VIRTUAL,
  RESIDENT,
  NAME,
  COMMAND_LINE,
  USER_NAME
};
}
pids_item PROCESS_ITEMS[] = {
    PIDS_ID_PID,      PIDS_ID_PPID,     PIDS_STATE,         PIDS_FLAGS,   PIDS_TICS_BEGAN, PIDS_TICS_USER,
    PIDS_TICS_USER_C, PIDS_TICS_SYSTEM, PIDS_TICS_SYSTEM_C, PIDS_FLT_MIN, PIDS_FLT_MIN_C,  PIDS_FLT_MAJ,
    PIDS_FLT_MAJ_C,   PIDS_VSIZE_BYTES, PIDS_RSS,           PIDS_CMD,     PIDS_CMDLINE,    PIDS_ID_EUSER};

template <class Items>
constexpr int CountOf(const Items& items) {
  return static_cast<int>(std::size(items));
}

uint64_t UptimeTicks() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  constexpr int64_t NANOSECONDS_PER_TICK = 10'000'000;
  return static_cast<uint64_t>(now.tv_sec) * host_file::TICKS_PER_SECOND +
         static_cast<uint64_t>(now.tv_nsec / NANOSECONDS_PER_TICK);
}

uint64_t PageBytes() { return static_cast<uint64_t>(sysconf(_SC_PAGESIZE)); }

// A whole disk has a device in sysfs. Partitions are parts of one, and volumes, arrays, loop and memory
// devices lie on others: what goes through them would count twice.
bool IsWholeDisk(std::string name) {
  std::replace(name.begin(), name.end(), '/', '!');  // as the kernel names directories
  return access(("/sys/block/" + name + "/device").c_str(), F_OK) == 0;
}

// The command as it is recorded. The image of a process is the last part of the path in the first word, so a
// thread of the kernel loses what follows a slash: "kworker/0:1" is one of the workers.
std::string CommandOf(const pids_result* values) {
  constexpr unsigned long KERNEL_THREAD = 0x00200000;
  const std::string name = values[process::NAME].result.str;
  if ((values[process::FLAGS].result.ul_int & KERNEL_THREAD) != 0) {
    return "[" + name.substr(0, name.find('/')) + "]";
  }
  // A process that has ended, or is about to, has lost its command line. libproc2 has the name in brackets
  // for it.
  const std::string commandLine = values[process::COMMAND_LINE].result.str;
  const bool isLost = values[process::STATE].result.s_ch == 'Z' || commandLine == "[" + name + "]";
  return isLost ? name : commandLine;
}

constexpr unsigned long IS_EXITING = 0x00000004;  // as the kernel's PF_EXITING

host_file::ProcessFigures ProcessOf(const pids_result* values, uint64_t pageBytes) {
  const auto ticks = [&](process::Place place) { return uint64_t{values[place].result.ull_int}; };
  const auto number = [&](process::Place place) { return uint64_t{values[place].result.ul_int}; };
  host_file::ProcessFigures figures;
  figures.id = values[process::ID].result.s_int;
  figures.parent = values[process::PARENT].result.s_int;
  figures.start = ticks(process::START);
  figures.own = {ticks(process::USER), ticks(process::SYSTEM), number(process::MINOR),
                 number(process::MAJOR)};
  // libproc2 gives the children's part with the process' own.
  figures.children = {ticks(process::USER_ALL) - figures.own.userTicks,
                      ticks(process::SYSTEM_ALL) - figures.own.systemTicks,
                      number(process::MINOR_ALL) - figures.own.minorFaults,
                      number(process::MAJOR_ALL) - figures.own.majorFaults};
  figures.virtualBytes = number(process::VIRTUAL);
  figures.residentBytes = number(process::RESIDENT) * pageBytes;
  figures.hasEnded =
      values[process::STATE].result.s_ch == 'Z' || (values[process::FLAGS].result.ul_int & IS_EXITING) != 0;
  figures.command = CommandOf(values);
  figures.image = figures.command.starts_with('[') ? figures.command : values[process::NAME].result.str;
  figures.user = values[process::USER_NAME].result.str;
  return figures;
}

}  // namespace

struct HostReader::Libraries {
  Handle<stat_info, procps_stat_unref> processors;
  Handle<meminfo_info, procps_meminfo_unref> memory;
  Handle<vmstat_info, procps_vmstat_unref> paging;
  Handle<diskstats_info, procps_diskstats_unref> disks;
  Handle<pids_info, procps_pids_unref> processes;
};

HostReader::HostReader(Notices& notices) : notices_(notices), libraries_(std::make_unique<Libraries>()) {}
HostReader::~HostReader() = default;

bool HostReader::Read(host_file::HostFigures& host) {
  host = {};
  host.uptime = UptimeTicks();
  if (!ReadProcessors(host) || !ReadMemory(host) || !ReadProcesses(host)) return false;
  ReadPaging(host);
  ReadDisks(host);
  host.hasProtocols = ReadProtocols(host.protocols, notices_);
  host.adapters = ReadAdapters(notices_);
  host.fileSystems = ReadFileSystems(fileSystems_, notices_);
  return true;
}

bool HostReader::Fail(const char* source) {
  failure_ = std::string(source) + ": " + std::strerror(errno);
  return false;
}

bool HostReader::ReadProcessors(host_file::HostFigures& host) {
  stat_info* info = libraries_->processors.Get(procps_stat_new);
  if (info == nullptr) return Fail("/proc/stat");
  const stat_reaped* reaped =
      procps_stat_reap(info, STAT_REAP_CPUS_ONLY, PROCESSOR_ITEMS, CountOf(PROCESSOR_ITEMS));
  if (reaped == nullptr) return Fail("/proc/stat");
  for (int i = 0; i < reaped->cpus->total; ++i) {
    const stat_result* values = reaped->cpus->stacks[i]->head;
    const auto ticks = [&](size_t place) { return uint64_t{values[place].result.ull_int}; };
    host.processors.push_back(
        {values[0].result.s_int, ticks(1), ticks(2), ticks(3) + ticks(6) + ticks(7), ticks(4), ticks(5)});
  }
  return true;
}

bool HostReader::ReadMemory(host_file::HostFigures& host) {
  meminfo_info* info = libraries_->memory.Get(procps_meminfo_new);
  const meminfo_stack* stack =
      info == nullptr ? nullptr : procps_meminfo_select(info, MEMORY_ITEMS, CountOf(MEMORY_ITEMS));
  if (stack == nullptr) return Fail("/proc/meminfo");
  const auto kilobytes = [&](size_t place) { return uint64_t{stack->head[place].result.ul_int}; };
  const uint64_t shared = kilobytes(2);
  host.memory = {kilobytes(0), kilobytes(1), shared, kilobytes(3),
                 kilobytes(4) - std::min(kilobytes(4), shared)};
  return true;
}

void HostReader::ReadPaging(host_file::HostFigures& host) {
  vmstat_info* info = libraries_->paging.Get(procps_vmstat_new);
  const vmstat_stack* stack =
      info == nullptr ? nullptr : procps_vmstat_select(info, PAGING_ITEMS, CountOf(PAGING_ITEMS));
  if (stack == nullptr) {
    notices_.SayOnce(std::string("/proc/vmstat: ") + std::strerror(errno) + "; no paging is recorded");
    return;
  }
  const auto number = [&](size_t place) { return uint64_t{stack->head[place].result.ul_int}; };
  // The kernel counts what is paged in kilobytes and what is swapped in pages.
  const uint64_t kilobytesPerPage = PageBytes() / 1024;
  host.paging = {number(0) / kilobytesPerPage, number(1) / kilobytesPerPage, number(2), number(3)};
}

void HostReader::ReadDisks(host_file::HostFigures& host) {
  diskstats_info* info = libraries_->disks.Get(procps_diskstats_new);
  const diskstats_reaped* reaped =
      info == nullptr ? nullptr : procps_diskstats_reap(info, DISK_ITEMS, CountOf(DISK_ITEMS));
  if (reaped == nullptr) {
    notices_.SayOnce(std::string("/proc/diskstats: ") + std::strerror(errno) + "; no disks are recorded");
    return;
  }
  for (int i = 0; i < reaped->total; ++i) {
    const diskstats_result* values = reaped->stacks[i]->head;
    if (!IsWholeDisk(values[0].result.str)) continue;
    host_file::DiskFigures& disk = host.disks.emplace_back();
    disk.name = values[0].result.str;
    for (size_t place = 0; place < disk.figures.size(); ++place) {
      disk.figures[place] = values[place + 1].result.ul_int;
    }
    disk.figures[host_file::DiskFigures::UNDER_WAY] =
        static_cast<uint64_t>(values[host_file::DiskFigures::UNDER_WAY + 1].result.s_int);
  }
}

bool HostReader::ReadProcesses(host_file::HostFigures& host) {
  pids_info* info =
      libraries_->processes.Get<pids_item*, int>(procps_pids_new, PROCESS_ITEMS, CountOf(PROCESS_ITEMS));
  const pids_fetch* fetched = info == nullptr ? nullptr : procps_pids_reap(info, PIDS_FETCH_TASKS_ONLY);
  if (fetched == nullptr) return Fail("/proc");
  host.processes.reserve(static_cast<size_t>(fetched->counts->total));
  for (int i = 0; i < fetched->counts->total; ++i) {
    host.processes.push_back(ProcessOf(fetched->stacks[i]->head, PageBytes()));
  }
  std::sort(
      host.processes.begin(), host.processes.end(),
      [](const host_file::ProcessFigures& a, const host_file::ProcessFigures& b) { return a.id < b.id; });
  if (host.processes.empty() || host.processes.front().id != 1) {
    notices_.SayOnce("/proc hides the processes of others from this user; they are not recorded");
  }
  return true;
}

}  // namespace ozmo::record
