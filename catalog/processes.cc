#include "catalog/processes.h"

#include "runtime/text.h"

namespace ozmo {
namespace {

constexpr std::string_view REST_NAME = "<NoProc>";

// Command lines with ever new arguments mustn't make the store of known processes grow without end.
constexpr size_t MAX_IDENTITIES = 65536;

constexpr double KB_PER_MB = 1024.0;
constexpr double WHOLE_LIFE = 1.0;

constexpr size_t COMMAND_BYTES = 255;
constexpr std::string_view NO_COMMAND = "<unknown>";
constexpr std::string_view WORD_SEPARATORS = " \t";

void CutBlanks(std::string& text) {
  if (text.starts_with(' ') || text.ends_with(' ')) text = std::string(TrimText(text, " "));
}

}  // namespace

std::string_view ImageOfCommand(std::string_view command) {
  std::string_view text = command.substr(0, COMMAND_BYTES);
  size_t word = text.find_first_not_of(WORD_SEPARATORS);
  if (word == std::string_view::npos) {
    text = NO_COMMAND;
    word = 0;
  }
  text = text.substr(0, text.find_first_of(WORD_SEPARATORS, word));
  // Without a '/' the name starts where the command does: leading blanks are part of it.
  const size_t slash = text.rfind('/');
  if (slash != std::string_view::npos) text.remove_prefix(slash + 1);
  if (text.starts_with('-')) text.remove_prefix(1);
  return text;
}

double CpuSecondsOf(const ProcessRecord& process) {
  return static_cast<double>(process.userCpuSeconds + process.systemCpuSeconds);
}

double MbOfKilobytes(const ProcessRecord& process, const SystemConfig& /*config*/) {
  return static_cast<double>(process.sizeResident) / KB_PER_MB;
}

double FaultRates(const ProcessRecord& process, const SystemConfig& /*config*/) {
  return static_cast<double>(process.minorFaults + process.majorFaults);
}

double PageFaultRate(const ProcessRecord& process, const SystemConfig& /*config*/) {
  return static_cast<double>(process.pageFaultsPerSecond);
}

ProcessPass::ProcessPass(const PlatformSpec& platform, const ProcessDetail& detail,
                         const WorkloadClassList& classes, GraphCatalog& catalog)
    : spec_(platform.processSpec),
      detail_(detail),
      classShares_(catalog.FindNeeded(Graph::CLASS_CPU)),
      classCounts_(catalog.FindNeeded(Graph::CLASS_COUNT)),
      pages_(catalog.budget),
      views_(platform, detail.views, catalog) {
  if (detail_.classes) classifier_.emplace(classes);
  if (detail_.shares) {
    const auto points = static_cast<size_t>(catalog.pointCount) + 1;
    shareSum_.assign(points, spec_.sumStartsMissing ? MISSING_POINT : 0.0F);
  }
}

ProcessPass::Entry& ProcessPass::EntryOf(std::string_view user, std::string_view command) {
  const auto found = identities_.find(ProcessKeyView(user, command));
  if (found != identities_.end()) return *found;

  if (identities_.size() >= MAX_IDENTITIES) {
    identities_.clear();
    last_ = nullptr;
  }
  Entry& entry = *identities_.try_emplace(ProcessKey{std::string(user), std::string(command)}).first;
  Identity& identity = entry.second;
  if (classifier_) identity.workloadClass = WorkloadClassify(*classifier_, user, command);
  if (detail_.images) identity.image = &SeriesOf(images_, ImageOfCommand(command));
  if (detail_.users) identity.user = &SeriesOf(users_, TrimText(user, " "));
  if (views_.areMade()) identity.views = views_.SeriesOfNames(ImageOfCommand(command), TrimText(user, " "));
  return entry;
}

// Processes come in much the same order from interval to interval, so most are found without a look-up.
const ProcessPass::Identity& ProcessPass::IdentityOf(std::string_view user, std::string_view command) {
  Entry* entry = last_ == nullptr ? nullptr : last_->second.next;
  if (entry == nullptr || !ProcessKeyEqual()(entry->first, ProcessKeyView(user, command))) {
    entry = &EntryOf(user, command);
    if (last_ != nullptr) last_->second.next = entry;
  }
  last_ = entry;
  return entry->second;
}

void ProcessPass::FeedClass(GraphRecord* graph, const Minute& minute, int workloadClass, float value) {
  if (graph == nullptr || workloadClass >= graph->data.nsets()) return;
  PointFeed(graph->data.y[static_cast<size_t>(workloadClass)], minute.point, value);
}

// Feeds all but the process count of the class.
const ProcessPass::Identity& ProcessPass::FeedNamedShare(const Minute& minute, std::string_view user,
                                                         std::string_view command, float share) {
  const Identity& identity = IdentityOf(user, command);
  FeedClass(classShares_, minute, identity.workloadClass, share);
  if (identity.image != nullptr) identity.image->Feed(pages_, minute.sample, share);
  if (identity.user != nullptr) identity.user->Feed(pages_, minute.sample, share);
  return identity;
}

void ProcessPass::FeedShare(const Minute& minute, const ProcessRecord& process, double share) {
  const float value = static_cast<float>(share);
  if (detail_.shares) PointFeed(shareSum_, minute.point, value);
  const Identity& identity = FeedNamedShare(minute, process.userName, process.name, value);
  FeedClass(classCounts_, minute, identity.workloadClass, 1.0F);
}

void ProcessPass::Observe(const Minute& minute, const ProcessRecord& process, double share,
                          const VmrContext& interval, double life) {
  if (views_.areMade()) views_.Feed(minute, last_->second.views, process, ConfigOf(interval), life);
  if (keepsShares_) keptShares_.emplace_back(&process, share);
}

void ProcessPass::GiveShares(const Minute& minute, const SystemConfig& config, bool isScaled,
                             const ProcessSink& sink) {
  double scale = 1.0;
  if (const Series* overallCpu = minute.catalog.FindSeries(Graph::OVERALL_CPU, 0); isScaled && overallCpu) {
    const double overall = static_cast<double>(PointAt(*overallCpu, minute.point));
    const double sum = static_cast<double>(PointAt(shareSum_, minute.point));
    if (overall >= 0.0 && sum > 0.0) scale = overall / sum;
  }
  for (const auto& [process, share] : keptShares_) sink(minute, config, *process, share * scale);
  keptShares_.clear();
}

// Overall CPU that no process accounts for. With no process at all the sum may still be missing, and then
// the rest is taken from that.
void ProcessPass::FeedRest(const Minute& minute, double overallCpu) {
  const double sum = static_cast<double>(PointAt(shareSum_, minute.point));
  const double rest = overallCpu - sum;
  if (!(rest > 0.0)) return;
  FeedNamedShare(minute, REST_NAME, REST_NAME, static_cast<float>(rest));
  PointStore(shareSum_, minute.point, static_cast<float>(sum + rest));
}

void ProcessPass::Run(const Minute& minute, VmrContext& interval, const ProcessorSums& processors,
                      ShareRule share) {
  minute.Store(Graph::PROCESS_COUNT, 0, static_cast<float>(interval.processes.primary.size()));
  if (!detail_.IsWanted()) return;
  const ShareBasis basis{interval, processors, minute.catalog.spanStart};
  const bool isObserved = IsObserved();
  for (ProcessRecord& process : interval.processes.primary) {
    if (!spec_.passedOver.empty() && process.name == spec_.passedOver) continue;
    const double percent = detail_.shares ? share(process, basis) : 0.0;
    FeedShare(minute, process, percent);
    if (isObserved) Observe(minute, process, percent, interval, WHOLE_LIFE);
    if (detail_.NamesUsers()) CutBlanks(process.userName);
  }
  if (spec_.restIsNamed && detail_.shares) FeedRest(minute, processors.overallCpu);
}

}  // namespace ozmo
