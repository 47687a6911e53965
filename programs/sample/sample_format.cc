#include "programs/sample/sample_format.h"

#include "programs/sample/plant.h"

namespace ozmo::sample {

std::string CollectorBytes(const SampleFormat& format, const SampleContext& context,
                           const FileOfDay& dayFile) {
  const SampleOptions& options = context.options;
  SampleFile file(options.littleEndian ? WrittenOrder::LITTLE : format.byteOrder,
                  ExpandLayout(format.records, context.versionBit));
  file.WriteDefinitions();
  format.writeHead(context, file);
  for (const int64_t time : dayFile.times) {
    file.BeginSample(format.timeRecord, format.timeField, time - options.utcOffset);
    format.writeSample(context, SampleAt(context, time), file);
  }
  return file.Bytes();
}

void WriteFileSystems(const FileSystemForm& form, const HostSample& sample, SampleFile& file) {
  const int32_t first = form.firstField;
  for (const FileSystemSample& row : sample.fileSystems) {
    file.Write(form.recordType, {{first, form.deviceFirst ? row.device : row.mount},
                                 {first + 1, form.deviceFirst ? row.mount : row.device},
                                 {first + 2, 1024},
                                 {first + 3, row.totalKb},
                                 {first + 4, row.freeKb},
                                 {first + 5, row.availableKb}});
  }
}

void WriteAdaptersAndSummary(const HostSample& sample, SampleFile& file) {
  for (const AdapterSample& adapter : sample.adapters) {
    file.Write(15, {{1501, adapter.name},
                    {1502, adapter.packetsIn},
                    {1503, adapter.bytesIn},
                    {1504, adapter.errorsIn},
                    {1505, adapter.packetsOut},
                    {1506, adapter.bytesOut},
                    {1507, adapter.errorsOut},
                    {1508, adapter.collisions}});
  }
  file.Write(13, {{1, "run queue"}, {2, sample.processes.size()}});
  file.Write(16, {{1, sample.processes.size()}, {2, sample.disks.size()}});
}

}  // namespace ozmo::sample
