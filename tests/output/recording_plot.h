// Functions of libplot's names that write the calls down: a test program links them in libplot's place.
//
// A call is one text: the name without "pl_", then the arguments. Numbers have seven significant digits,
// texts are in single quotes, and a null text is the word null.
#pragma once

#include <string>
#include <vector>

namespace ozmo::testing {

struct PlotRecording {
  std::vector<std::string> calls;
  // What the calls that can fail return.
  int newplResult = 1;
  int openplResult = 0;
  int closeplResult = 0;
  double labelWidth = 100.0;
  double fontScale = 1.0;  // ffontsize returns the size asked for times this

  // The calls of this name, in order.
  std::vector<std::string> Named(const std::string& name) const;

  // All calls, a few a line, ";" after each. Of a row of calls of one name the name is given once; of more
  // than six there are the first four, their number and the last.
  std::string Text() const;
};

// The recording that they write to.
PlotRecording& Recording();

// An empty recording at the start of a test.
void RecordingStart();

}  // namespace ozmo::testing
