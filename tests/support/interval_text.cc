#include "tests/support/interval_text.h"

#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <sstream>

namespace ozmo::testing {
namespace {

// The kind, what isn't empty of the texts, and the figures that aren't 0 after their names.
std::string Line(std::string text, const std::vector<std::string>& texts, const std::string& names,
                 std::initializer_list<double> figures) {
  for (const std::string& word : texts) text += word.empty() ? "" : " " + word;
  std::istringstream words(names);
  for (const double figure : figures) {
    std::string name;
    words >> name;
    char number[40];
    std::snprintf(number, sizeof number, " %.7g", std::isnan(figure) ? std::abs(figure) : figure);
    if (figure != 0.0) text += " " + name + number;
  }
  return text;
}

std::string Text(const char* kind, const ProcessorRecord& r) {
  return Line(kind, {}, "cpuId userTime niceTime systemTime idleTime waitTime dpcTime interruptTime",
              {double(r.cpuId), r.userTime, r.niceTime, r.systemTime, r.idleTime, r.waitTime, r.dpcTime,
               r.interruptTime});
}

std::string Text(const DiskRecord& r) {
  return Line(
      "disk", {r.deviceName},
      "readRate readMergedRate readBytesRate writeRate writeMergedRate writeBytesRate ioRate totalBytesRate "
      "busyFraction queueLength waitPerIo servicePerIo size free",
      {r.readRate, r.readMergedRate, r.readBytesRate, r.writeRate, r.writeMergedRate, r.writeBytesRate,
       r.ioRate, r.totalBytesRate, r.busyFraction, r.queueLength, r.waitPerIo, r.servicePerIo, double(r.size),
       double(r.free)});
}

std::string Text(const MemoryRecord& r) {
  return Line(
      "memory", {},
      "freePages activePages processPages freeKb sharedKb buffersKb cacheKb realMb pageInRate pageOutRate "
      "swapInRate swapOutRate pageFaultRate majorFaultRate zeroFillFaultRate kernelPages committedPercent",
      {r.freePages, r.activePages, r.processPages, r.freeKb, r.sharedKb, r.buffersKb, r.cacheKb, r.realMb,
       r.pageInRate, r.pageOutRate, r.swapInRate, r.swapOutRate, r.pageFaultRate, r.majorFaultRate,
       r.zeroFillFaultRate, r.kernelPages, r.committedPercent});
}

// A life of the whole interval is the usual one, and not written.
std::string Text(const ProcessRecord& r, float interval) {
  return Line(
      "process", {r.name, r.userName},
      "processId processIdB userCpuSeconds systemCpuSeconds minorFaults majorFaults sizeVirtual sizeResident "
      "elapsedSeconds cpuPercent priority",
      {double(r.processId), double(r.processIdB), r.userCpuSeconds, r.systemCpuSeconds, r.minorFaults,
       r.majorFaults, double(r.sizeVirtual), double(r.sizeResident),
       r.elapsedSeconds == interval ? 0 : r.elapsedSeconds, r.cpuPercent, double(r.priority)});
}

std::string Text(const FileSystemRecord& r) {
  return Line("fileSystem", {r.mountName, r.deviceName},
              "blockSize totalBlocks freeBlocks availableBlocks totalFiles freeFiles",
              {double(r.blockSize), double(r.totalBlocks), double(r.freeBlocks), double(r.availableBlocks),
               double(r.totalFiles), double(r.freeFiles)});
}

std::string Text(const LanRecord& r) {
  return Line(
      "adapter", {r.adapterName},
      "packetsInRate bytesInRate errorsInRate packetsOutRate bytesOutRate errorsOutRate collisionRate",
      {r.packetsInRate, r.bytesInRate, r.errorsInRate, r.packetsOutRate, r.bytesOutRate, r.errorsOutRate,
       r.collisionRate});
}

std::string Text(const ProtocolCounters& r) {
  std::string text = "counters";
  for (size_t n = 0; n < r.counters.size(); ++n) text = Line(text, {}, std::to_string(n), {r.counters[n]});
  return text;
}

std::string Text(const NetworkRecord& r) {
  return Line(
      "network", {},
      "ipDatagrams ipReceived udpDatagrams udpReceived tcpSegments tcpActive tcpPassive tcpEstablished",
      {r.ipDatagramsPerSecond, r.ipReceivedPerSecond, r.udpDatagramsPerSecond, r.udpReceivedPerSecond,
       r.tcpSegmentsPerSecond, r.tcpConnectionsActive, r.tcpConnectionsPassive, r.tcpConnectionsEstablished});
}

std::string Text(const PartitionRecord& r) {
  return Line("partition", {}, "isCapped isShared entitledProcessors",
              {r.isCapped, r.isShared, r.entitledProcessors});
}

std::string Text(const SystemConfig& r) {
  return Line("config", {}, "cpuCount memoryMb pageSize intervalSeconds",
              {double(r.cpuCount), r.memoryMb, double(r.pageSize), r.intervalSeconds});
}

}  // namespace

std::vector<std::string> IntervalTexts(const VmrContext& context, bool withConfig) {
  std::vector<std::string> texts;
  if (withConfig) texts.push_back(Text(context.config.value()));
  for (const auto& record : context.overallCpu.primary) texts.push_back(Text("machine", record));
  for (const auto& record : context.processors.primary) texts.push_back(Text("processor", record));
  for (const auto& record : context.disks.primary) texts.push_back(Text(record));
  if (context.memory.primary) texts.push_back(Text(*context.memory.primary));
  for (const auto& record : context.processes.primary)
    texts.push_back(Text(record, context.config.value_or(SystemConfig()).intervalSeconds));
  for (const auto& record : context.fileSystems.primary) texts.push_back(Text(record));
  for (const auto& record : context.lans.primary) texts.push_back(Text(record));
  if (context.protocolCounters.primary) texts.push_back(Text(*context.protocolCounters.primary));
  if (context.network) texts.push_back(Text(*context.network));
  if (context.partition) texts.push_back(Text(*context.partition));
  return texts;
}

}  // namespace ozmo::testing
