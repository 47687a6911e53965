// atop's recordings, by the text that `atop -P` prints of them: see atop(1), PARSEABLE OUTPUT.
//
// The recording itself is the writer's C structures and changes with every release, so the host's own atop
// reads it. The text's fields have only ever grown at their ends, from 2.3 to 2.13, so they are taken by
// their places.
#pragma once

#include "programs/import/source.h"

namespace ozmo::import {

extern const Source ATOP;

}  // namespace ozmo::import
