#include "tests/output/recording_plot.h"

#include <algorithm>
#include <cstdio>

#include "output/libplot.h"

namespace ozmo::testing {

namespace {

std::string Text(double value) {
  char text[64];
  std::snprintf(text, sizeof text, " %.7g", value);
  return text;
}
std::string Text(int value) { return " " + std::to_string(value); }
std::string Text(char value) { return std::string(" ") + value; }
std::string Text(const char* value) { return value == nullptr ? " null" : " '" + std::string(value) + "'"; }

template <typename... Arguments>
int Record(const char* name, Arguments... arguments) {
  Recording().calls.push_back((std::string(name) + ... + Text(arguments)));
  return 0;
}

}  // namespace

PlotRecording& Recording() {
  static PlotRecording recording;
  return recording;
}

void RecordingStart() { Recording() = PlotRecording{}; }

std::vector<std::string> PlotRecording::Named(const std::string& name) const {
  std::vector<std::string> named;
  std::copy_if(calls.begin(), calls.end(), std::back_inserter(named),
               [&](const std::string& call) { return call == name || call.rfind(name + " ", 0) == 0; });
  return named;
}

std::string PlotRecording::Text() const {
  constexpr size_t WIDTH = 106;
  std::vector<std::string> shown;
  const auto nameOf = [&](size_t at) {
    return at < calls.size() ? calls[at].substr(0, calls[at].find(' ')) : "";
  };
  for (size_t at = 0; at < calls.size();) {
    const size_t start = at;
    const std::string name = nameOf(at);
    while (nameOf(at) == name) ++at;
    shown.push_back(calls[start]);
    for (size_t n = start + 1; n < at; ++n) {
      const bool isMiddle = at - start > 8 && n > start + 3 && n < at - 1;
      if (!isMiddle) shown.push_back(calls[n] == name ? name : calls[n].substr(name.size() + 1));
      if (isMiddle && n == start + 4) shown.push_back("... of " + std::to_string(at - start));
    }
  }
  std::string text;
  size_t lineStart = 0;
  for (const std::string& call : shown) {
    const bool isFull = text.size() - lineStart + call.size() > WIDTH;
    text += text.empty() || isFull ? "\n" : " ";
    if (isFull) lineStart = text.size();
    text += call + ";";
  }
  return text + "\n";
}

}  // namespace ozmo::testing

using ozmo::testing::Record;
using ozmo::testing::Recording;

extern "C" {

int pl_parampl(const char* parameter, void* value) {
  return Record("parampl", parameter, static_cast<const char*>(value));
}
int pl_newpl(const char* type, FILE* infile, FILE* outfile, FILE* errfile) {
  Record("newpl", type, infile == nullptr ? "" : "in", outfile == nullptr ? "" : "out",
         errfile == stderr ? "stderr" : "");
  return Recording().newplResult;
}
int pl_selectpl(int handle) { return Record("selectpl", handle); }
int pl_deletepl(int handle) { return Record("deletepl", handle); }
int pl_openpl() {
  Record("openpl");
  return Recording().openplResult;
}
int pl_closepl() {
  Record("closepl");
  return Recording().closeplResult;
}
int pl_erase() { return Record("erase"); }
int pl_flushpl() { return Record("flushpl"); }
int pl_savestate() { return Record("savestate"); }
int pl_restorestate() { return Record("restorestate"); }
int pl_havecap(const char* name) {
  Record("havecap", name);
  return 1;
}
int pl_fspace(double x0, double y0, double x1, double y1) { return Record("fspace", x0, y0, x1, y1); }
int pl_fconcat(double m0, double m1, double m2, double m3, double m4, double m5) {
  return Record("fconcat", m0, m1, m2, m3, m4, m5);
}
int pl_fmove(double x, double y) { return Record("fmove", x, y); }
int pl_fcont(double x, double y) { return Record("fcont", x, y); }
int pl_fline(double x0, double y0, double x1, double y1) { return Record("fline", x0, y0, x1, y1); }
int pl_fbox(double x0, double y0, double x1, double y1) { return Record("fbox", x0, y0, x1, y1); }
int pl_flinewidth(double size) { return Record("flinewidth", size); }
int pl_linemod(const char* name) { return Record("linemod", name); }
int pl_filltype(int level) { return Record("filltype", level); }
int pl_colorname(const char* name) { return Record("colorname", name); }
int pl_pencolorname(const char* name) { return Record("pencolorname", name); }
int pl_fillcolorname(const char* name) { return Record("fillcolorname", name); }
int pl_fontname(const char* name) { return Record("fontname", name); }
double pl_ffontsize(double size) {
  Record("ffontsize", size);
  return size * Recording().fontScale;
}
double pl_ftextangle(double angle) {
  Record("ftextangle", angle);
  return angle;
}
double pl_flabelwidth(const char* text) {
  Record("flabelwidth", text);
  return Recording().labelWidth;
}
int pl_alabel(int xJustify, int yJustify, const char* text) {
  return Record("alabel", static_cast<char>(xJustify), static_cast<char>(yJustify), text);
}

}  // extern "C"
