#include "programs/export/entry.h"
#include "runtime/console.h"

int main(int argc, char* argv[]) {
  ozmo::OpenStandardStreams();
  return ozmo::CloseOutput("ozmo_export", ozmo::exporting::ExportEntry(argc, argv));
}
