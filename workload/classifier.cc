#include "workload/classifier.h"

namespace ozmo {

WorkloadClassifier::WorkloadClassifier(const WorkloadClassList& list)
    : users_(list.classes, &WorkloadClass::uid),
      commands_(list.classes, &WorkloadClass::command),
      count_(list.classes.size()),
      rest_(list.catchAllClass.value_or(count_ - 1)) {}

int WorkloadClassify(const WorkloadClassifier& classes, std::string_view user, std::string_view command) {
  const PatternIndex::Matches byUser(classes.users_, user);
  const PatternIndex::Matches byCommand(classes.commands_, command);
  size_t place = byUser.NextFrom(0);
  size_t next = byCommand.NextFrom(place);
  while (next != place) {
    place = byUser.NextFrom(next);
    next = byCommand.NextFrom(place);
  }
  return static_cast<int>(place < classes.count_ ? place : classes.rest_);
}

}  // namespace ozmo
