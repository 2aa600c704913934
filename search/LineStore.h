/// Lines of text behind each other in large blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace quorvin {

/// Millions of lines are put in order by what stands in them: so that a look at one costs a single access to
/// memory, its lengths stand in front of its text, and what leads to it is its address.
class LineStore {
public:
    /// A line that is stored; lasts until the store is emptied.
    class Line {
    public:
        std::string_view text() const { return {begin_ + kLengths, length(0)}; }
        /// The part that the line is put in order by.
        std::string_view sortText() const { return {begin_ + kLengths, length(1)}; }

    private:
        friend class LineStore;
        using Length = std::uint32_t;
        static constexpr std::size_t kLengths = 2 * sizeof(Length);

        explicit Line(const char* begin) : begin_(begin) {}
        Length length(std::size_t i) const
        {
            Length length = 0;
            std::memcpy(&length, begin_ + i * sizeof(Length), sizeof(Length));
            return length;
        }

        const char* begin_;
    };

    /// `sortLength`: characters of the line's beginning that it is put in order by. Takes 8 bytes a line over
    /// its text.
    Line add(std::string_view text, std::size_t sortLength);
    void clear();

private:
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr;  ///< free place in the last block
    std::size_t left_ = 0;  ///< bytes from there on
};

}  // namespace quorvin
