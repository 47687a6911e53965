#include "programs/fleet/entry.h"
#include "runtime/console.h"

int main(int argc, char* argv[]) {
  ozmo::OpenStandardStreams();
  return ozmo::CloseOutput("ozmo_fleet", ozmo::fleet::FleetEntry(argc, argv));
}
