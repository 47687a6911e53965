// Which class a process belongs to.
#pragma once

#include <string_view>

#include "workload/pattern_index.h"
#include "workload/workload.h"

namespace ozmo {

// The classes of a list, made ready to be looked up.
class WorkloadClassifier {
 public:
  // The list must hold a class.
  explicit WorkloadClassifier(const WorkloadClassList& list);

 private:
  friend int WorkloadClassify(const WorkloadClassifier& classes, std::string_view user,
                              std::string_view command);

  PatternIndex users_;
  PatternIndex commands_;
  size_t count_;
  size_t rest_;  // what takes a process that no class matches
};

// The position of the first class that matches both user name and command, each as WorkloadMatchList has it;
// failing that, of the catch-all class, or of the last class.
int WorkloadClassify(const WorkloadClassifier& classes, std::string_view user, std::string_view command);

}  // namespace ozmo
