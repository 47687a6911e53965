#include "catalog/builder.h"

#include "catalog/build_steps.h"
#include "catalog/platforms.h"
#include "runtime/messages.h"
#include "runtime/times.h"

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

// Says what is being read, and takes over the interval's length. Both once in a walk.
void Announce(BuildState& state, const VmrContext& context, Runtime& runtime) {
  if (!state.announced) {
    MessageEmit(runtime, "UNDEFINED", {"Processing " + context.nodeName + " ..."});
    state.announced = true;
  }
  if (state.platform.measureInterval == nullptr && !state.intervalKnown && context.config) {
    state.intervalMinutes = MinutesOf(context.config->intervalSeconds);
    state.intervalKnown = true;
  }
}

void Walk(BuildState& state, DataReader& reader, VmrContext& context, Runtime& runtime) {
  for (;;) {
    const int result = ReaderNext(reader, context);
    if (result == state.platform.skippedResult) continue;
    if (result < 1) return;
    if (runtime.progressSink) runtime.progressSink(context.periodEnd);
    if (TakeInterval(state, context)) Announce(state, context, runtime);
  }
}

}  // namespace

std::unique_ptr<GraphCatalog> BuildCatalog(DataReader& reader, const RunRequest& request,
                                           WorkloadClassList& classes, Runtime& runtime) {
  const PlatformSpec& platform = PlatformOf(reader.kind());
  auto catalog = std::make_unique<GraphCatalog>();
  VmrContext context;
  context.periodStart = TimeToSeconds(request.beginTime);
  context.periodEnd = TimeToSeconds(request.endTime);
  LoadClasses(classes, platform.secondClassFile);

  BuildState state(platform, *catalog, classes);
  StartCatalog(state, context.periodStart, context.periodEnd);
  const int opened = ReaderOpen(reader, context);
  if (opened >= 1 || platform.walksWithoutOpen) Walk(state, reader, context, runtime);
  FinishGraphs(state);
  ReaderClose(reader, context);
  FinishSeries(state);
  return catalog;
}

}  // namespace ozmo
