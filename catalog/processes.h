// The process pass: each process's share of the machine goes to its class, image and user.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalog/name_hash.h"
#include "catalog/name_series.h"
#include "catalog/platform.h"
#include "catalog/views.h"
#include "workload/classifier.h"
#include "workload/workload.h"

namespace ozmo {

// What a build wants of single processes.
struct ProcessDetail {
  bool shares = false;   // by class, and their sum
  bool images = false;   // shares by image
  bool users = false;    // shares by user
  bool classes = false;  // shares or processes by class
  bool views = false;    // see views.h
  bool IsWanted() const { return shares || classes; }
  bool NamesUsers() const { return users || classes; }
};

// The image name in a command: last path component of the first word, without a leading '-'.
std::string_view ImageOfCommand(std::string_view command);

// User and system seconds of the interval.
double CpuSecondsOf(const ProcessRecord& process);

// A user and a command, which can be looked up without making texts of them first.
struct ProcessKey {
  std::string user;
  std::string command;
};
struct ProcessKeyView {
  std::string_view user;
  std::string_view command;
  ProcessKeyView(std::string_view userText, std::string_view commandText)
      : user(userText), command(commandText) {}
  ProcessKeyView(const ProcessKey& key) : user(key.user), command(key.command) {}
};
struct ProcessKeyHash {
  using is_transparent = void;
  size_t operator()(const ProcessKeyView& key) const {
    return HashName(key.command, HashName(key.user, seed));
  }
  uint64_t seed = NameSeed();
};
struct ProcessKeyEqual {
  using is_transparent = void;
  bool operator()(const ProcessKeyView& a, const ProcessKeyView& b) const {
    return a.user == b.user && a.command == b.command;
  }
};

// What a process's share is worked out from, besides its record.
struct ShareBasis {
  const VmrContext& interval;
  const ProcessorSums& processors;
  Seconds spanStart;
};

// Percent of the machine that a process took in the interval.
using ShareRule = double (*)(const ProcessRecord& process, const ShareBasis& basis);

// Figures of memory and page faults, as most formats have them.
double MbOfKilobytes(const ProcessRecord& process, const SystemConfig& config);
double FaultRates(const ProcessRecord& process, const SystemConfig& config);     // of minor and major faults
double PageFaultRate(const ProcessRecord& process, const SystemConfig& config);  // one rate of both

// Gets each process of an interval that has a share, with that share as the graph of images shows it: percent
// of the machine.
using ProcessSink = std::function<void(const Minute& minute, const SystemConfig& config,
                                       const ProcessRecord& process, double percent)>;

// The images and users seen so far, and the sum of the shares.
class ProcessPass {
 public:
  ProcessPass(const PlatformSpec& platform, const ProcessDetail& detail, const WorkloadClassList& classes,
              GraphCatalog& catalog);

  // Shares of all processes by the platform's `share`, and "Process Count".
  // Where there is a graph of users, each process that is worked in is left with its user's name cut of
  // blanks at both ends. That matters: its record serves a process of a later interval and keeps what that
  // one's record in the file hasn't got.
  void Run(const Minute& minute, VmrContext& interval, const ProcessorSums& processors, ShareRule share);

  // One process's share, and one in the process count of its class.
  void FeedShare(const Minute& minute, const ProcessRecord& process, double share);

  // Whether someone wants more of a process than its share. Asked once an interval: most runs don't, and a
  // few instructions a process are percents of a run.
  bool IsObserved() const { return views_.areMade() || keepsShares_; }
  // What those want of the process that was fed last, which lived for `life` of the interval.
  void Observe(const Minute& minute, const ProcessRecord& process, double share, const VmrContext& interval,
               double life);

  // Keeps the shares of the interval that is worked in for GiveShares.
  void KeepShares() { keepsShares_ = true; }
  // Gives the shares kept, scaled as NormalizeProcessSeries does it where images are, and forgets them.
  void GiveShares(const Minute& minute, const SystemConfig& config, bool isScaled, const ProcessSink& sink);

  const ProcessDetail& detail() const { return detail_; }
  const ViewPass& views() const { return views_; }
  // Sum of process CPU shares by point; empty where nobody wants shares.
  const Series& shareSum() const { return shareSum_; }
  // In ascending order of their names.
  std::vector<NamedSeries> Images() const { return NamedOf(images_); }
  std::vector<NamedSeries> Users() const { return NamedOf(users_); }

 private:
  struct Identity;
  using Entry = std::pair<const ProcessKey, Identity>;
  // Where a process's share goes, worked out once for each user and command.
  struct Identity {
    int workloadClass = 0;
    NameSeries* image = nullptr;
    NameSeries* user = nullptr;
    ViewSeries views{};
    Entry* next = nullptr;  // the process that came after this one when it was last seen
  };
  const Identity& IdentityOf(std::string_view user, std::string_view command);
  Entry& EntryOf(std::string_view user, std::string_view command);
  const Identity& FeedNamedShare(const Minute& minute, std::string_view user, std::string_view command,
                                 float share);
  void FeedRest(const Minute& minute, double overallCpu);
  // Adds to the series of a class in a graph that is needed.
  static void FeedClass(GraphRecord* graph, const Minute& minute, int workloadClass, float value);

  const ProcessSpec& spec_;
  ProcessDetail detail_;
  std::optional<WorkloadClassifier> classifier_;  // where somebody wants classes
  GraphRecord* classShares_;                      // null where nobody needs them
  GraphRecord* classCounts_;
  SeriesPages pages_;
  SeriesTable images_;
  SeriesTable users_;
  ViewPass views_;
  std::unordered_map<ProcessKey, Identity, ProcessKeyHash, ProcessKeyEqual> identities_;
  Entry* last_ = nullptr;  // the entry that was found last
  Series shareSum_;

  bool keepsShares_ = false;
  std::vector<std::pair<const ProcessRecord*, double>> keptShares_;  // of the interval that is worked in
};

// The pass of a platform that has nothing of its own but the share.
template <ShareRule Share>
void AddProcesses(ProcessPass& pass, const Minute& minute, VmrContext& interval,
                  const ProcessorSums& processors, const CollectionInterval& /*length*/) {
  pass.Run(minute, interval, processors, Share);
}

}  // namespace ozmo
