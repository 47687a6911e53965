#include "programs/report/csv_files.h"

#include <set>

#include "output/export_csv.h"
#include "output/selection.h"
#include "runtime/output_directory.h"
#include "runtime/text.h"
#include "runtime/whole_file.h"

namespace ozmo::report {
namespace {

constexpr size_t LONGEST_NAME = 120;

bool IsPlain(char c) { return (c >= 'a' && c <= 'z') || IsDigit(c); }

std::string PlainName(const std::string& heading) {
  std::string name;
  for (char c : heading) {
    const char letter = LowerLetter(c);
    if (IsPlain(letter)) {
      name += letter;
    } else if (!name.empty() && name.back() != '_') {
      name += '_';
    }
  }
  name.resize(std::min(name.size(), LONGEST_NAME));
  if (name.ends_with('_')) name.pop_back();
  return name.empty() ? "graph" : name;
}

// Returns what went wrong.
std::string WriteFile(const WholeFilePlace& place, const GraphJob& job) {
  WholeFile file;
  if (std::string failure = file.Open(place); !failure.empty()) return failure;
  WriteCsv(file.stream(), job);
  return file.Commit();
}

}  // namespace

GraphJob JobOf(const Item& item, const DataDay& day) {
  GraphJob job;
  job.mainOverlay = PrepareMainOverlay(*item.record);
  job.SetSpan(day.begin, item.record->data.npoints);
  job.hostName = day.node;
  return job;
}

CsvResult WriteCsvFiles(const std::string& directory, const DataDay& day,
                        const std::vector<Section>& sections, std::span<const FileIdentity> inputs) {
  if (std::string failure = MakeOutputDirectory(directory); !failure.empty()) return {0, std::move(failure)};
  CsvResult result;
  const std::vector<std::string> names = FileNames(sections, ".csv");
  size_t next = 0;
  VisitItems(sections, [&](const Item& item) {
    const std::string& name = names[next++];
    if (!result.failure.empty()) return;
    result.failure = WriteFile({directory + "/" + name, LinkRule::REPLACE, inputs}, JobOf(item, day));
    if (result.failure.empty()) ++result.files;
  });
  return result;
}

std::vector<std::string> FileNames(const std::vector<Section>& sections, const std::string& ending) {
  std::vector<std::string> names;
  std::set<std::string> taken;
  VisitItems(sections, [&](const Item& item) {
    const std::string plain = PlainName(item.heading);
    std::string name = plain;
    for (int number = 2; !taken.insert(name).second; ++number) name = plain + '_' + std::to_string(number);
    names.push_back(name + ending);
  });
  return names;
}

}  // namespace ozmo::report
