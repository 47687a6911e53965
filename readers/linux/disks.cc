#include "readers/linux/disks.h"

#include <utility>

#include "readers/field_rules.h"

namespace ozmo {
namespace {

// A disk record in the making, with the times that only its end needs.
struct DiskFigures {
  DiskRecord disk;
  double readMilliseconds = 0.0;
  double writeMilliseconds = 0.0;
};

using DiskRule = FieldRule<DiskFigures>;

void StoreDiskName(DiskFigures& figures, const FieldValue& field, const DiskRule& /*rule*/,
                   Decoding& /*decoding*/) {
  figures.disk.deviceName = field.Text();
}

// The older counters.
template <auto Member>
void StoreOldRate(DiskFigures& figures, const FieldValue& field, const DiskRule& /*rule*/,
                  Decoding& decoding) {
  figures.disk.*Member = static_cast<float>(ValueAsDouble(field, Form::WIDE, decoding.state)) /
                         static_cast<float>(decoding.state.intervalSeconds);
}

// A newer counter; one beyond 0x80000000 counts as wrapped once more.
uint64_t DiskCounter(const FieldValue& field) {
  constexpr uint64_t WRAP_MARK = 0x80000000;
  constexpr uint64_t WRAP = 0x100000000;
  const uint64_t value = field.Uint64();
  return value > WRAP_MARK ? value + WRAP : value;
}

template <auto Member, unsigned Shift = 0>
void StoreRate(DiskFigures& figures, const FieldValue& field, const DiskRule& /*rule*/, Decoding& decoding) {
  figures.disk.*Member =
      static_cast<float>(DiskCounter(field) << Shift) / static_cast<float>(decoding.state.intervalSeconds);
}

template <auto Member>
void StoreMilliseconds(DiskFigures& figures, const FieldValue& field, const DiskRule& /*rule*/,
                       Decoding& /*decoding*/) {
  figures.*Member = static_cast<double>(DiskCounter(field));
}

// Milliseconds of the interval as a fraction of it.
template <auto Member>
void StoreFraction(DiskFigures& figures, const FieldValue& field, const DiskRule& /*rule*/,
                   Decoding& decoding) {
  figures.disk.*Member =
      static_cast<float>(static_cast<double>(DiskCounter(field)) / (1000.0 * decoding.state.intervalSeconds));
}

void FinishDisk(DiskFigures& figures, int32_t intervalSeconds) {
  DiskRecord& disk = figures.disk;
  disk.totalBytesRate = disk.readBytesRate + disk.writeBytesRate;
  disk.ioRate = disk.readRate + disk.writeRate;
  if (!(disk.ioRate > 0.0F)) return;
  const double milliseconds = figures.readMilliseconds + figures.writeMilliseconds;
  disk.waitPerIo = static_cast<float>(milliseconds / (static_cast<float>(intervalSeconds) * disk.ioRate));
  disk.servicePerIo = static_cast<float>(disk.busyFraction * 10.0 / disk.ioRate);
}

}  // namespace

int LinuxDecodeDisk(Decoding& decoding) {
  constexpr unsigned SECTOR_SHIFT = 9;  // sectors of 512 bytes
  static const RuleTable<DiskFigures> rules{
      {201, StoreDiskName},
      {202, StoreOldRate<&DiskRecord::readRate>},
      {203, StoreOldRate<&DiskRecord::writeRate>},
      {204, StoreOldRate<&DiskRecord::readBytesRate>},
      {205, StoreOldRate<&DiskRecord::writeBytesRate>},
      {206, StoreRate<&DiskRecord::readRate>},
      {207, StoreRate<&DiskRecord::readMergedRate>},
      {208, StoreRate<&DiskRecord::readBytesRate, SECTOR_SHIFT>},
      {209, StoreMilliseconds<&DiskFigures::readMilliseconds>},
      {210, StoreRate<&DiskRecord::writeRate>},
      {211, StoreRate<&DiskRecord::writeMergedRate>},
      {212, StoreRate<&DiskRecord::writeBytesRate, SECTOR_SHIFT>},
      {213, StoreMilliseconds<&DiskFigures::writeMilliseconds>},
      {214, nullptr},
      {215, StoreFraction<&DiskRecord::busyFraction>},
      {216, StoreFraction<&DiskRecord::queueLength>},
  };
  DiskFigures figures;
  const int counted = ApplyRules(rules, figures, decoding);
  if (counted == 0) return 0;
  FinishDisk(figures, decoding.state.intervalSeconds);
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  disk = std::move(figures.disk);
  ContextFindAlias(decoding.context, disk);
  return counted;
}

}  // namespace ozmo
