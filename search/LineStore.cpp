#include "search/LineStore.h"

#include <array>

namespace quorvin {

namespace {

/// Holds many lines; none is longer than two fields and their number.
constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

}  // namespace

LineStore::Line LineStore::add(std::string_view text, std::size_t sortLength)
{
    const std::size_t bytes = Line::kLengths + text.size();
    if (left_ < bytes) {
        // Without memory for it there is no more room than before.
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlockBytes));
        next_ = blocks_.back().get();
        left_ = kBlockBytes;
    }
    char* begin = next_;
    const std::array<Line::Length, 2> lengths{static_cast<Line::Length>(text.size()),
                                              static_cast<Line::Length>(sortLength)};
    std::memcpy(begin, lengths.data(), Line::kLengths);
    std::memcpy(begin + Line::kLengths, text.data(), text.size());
    next_ += bytes;
    left_ -= bytes;
    return Line(begin);
}

void LineStore::clear()
{
    blocks_.clear();
    left_ = 0;
}

}  // namespace quorvin
