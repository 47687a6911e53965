#include "readers/data_reader.h"

#include "readers/formats.h"

namespace ozmo {
namespace {

std::variant<CollectorReader, VmrReader> MakeReader(ReaderKind kind, Runtime& runtime) {
  const CollectorFormat* format = FormatOf(kind);
  if (format == nullptr) return VmrReader(runtime);
  return CollectorReader(*format, runtime);
}

}  // namespace

DataReader::DataReader(ReaderKind kind, Runtime& runtime) : kind_(kind), reader_(MakeReader(kind, runtime)) {}

int DataReader::EntryPass(const std::string& path, std::string& nodeName, Seconds& firstRecordTime) {
  return std::visit([&](auto& reader) { return reader.EntryPass(path, nodeName, firstRecordTime); }, reader_);
}

int DataReader::Open(VmrContext& context) {
  return std::visit([&](auto& reader) { return reader.Open(context); }, reader_);
}

int DataReader::Next(VmrContext& context) {
  return std::visit([&](auto& reader) { return reader.Next(context); }, reader_);
}

int DataReader::Close(VmrContext& context) {
  return std::visit([&](auto& reader) { return reader.Close(context); }, reader_);
}

}  // namespace ozmo
