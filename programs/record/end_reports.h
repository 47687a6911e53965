// The reports that the kernel sends of each task that ends, summed up to what ended processes used.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "programs/host_file/process_accounting.h"

namespace ozmo::record {

// Of a task, which is a thread, from its begin to its end. Times are in microseconds.
struct EndReport {
  int32_t id = 0;
  int32_t process = 0;  // whose thread it is
  int32_t parent = 0;   // of the process
  bool endsProcess = false;
  uint32_t user = 0;
  std::string name;  // the kernel's, of the thread
  uint64_t userTime = 0;
  uint64_t systemTime = 0;
  uint64_t minorFaults = 0;
  uint64_t majorFaults = 0;
};

// Sums up reports of an interval. However many tasks end, what is kept is one sum for each parent, user and
// name, and what belongs to processes that live or were seen alive.
class EndSums {
 public:
  void Add(const EndReport& report);

  // To be called when the kernel has thrown reports away. The end of a process may have been among them, and
  // what its threads used must not go to a later process of that id.
  void ForgetThreads() { threads_.clear(); }

  // To be called before a reading is made: of the reports that come until Take, those of processes that the
  // reading shows alive belong to the next interval.
  void Hold() { holds_ = true; }

  // Puts the ends since the last call into `ends`, by the names that `nameOf` gives to users. `living` is the
  // reading that they go with: the ends to come of its processes are kept one by one.
  void Take(const std::vector<host_file::ProcessFigures>& living, std::string (*nameOf)(uint32_t user),
            host_file::ProcessEnds& ends);

 private:
  struct Sum {
    int32_t id = 0;  // of the first
    uint64_t tasks = 0;
    uint64_t userTime = 0;
    uint64_t systemTime = 0;
    uint64_t minorFaults = 0;
    uint64_t majorFaults = 0;
    void Add(const Sum& other);
  };
  struct Threads {
    Sum sum;
    std::string name;  // of the process
  };
  using Key = std::tuple<int32_t, uint32_t, std::string>;  // parent, user, name

  static Sum SumOf(const EndReport& report);
  void AddEnd(const EndReport& report);
  void MoveUp(int32_t ended, int32_t parent);
  bool IsReported(int32_t process) const;
  static host_file::ReportedEnd EndOf(const Key& key, const Sum& sum, bool wasSeen,
                                      std::string (*nameOf)(uint32_t user));

  std::map<int32_t, Threads> threads_;  // ended threads of processes that live on, by process
  std::map<Key, Sum> sums_;
  std::vector<std::pair<Key, Sum>> seen_;
  std::set<int32_t> living_;
  std::vector<bool> reported_;  // whether the process of that id has ended since the last call
  bool holds_ = false;
  std::vector<EndReport> held_;
};

}  // namespace ozmo::record
