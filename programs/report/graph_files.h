// A picture of each item, as ozmo_graph draws it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "output/graph_job.h"
#include "programs/report/data_day.h"
#include "programs/report/items.h"

namespace ozmo::report {

// Sizes in dots; the tool's own page where they are 0.
struct PictureForm {
  GraphType type = GraphType::GIF;
  int width = 0;
  int height = 0;
};

// A type by its word: gif, ps, jpg or jpeg. Absent for others.
std::optional<GraphType> PictureTypeOf(const std::string& word);

// Sizes of a text such as "720x556"; false for any other text and for sides beyond MOST_DOTS.
inline constexpr int MOST_DOTS = 20000;
bool TakeSize(const std::string& text, PictureForm& form);

struct PicturesResult {
  int files = 0;
  std::vector<std::string> failures;  // a line each; the other pictures are drawn all the same
};

// Draws into `directory`, which is made if it isn't there, into files named after the headings; views are no
// pictures of the tool. As many are drawn at a time as there are processors. Each file is complete or not
// there; a link of its name is replaced and not followed, and none of the `inputs` is written over. What the
// plotter can't draw ends one of the drawing processes, and nothing of that one can reach another picture.
PicturesResult WritePictures(const std::string& directory, const PictureForm& form, const DataDay& day,
                             const std::vector<Section>& sections, std::span<const FileIdentity> inputs);

}  // namespace ozmo::report
