#include "programs/record/end_listener.h"

#include <pwd.h>

#include <map>

#ifdef OZMO_HAS_NETLINK
#include <linux/taskstats.h>
#include <netlink/genl/ctrl.h>
#include <netlink/genl/genl.h>
#include <netlink/netlink.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <fstream>
#endif

namespace ozmo::record {
namespace {

constexpr const char* INSTEAD =
    "; what processes use that end between two samples is recorded as their parents'";

// The name of a user, else the number. Asked once each.
std::string UserName(uint32_t user) {
  static std::map<uint32_t, std::string> names;
  const auto [place, isNew] = names.try_emplace(user);
  if (isNew) {
    const passwd* entry = getpwuid(user);
    place->second = entry != nullptr ? entry->pw_name : std::to_string(user);
  }
  return place->second;
}

}  // namespace

#ifdef OZMO_HAS_NETLINK

namespace {

// From 12 on a report says whose thread the task was, and whether it was the last one; 15 had other places.
bool IsKnownVersion(uint16_t version) { return version >= 12 && version != 15; }
constexpr uint8_t LAST_OF_PROCESS = 0x20;  // AGROUP, which older headers lack

// Ends that come between two calls of Drain, at 20,000 a second, with some three kilobytes of the kernel's
// for each.
constexpr int BUFFER_BYTES = 16 << 20;
constexpr int64_t DRAIN_INTERVAL = 200'000'000;

// The kernel shows processes' times in proportion to what they really ran, and so it adds them to their
// parents'; the counts in a report are of the ticks that met the task.
void ScaleTimes(uint64_t ran, EndReport& report) {
  const uint64_t met = report.userTime + report.systemTime;
  if (ran == 0 || report.systemTime == 0) {
    if (ran > 0) report.userTime = ran;
    return;
  }
  report.systemTime = report.userTime == 0
                          ? ran
                          : static_cast<uint64_t>(static_cast<double>(report.systemTime) /
                                                  static_cast<double>(met) * static_cast<double>(ran));
  report.userTime = ran - std::min(ran, report.systemTime);
}

EndReport ReportOf(const taskstats& stats) {
  constexpr uint64_t NANOSECONDS_PER_MICROSECOND = 1000;
  EndReport report;
  report.id = static_cast<int32_t>(stats.ac_pid);
  report.process = static_cast<int32_t>(stats.ac_tgid);
  report.parent = static_cast<int32_t>(stats.ac_ppid);
  report.endsProcess = (stats.ac_flag & LAST_OF_PROCESS) != 0;
  report.user = stats.ac_uid;
  report.name.assign(stats.ac_comm, strnlen(stats.ac_comm, sizeof stats.ac_comm));
  report.userTime = stats.ac_utime;
  report.systemTime = stats.ac_stime;
  report.minorFaults = stats.ac_minflt;
  report.majorFaults = stats.ac_majflt;
  ScaleTimes(stats.cpu_run_virtual_total / NANOSECONDS_PER_MICROSECOND, report);
  return report;
}

// A message has the task's figures, and after the last thread of several those of the process, which lack
// most.
int TakeMessage(nl_msg* message, void* sums) {
  const auto* head = static_cast<genlmsghdr*>(nlmsg_data(nlmsg_hdr(message)));
  nlattr* task = nla_find(genlmsg_attrdata(head, 0), genlmsg_attrlen(head, 0), TASKSTATS_TYPE_AGGR_PID);
  nlattr* figures = task == nullptr
                        ? nullptr
                        : nla_find(static_cast<nlattr*>(nla_data(task)), nla_len(task), TASKSTATS_TYPE_STATS);
  if (figures == nullptr) return NL_OK;
  taskstats stats{};  // of the kernel there may be less, or more at its end
  std::memcpy(&stats, nla_data(figures), std::min(static_cast<size_t>(nla_len(figures)), sizeof stats));
  if (IsKnownVersion(stats.version)) static_cast<EndSums*>(sums)->Add(ReportOf(stats));
  return NL_OK;
}

}  // namespace

void EndListener::Begin(const std::vector<host_file::ProcessFigures>& living) {
  if (const std::string failure = Listen(); !failure.empty()) {
    nl_socket_free(socket_);
    socket_ = nullptr;
    notices_.SayOnce("ended processes: " + failure + INSTEAD);
  }
  host_file::ProcessEnds before;
  sums_.Take(living, UserName, before);
}

EndListener::~EndListener() { nl_socket_free(socket_); }

std::string EndListener::Listen() {
  socket_ = nl_socket_alloc();
  if (socket_ == nullptr) return nl_geterror(NLE_NOMEM);
  if (const int error = genl_connect(socket_); error < 0) return nl_geterror(error);
  const int family = genl_ctrl_resolve(socket_, TASKSTATS_GENL_NAME);
  if (family < 0) return "the kernel doesn't report them";
  std::string processors;
  std::getline(std::ifstream("/sys/devices/system/cpu/possible"), processors);

  const std::unique_ptr<nl_msg, decltype(&nlmsg_free)> request(nlmsg_alloc(), &nlmsg_free);
  if (request == nullptr ||
      genlmsg_put(request.get(), NL_AUTO_PORT, NL_AUTO_SEQ, family, 0, 0, TASKSTATS_CMD_GET,
                  TASKSTATS_GENL_VERSION) == nullptr ||
      nla_put_string(request.get(), TASKSTATS_CMD_ATTR_REGISTER_CPUMASK, processors.c_str()) < 0) {
    return nl_geterror(NLE_NOMEM);
  }
  const int bytes = BUFFER_BYTES;
  setsockopt(nl_socket_get_fd(socket_), SOL_SOCKET, SO_RCVBUFFORCE, &bytes, sizeof bytes);
  nl_socket_disable_seq_check(socket_);  // reports have none
  int error = nl_send_auto(socket_, request.get());
  if (error >= 0) error = nl_wait_for_ack(socket_);
  if (error < 0) return nl_geterror(error);
  nl_socket_modify_cb(socket_, NL_CB_VALID, NL_CB_CUSTOM, TakeMessage, &sums_);
  error = nl_socket_set_nonblocking(socket_);
  return error < 0 ? nl_geterror(error) : "";
}

int64_t EndListener::DrainInterval() const {
  return IsListening() ? DRAIN_INTERVAL : std::numeric_limits<int64_t>::max();
}

void EndListener::Drain() {
  if (!IsListening()) return;
  constexpr int MANY = 100;
  int losses = 0;
  while (losses < MANY) {
    const int error = nl_recvmsgs_default(socket_);
    if (error >= 0) continue;
    if (error != -NLE_NOMEM) break;
    ++losses;  // of ENOBUFS: the kernel has thrown some away
    notices_.SayOnce(std::string("more processes end than the kernel can report") + INSTEAD);
  }
  if (losses > 0) sums_.ForgetThreads();
}

#else

void EndListener::Begin(const std::vector<host_file::ProcessFigures>& /*living*/) {
  notices_.SayOnce(std::string("ended processes: built without libnl") + INSTEAD);
}
EndListener::~EndListener() = default;
int64_t EndListener::DrainInterval() const { return std::numeric_limits<int64_t>::max(); }
void EndListener::Drain() {}

#endif

void EndListener::BeginReading() {
  Drain();
  sums_.Hold();
}

void EndListener::EndReading(const std::vector<host_file::ProcessFigures>& living,
                             host_file::ProcessEnds& ends) {
  Drain();
  ends.areReported = IsListening();
  sums_.Take(living, UserName, ends);
}

}  // namespace ozmo::record
