#include "programs/fleet/gather.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <tuple>

#include "programs/fleet/kept.h"
#include "programs/fleet/workers.h"
#include "programs/report/summary_text.h"
#include "runtime/file_identity.h"

namespace ozmo::fleet {
namespace {

using report::SummariesResult;
using report::Summary;

// A day of data files on its way to a host.
struct Day {
  const DataFiles* data = nullptr;
  std::string keptFile;  // empty: it isn't kept
  std::string page;      // empty: it gets none
  std::string stamp;
};

std::vector<Day> DaysOf(const Inputs& inputs, const GatherRequest& request) {
  std::vector<Day> days;
  const std::vector<std::string> names = KeptNames(inputs.data);
  for (size_t i = 0; i < inputs.data.size(); ++i) {
    Day day{.data = &inputs.data[i],
            .keptFile = request.keptDirectory.empty() ? "" : request.keptDirectory + '/' + names[i] + ".tsv",
            .page = request.pagesDirectory.empty() ? "" : request.pagesDirectory + '/' + names[i] + ".html",
            .stamp = StampOf(inputs.data[i])};
    days.push_back(std::move(day));
  }
  return days;
}

Work WorkOf(const Day& day) {
  Work work = {"--summary"};
  if (!day.page.empty()) work.insert(work.end(), {"-o", day.page});
  work.insert(work.end(), {"--", day.data->path});
  return work;
}

// Most lines name the file already.
std::string LineOf(const std::string& path, const std::string& text) {
  return text.find(path) == std::string::npos ? path + ": " + text : text;
}

class Gatherer {
 public:
  explicit Gatherer(const GatherRequest& request) : request_(request) {}

  void TakeDays(const std::vector<Day>& days) {
    std::vector<std::optional<Summary>> summaries(days.size());
    std::vector<std::optional<FileIdentity>> pagesBefore;
    std::vector<bool> isLinked(days.size());
    std::vector<size_t> isNew;
    std::vector<Work> works;
    for (size_t i = 0; i < days.size(); ++i) {
      const std::string& page = days[i].page;
      std::optional<Kept> kept = ReadKept(days[i].keptFile, days[i].stamp, page);
      pagesBefore.push_back(IdentityOf(page));
      if (kept && (page.empty() || (kept->hasPage && pagesBefore[i]))) {
        summaries[i] = std::move(kept->summary);
        isLinked[i] = !page.empty();
        ++fleet_.kept;
      } else {
        isNew.push_back(i);
        works.push_back(WorkOf(days[i]));
      }
    }
    size_t done = 0;
    if (request_.progress && !works.empty()) request_.progress(0, works.size());
    RunAll(works, request_.jobs, [&](size_t place, const WorkResult& result) {
      const size_t i = isNew[place];
      summaries[i] = SummaryOf(days[i], result);
      // A page is made under another name first, so that a new one is another file. One that couldn't be
      // made leaves the page of an earlier run, which shows older data.
      const std::optional<FileIdentity> page = IdentityOf(days[i].page);
      isLinked[i] = page && page != pagesBefore[i];
      if (request_.progress) request_.progress(++done, works.size());
    });
    // In the order of the paths, whichever was done first.
    for (size_t i = 0; i < days.size(); ++i) {
      if (!summaries[i]) continue;
      Add(std::move(*summaries[i]), isLinked[i] ? days[i].page : "", days[i].data->path);
    }
  }

  void TakeFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream.is_open()) return Problem(path, std::strerror(errno));
    TakeText(path, text);
  }

  void TakeText(const std::string& path, const std::string& text) {
    SummariesResult read = report::ReadSummaries(text);
    for (const std::string& wrong : read.wrong) Problem(path, wrong);
    for (Summary& summary : read.summaries) Add(std::move(summary), "", path);
  }

  Fleet Finish() {
    for (auto& [key, host] : hosts_) fleet_.hosts.push_back(std::move(host.host));
    std::ranges::sort(fleet_.problems);
    std::ranges::sort(fleet_.notes);
    return std::move(fleet_);
  }

 private:
  struct From {
    Host host;
    std::string path;
  };

  void Problem(const std::string& path, const std::string& text) {
    fleet_.problems.push_back(LineOf(path, text));
  }

  void Add(Summary summary, const std::string& page, const std::string& path) {
    std::tuple key(summary.host, summary.begin, summary.end);
    const std::string what = summary.host + ", " + DayText(summary);
    const auto [there, isNew] = hosts_.try_emplace(std::move(key), From{{std::move(summary), page}, path});
    if (!isNew) Problem(path, what + " is there already, from " + there->second.path);
  }

  // What failed in part isn't kept: the next run says it again.
  std::optional<Summary> SummaryOf(const Day& day, const WorkResult& result) {
    const std::string& path = day.data->path;
    std::vector<std::string>& lines = result.status == 0 ? fleet_.notes : fleet_.problems;
    for (const std::string& complaint : result.complaints) lines.push_back(LineOf(path, complaint));
    SummariesResult read = report::ReadSummaries(result.output);
    if (read.summaries.size() != 1 || !read.wrong.empty()) {
      if (result.complaints.empty()) Problem(path, "no summary came of it");
      return std::nullopt;
    }
    ++fleet_.workedOut;
    if (result.status == 0 && !day.keptFile.empty()) {
      const std::string failure = WriteKept(day.keptFile, day.stamp, day.page, result.output);
      if (!failure.empty()) fleet_.problems.push_back(failure);
    }
    return std::move(read.summaries.front());
  }

  const GatherRequest& request_;
  Fleet fleet_;
  std::map<std::tuple<std::string, Seconds, Seconds>, From> hosts_;
};

}  // namespace

Fleet Gather(const Inputs& inputs, const GatherRequest& request) {
  Gatherer gatherer(request);
  gatherer.TakeDays(DaysOf(inputs, request));
  for (const auto& [path, text] : inputs.summaries) {
    text ? gatherer.TakeText(path, *text) : gatherer.TakeFile(path);
  }
  return gatherer.Finish();
}

}  // namespace ozmo::fleet
