// Disk records of AIX files. They hold figures of an older and of a newer form, and a file fills one of them.
#include "readers/aix/decoders.h"
#include "readers/field_rules.h"

namespace ozmo {
namespace {

// A disk as the file has it: figures of the older form in milliseconds and bytes, those of the newer one in
// ticks and blocks.
struct DiskFigures {
  std::string name;
  double oldTransfers = 0.0;
  double oldBusy = 0.0;
  double oldReadBytes = 0.0;
  double oldWriteBytes = 0.0;
  double size = 0.0;
  double free = 0.0;
  double blockSize = 512.0;
  double transfers = 0.0;
  double readBlocks = 0.0;
  double writeBlocks = 0.0;
  double readService = 0.0;
  double writeService = 0.0;
  double busy = 0.0;
  double wait = 0.0;
  bool badCounter = false;
};

using DiskRule = FieldRule<DiskFigures>;

template <auto Member>
constexpr DiskRule OldFigure(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::RECORD, Divide::AT_LEAST_1};
}
template <auto Member>
constexpr DiskRule Ticks(int32_t fieldId) {
  return {fieldId, To<Member>, Form::UINT64};
}

// One bad counter spoils the whole record.
template <auto Member>
void StoreCounter(DiskFigures& figures, const FieldValue& field, const DiskRule& /*rule*/,
                  Decoding& /*decoding*/) {
  const auto value = static_cast<double>(field.Uint64());
  const bool isBad = !(value < COUNTER_LIMIT);
  figures.*Member = isBad ? 0.0 : value;
  figures.badCounter = figures.badCounter || isBad;
}

void FinishOldDisk(const DiskFigures& figures, double interval, DiskRecord& disk) {
  disk.ioRate = static_cast<float>(figures.oldTransfers / interval);
  disk.readBytesRate = static_cast<float>(figures.oldReadBytes / interval);
  disk.writeBytesRate = static_cast<float>(figures.oldWriteBytes / interval);
  disk.busyFraction = static_cast<float>(figures.oldBusy / 1000.0 / interval);
}

void FinishNewDisk(const DiskFigures& figures, double interval, DiskRecord& disk) {
  constexpr double TICKS_PER_MILLISECOND = 100000.0;
  disk.ioRate = static_cast<float>(figures.transfers / interval);
  disk.readBytesRate = static_cast<float>(figures.blockSize * figures.readBlocks / interval);
  disk.writeBytesRate = static_cast<float>(figures.blockSize * figures.writeBlocks / interval);
  const double service = figures.readService + figures.writeService;
  disk.servicePerIo = static_cast<float>(service / figures.transfers / TICKS_PER_MILLISECOND);
  disk.waitPerIo = static_cast<float>(figures.wait / figures.transfers / TICKS_PER_MILLISECOND);
  disk.busyFraction = static_cast<float>(figures.busy > 0.0 ? figures.busy / 100.0 / interval
                                                            : disk.ioRate * disk.servicePerIo / 1000.0);
  disk.responsePerIo = disk.servicePerIo + disk.waitPerIo;
  disk.queueLength = static_cast<float>(disk.ioRate * disk.responsePerIo / 1000.0);
}

void FinishDisk(const DiskFigures& figures, double interval, DiskRecord& disk) {
  disk.deviceName = figures.name;
  disk.size = ClampTo<uint32_t>(figures.size);
  disk.free = ClampTo<uint32_t>(figures.free);
  if (figures.badCounter) return;
  if (figures.oldTransfers > 0.0) {
    FinishOldDisk(figures, interval, disk);
  } else if (figures.transfers > 0.0) {
    FinishNewDisk(figures, interval, disk);
  }
}

}  // namespace

int AixDecodeDisk(Decoding& decoding) {
  static const RuleTable<DiskFigures> rules{
      {201, To<&DiskFigures::name>},
      OldFigure<&DiskFigures::oldTransfers>(202),
      OldFigure<&DiskFigures::oldBusy>(203),
      OldFigure<&DiskFigures::oldReadBytes>(204),
      OldFigure<&DiskFigures::oldWriteBytes>(205),
      {206, nullptr},
      {207, StoreCounter<&DiskFigures::size>},
      {208, StoreCounter<&DiskFigures::free>},
      {209, StoreCounter<&DiskFigures::blockSize>},
      {210, StoreCounter<&DiskFigures::transfers>},
      {211, StoreCounter<&DiskFigures::readBlocks>},
      {212, StoreCounter<&DiskFigures::writeBlocks>},
      {213, nullptr},
      Ticks<&DiskFigures::readService>(214),
      Ticks<&DiskFigures::writeService>(215),
      {216, nullptr},
      Ticks<&DiskFigures::busy>(217),
      Ticks<&DiskFigures::wait>(218),
  };
  DiskFigures figures;
  const int counted = ApplyRules(rules, figures, decoding);
  if (counted == 0) return 0;
  // A virtual SCSI device stands for disks that have records of their own.
  if (figures.name.find("vscsi") != figures.name.npos) return counted;
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  FinishDisk(figures, decoding.state.intervalSeconds, disk);
  if (!decoding.isTwin) ContextFindAlias(decoding.context, disk);
  return counted;
}

}  // namespace ozmo
