// A picture of each item, as ozmo_graph draws it.
#pragma once

#include <optional>
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
// pictures of the tool. Each picture has a process of its own: what the plotter can't draw ends the process,
// and nothing that it keeps from one picture can reach the next.
PicturesResult WritePictures(const std::string& directory, const PictureForm& form, const DataDay& day,
                             const std::vector<Section>& sections);

}  // namespace ozmo::report
