// The calls of libplot that a plot makes, each passed on to the library.
//
// The library isn't linked: it brings a good part of X11 with it, and loading all that takes longer than the
// rest of a short run. It is opened at the first call, so a run that writes a table does without.
#include "output/libplot.h"

#include <dlfcn.h>

#include <cstdio>
#include <type_traits>

namespace ozmo {
namespace {

constexpr char LIBRARY[] = "libplot.so.2";

bool IsLibraryOpen() {
  static const bool IS_OPEN = [] {
    if (dlopen(LIBRARY, RTLD_LAZY | RTLD_GLOBAL) != nullptr) return true;
    std::fprintf(stderr, "%s\n", dlerror());
    return false;
  }();
  return IS_OPEN;
}

// The library's call of that name, or that of a library which was preloaded in its place. Without either the
// call fails as the library's own do.
template <auto Call, class... Arguments>
auto Pass(const char* name, Arguments... arguments) {
  using Result = std::invoke_result_t<decltype(Call), Arguments...>;
  static const auto FOUND =
      IsLibraryOpen() ? reinterpret_cast<decltype(Call)>(dlsym(RTLD_DEFAULT, name)) : nullptr;
  return FOUND != nullptr ? FOUND(arguments...) : Result{-1};
}

}  // namespace
}  // namespace ozmo

using ozmo::Pass;

// Hidden, so that a look-up by name never comes back to them.
#pragma GCC visibility push(hidden)

int pl_parampl(const char* parameter, void* value) {
  return Pass<pl_parampl>("pl_parampl", parameter, value);
}
int pl_newpl(const char* type, FILE* input, FILE* output, FILE* errors) {
  return Pass<pl_newpl>("pl_newpl", type, input, output, errors);
}
int pl_selectpl(int handle) { return Pass<pl_selectpl>("pl_selectpl", handle); }
int pl_deletepl(int handle) { return Pass<pl_deletepl>("pl_deletepl", handle); }
int pl_openpl() { return Pass<pl_openpl>("pl_openpl"); }
int pl_closepl() { return Pass<pl_closepl>("pl_closepl"); }
int pl_erase() { return Pass<pl_erase>("pl_erase"); }
int pl_flushpl() { return Pass<pl_flushpl>("pl_flushpl"); }
int pl_savestate() { return Pass<pl_savestate>("pl_savestate"); }
int pl_restorestate() { return Pass<pl_restorestate>("pl_restorestate"); }
int pl_havecap(const char* name) { return Pass<pl_havecap>("pl_havecap", name); }
int pl_fspace(double x0, double y0, double x1, double y1) {
  return Pass<pl_fspace>("pl_fspace", x0, y0, x1, y1);
}
int pl_fconcat(double m0, double m1, double m2, double m3, double m4, double m5) {
  return Pass<pl_fconcat>("pl_fconcat", m0, m1, m2, m3, m4, m5);
}
int pl_fmove(double x, double y) { return Pass<pl_fmove>("pl_fmove", x, y); }
int pl_fcont(double x, double y) { return Pass<pl_fcont>("pl_fcont", x, y); }
int pl_fline(double x0, double y0, double x1, double y1) {
  return Pass<pl_fline>("pl_fline", x0, y0, x1, y1);
}
int pl_fbox(double x0, double y0, double x1, double y1) { return Pass<pl_fbox>("pl_fbox", x0, y0, x1, y1); }
int pl_flinewidth(double size) { return Pass<pl_flinewidth>("pl_flinewidth", size); }
int pl_linemod(const char* name) { return Pass<pl_linemod>("pl_linemod", name); }
int pl_filltype(int level) { return Pass<pl_filltype>("pl_filltype", level); }
int pl_colorname(const char* name) { return Pass<pl_colorname>("pl_colorname", name); }
int pl_pencolorname(const char* name) { return Pass<pl_pencolorname>("pl_pencolorname", name); }
int pl_fillcolorname(const char* name) { return Pass<pl_fillcolorname>("pl_fillcolorname", name); }
int pl_fontname(const char* name) { return Pass<pl_fontname>("pl_fontname", name); }
double pl_ffontsize(double size) { return Pass<pl_ffontsize>("pl_ffontsize", size); }
double pl_ftextangle(double angle) { return Pass<pl_ftextangle>("pl_ftextangle", angle); }
double pl_flabelwidth(const char* text) { return Pass<pl_flabelwidth>("pl_flabelwidth", text); }
int pl_alabel(int horizontal, int vertical, const char* text) {
  return Pass<pl_alabel>("pl_alabel", horizontal, vertical, text);
}

#pragma GCC visibility pop
