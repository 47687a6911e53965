#include "programs/import/import.h"

#include <algorithm>
#include <bitset>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <limits>
#include <set>
#include <utility>

#include "programs/host_file/node_name.h"
#include "programs/import/converted_copy.h"
#include "programs/import/day_files.h"
#include "programs/import/source.h"
#include "programs/import/whole_disks.h"
#include "runtime/output_directory.h"

namespace ozmo::import {
namespace {

constexpr char STANDARD_INPUT[] = "-";

// The first bytes of a file. The result is empty, or the text of a failure.
std::string ReadHead(const std::string& path, std::string& head) {
  const Stream file(std::fopen(path.c_str(), "re"));
  if (!file) return path + ": " + std::strerror(errno);
  head.resize(HEAD_SIZE);
  head.resize(std::fread(head.data(), 1, head.size(), file.get()));
  if (std::ferror(file.get()) != 0) return path + ": " + std::strerror(errno);
  return head.empty() ? path + ": the file is empty" : "";
}

// Null where no program's recording begins like this file.
const Source* SourceOf(const std::string& path) {
  std::string head;
  return ReadHead(path, head).empty() ? SourceOfRecording(head) : nullptr;
}

// What graphs are made of, by groups.
struct Group {
  const char* name;
  bool (*isIn)(const host_file::HostFigures& figures);
};
constexpr Group GROUPS[] = {
    {"processors", [](const host_file::HostFigures& figures) { return !figures.processors.empty(); }},
    {"memory", [](const host_file::HostFigures& figures) { return figures.memory.total > 0; }},
    {"disks", [](const host_file::HostFigures& figures) { return !figures.disks.empty(); }},
    {"file systems", [](const host_file::HostFigures& figures) { return !figures.fileSystems.empty(); }},
    {"adapters", [](const host_file::HostFigures& figures) { return !figures.adapters.empty(); }},
    {"protocols", [](const host_file::HostFigures& figures) { return figures.hasProtocols; }},
    {"processes (images, users, workload classes)",
     [](const host_file::HostFigures& figures) { return !figures.processes.empty(); }}};

class Import {
 public:
  Import(const Options& options, const ImportProgress& progress)
      : options_(options), progress_(progress), files_(options.directory) {}

  ImportResult Run();
  // When the first sample of a recording ends; the end of all times where there is none.
  int64_t FirstTime(const std::string& path);

 private:
  std::string Read(const std::string& path);
  std::string Open(const std::string& path, Messages messages, Texts& texts, const Source*& source);
  std::string ReadSamples(const std::string& path, const Source& source, Texts& texts,
                          const SampleSink& sink);
  std::string Take(const Sample& sample);
  std::string CheckNode(const std::string& node);
  void AddNotes();

  const Options& options_;
  const ImportProgress& progress_;
  DayFiles files_;
  UserNames users_;
  ImportResult result_;
  Stream converted_;                         // the recording at hand, where it was of an older version
  size_t samples_ = 0;                       // of the recording at hand
  size_t samplesInSpan_ = 0;                 // of all, as the next
  std::set<std::string> nodes_;              // whose names are fine
  std::bitset<std::size(GROUPS)> recorded_;  // what any sample had
};

ImportResult Import::Run() {
  result_.failure = MakeOutputDirectory(options_.directory);
  if (result_.failure.empty() && !options_.passwdFile.empty()) {
    result_.failure = users_.Load(options_.passwdFile);
  }
  for (const std::string& path : InOrderOfTime(options_.sources)) {
    if (result_.failure.empty()) result_.failure = Read(path);
  }
  if (result_.failure.empty() && samplesInSpan_ == 0) result_.failure = "nothing was recorded in the span";
  AddNotes();
  return std::move(result_);
}

std::string NameOf(const std::string& path) { return path == STANDARD_INPUT ? "standard input" : path; }

std::string Import::Read(const std::string& path) {
  Texts texts;
  const Source* source = nullptr;
  if (std::string failure = Open(path, Messages::SHOWN, texts, source); !failure.empty()) return failure;
  samples_ = 0;
  const size_t before = samplesInSpan_;
  std::string failure =
      ReadSamples(path, *source, texts, [this](const Sample& sample) { return Take(sample); });
  // A program that couldn't read its recording has said why; what it printed until then is no day.
  if (failure.empty() && !texts.empty()) failure = texts.front().Finish();
  if (failure.empty() && samples_ == 0) failure = "there is no sample in it";
  if (!failure.empty()) return NameOf(path) + ": " + failure;
  if (samplesInSpan_ == before) result_.notes.push_back(NameOf(path) + ": no sample in the span");
  return files_.FinishRecording();
}

std::string Import::ReadSamples(const std::string& path, const Source& source, Texts& texts,
                                const SampleSink& sink) {
  return source.readRecording != nullptr ? source.readRecording(path, sink)
                                         : source.readText(texts, users_, sink);
}

int64_t Import::FirstTime(const std::string& path) {
  Texts texts;
  const Source* source = nullptr;
  int64_t first = std::numeric_limits<int64_t>::max();
  if (!Open(path, Messages::DROPPED, texts, source).empty()) return first;
  const std::string end = ReadSamples(path, *source, texts, [&](const Sample& sample) {
    first = sample.time;
    return "that is enough";
  });
  return first;
}

// Runs the commands that print a recording. Those after the first start when that has printed something, so
// that a message comes once.
std::string OpenPrograms(const Source& source, const std::string& path, Messages shown, Texts& texts) {
  for (const std::vector<std::string>& command : source.commands(path)) {
    const bool isFirst = texts.empty();
    const auto messages = isFirst ? shown : Messages::DROPPED;
    std::string failure = texts.emplace_back().OpenProgram(command, std::string(source.package), messages);
    if (!failure.empty()) return failure;
    std::string line;
    if (isFirst && !texts.front().Peek(line)) break;
  }
  return "";
}

std::string Import::Open(const std::string& path, Messages messages, Texts& texts, const Source*& source) {
  source = FindSource(options_.from);
  const std::string unknown = ": nothing that ozmo_import knows; --help lists what it reads";
  if (path == STANDARD_INPUT) {
    texts.emplace_back().OpenStandardInput();
  } else {
    std::string head;
    if (std::string failure = ReadHead(path, head); !failure.empty()) return failure;
    const Source* recorder = SourceOfRecording(head);
    if (recorder != nullptr && (source == nullptr || source == recorder)) {
      source = recorder;
      if (source->readRecording != nullptr) return "";
      if (source->conversion != nullptr) converted_ = ConvertedCopy(source->conversion(path));
      const std::string failure =
          OpenPrograms(*source, converted_ ? PathOf(converted_) : path, messages, texts);
      return failure.empty() ? "" : path + ": " + failure;
    }
    if (std::string failure = texts.emplace_back().OpenFile(path); !failure.empty()) return failure;
  }
  if (source != nullptr && source->readText == nullptr) {
    return NameOf(path) + ": no recording of " + std::string(source->name);
  }
  std::string line;
  if (!texts.front().Peek(line)) {
    const std::string failure = texts.front().Finish();
    return failure.empty() ? NameOf(path) + " is empty" : failure;
  }
  if (source == nullptr) source = SourceOfText(line);
  return source == nullptr ? NameOf(path) + unknown : "";
}

std::string Import::CheckNode(const std::string& node) {
  if (nodes_.contains(node)) return "";
  std::string failure = host_file::CheckNode(node);
  if (failure.empty()) failure = host_file::CheckPath(options_.directory, node);
  if (failure.empty()) nodes_.insert(node);
  return failure;
}

std::string Import::Take(const Sample& sample) {
  ++samples_;
  if (options_.begin && sample.time < *options_.begin) return "";
  if (options_.end && sample.time > *options_.end) return "";
  ++samplesInSpan_;
  for (size_t place = 0; place < recorded_.size(); ++place) {
    if (!recorded_[place]) recorded_[place] = GROUPS[place].isIn(sample.figures);
  }
  if (progress_) progress_(sample.node, sample.time);
  Sample named = sample;
  KeepWholeDisks(named.figures.disks);
  if (!options_.node.empty()) named.node = options_.node;
  if (std::string failure = CheckNode(named.node); !failure.empty()) return failure;
  return files_.Add(named);
}

void Import::AddNotes() {
  result_.files = files_.Finished();
  result_.notes.insert(result_.notes.end(), files_.Notes().begin(), files_.Notes().end());
  if (files_.OutOfOrder() > 0) {
    result_.notes.push_back(std::to_string(files_.OutOfOrder()) +
                            " samples left out, since the clock had gone back");
  }
  if (recorded_.none() || recorded_.all()) return;
  std::string missing;
  for (size_t place = 0; place < recorded_.size(); ++place) {
    if (!recorded_[place]) missing += (missing.empty() ? "" : ", ") + std::string(GROUPS[place].name);
  }
  result_.notes.push_back("not recorded, so there are no graphs of: " + missing);
}

}  // namespace

ImportResult ImportRecordings(const Options& options, const ImportProgress& progress) {
  return Import(options, progress).Run();
}

std::vector<std::string> InOrderOfTime(std::vector<std::string> recordings) {
  const bool canLook = std::ranges::find(recordings, STANDARD_INPUT) == recordings.end();
  if (recordings.size() < 2 || !canLook) return recordings;
  std::vector<std::pair<int64_t, std::string>> timed;
  for (std::string& path : recordings) {
    const Options options;
    const int64_t first = Import(options, nullptr).FirstTime(path);
    timed.emplace_back(first, std::move(path));
  }
  std::ranges::stable_sort(timed, {}, &std::pair<int64_t, std::string>::first);
  std::ranges::transform(timed, recordings.begin(), &std::pair<int64_t, std::string>::second);
  return recordings;
}

bool IsForeignRecording(const std::string& path) { return SourceOf(path) != nullptr; }

std::string RecordingOf(const std::string& path) {
  const Source* source = SourceOf(path);
  return source != nullptr && source->isInParts ? path.substr(0, path.rfind('.')) : path;
}

}  // namespace ozmo::import
