// Disk records of AIX files. They hold figures of an older and of a newer form, and a file fills one of them.
#include "readers/aix/decoders.h"
#include "readers/field_rules.h"

namespace ozmo::aix_files {

// A disk as the file has it: figures of the older form in milliseconds and bytes, those of the newer one in
// ticks and blocks.
struct DiskFields {
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

// One bad counter spoils the whole record.
template <auto Member>
void StoreCounter(DiskFields& figures, const Source& from) {
  const auto value = static_cast<double>(from.field.Uint64());
  const bool isBad = !(value < COUNTER_LIMIT);
  figures.*Member = isBad ? 0.0 : value;
  figures.badCounter = figures.badCounter || isBad;
}

constexpr Conversion OLD_FIGURE{.form = Form::WIDE, .divide = Divide::AT_LEAST_1};
constexpr Conversion TICKS{.form = Form::UINT64};

constexpr FieldRule<DiskFields> DISK_RULES[] = {
    {.field = 201, .to = To<&DiskFields::name>()},
    {.field = 202, .to = To<&DiskFields::oldTransfers>(), .as = OLD_FIGURE},
    {.field = 203, .to = To<&DiskFields::oldBusy>(), .as = OLD_FIGURE},
    {.field = 204, .to = To<&DiskFields::oldReadBytes>(), .as = OLD_FIGURE},
    {.field = 205, .to = To<&DiskFields::oldWriteBytes>(), .as = OLD_FIGURE},
    {.field = 206},
    {.field = 207, .to = To<StoreCounter<&DiskFields::size>>()},
    {.field = 208, .to = To<StoreCounter<&DiskFields::free>>()},
    {.field = 209, .to = To<StoreCounter<&DiskFields::blockSize>>()},
    {.field = 210, .to = To<StoreCounter<&DiskFields::transfers>>()},
    {.field = 211, .to = To<StoreCounter<&DiskFields::readBlocks>>()},
    {.field = 212, .to = To<StoreCounter<&DiskFields::writeBlocks>>()},
    {.field = 213},
    {.field = 214, .to = To<&DiskFields::readService>(), .as = TICKS},
    {.field = 215, .to = To<&DiskFields::writeService>(), .as = TICKS},
    {.field = 216},
    {.field = 217, .to = To<&DiskFields::busy>(), .as = TICKS},
    {.field = 218, .to = To<&DiskFields::wait>(), .as = TICKS},
};

void FinishOldDisk(const DiskFields& figures, double interval, DiskRecord& disk) {
  disk.ioRate = static_cast<float>(figures.oldTransfers / interval);
  disk.readBytesRate = static_cast<float>(figures.oldReadBytes / interval);
  disk.writeBytesRate = static_cast<float>(figures.oldWriteBytes / interval);
  disk.busyFraction = static_cast<float>(figures.oldBusy / 1000.0 / interval);
}

void FinishNewDisk(const DiskFields& figures, double interval, DiskRecord& disk) {
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

void FinishDisk(const DiskFields& figures, double interval, DiskRecord& disk) {
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

void DecodeDisk(Decoding& decoding) {
  DiskFields figures;
  if (!ApplyRules<DISK_RULES>(figures, decoding)) return;
  // A virtual SCSI device presents disks that have records of their own.
  if (figures.name.find("vscsi") != figures.name.npos) return;
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  FinishDisk(figures, decoding.state.intervalSeconds, disk);
  if (!decoding.isTwin) ContextFindAlias(decoding.context, disk);
}

}  // namespace ozmo::aix_files
