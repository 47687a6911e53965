#include "readers/data_reader.h"

#include <utility>

#include "readers/file_set.h"
#include "readers/formats.h"
#include "runtime/runtime.h"

namespace ozmo {
namespace {

std::variant<CollectorReader, VmrReader> MakeReader(ReaderKind kind, Runtime& runtime) {
  const CollectorFormat* format = FormatOf(kind);
  if (format == nullptr) return VmrReader();
  return CollectorReader(*format, runtime);
}

}  // namespace

DataReader::DataReader(std::string path, Runtime& runtime)
    : path_(std::move(path)),
      kind_(ReaderKindOf(path_)),
      runtime_(&runtime),
      reader_(MakeReader(kind_, runtime)) {}

const std::optional<FileHead>& DataReader::Head() {
  if (!std::exchange(isHeadRead_, true)) {
    head_ = std::visit([&](auto& reader) { return reader.EntryPass(DataFilePath(path_)); }, reader_);
  }
  return head_;
}

int DataReader::Open(VmrContext& context) {
  Head();
  const int count = std::visit([&](auto& reader) { return reader.Open(context); }, reader_);
  const auto files = [](const auto& reader) -> const std::vector<std::string>& { return reader.files(); };
  for (const std::string& path : std::visit(files, reader_)) {
    if (const std::optional<FileIdentity> file = IdentityOf(path)) runtime_->inputs.push_back(*file);
  }
  return count;
}

ReaderResult DataReader::Next(VmrContext& context) {
  return std::visit([&](auto& reader) { return reader.Next(context); }, reader_);
}

void DataReader::Close(VmrContext& context) {
  std::visit([&](auto& reader) { reader.Close(context); }, reader_);
}

}  // namespace ozmo
