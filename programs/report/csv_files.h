// A CSV file for each item, as the tool writes it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "programs/report/data_day.h"
#include "programs/report/items.h"

namespace ozmo::report {

struct CsvResult {
  int files = 0;
  std::string failure;  // the first file that could not be written ends the work
};

// Writes into `directory`, which is made if it isn't there. Each file is complete or not there; a link of its
// name is replaced and not followed, and none of the `inputs` is written over.
CsvResult WriteCsvFiles(const std::string& directory, const DataDay& day,
                        const std::vector<Section>& sections, std::span<const FileIdentity> inputs);

// File names for the headings, in their order: letters and digits of ASCII in lower case, what lies between
// them as
// "_", cut at a length that every file system takes, with a number behind the name where it would be there
// twice.
std::vector<std::string> CsvNames(const std::vector<std::string>& headings);

}  // namespace ozmo::report
