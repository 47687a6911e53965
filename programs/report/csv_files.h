// A CSV file for each item, as the tool writes it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "output/graph_job.h"
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

// The graph of an item, as the tool would be asked for it; type, size and file are left open.
GraphJob JobOf(const Item& item, const DataDay& day);

// Names of files for the items, in their order: letters and digits of the heading in ASCII and lower case,
// what is between them as "_", cut at a length that every file system takes, with a number after a name that
// is there already, and the ending.
std::vector<std::string> FileNames(const std::vector<Section>& sections, const std::string& ending);

}  // namespace ozmo::report
