#include "programs/report/graph_files.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "output/plot_driver.h"
#include "programs/report/csv_files.h"

namespace ozmo::report {
namespace {

struct PictureType {
  std::string_view word;
  GraphType type;
};
constexpr PictureType PICTURE_TYPES[] = {{"gif", GraphType::GIF},
                                         {"ps", GraphType::POSTSCRIPT},
                                         {"jpg", GraphType::JPEG},
                                         {"jpeg", GraphType::JPEG}};

// The first word of a type ends its files' names.
std::string EndingOf(GraphType type) {
  for (const PictureType& row : PICTURE_TYPES) {
    if (row.type == type) return '.' + std::string(row.word);
  }
  return "";
}

// The tool's page, in inches.
constexpr double PAGE_WIDTH = 11.0;
constexpr double PAGE_HEIGHT = 8.5;

GraphJob PictureJob(const Item& item, const DataDay& day, const PictureForm& form, const std::string& path) {
  GraphJob job = JobOf(item, day);
  job.graphType = form.type;
  job.sizeUnit = form.width > 0 ? SizeUnit::PIXELS : SizeUnit::INCHES;
  job.width = form.width > 0 ? form.width : PAGE_WIDTH;
  job.height = form.width > 0 ? form.height : PAGE_HEIGHT;
  job.graphFile = path;
  return job;
}

// Why there is no picture; empty when it is drawn.
std::string Draw(const GraphJob& job) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) return job.graphFile + ": " + std::strerror(errno);
  if (child == 0) std::exit(PlotGraphJob(job));
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? "" : job.graphFile + ": not drawn";
}

bool TakeSide(std::string_view text, int& side) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
  return error == std::errc() && end == text.data() + text.size() && side >= 1 && side <= MOST_DOTS;
}

}  // namespace

std::optional<GraphType> PictureTypeOf(const std::string& word) {
  for (const PictureType& row : PICTURE_TYPES) {
    if (row.word == word) return row.type;
  }
  return std::nullopt;
}

bool TakeSize(const std::string& text, PictureForm& form) {
  const size_t cross = text.find('x');
  const std::string_view whole = text;
  return cross != std::string::npos && TakeSide(whole.substr(0, cross), form.width) &&
         TakeSide(whole.substr(cross + 1), form.height);
}

PicturesResult WritePictures(const std::string& directory, const PictureForm& form, const DataDay& day,
                             const std::vector<Section>& sections) {
  std::error_code error;
  std::filesystem::create_directories(directory, error);
  if (error) return {0, {directory + ": " + error.message()}};
  const std::vector<std::string> names = FileNames(sections, EndingOf(form.type));
  PicturesResult result;
  size_t next = 0;
  VisitItems(sections, [&](const Item& item) {
    const std::string& name = names[next++];
    if (item.record->isView) return;
    const std::string failure = Draw(PictureJob(item, day, form, directory + '/' + name));
    if (failure.empty()) {
      ++result.files;
    } else {
      result.failures.push_back(failure);
    }
  });
  return result;
}

}  // namespace ozmo::report
