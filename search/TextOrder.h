/// Puts many texts into alphabetical order, a little at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "search/StepwiseSort.h"

namespace quorvin {

/// Orders texts by the capitals of the code page, compared by code; equal texts stay in the order of their
/// numbers. Eight characters at a time: all texts by their first eight, then those that are alike so far by
/// the next eight, so that a text is looked at as seldom as can be. Takes 32 bytes a text, half of it until
/// done.
class TextOrder {
public:
    /// `text` gives the text of each number from 0 to `count` - 1; it is asked again and again until all are
    /// in order.
    TextOrder(std::size_t count, std::function<std::string_view(std::size_t)> text);

    /// Goes on for about `steps` texts; true when all are in order.
    bool run(std::size_t steps);

    /// Number of the text that stands at `place`, from 0; all must be in order.
    std::size_t at(std::size_t place) const { return items_[place].number; }

private:
    struct Item {
        std::uint64_t key;  ///< eight characters of the text, the first one highest
        std::size_t number;

        bool operator<(const Item& other) const { return key < other.key; }
    };
    /// Texts that are alike up to `depth`.
    struct Run {
        std::size_t from;
        std::size_t to;
        std::size_t depth;  ///< characters
    };

    void loadSome();
    void splitSome();
    void sortWhole(const Run& run);
    std::uint64_t keyOf(std::size_t number, std::size_t depth) const;

    std::function<std::string_view(std::size_t)> text_;
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
