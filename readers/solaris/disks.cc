#include "readers/solaris/disks.h"

#include <string>

#include "readers/field_rules.h"

namespace ozmo {
namespace {

// A disk as the file has it; times in nanoseconds.
struct DiskFigures {
  std::string name;
  float readKb = 0.0F;
  float writeKb = 0.0F;
  float reads = 0.0F;
  float writes = 0.0F;
  float busy = 0.0F;
  float queueA = 0.0F;
  float queueB = 0.0F;
};

void FinishDisk(const DiskFigures& figures, int32_t intervalSeconds, DiskRecord& disk) {
  constexpr double NANOSECONDS = 1e9;
  const auto interval = static_cast<float>(intervalSeconds);
  disk.deviceName = figures.name;
  disk.readBytesRate = figures.readKb;
  disk.writeBytesRate = figures.writeKb;
  disk.readRate = figures.reads;
  disk.writeRate = figures.writes;
  disk.ioRate = figures.reads + figures.writes;
  disk.busyFraction = static_cast<float>(figures.busy / NANOSECONDS / interval);
  disk.queueLength = static_cast<float>((figures.queueA + figures.queueB) / NANOSECONDS / interval);
  disk.servicePerIo =
      disk.ioRate > 0.0F ? static_cast<float>(figures.busy * 1000.0F / NANOSECONDS / (interval * disk.ioRate))
                         : 0.0F;
  disk.waitPerIo = 0.0F;  // no field of this format brings a wait time
  disk.responsePerIo = disk.servicePerIo + disk.waitPerIo;
}

}  // namespace

int SolarisDecodeDisk(Decoding& decoding) {
  static const RuleTable<DiskFigures> rules{
      {201, To<&DiskFigures::name>},
      {202, To<&DiskFigures::readKb>, Form::UINT64, Per::INTERVAL, Divide::AT_LEAST_1},
      {203, To<&DiskFigures::writeKb>, Form::UINT64, Per::INTERVAL, Divide::AT_LEAST_1},
      {204, To<&DiskFigures::reads>, Form::INT32, Per::INTERVAL, Divide::AT_LEAST_1},
      {205, To<&DiskFigures::writes>, Form::INT32, Per::INTERVAL, Divide::AT_LEAST_1},
      {206, To<&DiskFigures::busy>, Form::UINT64},
      {207, To<&DiskFigures::queueA>, Form::UINT64},
      {208, nullptr},
      {209, To<&DiskFigures::busy>, Form::UINT64},  // in place of field 206
      {210, To<&DiskFigures::queueB>, Form::UINT64},
      {212, nullptr},
      {213, nullptr},
  };
  DiskFigures figures;
  const int counted = ApplyRules(rules, figures, decoding);
  if (counted == 0) return 0;
  DiskRecord& disk = decoding.context.disks.Of(decoding.isTwin).Push();
  FinishDisk(figures, decoding.state.intervalSeconds, disk);
  ContextFindAlias(decoding.context, disk);
  return counted;
}

}  // namespace ozmo
