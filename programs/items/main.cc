// ozmo_items: writes the list of all items, for the reader and for the completion of the shell.
//
// The items are those of real catalogs: a sample file of each kind is read, so that the rows that disks,
// adapters and processors make at run time are there too. Their names are replaced by DISK, ADAPTER and
// CPU-N.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "catalog/build_catalog.h"
#include "catalog/platforms.h"
#include "output/selection.h"
#include "programs/items/descriptions.h"
#include "programs/sample/kinds.h"
#include "readers/data_reader.h"
#include "runtime/times.h"

namespace ozmo::items {
namespace {

struct Platform {
  std::string_view word;  // in the list for the shell, and for ozmo_sample
  std::string_view name;
  std::string_view note;
};

constexpr std::string_view NO_LONG_DETAIL =
    "A span of more than two days has no items of single disks and no Top 10 lists of disks and file "
    "systems.";

// The kind of that word.
Platform PlatformOfWord(std::string_view word) {
  const auto row = std::ranges::find(ReaderKinds(), word, &KindRow::word);
  const bool isLimited = PlatformOf(row->kind).detailLimit > 0;
  return {word, row->kind == ReaderKind::VMR ? "Monitor text files" : row->system,
          isLimited ? NO_LONG_DETAIL : std::string_view()};
}

constexpr std::string_view INTRODUCTION = R"(# Items

All graphs that `-item` can name, by the kind of the data file and in the order of the catalog. The case of
letters, blanks and quotes don't count in a title or trace.

- *Unit* is the title of the y axis.
- *Top* is a fixed top of the y axis, which ends a tenth above it. Without one the axis follows the highest
  value.
- *Traces* are in the order of the CSV columns and from the top of the plot down. They are stacked, so the
  height of a plot is their sum. An overlay is one trace of another item by its own value:
  `-overlay "ITEM@TRACE"`.
- `DISK`, `ADAPTER` and `CPU-N` take the place of names in the data file, `NAME` for what a list ranks.

Any trace may be laid over an item without a top; it is drawn to a scale of its own. Over an item with a top go
the traces of items that have one too: any other has no scale there and is of no use.

An item is not found, although it is listed here, where the data file has nothing for it.
)";

// A title or label as it is listed: blanks don't count, so a run of them is one.
std::string OneBlank(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c != ' ' || (!result.empty() && result.back() != ' ')) result += c;
  }
  while (result.ends_with(' ')) result.pop_back();
  return result;
}

[[noreturn]] void Fail(const std::string& text) {
  std::cerr << "ozmo_items: " << text << "\n";
  std::exit(EXIT_FAILURE);
}

// The catalog of an hour of the platform's sample data, written to `directory`.
std::unique_ptr<GraphCatalog> CatalogOf(const Platform& platform, const std::filesystem::path& directory) {
  sample::SampleOptions options;
  options.directory = (directory / platform.word).string();
  options.hours = 1;
  options.replace = true;
  const sample::SampleResult written = sample::WriteSample(*sample::FindSampleKind(platform.word), options);
  if (!written.error.empty()) Fail(written.error);

  Runtime runtime;
  DataReader reader(written.files.front(), runtime);
  const std::optional<FileHead>& head = reader.Head();
  if (!head) Fail("can't read a sample file");
  const Span span{head->firstRecordTime, head->firstRecordTime + 3600};
  WorkloadClassList classes;
  return BuildCatalog(reader, span, classes, WantedTitles::All(), runtime);
}

struct Item {
  std::string group;  // of the tree's root
  std::string title;
  std::string unit;
  float top = 0.0F;                 // 0: none
  std::vector<std::string> labels;  // of its traces
  bool isStatic = true;             // no name of the data file is in its title
  bool isReached = true;            // by its title: no other of the same title comes before it
};

// Lists the graphs of a catalog. Of the rows that come at run time, one for each name, the first takes the
// place of all.
class ItemList {
 public:
  explicit ItemList(GraphCatalog& catalog) : catalog_(catalog) {
    for (const GraphMenuEntry& root : catalog.itemTree) {
      group_ = OneBlank(root.label);
      AddRow(root, "");
    }
  }

  const std::vector<Item>& items() const { return items_; }

 private:
  void AddRow(const GraphMenuEntry& row, const std::string& parent) {
    if (row.record != nullptr) AddItem(*row.record, row, parent);
    for (const GraphMenuEntry& child : row.subTable) AddRow(child, row.label);
  }

  void AddItem(const GraphRecord& record, const GraphMenuEntry& row, const std::string& parent) {
    Item item = {.group = group_,
                 .title = record.title,
                 .unit = record.yTitle,
                 .top = record.yMax,
                 .labels = {},
                 .isStatic = true,
                 .isReached = FindGraphRecord(catalog_.itemTree, record.title) == &record};
    for (int set = 0; set < record.data.nsets(); ++set) item.labels.push_back(record.Label(set).value_or(""));
    const auto isRecord = [&](const GraphRecord& other) { return &other == &record; };
    if (std::any_of(catalog_.runtimeRecords.begin(), catalog_.runtimeRecords.end(), isRecord)) {
      // The graphs of a disk or adapter lie below a row of its name, that of a processor bears the name
      // itself.
      const bool isBelowName = record.title.find(parent) != std::string::npos;
      const std::string_view word = !isBelowName ? "CPU-N" : record.title == parent ? "ADAPTER" : "DISK";
      item.isStatic = false;
      Generalise(item, isBelowName ? parent : row.label, word);
    }
    item.title = OneBlank(item.title);
    const auto isSame = [&](const Item& other) {
      return other.title == item.title && other.unit == item.unit;
    };
    if (std::none_of(items_.begin(), items_.end(), isSame)) items_.push_back(std::move(item));
  }

  static void Generalise(Item& item, const std::string& name, std::string_view word) {
    const auto replace = [&](std::string& text) {
      const size_t at = text.find(name);
      if (at != std::string::npos) text.replace(at, name.size(), word);
    };
    replace(item.title);
    for (std::string& label : item.labels) replace(label);
  }

  GraphCatalog& catalog_;
  std::string group_;
  std::vector<Item> items_;
};

std::string Joined(const std::vector<std::string>& labels) {
  std::string text;
  for (const std::string& label : labels) text += (text.empty() ? "`" : ", `") + OneBlank(label) + "`";
  return text;
}

// "#0 NAME to #9 NAME" for labels that begin with a rank, and what follows the ranks.
std::string RankedTraces(const std::vector<std::string>& labels) {
  const std::string& first = labels.front();
  const size_t digit = first.find_first_of("01");
  std::vector<std::string> others;
  for (const std::string& label : labels) {
    if (label == "Others" || label == "DPC+Interrupt") others.push_back(label);
  }
  const std::string before = first.substr(0, digit);
  const std::string after = first.substr(digit + 1, OneBlank(first).find(' ') - digit - 1) + " NAME";
  const int rank = first[digit] - '0';
  const std::string range = "`" + before + std::to_string(rank) + after + "` to `" + before +
                            std::to_string(rank + 9) + after + "`";
  return others.empty() ? range : range + ", " + Joined(others);
}

std::string TopOf(const Item& item, const Description* description) {
  if (description != nullptr && !description->top.empty()) return std::string(description->top);
  return item.top > 0.0F ? std::to_string(static_cast<int>(item.top)) : "";
}

std::string TracesOf(const Item& item, const Description* description) {
  if (description == nullptr || description->traces.empty()) return Joined(item.labels);
  return description->traces == RANKED ? RankedTraces(item.labels) : std::string(description->traces);
}

using UsedDescriptions = std::set<const Description*>;

// Adds the description of the item, if it needs one, to those used.
void WriteItem(std::ostream& out, const Item& item, const Platform& platform, UsedDescriptions& used) {
  const Description* description = nullptr;
  std::string_view source;
  if (item.labels.empty()) {
    source = "never found: these files have no such data";
  } else if (!item.isReached) {
    source = "not reached: an earlier item has the same title";
  } else {
    description = FindDescription(item.title, platform.word);
    if (description == nullptr) Fail("no description of \"" + item.title + "\"");
    source = description->source;
    used.insert(description);
  }
  out << "| " << item.title << " | " << item.unit << " | " << TopOf(item, description) << " | "
      << TracesOf(item, description) << " | " << source << " |\n";
}

void WritePlatform(std::ostream& out, const Platform& platform, const std::vector<Item>& items,
                   UsedDescriptions& used) {
  out << "\n## " << platform.name << "\n";
  if (!platform.note.empty()) out << "\n" << platform.note << "\n";
  std::string_view group;
  for (const Item& item : items) {
    if (item.group != group) {
      out << "\n### " << platform.name << ": " << item.group
          << "\n\n| Item | Unit | Top | Traces | Computed from |\n|---|---|---|---|---|\n";
      group = item.group;
    }
    WriteItem(out, item, platform, used);
  }
}

// The document, and the titles for the completion of the shell: platform, title and those traces whose labels
// don't come from the data file, each after a tab.
void WriteLists(const std::filesystem::path& directory) {
  const std::filesystem::path samples = directory / "item_samples";
  std::ofstream document(directory / "items.md");
  std::ofstream titles(directory / "items.txt");
  document << INTRODUCTION;
  UsedDescriptions used;
  for (const sample::SampleKind* kind : sample::SampleKinds()) {
    const Platform platform = PlatformOfWord(kind->name);
    const std::unique_ptr<GraphCatalog> catalog = CatalogOf(platform, samples);
    const ItemList list(*catalog);
    WritePlatform(document, platform, list.items(), used);
    for (const Item& item : list.items()) {
      if (!item.isStatic || !item.isReached || item.labels.empty()) continue;
      titles << platform.word << '\t' << item.title;
      if (FindDescription(item.title, platform.word)->traces.empty()) {
        for (const std::string& label : item.labels) titles << '\t' << OneBlank(label);
      }
      titles << '\n';
    }
  }
  std::filesystem::remove_all(samples);
  for (const Description& description : Descriptions()) {
    if (!used.contains(&description)) {
      Fail("no item for the description of \"" + std::string(description.title) + "\"");
    }
  }
  if (!document.flush() || !titles.flush()) Fail("can't write to " + directory.string());
}

}  // namespace
}  // namespace ozmo::items

int main(int argc, char* argv[]) {
  if (argc != 2) {
    std::cerr << "usage: ozmo_items DIRECTORY\n";
    return EXIT_FAILURE;
  }
  if (std::freopen("/dev/null", "w", stdout) == nullptr) return EXIT_FAILURE;  // what the readers report
  ozmo::items::WriteLists(argv[1]);
  return EXIT_SUCCESS;
}
