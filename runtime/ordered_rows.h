// Tables whose rows are found by the number of their key.
#pragma once

#include <cstddef>

namespace ozmo {

// Whether each row of a table is at the place that its key has in the enumeration, of `count` keys. For a
// static_assert beside the table: a row that is missing would shift the meaning of all that follow.
template <class Row, size_t Rows, class Key>
constexpr bool RowsAreInOrder(const Row (&rows)[Rows], Key Row::*key, size_t count) {
  for (size_t place = 0; place < Rows; ++place) {
    if (static_cast<size_t>(rows[place].*key) != place) return false;
  }
  return Rows == count;
}

}  // namespace ozmo
