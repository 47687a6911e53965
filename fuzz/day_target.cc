// Data files of one kind: a day of one or two files, the whole way from the command line to the CSV file.
//
// Beyond that nothing breaks the target holds that a catalog for one graph alone has the same series as the
// catalog of all graphs.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "catalog/build_catalog.h"
#include "cli/entry.h"
#include "fuzz/day_input.h"
#include "fuzz/day_kind.h"
#include "fuzz/harness.h"
#include "fuzz/records.h"
#include "output/selection.h"
#include "readers/file_kind.h"
#include "runtime/memory.h"

namespace ozmo::fuzz {
namespace {

constexpr Seconds DAY_START = 1329868800;  // 22-Feb-2012

const KindRow& Kind() { return *std::ranges::find(ReaderKinds(), DAY_KIND, &KindRow::word); }

bool IsText() { return Kind().kind == ReaderKind::VMR; }

// "N" is the number of the file in its day. The second form is of files in the other order of bytes,
// or in capitals.
std::string PathFor(bool secondForm) {
  if (IsText()) return secondForm ? "./qtx_f_2012Feb22_N.VMR" : "./qtx_f_2012Feb22_N.vmr";
  const std::string_view prefix = Kind().prefixes[secondForm ? 1 : 0];
  const std::string_view without = secondForm ? "other_" : "osf_";
  return "./" + std::string(prefix.empty() ? without : prefix) + "f_2012Feb22.dat_N";
}

std::string WithNumber(std::string path, char number) {
  path[path.rfind('N')] = number;
  return path;
}

std::string PathOf(const DayInput& input, char number) {
  return WithNumber(PathFor(input.secondForm), number);
}

// The second file is there if it has bytes.
void WriteFiles(const DayInput& input) {
  WriteScratch(PathOf(input, '1'), input.files[0]);
  const std::string second = PathOf(input, '2');
  std::remove(second.c_str());
  if (!input.files[1].empty()) WriteScratch(second, input.files[1]);
}

Seconds TimeOf(int minute) { return DAY_START + Seconds{minute} * 60; }

std::string OptionTime(int minute) { return TimeFormat(TimeOf(minute), "%d-%b-%Y:%H:%M:%S"); }

void RunTool(const DayInput& input) {
  std::vector<std::string> words = {"ozmo_graph",
                                    "-graph_file",
                                    "out.csv",
                                    "-vmrunix",
                                    PathOf(input, '1'),
                                    "-begin",
                                    OptionTime(input.beginMinute),
                                    "-end",
                                    OptionTime(input.endMinute),
                                    "-type",
                                    "csv",
                                    "-item",
                                    input.item};
  if (!input.overlay.empty()) words.insert(words.end(), {"-overlay", input.overlay});
  std::vector<char*> arguments = ArgumentsOf(words);
  RunEntry(static_cast<int>(words.size()), arguments.data());
}

std::unique_ptr<GraphCatalog> CatalogOf(const DayInput& input, const WantedTitles& titles) {
  Runtime runtime;
  DataReader reader(PathOf(input, '1'), runtime);
  const Span span{TimeOf(input.beginMinute), TimeOf(input.endMinute)};
  WorkloadClassList classes;
  return BuildCatalog(reader, span, classes, titles, runtime);
}

bool SameBytes(const Series& one, const Series& other) {
  return one.size() == other.size() && std::memcmp(one.data(), other.data(), one.size() * sizeof(float)) == 0;
}

// Ends the process where the graph by itself differs from the one among all.
void CompareCatalogs(const DayInput& input) {
  const std::unique_ptr<GraphCatalog> all = CatalogOf(input, WantedTitles::All());
  const std::unique_ptr<GraphCatalog> alone = CatalogOf(input, WantedTitles({input.item}));
  const GraphRecord* among = FindGraphRecord(all->itemTree, input.item);
  const GraphRecord* record = FindGraphRecord(alone->itemTree, input.item);
  const bool areSame = (among == nullptr) == (record == nullptr) &&
                       (among == nullptr || (among->traceLabels == record->traceLabels &&
                                             std::ranges::equal(among->data.y, record->data.y, SameBytes)));
  if (!areSame) std::abort();
}

// The titles that every catalog of the kind has, from a file that isn't there: what inputs have left goes
// first.
const std::vector<std::string>& Titles() {
  static const std::vector<std::string> titles = [] {
    for (const char number : {'1', '2'}) {
      for (const bool secondForm : {false, true})
        std::remove(WithNumber(PathFor(secondForm), number).c_str());
    }
    std::vector<std::string> found;
    const std::unique_ptr<GraphCatalog> catalog = CatalogOf(DayInput(), WantedTitles::All());
    VisitGraphs(catalog->itemTree, [&](const GraphRecord& record) { found.push_back(record.title); });
    return found;
  }();
  return titles;
}

void ChangeRequest(DayInput& input, Random& random) {
  const std::string& title = Titles()[random() % Titles().size()];
  switch (random() % 5) {
    case 0:
      input.overlay = random() % 2 == 0 ? "" : title + "@" + input.item;
      break;
    case 1:
      input.endMinute = input.beginMinute + static_cast<int>(random() % 200) - 10;
      break;
    case 2:
      input.beginMinute += static_cast<int>(random() % 41) - 20;
      break;
    default:
      input.item = title;
  }
}

// A day of one file becomes one of two, or the other way around.
void MoveBorder(DayInput& input, Random& random) {
  RecordRow first = IsText() ? SplitTextFile(input.files[0]) : SplitCollectorFile(input.files[0]);
  switch (random() % 3) {
    case 0:
      input.files[1].clear();
      break;
    case 1:
      input.files[1] = input.files[0];
      break;
    default:
      RecordRow second = first;
      const auto border =
          static_cast<std::ptrdiff_t>(first.records.empty() ? 0 : random() % first.records.size());
      first.records.erase(first.records.begin() + border, first.records.end());
      second.records.erase(second.records.begin(), second.records.begin() + border);
      input.files[0] = Join(first);
      input.files[1] = Join(second);
  }
}

void ChangeFile(std::string& bytes, Random& random) {
  RecordRow row = IsText() ? SplitTextFile(bytes) : SplitCollectorFile(bytes);
  for (unsigned n = random() % 4; n < 4; ++n) ChangeRecords(row, random);
  bytes = Join(row);
}

}  // namespace
}  // namespace ozmo::fuzz

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
  using namespace ozmo::fuzz;
  Random random(seed);
  const unsigned choice = random() % 16;
  if (choice == 0) return LLVMFuzzerMutate(data, size, maxSize);
  DayInput input = ReadDayInput(TextOf(data, size));
  if (choice < 3) {
    ChangeRequest(input, random);
  } else if (choice == 3) {
    MoveBorder(input, random);
  } else {
    ChangeFile(input.files[input.files[1].empty() ? 0 : random() % 2], random);
  }
  const std::string bytes = WriteDayInput(input);
  const size_t length = std::min(bytes.size(), maxSize);
  std::copy_n(bytes.begin(), length, data);
  return length;
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  const DayInput input = ReadDayInput(TextOf(data, size));
  WriteFiles(input);
  AsRun([&] { CompareCatalogs(input); });
  AsRun([&] { RunTool(input); });
  ozmo::MemDetach();
  return 0;
}
