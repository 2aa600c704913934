/// An ordered list of field numbers, as clicks in the field boxes make it.
#pragma once

#include <array>
#include <vector>

#include "rec/RecFormat.h"

namespace quorvin {

/// Entries are numbered from 1; a field may stand in the list more than once. At most kMaxFields entries.
class FieldList {
public:
    int count() const { return count_; }
    bool empty() const { return count_ == 0; }

    /// Appends a field. Raises RuntimeError 9 when the list is full.
    void append(int field);
    void clear() { count_ = 0; }

    /// Field number at `position`. Position 0 holds no field and gives 0. Raises RuntimeError 9 outside
    /// 0..count.
    int at(int position) const;

    /// All field numbers in their order.
    std::vector<int> numbers() const { return {entries_.begin() + 1, entries_.begin() + 1 + count_}; }

private:
    std::array<int, kFieldSlots> entries_{};
    int count_ = 0;
};

}  // namespace quorvin
