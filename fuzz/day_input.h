// The input of a data file's target: what is asked of the file, in three lines of text, and the file.
//
//   Top 10 Images by CPU Utilization         -item
//   Process Count@Processes                  -overlay; empty: none
//   480 540 0 81920                          begin and end, minutes of the day; 1: second form of its name;
//                                            size of the day's first file
//   (bytes)                                  of the file; what lies beyond its size is the day's second file
#pragma once

#include <string>
#include <string_view>

namespace ozmo::fuzz {

struct DayInput {
  std::string item;
  std::string overlay;
  int beginMinute = 0;
  int endMinute = 0;
  bool secondForm = false;
  std::string files[2];
};

// Takes any bytes.
DayInput ReadDayInput(std::string_view bytes);
std::string WriteDayInput(const DayInput& input);

}  // namespace ozmo::fuzz
