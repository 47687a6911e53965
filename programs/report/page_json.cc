#include "programs/report/page_json.h"

#include <algorithm>

#include "programs/report/text.h"
#include "runtime/times.h"

namespace ozmo::report {
namespace {

// `items`, each as `append` writes it, with commas between.
template <class Items, class Append>
void AppendList(std::string& json, const Items& items, const char* comma, Append append) {
  json += '[';
  bool isFirst = true;
  for (const auto& item : items) {
    if (!isFirst) json += comma;
    isFirst = false;
    append(item);
  }
  json += ']';
}

// Where the offset from UTC changes: pairs of a point and the offset from there on.
std::string OffsetsText(const PageData& data) {
  const auto offsetOf = [&](int point) {
    return TimeLocal(data.start + point * SECONDS_PER_MINUTE).tm_gmtoff;
  };
  long offset = offsetOf(0);
  std::string text = "[[0," + std::to_string(offset) + ']';
  constexpr int STEP = 60;
  for (int from = 0; from < data.pointCount; from += STEP) {
    const int to = std::min(from + STEP, data.pointCount - 1);
    if (offsetOf(to) == offset) continue;
    int point = from;
    while (offsetOf(point) == offset) ++point;
    offset = offsetOf(point);
    text += ",[" + std::to_string(point) + ',' + std::to_string(offset) + ']';
  }
  return text + ']';
}

void AppendTrace(std::string& json, const PageTrace& trace) {
  json += "{\"label\":" + JsonText(trace.label) + ",\"colour\":\"" + trace.colour +
          "\",\"mean\":" + FigureText(trace.figures.mean) + ",\"peak\":" + FigureText(trace.figures.peak) +
          ",\"at\":" + std::to_string(trace.figures.peakPoint) + ",\"points\":\"" + trace.points + "\"}";
}

void AppendGraph(std::string& json, const PageGraph& graph) {
  json += "{\"title\":" + JsonText(graph.heading) + ",\"unit\":" + JsonText(graph.unit) +
          ",\"top\":" + FigureText(graph.top) + ",\"chart\":" + (graph.hasChart ? "true" : "false") +
          (graph.view    ? ",\"view\":true"
           : graph.named ? ""
                         : ",\"unnamed\":true") +
          (graph.scale == 100 ? "" : ",\"scale\":" + std::to_string(graph.scale)) + ",\"traces\":";
  AppendList(json, graph.traces, ",", [&](const PageTrace& trace) { AppendTrace(json, trace); });
  json += '}';
}

void AppendSection(std::string& json, const PageSection& section) {
  json += "{\"label\":" + JsonText(section.label) + ",\"level\":" + std::to_string(section.level) +
          ",\"own\":" + (section.runTime ? "true" : "false") + ",\"graphs\":";
  AppendList(json, section.graphs, ",\n", [&](const PageGraph& graph) { AppendGraph(json, graph); });
  json += '}';
}

// The fields of a span and its graphs, without the brackets of the object.
void AppendData(std::string& json, const PageData& data) {
  json += "\"node\":" + JsonText(data.node) + ",\"start\":" + std::to_string(data.start) +
          ",\"points\":" + std::to_string(data.pointCount) + ",\"first\":" + std::to_string(data.firstPoint) +
          ",\"last\":" + std::to_string(data.lastPoint) + ",\"offsets\":" + OffsetsText(data) +
          ",\"sections\":";
  AppendList(json, data.sections, ",\n", [&](const PageSection& section) { AppendSection(json, section); });
}

void AppendBaseline(std::string& json, const Baseline& baseline) {
  json += ",\n\"baseline\":{\"what\":" + JsonText(baseline.what) + ",\"only\":";
  AppendList(json, baseline.only, ",", [&](const std::string& title) { json += JsonText(title); });
  json += ',';
  AppendData(json, baseline.data);
  json += '}';
}

Seconds PointOf(const Mark& mark, const PageData& data) {
  return (mark.time - data.start) / SECONDS_PER_MINUTE;
}

}  // namespace

std::string JsonOf(const PageData& data, const std::optional<Baseline>& baseline,
                   const std::vector<Mark>& marks) {
  std::string json = "{";
  AppendData(json, data);
  if (baseline) AppendBaseline(json, *baseline);
  if (!marks.empty()) {
    json += ",\n\"marks\":";
    AppendList(json, marks, ",", [&](const Mark& mark) {
      json += '[' + std::to_string(PointOf(mark, data)) + ',' + JsonText(mark.text) + ']';
    });
  }
  return json + '}';
}

size_t DropOutside(std::vector<Mark>& marks, const PageData& data) {
  return std::erase_if(marks, [&](const Mark& mark) {
    return mark.time < data.start || PointOf(mark, data) < data.firstPoint ||
           PointOf(mark, data) > data.lastPoint;
  });
}

}  // namespace ozmo::report
