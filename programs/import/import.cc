#include "programs/import/import.h"

#include <bitset>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>

#include "programs/import/converted_copy.h"
#include "programs/import/day_files.h"
#include "programs/import/source.h"
#include "programs/import/whole_disks.h"

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

// A node becomes a part of a file's name, and the name has to say that the file is of a Linux host.
std::string CheckNode(const std::string& node) {
  if (node.find('/') != std::string::npos)
    return "node name " + node + " has a slash, which no file name can have";
  for (const char* mark : {"qtxs_", "qtxsx_", "qtxh_", "QTXH_", "qtxa_", "QTXA_", ".vmr", ".VMR"}) {
    if (node.find(mark) != std::string::npos)
      return "node name " + node + " makes a file's name that of another kind";
  }
  return "";
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

 private:
  std::string Read(const std::string& path);
  std::string Open(const std::string& path, Texts& texts, const Source*& source);
  std::string Take(const Sample& sample);
  void AddNotes();

  const Options& options_;
  const ImportProgress& progress_;
  DayFiles files_;
  UserNames users_;
  ImportResult result_;
  Stream converted_;                         // the recording at hand, where it was of an older version
  size_t samples_ = 0;                       // of the recording at hand
  std::bitset<std::size(GROUPS)> recorded_;  // what any sample had
};

ImportResult Import::Run() {
  std::error_code error;
  std::filesystem::create_directories(options_.directory, error);
  if (error) {
    result_.failure = options_.directory + ": " + error.message();
  } else if (!options_.passwdFile.empty()) {
    result_.failure = users_.Load(options_.passwdFile);
  }
  for (const std::string& path : options_.sources) {
    if (result_.failure.empty()) result_.failure = Read(path);
  }
  if (result_.failure.empty()) result_.failure = files_.Finish();
  AddNotes();
  return std::move(result_);
}

std::string Import::Read(const std::string& path) {
  Texts texts;
  const Source* source = nullptr;
  if (std::string failure = Open(path, texts, source); !failure.empty()) return failure;
  samples_ = 0;
  const SampleSink sink = [this](const Sample& sample) { return Take(sample); };
  std::string failure = source->readRecording != nullptr ? source->readRecording(path, sink)
                                                         : source->readText(texts, users_, sink);
  // A program that couldn't read its recording has said why; what it printed until then is no day.
  if (failure.empty() && !texts.empty()) failure = texts.front().Finish();
  if (failure.empty() && samples_ == 0) failure = "there is no sample in it";
  return failure.empty() ? "" : (path == STANDARD_INPUT ? "standard input" : path) + ": " + failure;
}

// Runs the commands that print a recording. Those after the first start when that has printed something, so
// that a message comes once.
std::string OpenPrograms(const Source& source, const std::string& path, Texts& texts) {
  for (const std::vector<std::string>& command : source.commands(path)) {
    const bool isFirst = texts.empty();
    const auto messages = isFirst ? Messages::SHOWN : Messages::DROPPED;
    std::string failure = texts.emplace_back().OpenProgram(command, std::string(source.package), messages);
    if (!failure.empty()) return failure;
    std::string line;
    if (isFirst && !texts.front().Peek(line)) break;
  }
  return "";
}

std::string Import::Open(const std::string& path, Texts& texts, const Source*& source) {
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
      const std::string failure = OpenPrograms(*source, converted_ ? PathOf(converted_) : path, texts);
      return failure.empty() ? "" : path + ": " + failure;
    }
    if (std::string failure = texts.emplace_back().OpenFile(path); !failure.empty()) return failure;
  }
  if (source != nullptr && source->readText == nullptr) {
    return (path == STANDARD_INPUT ? "standard input" : path) + ": no recording of " +
           std::string(source->name);
  }
  std::string line;
  if (!texts.front().Peek(line)) return "standard input is empty";
  if (source == nullptr) source = SourceOfText(line);
  return source == nullptr ? (path == STANDARD_INPUT ? "standard input" : path) + unknown : "";
}

std::string Import::Take(const Sample& sample) {
  if (options_.begin && sample.time < *options_.begin) return "";
  if (options_.end && sample.time > *options_.end) return "";
  ++samples_;
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
  for (const std::string& path : files_.LeftAsTheyWere()) {
    result_.notes.push_back(path + " is there already, and stays as it is");
  }
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

bool IsForeignRecording(const std::string& path) { return SourceOf(path) != nullptr; }

std::string RecordingOf(const std::string& path) {
  const Source* source = SourceOf(path);
  return source != nullptr && source->isInParts ? path.substr(0, path.rfind('.')) : path;
}

}  // namespace ozmo::import
