#include "catalog/processes.h"

#include <string>

#include "catalog/top_graphs.h"

namespace ozmo {
namespace {

constexpr std::string_view REST_NAME = "<NoProc>";

// Command lines with ever new arguments mustn't make the store of known processes grow without end.
constexpr size_t MAX_IDENTITIES = 65536;

ProcessIdentity IdentityOf(BuildState& state, std::string_view user, std::string_view command) {
  ProcessIdentities& known = state.processIdentities;
  const auto found = known.find(ProcessKeyView(user, command));
  if (found != known.end()) return found->second;

  ProcessIdentity identity;
  identity.workloadClass = WorkloadClassify(state.classes, user, command);
  identity.image = &state.trees.At(NameTree::IMAGES, ImageOfCommand(command));
  if (state.platform.topLists.users.labelFormat != nullptr) {
    identity.user = &state.trees.At(NameTree::USERS, TrimBlanks(user));
  }
  if (known.size() >= MAX_IDENTITIES) known.clear();
  known.emplace(ProcessKey{std::string(user), std::string(command)}, identity);
  return identity;
}

void FeedSet(BuildState& state, Graph graph, int set, float value) {
  if (Series* series = state.catalog.FindSeries(graph, set)) PointFeed(*series, state.point, value);
}

// Feeds all but the process count of the class.
ProcessIdentity FeedNamedShare(BuildState& state, std::string_view user, std::string_view command,
                               float share) {
  const ProcessIdentity identity = IdentityOf(state, user, command);
  FeedSet(state, Graph::CLASS_CPU, identity.workloadClass, share);
  PointFeed(*identity.image, state.point, share);
  if (identity.user != nullptr) PointFeed(*identity.user, state.point, share);
  return identity;
}

// Overall CPU that no process accounts for. With no process at all the sum may still be missing, and then
// the rest is taken from that.
void FeedRest(BuildState& state) {
  const double sum = static_cast<double>(PointAt(state.processCpuSum, state.point));
  const double rest = state.sums.overallCpu - sum;
  if (!(rest > 0.0)) return;
  FeedNamedShare(state, REST_NAME, REST_NAME, static_cast<float>(rest));
  PointStore(state.processCpuSum, state.point, static_cast<float>(sum + rest));
}

}  // namespace

double CpuSecondsOf(const ProcessRecord& process) {
  return static_cast<double>(process.userCpuSeconds + process.systemCpuSeconds);
}

void FeedShare(BuildState& state, std::string_view user, std::string_view command, double share) {
  const float value = static_cast<float>(share);
  PointFeed(state.processCpuSum, state.point, value);
  const ProcessIdentity identity = FeedNamedShare(state, user, command, value);
  FeedSet(state, Graph::CLASS_COUNT, identity.workloadClass, 1.0F);
}

void AddProcesses(BuildState& state, const VmrContext& context) {
  const ProcessSpec& spec = state.platform.processSpec;
  for (const ProcessRecord& process : context.processes.primary) {
    if (spec.passedOver != nullptr && process.name == spec.passedOver) continue;
    FeedShare(state, process.userName, process.name, spec.share(state, context, process));
  }
  if (spec.restNamed) FeedRest(state);
  const float count = static_cast<float>(context.processes.primary.size());
  state.catalog.Store(Graph::PROCESS_COUNT, 0, state.point, count);
}

void RescaleClasses(BuildState& state) {
  GraphRecord* record = state.catalog.Find(Graph::CLASS_CPU);
  const std::optional<CpuScale> scale = CpuScaleOf(state);
  if (record == nullptr || !scale) return;
  for (Series& series : record->data.y) NormalizeProcessSeries(series, *scale);
}

}  // namespace ozmo
