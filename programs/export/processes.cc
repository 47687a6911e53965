#include "programs/export/processes.h"

#include <algorithm>

#include "catalog/processes.h"
#include "programs/export/csv_cells.h"
#include "programs/export/traces.h"

namespace ozmo::exporting {
namespace {

constexpr int CPU_DECIMALS = 4;
constexpr int FAULT_DECIMALS = 2;
constexpr int BYTES_PER_KILOBYTE = 1024;

// Where they are per second already.
double FaultsOfTwoKinds(const ProcessRecord& process) {
  return static_cast<double>(process.minorFaults) + static_cast<double>(process.majorFaults);
}

// Where the files of a kind have what a column shows.
struct ProcessColumns {
  ReaderKind kind;
  std::string (*parent)(const ProcessRecord&) = nullptr;  // null: they don't have it
  bool hasUser = true;
  int residentDivisor = 1;                           // to kilobytes
  double (*faults)(const ProcessRecord&) = nullptr;  // page faults of all kinds per second
};

constexpr ProcessColumns COLUMNS[] = {
    {.kind = ReaderKind::SOLARIS,
     .parent = [](const ProcessRecord& process) { return process.idText; },
     .faults =
         [](const ProcessRecord& process) {
           return static_cast<double>(process.pageFaultsPerSecond) + static_cast<double>(process.rates[2]);
         }},
    {.kind = ReaderKind::LINUX,
     .parent = [](const ProcessRecord& process) { return std::to_string(process.processIdB); },
     .faults =
         [](const ProcessRecord& process) {
           return FaultsOfTwoKinds(process) / static_cast<double>(process.elapsedSeconds);
         }},
    {.kind = ReaderKind::AIX,
     .parent = [](const ProcessRecord& process) { return std::to_string(process.processIdB); },
     .faults = FaultsOfTwoKinds},
    {.kind = ReaderKind::HPUX,
     .parent = [](const ProcessRecord& process) { return std::to_string(process.processIdC); },
     .residentDivisor = BYTES_PER_KILOBYTE,
     .faults = FaultsOfTwoKinds},
    {.kind = ReaderKind::TRU64,
     .parent = [](const ProcessRecord& process) { return std::to_string(process.processIdB); },
     .faults =
         [](const ProcessRecord& process) {
           return static_cast<double>(process.rates[0] + process.rates[1]) /
                  static_cast<double>(process.elapsedSeconds);
         }},
    {.kind = ReaderKind::VMR,
     .hasUser = false,
     .residentDivisor = BYTES_PER_KILOBYTE,
     .faults = [](const ProcessRecord& process) { return static_cast<double>(process.pageFaultsPerSecond); }},
};

const ProcessColumns& ColumnsOf(ReaderKind kind) {
  return *std::ranges::find(COLUMNS, kind, &ProcessColumns::kind);
}

}  // namespace

ProcessTable::ProcessTable(std::FILE* stream, ReaderKind kind, const std::string& host)
    : stream_(stream), kind_(kind), hostCell_(CsvCell(host)) {
  std::fputs("ts,host,pid,parent,user,image,command,cpu,resident,faults\n", stream_);
}

void ProcessTable::Write(Seconds time, const ProcessRecord& process, double percent) {
  const ProcessColumns& columns = ColumnsOf(kind_);
  line_ = UtcText(time);
  const auto add = [this](const std::string& cell) { (line_ += ',') += cell; };
  add(hostCell_);
  add(std::to_string(process.processId));
  add(columns.parent == nullptr ? "" : columns.parent(process));
  add(columns.hasUser ? CsvCell(process.userName) : "");
  add(CsvCell(ImageOfCommand(process.name)));
  add(CsvCell(process.name));
  add("");
  AppendNumber(line_, percent, CPU_DECIMALS);
  add(std::to_string(process.sizeResident / columns.residentDivisor));
  add("");
  AppendNumber(line_, columns.faults(process), FAULT_DECIMALS);
  line_ += '\n';
  std::fwrite(line_.data(), 1, line_.size(), stream_);
}

}  // namespace ozmo::exporting
