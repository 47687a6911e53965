// A library to preload: passes the calls to libplot on, and writes them as C statements to the file that
// PLOT_CALLS names. bench/compare makes a program of them, the least that draws the same picture.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::FILE* Statements() {
  static std::FILE* const file = [] {
    const char* name = std::getenv("PLOT_CALLS");
    return name == nullptr ? nullptr : std::fopen(name, "w");
  }();
  return file;
}

// The tool doesn't link it.
void* Library() {
  static void* const library = dlopen("libplot.so.2", RTLD_LAZY);
  return library;
}

// The library comes back to some of its own calls; only those from outside count.
int depth = 0;

std::string Text(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%a", value);
  return text;
}
std::string Text(int value) { return std::to_string(value); }
std::string Text(const char* value) {
  if (value == nullptr) return "0";
  std::string text = "\"";
  for (; *value != '\0'; ++value) {
    char code[8];
    std::snprintf(code, sizeof code, "\\%03o", static_cast<unsigned>(static_cast<unsigned char>(*value)));
    text += code;
  }
  return text + '"';
}

template <class... Arguments>
void Write(const char* name, Arguments... arguments) {
  if (depth > 0 || Statements() == nullptr) return;
  std::string list;
  ((list += (list.empty() ? "" : ", ") + Text(arguments)), ...);
  std::fprintf(Statements(), "%s(%s);\n", name, list.c_str());
  std::fflush(Statements());
}

// Writes the call and makes it.
template <class Result, class... Arguments>
Result Pass(const char* name, Arguments... arguments) {
  Write(name, arguments...);
  ++depth;
  const Result result = reinterpret_cast<Result (*)(Arguments...)>(dlsym(Library(), name))(arguments...);
  --depth;
  return result;
}

}  // namespace

extern "C" {

int pl_newpl(const char* type, std::FILE* input, std::FILE* output, std::FILE* errors) {
  if (Statements() != nullptr) std::fprintf(Statements(), "pl_newpl(\"%s\", 0, output, stderr);\n", type);
  using Function = int (*)(const char*, std::FILE*, std::FILE*, std::FILE*);
  return reinterpret_cast<Function>(dlsym(Library(), "pl_newpl"))(type, input, output, errors);
}
int pl_parampl(const char* parameter, void* value) {
  if (Statements() != nullptr)
    std::fprintf(Statements(), "pl_parampl(%s, (void*)%s);\n", Text(parameter).c_str(),
                 Text(static_cast<const char*>(value)).c_str());
  using Function = int (*)(const char*, void*);
  return reinterpret_cast<Function>(dlsym(Library(), "pl_parampl"))(parameter, value);
}

int pl_selectpl(int a) { return Pass<int>("pl_selectpl", a); }
int pl_deletepl(int a) { return Pass<int>("pl_deletepl", a); }
int pl_openpl() { return Pass<int>("pl_openpl"); }
int pl_closepl() { return Pass<int>("pl_closepl"); }
int pl_erase() { return Pass<int>("pl_erase"); }
int pl_flushpl() { return Pass<int>("pl_flushpl"); }
int pl_savestate() { return Pass<int>("pl_savestate"); }
int pl_restorestate() { return Pass<int>("pl_restorestate"); }
int pl_havecap(const char* a) { return Pass<int>("pl_havecap", a); }
int pl_fspace(double a, double b, double c, double d) { return Pass<int>("pl_fspace", a, b, c, d); }
int pl_fconcat(double a, double b, double c, double d, double e, double f) {
  return Pass<int>("pl_fconcat", a, b, c, d, e, f);
}
int pl_fmove(double a, double b) { return Pass<int>("pl_fmove", a, b); }
int pl_fcont(double a, double b) { return Pass<int>("pl_fcont", a, b); }
int pl_fline(double a, double b, double c, double d) { return Pass<int>("pl_fline", a, b, c, d); }
int pl_fbox(double a, double b, double c, double d) { return Pass<int>("pl_fbox", a, b, c, d); }
int pl_flinewidth(double a) { return Pass<int>("pl_flinewidth", a); }
int pl_linemod(const char* a) { return Pass<int>("pl_linemod", a); }
int pl_filltype(int a) { return Pass<int>("pl_filltype", a); }
int pl_colorname(const char* a) { return Pass<int>("pl_colorname", a); }
int pl_pencolorname(const char* a) { return Pass<int>("pl_pencolorname", a); }
int pl_fillcolorname(const char* a) { return Pass<int>("pl_fillcolorname", a); }
int pl_fontname(const char* a) { return Pass<int>("pl_fontname", a); }
double pl_ffontsize(double a) { return Pass<double>("pl_ffontsize", a); }
double pl_ftextangle(double a) { return Pass<double>("pl_ftextangle", a); }
double pl_flabelwidth(const char* a) { return Pass<double>("pl_flabelwidth", a); }
int pl_alabel(int a, int b, const char* c) { return Pass<int>("pl_alabel", a, b, c); }

}  // extern "C"
