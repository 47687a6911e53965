// Comma lists of text patterns, as a class file gives them: "root,oper*,*adm*".
//
//   *abc*  contains: the text, without its leading blanks, holds "abc" somewhere
//   abc*   the text starts with "abc"
//   *abc   the text ends in "abc" and is longer than it
//   abc    the text is "abc"
//
// A star anywhere else is an ordinary character. Nothing is trimmed: an item with a leading blank or tab
// matches only a text that really starts so.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ozmo {

enum class PatternForm { CONTAINS, STARTS, ENDS, EQUALS };

struct Pattern {
  PatternForm form;
  std::string text;  // without its stars
};

// A list is split when it is read, not when it is matched: it is matched against every process of every
// interval.
struct PatternList {
  std::vector<Pattern> items;

  // Adds the items of a comma list after those that are there. An empty list adds an empty item to a list
  // that has some, just as joining the texts by a comma would.
  void Append(std::string_view list);
};

enum class MatchMode {
  WHOLE = 0,
  DROP_EXTENSION = 1  // an item without stars such as "abc.exe" loses its ending of three letters
};

// 1 if an item matches `text` or the list is empty, else 0. This is one list at a time; an index of the lists
// of all classes (pattern_index.h) says the same of whole texts in their own case, and is what a run asks. No
// option reaches this function, nor its mode and case.
//
// The items are tried in order. A "*abc" item that meets a text no longer than "abc" gives 0 for the
// whole list, and the items after it are not tried: short names fall through to a later class, and class
// files put such items last where they don't want that.
int WorkloadMatchList(std::string_view text, const PatternList& patterns, MatchMode mode = MatchMode::WHOLE,
                      bool ignoreCase = false);

}  // namespace ozmo
