#include "catalog/needs.h"

#include <algorithm>
#include <utility>

#include "catalog/top_graphs.h"

namespace ozmo {
namespace {

// Which pass works out which graphs, by ranges of Graph.
struct PassGraphs {
  PassKind pass;
  Graph first;
  Graph last;
};

constexpr PassGraphs PASS_GRAPHS[] = {
    {PassKind::PROCESSORS, Graph::OVERALL_CPU, Graph::ACTIVE_CPUS},
    {PassKind::PROCESSES, Graph::TOP_IMAGES, Graph::PROCESS_PAGEFAULTS},
    {PassKind::DISKS, Graph::DISK_OPERATIONS, Graph::VMR_DISK_OPERATIONS_SPLIT},
    {PassKind::FILE_SYSTEMS, Graph::TOP_FILE_SYSTEMS, Graph::TOP_FILE_SYSTEMS},
    {PassKind::MEMORY, Graph::MEMORY_UTILIZATION, Graph::PAGES_IN_OUT},
    {PassKind::PROTOCOLS, Graph::TCP_PACKETS, Graph::IP_RECEIVED},
    {PassKind::ADAPTERS, Graph::LAN_PACKETS, Graph::LAN_DATA},
    {PassKind::PARTITION, Graph::PHYSICAL_CPU, Graph::POOL_ENTITLEMENT},
};

constexpr bool EachGraphHasAPass() {
  size_t next = 0;
  for (const PassGraphs& row : PASS_GRAPHS) {
    if (static_cast<size_t>(row.first) != next || row.last < row.first) return false;
    next = static_cast<size_t>(row.last) + 1;
  }
  return next == GRAPH_COUNT;
}
static_assert(EachGraphHasAPass());

class NeedsFinder {
 public:
  NeedsFinder(const PlatformSpec& platform, bool isDetailed) : platform_(platform), isDetailed_(isDetailed) {}

  void AddAll() {
    needs_.graphs.set();
    groups_.set();
  }
  void AddViews() {
    needs_.processes.views = true;
    for (const RecordKind kind : {RecordKind::PROCESS_SIZES, RecordKind::PROCESS_FAULTS})
      needs_.records.Add(kind);
  }
  // The graph of a title, and the groups whose rows may turn out to have it.
  void AddTitle(std::string_view key) { AddTitle(key, platform_.tree); }

  Needs Find() {
    if (!isDetailed_) DropDetail();
    AddListSources();
    AddDiskDetail();
    AddProcessDetail();
    AddPasses();
    AddRecords();
    return needs_;
  }

 private:
  bool Has(Graph graph) const { return needs_.Has(graph); }
  bool HasGroup(RowKind kind) const { return groups_[static_cast<size_t>(kind)]; }
  void Add(Graph graph) {
    if (graph != Graph::COUNT) needs_.graphs.set(static_cast<size_t>(graph));
  }
  void Add(PassKind pass) { needs_.passes.set(static_cast<size_t>(pass)); }

  bool AddTitle(std::string_view key, std::span<const RowText> rows);
  bool MayHold(RowKind kind, std::string_view key) const;
  void DropDetail();
  void AddListSources();
  void AddDiskDetail();
  void AddProcessDetail();
  void AddPasses();
  void AddRecords();

  const PlatformSpec& platform_;
  bool isDetailed_;
  Needs needs_;
  std::bitset<ROW_KIND_COUNT> groups_;  // that fill at run time, and may hold a wanted graph
};

// Goes through the tree as the search for a title does. True at the first row that has it: those after are
// never reached.
bool NeedsFinder::AddTitle(std::string_view key, std::span<const RowText> rows) {
  for (const RowText& row : rows) {
    if (row.kind == RowKind::GRAPH) {
      const std::span<const RecordText> records = platform_.records;
      const auto text =
          std::ranges::find_if(records, [&](const RecordText& record) { return record.graph == row.graph; });
      if (GraphNameKey(text->title) == key) {
        Add(row.graph);
        return true;
      }
    }
    if (AddTitle(key, row.rows)) return true;
    if (MayHold(row.kind, key)) groups_.set(static_cast<size_t>(row.kind));
  }
  return false;
}

// Whether a title can be that of a row made at run time.
bool NeedsFinder::MayHold(RowKind kind, std::string_view key) const {
  switch (kind) {
    case RowKind::DISKS:
      return std::ranges::any_of(std::span<const DiskGraph>(platform_.diskSpec.graphs),
                                 [&](const DiskGraph& graph) {
                                   const std::string_view format = graph.titleFormat;
                                   return key.starts_with(GraphNameKey(format.substr(0, format.find("%s"))));
                                 });
    case RowKind::PROCESSORS:
      return key.starts_with(GraphNameKey(platform_.processorSpec.namePrefix));
    case RowKind::ADAPTERS:  // named by the adapter alone
      return true;
    case RowKind::GRAPH:
    case RowKind::GROUP:
    case RowKind::COUNT:
      break;
  }
  return false;
}

void NeedsFinder::DropDetail() {
  groups_.reset(static_cast<size_t>(RowKind::DISKS));
  needs_.graphs.reset(static_cast<size_t>(Graph::TOP_DISK_RESPONSE));
  for (const TopListRule& rule : TopListRules()) {
    if (rule.isOfDetail) needs_.graphs.reset(static_cast<size_t>(rule.graph));
  }
}

// Totals, and what shares are scaled with.
void NeedsFinder::AddListSources() {
  for (const TopListRule& rule : TopListRules()) {
    const TopListSpec& spec = platform_.topLists.*rule.spec;
    if (!Has(rule.graph) || spec.labelFormat == nullptr) continue;
    if (spec.others != OthersRule::NONE) Add(rule.total);
    if (spec.others == OthersRule::DPC_INTERRUPT) Add(Graph::CPU_BY_MODE);
    if (rule.weight != Weight::PLAIN || spec.isRescaled) Add(Graph::OVERALL_CPU);
  }
  if (Has(Graph::CLASS_CPU) && platform_.processSpec.classesAreRescaled) Add(Graph::OVERALL_CPU);
}

void NeedsFinder::AddDiskDetail() {
  needs_.disks.hasGraphs = HasGroup(RowKind::DISKS);
  const auto add = [&](DiskSeries series) { needs_.disks.series.set(static_cast<size_t>(series)); };
  for (const TopListRule& rule : TopListRules()) {
    if (rule.diskSeries != DiskSeries::COUNT && Has(rule.graph)) add(rule.diskSeries);
  }
  if (!Has(Graph::TOP_DISK_RESPONSE)) return;
  add(DiskSeries::OPERATIONS);  // they decide whose response times are shown
  add(DiskSeries::RESPONSE);
}

void NeedsFinder::AddProcessDetail() {
  ProcessDetail& detail = needs_.processes;
  detail.images = Has(Graph::TOP_IMAGES);
  detail.users = Has(Graph::TOP_USERS) && platform_.topLists.users.labelFormat != nullptr;
  detail.classes = Has(Graph::CLASS_CPU) || Has(Graph::CLASS_COUNT);
  detail.shares = detail.images || detail.users || Has(Graph::CLASS_CPU);
}

void NeedsFinder::AddPasses() {
  for (const PassGraphs& row : PASS_GRAPHS) {
    for (size_t graph = static_cast<size_t>(row.first); graph <= static_cast<size_t>(row.last); ++graph) {
      if (needs_.graphs[graph]) Add(row.pass);
    }
  }
  if (Has(Graph::DISK_BY_TYPE)) Add(PassKind::MEMORY);
  if (HasGroup(RowKind::DISKS)) Add(PassKind::DISKS);
  if (HasGroup(RowKind::ADAPTERS)) Add(PassKind::ADAPTERS);
  if (HasGroup(RowKind::PROCESSORS) || needs_.processes.shares) Add(PassKind::PROCESSORS);
  // A processor's record is known for a repeat by the value at its point.
  if (needs_.Has(PassKind::PROCESSORS)) Add(Graph::CPU_BY_PROCESSOR);
  if (platform_.fileSystemKeyFormat == nullptr) {
    needs_.passes.reset(static_cast<size_t>(PassKind::FILE_SYSTEMS));
  }
  if (platform_.hasAdapterGraphs == nullptr) needs_.passes.reset(static_cast<size_t>(PassKind::ADAPTERS));
  if (platform_.partition == nullptr) needs_.passes.reset(static_cast<size_t>(PassKind::PARTITION));
}

void NeedsFinder::AddRecords() {
  constexpr std::pair<PassKind, RecordKind> RECORDS[] = {
      {PassKind::MEMORY, RecordKind::MEMORY},
      {PassKind::DISKS, RecordKind::DISKS},
      {PassKind::FILE_SYSTEMS, RecordKind::FILE_SYSTEMS},
      {PassKind::ADAPTERS, RecordKind::ADAPTERS},
      {PassKind::PROCESSES, RecordKind::PROCESSES},
      {PassKind::PROTOCOLS, RecordKind::PROTOCOLS},
      {PassKind::PARTITION, RecordKind::PARTITION},
  };
  for (const auto& [pass, kind] : RECORDS) {
    if (needs_.Has(pass)) needs_.records.Add(kind);
  }
  if (needs_.processes.NamesUsers()) needs_.records.Add(RecordKind::PROCESS_USERS);
  if (Has(Graph::PROCESS_PAGEFAULTS)) needs_.records.Add(RecordKind::PROCESS_FAULTS);
  // A partition limits the processors that shares are taken of.
  if (needs_.processes.shares && platform_.partition != nullptr) needs_.records.Add(RecordKind::PARTITION);
}

}  // namespace

Needs NeedsOf(const PlatformSpec& platform, const WantedTitles& titles, bool isDetailed) {
  NeedsFinder finder(platform, isDetailed);
  if (titles.IsAll()) finder.AddAll();
  if (titles.HasViews()) finder.AddViews();
  for (const std::string& key : titles.keys()) finder.AddTitle(key);
  return finder.Find();
}

}  // namespace ozmo
