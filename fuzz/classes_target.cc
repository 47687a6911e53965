// The class file. After a NUL come users and commands to be classified, one a line.
#include "fuzz/harness.h"
#include "workload/classifier.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  std::string_view rest = TextOf(data, size);
  WriteScratch("QTX.memory", CutUpTo(rest, '\0'));
  ozmo::WorkloadClassList list;
  if (ozmo::WorkloadLoad(list, "QTX.memory") == 0) ozmo::WorkloadDefaults(list);
  const ozmo::WorkloadClassifier classifier(list);
  while (!rest.empty()) {
    const std::string_view user = CutUpTo(rest, '\n');
    WorkloadClassify(classifier, user, CutUpTo(rest, '\n'));
  }
  return 0;
}
