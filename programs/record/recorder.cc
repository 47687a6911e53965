#include "programs/record/recorder.h"

#include <sys/utsname.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "programs/host_file/collector_records.h"
#include "programs/host_file/difference.h"
#include "programs/host_file/recording_file.h"
#include "programs/record/end_listener.h"
#include "programs/record/host_clock.h"
#include "programs/record/host_reader.h"
#include "programs/record/notices.h"
#include "programs/record/service.h"
#include "runtime/times.h"

namespace ozmo::record {
namespace {

constexpr const char* LATE_CLOCK = "the clock is past the year 2037, and data files hold no later times";

class Recorder {
 public:
  explicit Recorder(const RecorderOptions& options)
      : options_(options),
        reader_(notices_),
        ends_(notices_),
        retention_(options.directory, options.node, options.retention, notices_) {}

  std::string Run();

 private:
  std::string Walk();
  std::string TakeSample();
  std::string ReadHost(host_file::HostFigures& host);
  std::string WriteSample(int64_t begin, int64_t stamp, const host_file::HostFigures& figures);
  std::string BeginFile(int64_t begin, int64_t stamp, bool dayHasPassed);
  std::string BeginNextFile();
  // Sleeps until the next sample is due, and says now and then that all is well.
  Wake Sleep();
  std::string EndFile(int64_t closingStamp);
  host_file::Configuration ConfigurationOf(const host_file::HostFigures& figures, int64_t stamp,
                                           int64_t seconds) const;
  bool ReachesLimit() const;
  // Readers take a sample as finished when they meet a later time. Where no later sample follows, it is the
  // time at which that was due.
  int64_t ClosingStamp() const { return stamp_ + options_.intervalSeconds; }

  const RecorderOptions& options_;
  Notices notices_;
  HostReader reader_;
  EndListener ends_;
  host_file::ProcessEnds ended_;  // in the present interval
  Retention retention_;
  host_file::DirectoryLock lock_;
  host_file::RecordingFile file_;
  int64_t samplesInFile_ = 0;
  int64_t samples_ = 0;
  host_file::HostFigures host_;  // as last read
  Moment moment_;                // of that reading
  int64_t stamp_ = 0;
  int64_t due_ = 0;  // of the present or next sample, on the steady clock
};

std::string Recorder::Run() {
  if (std::string failure = lock_.Take(options_.directory, options_.node); !failure.empty()) return failure;
  std::string failure = Walk();
  SayStopping();
  if (!file_.IsOpen()) return failure;
  std::string closing = EndFile(ClosingStamp());
  return failure.empty() ? closing : failure;
}

std::string Recorder::Walk() {
  due_ = BeginOf(Now(), options_.intervalSeconds);
  Wake begin = Sleep();
  while (begin == Wake::NEW_FILE) begin = Sleep();
  if (begin == Wake::STOP) return "";
  moment_ = Now();
  stamp_ = moment_.Stamp();
  if (stamp_ >= LAST_STAMP) return LATE_CLOCK;
  if (options_.until > 0 && options_.until < ClosingStamp()) {
    return "--until comes before the end of the first sample";
  }
  if (!reader_.Read(host_)) return reader_.Failure();
  if (std::string failure = BeginFile(stamp_, stamp_, false); !failure.empty()) {
    return failure;
  }
  ends_.Begin(host_.processes);
  for (;;) {
    due_ = DueAfter(due_, moment_, options_.intervalSeconds);
    if (ReachesLimit()) return "";
    Wake wake = Sleep();
    while (wake == Wake::NEW_FILE) {
      if (std::string failure = BeginNextFile(); !failure.empty()) return failure;
      wake = Sleep();
    }
    if (wake == Wake::STOP) return "";
    if (std::string failure = TakeSample(); !failure.empty()) return failure;
    retention_.Step();
  }
}

Wake Recorder::Sleep() {
  int64_t alive = Now().steady;
  for (;;) {
    const int64_t now = Now().steady;
    if (now - alive >= AliveInterval()) {
      SayAlive();
      alive = now;
    }
    const int64_t pause =
        std::min({AliveInterval(), ends_.DrainInterval(), std::max<int64_t>(due_ - now, 0)});
    const Wake wake = SleepUntil(now + pause);
    if (wake != Wake::DUE || now + pause >= due_) {
      SayAlive();
      return wake;
    }
    ends_.Drain();
  }
}

std::string Recorder::ReadHost(host_file::HostFigures& host) {
  ends_.BeginReading();
  if (!reader_.Read(host)) return reader_.Failure();
  ends_.EndReading(host.processes, ended_);
  return "";
}

// Ends the present file, unless it has no sample yet, and goes on in the next of the day.
std::string Recorder::BeginNextFile() {
  if (samplesInFile_ == 0) return "";
  if (std::string failure = EndFile(ClosingStamp()); !failure.empty()) return failure;
  return BeginFile(stamp_, stamp_, false);
}

bool Recorder::ReachesLimit() const {
  if (options_.count > 0 && samples_ >= options_.count) return true;
  const int64_t nextWall = moment_.wall + due_ - moment_.steady;
  return options_.until > 0 && nextWall > std::min(options_.until, LAST_STAMP) * NANOSECONDS;
}

std::string Recorder::TakeSample() {
  const Moment now = Now();
  if (now.Stamp() >= LAST_STAMP) return LATE_CLOCK;
  host_file::HostFigures host;
  if (std::string failure = ReadHost(host); !failure.empty()) return failure;

  const int64_t measured =
      std::max<int64_t>((now.steady - moment_.steady + NANOSECONDS / 2) / NANOSECONDS, 1);
  const int64_t stamp = now.Stamp();
  int64_t begin = stamp - measured;
  const bool sameClock = std::abs(begin - stamp_) <= 1 && stamp > stamp_;
  if (sameClock) {
    begin = stamp_;
  } else {
    // The host was suspended or its clock was set. The sample gets a begin of its own, and the next one is
    // due where the stamps are well away from the ends of windows again.
    due_ = BeginOf(now, options_.intervalSeconds);
  }
  const host_file::HostFigures interval = host_file::DifferenceOf(host_, host, ended_);
  if (std::string failure = WriteSample(begin, stamp, interval); !failure.empty()) return failure;
  host_ = std::move(host);
  moment_ = now;
  stamp_ = stamp;
  return "";
}

std::string Recorder::WriteSample(int64_t begin, int64_t stamp, const host_file::HostFigures& figures) {
  std::string bytes;
  if (const std::string lost = file_.GiveUpIfLost(); !lost.empty()) {
    PrintWarning(lost + "; a new file is begun");
    if (std::string failure = BeginFile(begin, stamp, false); !failure.empty()) return failure;
  } else if (host_file::FileDate(stamp) != file_.Date()) {
    if (std::string failure = EndFile(std::max(stamp, ClosingStamp())); !failure.empty()) return failure;
    if (std::string failure = BeginFile(begin, stamp, begin == stamp_); !failure.empty()) return failure;
  } else if (begin != stamp_) {
    if (begin < stamp_) bytes += host_file::TimeRecord(ClosingStamp());
    bytes += host_file::TimeRecord(begin);
  }
  bytes += host_file::SampleRecords(stamp, ConfigurationOf(figures, stamp, stamp - begin), figures);
  std::string failure = file_.Append(bytes);
  if (failure.empty()) {
    ++samples_;
    ++samplesInFile_;
  }
  return failure;
}

// A file begins with the time at which its first sample begins; its day is that of `stamp`.
std::string Recorder::BeginFile(int64_t begin, int64_t stamp, bool dayHasPassed) {
  if (std::string failure = file_.Create(options_.directory, options_.node, stamp); !failure.empty()) {
    return failure;
  }
  samplesInFile_ = 0;
  std::string failure =
      file_.Append(host_file::HeadRecords(ConfigurationOf(host_, stamp, options_.intervalSeconds)) +
                   host_file::TimeRecord(begin));
  if (!failure.empty()) {
    file_.Remove();
    return failure;
  }
  std::printf("%s\n", file_.Path().c_str());
  std::fflush(stdout);
  SayReady(file_.Path());
  retention_.BeginFile(file_.Date(), dayHasPassed);
  return "";
}

std::string Recorder::EndFile(int64_t closingStamp) {
  if (const std::string lost = file_.GiveUpIfLost(); !lost.empty()) {
    PrintWarning(lost);
    return "";
  }
  if (samplesInFile_ == 0) {
    file_.Remove();
    return "";
  }
  const std::string failure = file_.Append(host_file::TimeRecord(closingStamp));
  const std::string closing = file_.Close();
  return failure.empty() ? closing : failure;
}

host_file::Configuration Recorder::ConfigurationOf(const host_file::HostFigures& figures, int64_t stamp,
                                                   int64_t seconds) const {
  host_file::Configuration configuration;
  configuration.node = options_.node;
  configuration.utcOffset = static_cast<int32_t>(StandardOffset(stamp));
  configuration.daylightTime = TimeLocal(stamp).tm_isdst > 0;
  configuration.intervalSeconds = static_cast<int32_t>(seconds);
  configuration.memoryKilobytes = figures.memory.total;
  configuration.processors = figures.processors.size();
  utsname kernel{};
  if (uname(&kernel) == 0) {
    configuration.system = kernel.sysname;
    configuration.release = kernel.release;
    configuration.version = kernel.version;
    configuration.machine = kernel.machine;
  }
  return configuration;
}

}  // namespace

std::string Record(const RecorderOptions& options) {
  HoldSignals();
  Recorder recorder(options);
  return recorder.Run();
}

}  // namespace ozmo::record
