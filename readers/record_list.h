// A list of interval records, newest first.
//
// Records are reused from interval to interval: in the steady state a walk allocates nothing.
#pragma once

#include <list>

namespace ozmo {

template <class Record>
class RecordList {
 public:
  using iterator = typename std::list<Record>::iterator;
  using const_iterator = typename std::list<Record>::const_iterator;

  // A new head with all members empty.
  Record& Push() {
    Record& head = PushAsLeft();
    head = Record{};  // a moved-from empty text leaves the old text's storage in place
    return head;
  }

  // A new head that keeps what an earlier interval left in it; first recycled, first reused. `pool` is the
  // list whose recycled records serve.
  Record& PushAsLeft(RecordList& pool) {
    if (pool.spare_.empty()) {
      records_.emplace_front();
    } else {
      records_.splice(records_.begin(), pool.spare_, pool.spare_.begin());
    }
    return records_.front();
  }
  Record& PushAsLeft() { return PushAsLeft(*this); }

  void PopHead() {
    if (!records_.empty()) records_.pop_front();
  }

  // Takes the head off and gives it to the reusable records of `pool`.
  void RecycleHead(RecordList& pool) {
    if (!records_.empty()) pool.spare_.splice(pool.spare_.end(), records_, records_.begin());
  }

  // Drops the oldest record.
  void PopLast() {
    if (!records_.empty()) records_.pop_back();
  }

  // Empties the list and keeps its records for reuse, newest first.
  void Recycle() { spare_.splice(spare_.end(), records_); }

  // Empties the list and the store of reusable records.
  void Clear() {
    records_.clear();
    spare_.clear();
  }

  bool empty() const { return records_.empty(); }
  size_t size() const { return records_.size(); }
  Record& head() { return records_.front(); }
  const Record& head() const { return records_.front(); }
  iterator begin() { return records_.begin(); }
  iterator end() { return records_.end(); }
  const_iterator begin() const { return records_.begin(); }
  const_iterator end() const { return records_.end(); }

 private:
  std::list<Record> records_;
  std::list<Record> spare_;
};

}  // namespace ozmo
