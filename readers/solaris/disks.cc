#include "readers/solaris/disks.h"

#include <string>

#include "readers/field_rules.h"

namespace ozmo::solaris_files {

// A disk as the file has it; times in nanoseconds.
struct DiskFields {
  std::string name;
  float readKb = 0.0F;
  float writeKb = 0.0F;
  float reads = 0.0F;
  float writes = 0.0F;
  float busy = 0.0F;
  float queueA = 0.0F;
  float queueB = 0.0F;
};

constexpr Conversion NANOSECONDS{.form = Form::UINT64};
constexpr Conversion KILOBYTE_RATE{.form = Form::UINT64, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};
constexpr Conversion OPERATION_RATE{.per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<DiskFields> DISK_RULES[] = {
    {.field = 201, .to = To<&DiskFields::name>()},
    {.field = 202, .to = To<&DiskFields::readKb>(), .as = KILOBYTE_RATE},
    {.field = 203, .to = To<&DiskFields::writeKb>(), .as = KILOBYTE_RATE},
    {.field = 204, .to = To<&DiskFields::reads>(), .as = OPERATION_RATE},
    {.field = 205, .to = To<&DiskFields::writes>(), .as = OPERATION_RATE},
    {.field = 206, .to = To<&DiskFields::busy>(), .as = NANOSECONDS},
    {.field = 207, .to = To<&DiskFields::queueA>(), .as = NANOSECONDS},
    {.field = 208},
    {.field = 209, .to = To<&DiskFields::busy>(), .as = NANOSECONDS},  // in place of field 206
    {.field = 210, .to = To<&DiskFields::queueB>(), .as = NANOSECONDS},
    {.field = 212, .last = 213},
};

void FinishDisk(const DiskFields& figures, int32_t intervalSeconds, DiskRecord& disk) {
  constexpr double SECOND = 1e9;
  const auto interval = static_cast<float>(intervalSeconds);
  disk.deviceName = figures.name;
  disk.readBytesRate = figures.readKb;
  disk.writeBytesRate = figures.writeKb;
  disk.readRate = figures.reads;
  disk.writeRate = figures.writes;
  disk.ioRate = figures.reads + figures.writes;
  disk.busyFraction = static_cast<float>(figures.busy / SECOND / interval);
  disk.queueLength = static_cast<float>((figures.queueA + figures.queueB) / SECOND / interval);
  disk.servicePerIo = disk.ioRate > 0.0F
                          ? static_cast<float>(figures.busy * 1000.0F / SECOND / (interval * disk.ioRate))
                          : 0.0F;
  disk.waitPerIo = 0.0F;  // no field of this format brings a wait time
  disk.responsePerIo = disk.servicePerIo + disk.waitPerIo;
}

void DecodeDisk(Decoding& decoding) {
  DiskFields figures;
  if (!ApplyRules<DISK_RULES>(figures, decoding)) return;
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  FinishDisk(figures, decoding.state.intervalSeconds, disk);
  ContextFindAlias(decoding.context, disk);
}

}  // namespace ozmo::solaris_files
