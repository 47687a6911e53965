// Turns one data file and one requested span into a catalog of graphs.
//
// There is one driver for all platforms; a PlatformSpec says what is particular to one.
#pragma once

#include <memory>

#include "catalog/model.h"
#include "catalog/platform.h"
#include "readers/data_reader.h"
#include "runtime/run_request.h"
#include "runtime/runtime.h"
#include "workload/workload.h"

namespace ozmo {

// Always a catalog, also when no interval fell into the span: then all series are 0. Classes are loaded if
// they aren't yet.
std::unique_ptr<GraphCatalog> BuildCatalog(const PlatformSpec& platform, DataReader& reader,
                                           const RunRequest& request, WorkloadClassList& classes,
                                           Runtime& runtime);

std::unique_ptr<GraphCatalog> BuildCatalogSolaris(DataReader& reader, const RunRequest& request,
                                                  WorkloadClassList& classes, Runtime& runtime);
std::unique_ptr<GraphCatalog> BuildCatalogHpux(DataReader& reader, const RunRequest& request,
                                               WorkloadClassList& classes, Runtime& runtime);
std::unique_ptr<GraphCatalog> BuildCatalogAix(DataReader& reader, const RunRequest& request,
                                              WorkloadClassList& classes, Runtime& runtime);
std::unique_ptr<GraphCatalog> BuildCatalogLinux(DataReader& reader, const RunRequest& request,
                                                WorkloadClassList& classes, Runtime& runtime);
std::unique_ptr<GraphCatalog> BuildCatalogTru64(DataReader& reader, const RunRequest& request,
                                                WorkloadClassList& classes, Runtime& runtime);
std::unique_ptr<GraphCatalog> BuildCatalogVmr(DataReader& reader, const RunRequest& request,
                                              WorkloadClassList& classes, Runtime& runtime);

}  // namespace ozmo
