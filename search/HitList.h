/// The lines of the hit list; there is no other store of a search's results.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "rec/RecFormat.h"
#include "search/LineStore.h"
#include "search/TextOrder.h"

namespace quorvin {

enum class HitListKind {
    List1,  ///< number first, in the order of the records
    List2,  ///< value first, in alphabetical order, number in brackets at the end
};

/// Keeps lines compactly: at most some 50 bytes a line over its text. Rows are counted from 0.
class HitList {
public:
    /// Characters of the value in a line of List2: usually, and while the lists are wide.
    static constexpr std::size_t kValueWidth = 19;
    static constexpr std::size_t kWideValueWidth = 38;

    HitList() = default;
    HitList(const HitList&) = delete;
    HitList& operator=(const HitList&) = delete;

    /// Empties the list and sets what its next lines will be. `valueWidth` is List2's.
    void start(HitListKind kind, std::size_t valueWidth);
    /// Takes the lines away.
    void clear();

    /// Adds the line of a record. `startValue`, `extra`: stored values, blanks kept.
    void add(RecordNumber n, std::string_view startValue, std::string_view extra);

    /// Puts the lines of List2 in order: by the text before the number, in capitals of the code page,
    /// compared by code, and equal texts by record number. Goes on for about `steps` lines; true when they
    /// are. Raises what lack of memory raises; the lines then stay in the order of the records.
    bool sort(std::size_t steps);
    /// Leaves lines that are not yet in order in the order of the records.
    void giveUpSorting();

    HitListKind kind() const { return kind_; }
    /// Lines that are in their place: all of them, but none of List2 before they are sorted.
    std::size_t rowCount() const;
    /// Line of a row, a view that lasts until the list is emptied.
    std::string_view line(std::size_t row) const;
    /// Characters of the longest line.
    std::size_t longestLine() const { return longest_; }

private:
    HitListKind kind_ = HitListKind::List1;
    std::size_t valueWidth_ = kValueWidth;
    LineStore store_;
    std::deque<LineStore::Line> lines_;  ///< in the order of the records
    std::size_t longest_ = 0;
    std::string scratch_;
    std::optional<TextOrder> order_;  ///< of List2's lines, once it is asked for
    bool sorted_ = false;
};

/// The record number that a line tells, 0 when it tells none: before the first "." of a line of List1, behind
/// the first "[" of a line of List2, also when that belongs to the value.
double recordNumberOf(HitListKind kind, std::string_view line);

}  // namespace quorvin
