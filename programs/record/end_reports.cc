#include "programs/record/end_reports.h"

#include <cstddef>
#include <utility>

namespace ozmo::record {

EndSums::Sum EndSums::SumOf(const EndReport& report) {
  return {report.process, 1, report.userTime, report.systemTime, report.minorFaults, report.majorFaults};
}

void EndSums::Sum::Add(const Sum& other) {
  if (id == 0) id = other.id;
  tasks += other.tasks;
  userTime += other.userTime;
  systemTime += other.systemTime;
  minorFaults += other.minorFaults;
  majorFaults += other.majorFaults;
}

void EndSums::Add(const EndReport& report) {
  if (report.endsProcess) {
    if (holds_) return held_.push_back(report);
    return AddEnd(report);
  }
  Threads& threads = threads_[report.process];
  threads.sum.Add(SumOf(report));
  if (report.id == report.process) threads.name = report.name;  // the first thread has the process' name
}

void EndSums::AddEnd(const EndReport& report) {
  Sum sum = SumOf(report);
  std::string name = report.name;
  const auto before = threads_.find(report.process);
  if (before != threads_.end()) {
    sum.Add(before->second.sum);
    if (report.id != report.process && !before->second.name.empty()) name = before->second.name;
    threads_.erase(before);
  }
  const auto place = static_cast<size_t>(report.process);
  if (place >= reported_.size()) reported_.resize(place + 1);
  reported_[place] = true;
  Key key{report.parent, report.user, std::move(name)};
  if (living_.erase(report.process) > 0) {
    seen_.emplace_back(std::move(key), sum);
    return;
  }
  MoveUp(report.process, report.parent);
  sums_[std::move(key)].Add(sum);
}

// What the children of an ended process used has been counted by the one that waits for that process now.
void EndSums::MoveUp(int32_t ended, int32_t parent) {
  for (auto place = sums_.lower_bound(Key{ended, 0, ""});
       place != sums_.end() && std::get<0>(place->first) == ended;) {
    const Sum sum = place->second;
    Key key = place->first;
    place = sums_.erase(place);
    std::get<0>(key) = parent;
    if (parent != ended) sums_[std::move(key)].Add(sum);
  }
}

host_file::ReportedEnd EndSums::EndOf(const Key& key, const Sum& sum, bool wasSeen,
                                      std::string (*nameOf)(uint32_t user)) {
  constexpr int32_t THREADS_OF_THE_KERNEL = 2;  // their parent
  constexpr uint64_t MICROSECONDS_PER_TICK = 1'000'000 / host_file::TICKS_PER_SECOND;
  const auto ticks = [](uint64_t time) { return (time + MICROSECONDS_PER_TICK / 2) / MICROSECONDS_PER_TICK; };
  const auto& [parent, user, name] = key;
  host_file::ReportedEnd end;
  end.wasSeen = wasSeen;
  end.tasks = sum.tasks;
  end.process.id = sum.id;
  end.process.parent = parent;
  end.process.image = parent == THREADS_OF_THE_KERNEL ? "[" + name.substr(0, name.find('/')) + "]" : name;
  end.process.user = nameOf(user);
  end.process.use = {ticks(sum.userTime), ticks(sum.systemTime), sum.minorFaults, sum.majorFaults};
  return end;
}

bool EndSums::IsReported(int32_t process) const {
  return static_cast<size_t>(process) < reported_.size() && reported_[static_cast<size_t>(process)];
}

void EndSums::Take(const std::vector<host_file::ProcessFigures>& living, std::string (*nameOf)(uint32_t user),
                   host_file::ProcessEnds& ends) {
  std::set<int32_t> nowLiving;
  for (const host_file::ProcessFigures& process : living) {
    if (!process.hasEnded) nowLiving.insert(nowLiving.end(), process.id);
  }
  holds_ = false;
  std::vector<EndReport> next;
  for (EndReport& report : std::exchange(held_, {})) {
    if (nowLiving.contains(report.process)) {
      next.push_back(std::move(report));
    } else {
      AddEnd(report);
    }
  }
  ends.shown.clear();
  for (const host_file::ProcessFigures& process : living) {
    if (!process.hasEnded) continue;
    (IsReported(process.id) ? ends.shown : nowLiving).insert(process.id);
  }
  ends.ends.clear();
  ends.ends.reserve(sums_.size() + seen_.size());
  for (const auto& [key, sum] : seen_) ends.ends.push_back(EndOf(key, sum, true, nameOf));
  for (const auto& [key, sum] : sums_) ends.ends.push_back(EndOf(key, sum, false, nameOf));
  seen_.clear();
  sums_.clear();
  reported_.assign(reported_.size(), false);
  living_ = std::move(nowLiving);
  for (const EndReport& report : next) AddEnd(report);
}

}  // namespace ozmo::record
