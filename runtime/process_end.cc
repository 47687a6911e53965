#include "runtime/process_end.h"

#include <cstdlib>

namespace ozmo {

void EndProcess(int status) { std::exit(status); }

}  // namespace ozmo
