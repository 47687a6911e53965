#include "readers/hpux/disks.h"

#include <algorithm>
#include <string>

#include "readers/field_rules.h"

namespace ozmo::hpux_files {

// A disk record in the making.
struct DiskFields {
  std::string name;
  float ioRate = 0.0F;
  float totalBytesRate = 0.0F;
  double transfers = 0.0;
  double microseconds = 0.0;
  float busyFraction = 0.0F;
};

constexpr double BLOCKS_PER_BYTE = 1.0 / 64.0;

constexpr Conversion DISK_FIGURE{.form = Form::WIDE};
constexpr Conversion DISK_RATE{.form = Form::WIDE, .per = Per::INTERVAL};
constexpr Conversion BYTE_RATE{.form = Form::WIDE, .per = Per::INTERVAL, .scale = BLOCKS_PER_BYTE};
constexpr Conversion PERCENT_RATE{.form = Form::WIDE, .per = Per::INTERVAL, .scale = 100.0};

constexpr FieldRule<DiskFields> DISK_RULES[] = {
    {.field = 201, .to = To<&DiskFields::name>()},
    {.field = 202, .to = To<&DiskFields::ioRate>(), .as = DISK_RATE},
    {.field = 203, .to = To<&DiskFields::totalBytesRate>(), .as = BYTE_RATE},
    {.field = 204, .to = To<&DiskFields::transfers>(), .as = DISK_FIGURE},
    {.field = 205},  // wait time and queue length are worked out from the others
    {.field = 206, .to = To<&DiskFields::microseconds>(), .as = {.form = Form::UINT64}},
    {.field = 207},
    {.field = 208, .to = To<&DiskFields::busyFraction>(), .as = PERCENT_RATE},
};

void FinishDisk(const DiskFields& figures, bool timesAreTrusted, DiskRecord& disk) {
  disk.deviceName = figures.name;
  disk.ioRate = figures.ioRate;
  disk.totalBytesRate = figures.totalBytesRate;
  if (!timesAreTrusted || !(figures.transfers > 0.0 && figures.ioRate > 0.0F)) return;
  disk.busyFraction = figures.busyFraction;
  disk.servicePerIo = static_cast<float>(disk.busyFraction * 1000.0 / disk.ioRate);
  disk.responsePerIo = static_cast<float>(figures.microseconds / figures.transfers / 1000.0);
  disk.responsePerIo = std::max(disk.responsePerIo, disk.servicePerIo);
  disk.waitPerIo = disk.responsePerIo - disk.servicePerIo;
  disk.queueLength = static_cast<float>(disk.ioRate * disk.responsePerIo / 1000.0);
}

void DecodeDisk(Decoding& decoding) {
  DiskFields figures;
  if (!ApplyRules<DISK_RULES>(figures, decoding)) return;
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  FinishDisk(figures, decoding.state.diskTimesAreTrusted, disk);
  if (!decoding.isTwin) ContextFindAlias(decoding.context, disk);
}

}  // namespace ozmo::hpux_files
