// The colours of traces as the plots show them.
#pragma once

#include <string>
#include <string_view>

namespace ozmo::report {

// "#32cd32" of a colour name of the catalog. Some names mean another colour in a page than they do to
// libplot, so none goes there as a name.
std::string ColourOf(std::string_view name);

// The colour of a trace that has none of its own: a plot leaves the one before it in force, which a page
// can't distinguish, so the palette goes round.
std::string ColourOfSet(int set);

}  // namespace ozmo::report
