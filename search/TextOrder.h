/// Puts many lines into alphabetical order, a little at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "search/LineStore.h"
#include "search/StepwiseSort.h"

namespace quorvin {

/// Orders lines by the capitals of their sort texts in the code page, compared by code; equal ones stay in
/// the order in which they came. Eight characters at a time: all texts by their first eight, then those that
/// are alike so far by the next eight, so that a text is looked at as seldom as can be. Takes 32 bytes a
/// text, half of it until done.
class TextOrder {
public:
    /// Neither `lines` nor their store may change until all are in order.
    explicit TextOrder(const std::deque<LineStore::Line>& lines);

    /// Goes on for about `steps` texts; true when all are in order.
    bool run(std::size_t steps);

    /// The line that stands at `place`, from 0; all must be in order.
    LineStore::Line at(std::size_t place) const { return items_[place].line; }

private:
    struct Item {
        std::uint64_t key;  ///< eight characters of the text, the first one highest
        LineStore::Line line;

        bool operator<(const Item& other) const { return key < other.key; }
    };
    /// Texts that are alike up to `depth`.
    struct Run {
        std::size_t from;
        std::size_t to;
        std::size_t depth;  ///< characters
    };

    void takeSome();
    void loadSome();
    void splitSome();
    void sortWhole(const Run& run);

    const std::deque<LineStore::Line>& lines_;
    std::vector<Item> items_;
    std::vector<Item> buffer_;
    std::vector<Run> unordered_;
    Run current_{};
    std::size_t loaded_ = 0;  ///< items of the current run that have their key
    bool ascending_ = true;   ///< those keys, as they stand
    std::optional<StepwiseSort<Item>> sort_;
    std::size_t split_ = 0;  ///< items of the current run, in order by their key, that were looked at
};

}  // namespace quorvin
