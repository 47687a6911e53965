#include "programs/report/entry.h"
#include "runtime/console.h"

int main(int argc, char* argv[]) {
  ozmo::OpenStandardStreams();
  return ozmo::CloseOutput("ozmo_report", ozmo::report::ReportEntry(argc, argv));
}
