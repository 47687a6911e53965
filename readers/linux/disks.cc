#include "readers/linux/disks.h"

#include <utility>

#include "readers/field_rules.h"

namespace ozmo::linux_files {

// A disk record in the making, with the times that only its end needs.
struct DiskFields {
  DiskRecord disk;
  double readMilliseconds = 0.0;
  double writeMilliseconds = 0.0;
};

void StoreDiskName(DiskFields& figures, const Source& from) { figures.disk.deviceName = from.field.Text(); }

// The older counters.
template <auto Member>
void StoreOldRate(DiskFields& figures, const Source& from) {
  figures.disk.*Member = Convert<float>(from);
}

// A newer counter; one beyond 0x80000000 counts as wrapped once more.
uint64_t DiskCounter(const FieldValue& field) {
  constexpr uint64_t WRAP_MARK = 0x80000000;
  constexpr uint64_t WRAP = 0x100000000;
  const uint64_t value = field.Uint64();
  return value > WRAP_MARK ? value + WRAP : value;
}

template <auto Member, unsigned Shift = 0>
void StoreRate(DiskFields& figures, const Source& from) {
  figures.disk.*Member = static_cast<float>(DiskCounter(from.field) << Shift) /
                         static_cast<float>(from.decoding.state.intervalSeconds);
}

template <auto Member>
void StoreMilliseconds(DiskFields& figures, const Source& from) {
  figures.*Member = static_cast<double>(DiskCounter(from.field));
}

// Milliseconds of the interval as a fraction of it. The two divide in steps of their own, which can be seen
// in the last bit.
void StoreBusyFraction(DiskFields& figures, const Source& from) {
  const double milliseconds = static_cast<double>(DiskCounter(from.field));
  figures.disk.busyFraction =
      static_cast<float>(milliseconds / (1000.0 * from.decoding.state.intervalSeconds));
}
void StoreQueueLength(DiskFields& figures, const Source& from) {
  const double milliseconds = static_cast<double>(DiskCounter(from.field));
  figures.disk.queueLength = static_cast<float>(milliseconds / from.decoding.state.intervalSeconds / 1000.0);
}

constexpr unsigned SECTOR_SHIFT = 9;  // sectors of 512 bytes
constexpr Conversion OLD_RATE{.form = Form::WIDE, .per = Per::INTERVAL};

constexpr FieldRule<DiskFields> DISK_RULES[] = {
    {.field = 201, .to = To<StoreDiskName>()},
    {.field = 202, .to = To<StoreOldRate<&DiskRecord::readRate>>(), .as = OLD_RATE},
    {.field = 203, .to = To<StoreOldRate<&DiskRecord::writeRate>>(), .as = OLD_RATE},
    {.field = 204, .to = To<StoreOldRate<&DiskRecord::readBytesRate>>(), .as = OLD_RATE},
    {.field = 205, .to = To<StoreOldRate<&DiskRecord::writeBytesRate>>(), .as = OLD_RATE},
    {.field = 206, .to = To<StoreRate<&DiskRecord::readRate>>()},
    {.field = 207, .to = To<StoreRate<&DiskRecord::readMergedRate>>()},
    {.field = 208, .to = To<StoreRate<&DiskRecord::readBytesRate, SECTOR_SHIFT>>()},
    {.field = 209, .to = To<StoreMilliseconds<&DiskFields::readMilliseconds>>()},
    {.field = 210, .to = To<StoreRate<&DiskRecord::writeRate>>()},
    {.field = 211, .to = To<StoreRate<&DiskRecord::writeMergedRate>>()},
    {.field = 212, .to = To<StoreRate<&DiskRecord::writeBytesRate, SECTOR_SHIFT>>()},
    {.field = 213, .to = To<StoreMilliseconds<&DiskFields::writeMilliseconds>>()},
    {.field = 214},
    {.field = 215, .to = To<StoreBusyFraction>()},
    {.field = 216, .to = To<StoreQueueLength>()},
};

void FinishDisk(DiskFields& figures, int32_t intervalSeconds) {
  DiskRecord& disk = figures.disk;
  disk.totalBytesRate = disk.readBytesRate + disk.writeBytesRate;
  disk.ioRate = disk.readRate + disk.writeRate;
  if (!(disk.ioRate > 0.0F)) return;
  const double milliseconds = figures.readMilliseconds + figures.writeMilliseconds;
  disk.waitPerIo = static_cast<float>(milliseconds / (static_cast<float>(intervalSeconds) * disk.ioRate));
  disk.servicePerIo = static_cast<float>(disk.busyFraction * 10.0 / disk.ioRate);
}

void DecodeDisk(Decoding& decoding) {
  DiskFields figures;
  if (!ApplyRules<DISK_RULES>(figures, decoding)) return;
  FinishDisk(figures, decoding.state.intervalSeconds);
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  disk = std::move(figures.disk);
  ContextFindAlias(decoding.context, disk);
}

}  // namespace ozmo::linux_files
