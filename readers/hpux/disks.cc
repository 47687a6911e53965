#include "readers/hpux/disks.h"

#include <algorithm>
#include <string>

#include "readers/field_rules.h"

namespace ozmo {
namespace {

// A disk record in the making.
struct DiskFigures {
  std::string name;
  float ioRate = 0.0F;
  float totalBytesRate = 0.0F;
  double transfers = 0.0;
  double microseconds = 0.0;
  float busyFraction = 0.0F;
};

void FinishDisk(const DiskFigures& figures, bool legacyDiskData, DiskRecord& disk) {
  disk.deviceName = figures.name;
  disk.ioRate = figures.ioRate;
  disk.totalBytesRate = figures.totalBytesRate;
  if (legacyDiskData || !(figures.transfers > 0.0 && figures.ioRate > 0.0F)) return;
  disk.busyFraction = figures.busyFraction;
  disk.servicePerIo = static_cast<float>(disk.busyFraction * 1000.0 / disk.ioRate);
  disk.responsePerIo = static_cast<float>(figures.microseconds / figures.transfers / 1000.0);
  disk.responsePerIo = std::max(disk.responsePerIo, disk.servicePerIo);
  disk.waitPerIo = disk.responsePerIo - disk.servicePerIo;
  disk.queueLength = static_cast<float>(disk.ioRate * disk.responsePerIo / 1000.0);
}

}  // namespace

int HpuxDecodeDisk(Decoding& decoding) {
  constexpr double BLOCKS_PER_BYTE = 1.0 / 64.0;
  static const RuleTable<DiskFigures> rules{
      {201, To<&DiskFigures::name>},
      {202, To<&DiskFigures::ioRate>, Form::WIDE, Per::INTERVAL},
      {203, To<&DiskFigures::totalBytesRate>, Form::WIDE, Per::INTERVAL, Divide::NEVER, Sign::ANY,
       BLOCKS_PER_BYTE},
      {204, To<&DiskFigures::transfers>, Form::WIDE},
      {205, nullptr},  // wait time and queue length are worked out from the others
      {206, To<&DiskFigures::microseconds>, Form::UINT64},
      {207, nullptr},
      {208, To<&DiskFigures::busyFraction>, Form::WIDE, Per::INTERVAL, Divide::NEVER, Sign::ANY, 100.0},
  };
  DiskFigures figures;
  const int counted = ApplyRules(rules, figures, decoding);
  if (counted == 0) return 0;
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  FinishDisk(figures, decoding.state.legacyDiskData, disk);
  if (!decoding.isTwin) ContextFindAlias(decoding.context, disk);
  return counted;
}

}  // namespace ozmo
