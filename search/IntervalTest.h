/// Search texts with ">" or "<": numbers or dates beyond a bound, or between two.
#pragma once

#include <optional>
#include <string_view>

namespace quorvin {

/// One search text, read once for any number of values. Bounds are exclusive.
class IntervalTest {
public:
    /// `pattern`: capitals, trimmed. A bound is the number behind the first ">" (lower) and behind the first
    /// "<" (upper), in either order; a text that begins with no number reads as 0.
    explicit IntervalTest(std::string_view pattern);

    /// Whether the value's number lies within the bounds; never without a bound. Where both the value and the
    /// search text hold a "/", dates on both sides count as day numbers.
    /// `value`: trimmed.
    bool matches(std::string_view value) const;

private:
    struct Bounds {
        std::optional<double> lower;
        std::optional<double> upper;

        bool contain(double number) const;
    };

    static Bounds boundsOf(std::string_view text);
    static Bounds dateBoundsOf(std::string_view text);

    Bounds numbers_;
    Bounds dates_;
    bool slash_;
};

}  // namespace quorvin
