#include "cli/build_graph_job.h"

#include <memory>

#include "catalog/build_catalog.h"
#include "output/output_type.h"
#include "output/selection.h"
#include "runtime/messages.h"
#include "runtime/times.h"
#include "workload/workload.h"

namespace ozmo {
namespace {

void Report(Runtime& runtime, const char* text) { MessageEmit(runtime, PLAIN_MESSAGE, {text}); }

// A job always has both sizes: one that is missing drops the other.
void SetSize(GraphJob& job, const RunRequest& request) {
  const bool isGiven = request.width != 0.0 && request.height != 0.0;
  job.width = isGiven ? request.width : PAGE_WIDTH_INCHES;
  job.height = isGiven ? request.height : PAGE_HEIGHT_INCHES;
  job.sizeUnit = isGiven ? request.sizeUnit : SizeUnit::INCHES;
}

GraphJob JobFor(const RunRequest& request, const GraphCatalog& catalog, int pointCount, Runtime& runtime) {
  GraphJob job;
  job.inputs = runtime.inputs;
  job.graphType = request.graphType;
  job.SetSpan(catalog.spanStart, pointCount);
  SetSize(job, request);
  job.graphFile = request.graphFile.value_or("");
  job.hostName = request.hostName;
  return job;
}

// The job that the request asks for; reports what can't be found, and is absent then.
std::optional<GraphJob> SelectGraph(const RunRequest& request, GraphCatalog& catalog, Runtime& runtime) {
  GraphRecord* record = FindGraphRecord(catalog.itemTree, request.itemName.value_or(""));
  if (record == nullptr || record->data.nsets() == 0) {
    Report(runtime, "Specified main graph not found.");
    return std::nullopt;
  }
  GraphJob job = JobFor(request, catalog, record->data.npoints, runtime);
  job.mainOverlay = PrepareMainOverlay(*record);
  if (request.overlayName) {
    OverlaySelection selection = SelectOverlay(catalog, *record, *request.overlayName);
    if (!selection.overlay) {
      Report(runtime, selection.failure);
      return std::nullopt;
    }
    job.additionalOverlay = std::move(selection.overlay);
  }
  return job;
}

// A time that wasn't given is the start of 1970.
Span SpanOf(const RunRequest& request) {
  return {TimeToSeconds(request.beginTime), TimeToSeconds(request.endTime)};
}

// The graphs that the run may come to need.
WantedTitles TitlesOf(const RunRequest& request) {
  std::vector<std::string_view> titles = {request.itemName ? std::string_view(*request.itemName) : ""};
  if (request.overlayName) titles.push_back(OverlayGraphName(*request.overlayName));
  return WantedTitles(titles);
}

}  // namespace

void BuildGraphJob(const RunRequest& request, DataReader* reader, Runtime& runtime) {
  // Nothing reads the file of -mw: it is accepted, and nothing is built or reported.
  if ((request.requestFlags & REQUEST_MW) != 0) return;
  if (reader == nullptr) {
    Report(runtime, "Data not found.");
    return;
  }
  WorkloadClassList classes;
  const std::unique_ptr<GraphCatalog> catalog =
      BuildCatalog(*reader, SpanOf(request), classes, TitlesOf(request), runtime);
  const std::optional<GraphJob> job = SelectGraph(request, *catalog, runtime);
  if (job) OutputTypeOf(job->graphType).write(*job, runtime);
}

}  // namespace ozmo
