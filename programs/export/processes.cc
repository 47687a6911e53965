#include "programs/export/processes.h"

#include <algorithm>
#include <optional>

#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "programs/export/csv_cells.h"
#include "programs/export/traces.h"
#include "runtime/ordered_rows.h"

namespace ozmo::exporting {
namespace {

constexpr int CPU_DECIMALS = 4;
constexpr int FAULT_DECIMALS = 2;
constexpr double KB_PER_MB = 1024.0;

std::string NumberOf(int32_t number) { return std::to_string(number); }

// Where the files of a kind have what a column shows. Memory and page faults are where the graphs have them.
struct ProcessColumns {
  ReaderKind kind;
  std::string (*parent)(const ProcessRecord&) = nullptr;  // null: they don't have it
  bool hasUser = true;
};

constexpr ProcessColumns COLUMNS[] = {
    {ReaderKind::SOLARIS, [](const ProcessRecord& process) { return process.idText; }},
    {ReaderKind::HPUX, [](const ProcessRecord& process) { return NumberOf(process.processIdC); }},
    {ReaderKind::AIX, [](const ProcessRecord& process) { return NumberOf(process.processIdB); }},
    {ReaderKind::LINUX, [](const ProcessRecord& process) { return NumberOf(process.processIdB); }},
    {.kind = ReaderKind::VMR, .hasUser = false},
    {ReaderKind::TRU64, [](const ProcessRecord& process) { return NumberOf(process.processIdB); }},
};

static_assert(RowsAreInOrder(COLUMNS, &ProcessColumns::kind, KIND_COUNT));

const ProcessColumns& ColumnsOf(ReaderKind kind) { return COLUMNS[static_cast<size_t>(kind)]; }

// Of a damaged file it may be any number.
std::string KilobytesOf(double megabytes) {
  constexpr double MOST = 9'007'199'254'740'992.0;  // 2^53
  return std::to_string(static_cast<int64_t>(std::min(megabytes * KB_PER_MB, MOST)));
}

// A figure of a process, absent where the kind or this file doesn't have it.
std::optional<double> FigureOf(ProcessMeasures::Figure figure, const ProcessRecord& process,
                               const SystemConfig& config) {
  if (figure == nullptr) return std::nullopt;
  const double value = figure(process, config);
  return value >= 0.0 ? std::optional(value) : std::nullopt;
}

}  // namespace

ProcessTable::ProcessTable(std::FILE* stream, ReaderKind kind, const std::string& host)
    : stream_(stream), kind_(kind), hostCell_(CsvCell(host)) {
  std::fputs("ts,host,pid,parent,user,image,command,cpu,resident,faults\n", stream_);
}

void ProcessTable::Write(Seconds time, const SystemConfig& config, const ProcessRecord& process,
                         double percent) {
  const ProcessColumns& columns = ColumnsOf(kind_);
  const ProcessMeasures& figures = PlatformOf(kind_).processSpec.figures;
  line_ = UtcText(time);
  const auto add = [this](const std::string& cell) { (line_ += ',') += cell; };
  add(hostCell_);
  add(NumberOf(process.processId));
  add(columns.parent == nullptr ? "" : columns.parent(process));
  add(columns.hasUser ? CsvCell(process.userName) : "");
  add(CsvCell(ImageOfCommand(process.name)));
  add(CsvCell(process.name));
  add("");
  AppendNumber(line_, percent, CPU_DECIMALS);
  const std::optional<double> residentMb = FigureOf(figures.residentMb, process, config);
  add(residentMb ? KilobytesOf(*residentMb) : "");
  add("");
  if (const auto faults = FigureOf(figures.pageFaults, process, config)) {
    AppendNumber(line_, *faults, FAULT_DECIMALS);
  }
  line_ += '\n';
  std::fwrite(line_.data(), 1, line_.size(), stream_);
}

}  // namespace ozmo::exporting
