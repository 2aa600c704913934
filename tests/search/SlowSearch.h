/// The comparison of a search once more, slow and plain, to hold the search against.
#pragma once

#include <string>
#include <vector>

namespace quorvin::test {

struct SlowSearch {
    int mode = 4;
    bool eliminapuntegg = false;
    std::vector<int> selection;      ///< field numbers, from 1
    std::vector<std::string> texts;  ///< search text of each, as typed
    std::size_t joined = 0;          ///< fields at the selection's end that are searched as one
};

/// A stored value, or a search text, as it is compared.
std::string prepared(const SlowSearch& search, const std::string& text);

/// Whether a record is a hit. `record`: stored value of each field, slot 0 unused.
bool isHit(const SlowSearch& search, const std::vector<std::string>& record);

}  // namespace quorvin::test
