#include "programs/report/graph_files.h"

#include <charconv>

#include "output/output_type.h"
#include "output/plot_driver.h"
#include "programs/report/csv_files.h"
#include "programs/report/pieces.h"
#include "runtime/console.h"
#include "runtime/output_directory.h"
#include "runtime/whole_file.h"

namespace ozmo::report {
namespace {

constexpr std::string_view SECOND_WORD_OF_JPEG = "jpeg";  // the field's own; -type has only jpg

struct Picture {
  std::string path;
  const Item* item = nullptr;
};

GraphJob PictureJob(const Picture& picture, const DataDay& day, const PictureForm& form) {
  GraphJob job = JobOf(*picture.item, day);
  job.graphType = form.type;
  job.sizeUnit = form.width > 0 ? SizeUnit::PIXELS : SizeUnit::INCHES;
  job.width = form.width > 0 ? form.width : PAGE_WIDTH_INCHES;
  job.height = form.width > 0 ? form.height : PAGE_HEIGHT_INCHES;
  job.hasOwnMap = true;
  return job;
}

// Draws into a draft, which then gets the picture's name.
bool Draw(const std::string& path, GraphJob job, std::span<const FileIdentity> inputs) {
  WholeFile file;
  std::string failure = file.Open({path, LinkRule::REPLACE, inputs});
  if (failure.empty()) {
    job.graphFile = file.draftPath();
    if (PlotGraphJob(job) != 0) return false;  // which has said why
    failure = file.Commit();
  }
  if (!failure.empty()) Complain("ozmo_report", failure);
  return failure.empty();
}

std::vector<Picture> PicturesOf(const std::string& directory, const PictureForm& form,
                                const std::vector<Section>& sections) {
  const std::vector<std::string> names =
      FileNames(sections, '.' + std::string(OutputTypeOf(form.type).words[1]));
  std::vector<Picture> pictures;
  size_t next = 0;
  VisitItems(sections, [&](const Item& item) {
    const std::string& name = names[next++];
    if (!item.record->isView) pictures.push_back({directory + '/' + name, &item});
  });
  return pictures;
}

bool TakeSide(std::string_view text, int& side) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
  return error == std::errc() && end == text.data() + text.size() && side >= 1 && side <= MOST_DOTS;
}

}  // namespace

std::optional<GraphType> PictureTypeOf(const std::string& word) {
  if (word == SECOND_WORD_OF_JPEG) return GraphType::JPEG;
  for (const OutputType& row : OutputTypes()) {
    if (row.type != GraphType::CSV && row.words[1] == word) return row.type;
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
                             const std::vector<Section>& sections, std::span<const FileIdentity> inputs) {
  if (std::string failure = MakeOutputDirectory(directory); !failure.empty()) return {0, {failure}};
  const std::vector<Picture> pictures = PicturesOf(directory, form, sections);
  const PiecesResult drawn = RunInProcesses(pictures.size(), [&](size_t number) {
    return Draw(pictures[number].path, PictureJob(pictures[number], day, form), inputs);
  });
  if (!drawn.failure.empty()) return {0, {drawn.failure}};
  PicturesResult result;
  for (size_t number = 0; number < pictures.size(); ++number) {
    if (drawn.done[number]) {
      ++result.files;
    } else {
      result.failures.push_back(pictures[number].path + ": not drawn");
    }
  }
  return result;
}

}  // namespace ozmo::report
