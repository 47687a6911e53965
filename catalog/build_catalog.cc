#include "catalog/build_catalog.h"

#include "catalog/build_steps.h"
#include "catalog/platforms.h"
#include "runtime/messages.h"

namespace ozmo {
namespace {

constexpr const char* CLASS_FILE = "QTX.memory";

// Classes stay for the run: a second catalog of one run finds them loaded.
void LoadClasses(WorkloadClassList& classes, const char* secondFile) {
  if (classes.classesLoaded) return;
  int loaded = WorkloadLoad(classes, CLASS_FILE);
  if (loaded == 0 && secondFile != nullptr) loaded = WorkloadLoad(classes, secondFile);
  if (loaded == 0) WorkloadDefaults(classes);
  classes.classesLoaded = true;
}

void Walk(BuildSteps& build, DataReader& reader, VmrContext& interval, Runtime& runtime) {
  bool isAnnounced = false;
  while (reader.Next(interval) == ReaderResult::DONE) {
    if (runtime.progressSink) runtime.progressSink(interval.periodEnd);
    if (build.TakeInterval(interval) && !isAnnounced) {
      MessageEmit(runtime, PLAIN_MESSAGE, {"Processing " + interval.nodeName + " ..."});
      isAnnounced = true;
    }
  }
}

}  // namespace

std::unique_ptr<GraphCatalog> BuildCatalog(DataReader& reader, const Span& span, WorkloadClassList& classes,
                                           const WantedTitles& titles, Runtime& runtime,
                                           const ProcessSink& processes) {
  const PlatformSpec& platform = PlatformOf(reader.kind());
  auto catalog = std::make_unique<GraphCatalog>();
  catalog->titles = titles;
  VmrContext interval;
  interval.periodStart = span.begin;
  interval.periodEnd = span.end;
  LoadClasses(classes, platform.secondClassFile);
  NoteInput(runtime, classes.file);

  BuildSteps build(platform, classes, span, *catalog);
  build.SetProcessSink(processes);
  interval.kinds = build.needs().records;
  const int opened = reader.Open(interval);
  if (opened > 0 || platform.walksWithoutOpen) Walk(build, reader, interval, runtime);
  build.FinishGraphs();
  reader.Close(interval);
  build.FinishSeries();
  return catalog;
}

}  // namespace ozmo
