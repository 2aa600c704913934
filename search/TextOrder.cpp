#include "search/TextOrder.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "base/Ansi.h"

namespace quorvin {

namespace {

constexpr std::size_t kCharacters = sizeof(std::uint64_t);

/// Texts whose keys are taken in one step.
constexpr std::size_t kStep = 1024;

/// Texts that are compared whole: to remember so short runs for later would take more memory than the texts.
constexpr std::size_t kFew = 256;

/// The end of a text comes before every character; no capital has the highest code, so that there is room.
constexpr std::uint64_t kTextEnd = 0;

/// By code.
const std::array<unsigned char, 256> kRanks = [] {
    std::array<unsigned char, 256> ranks{};
    for (std::size_t code = 0; code < ranks.size(); ++code)
        ranks[code] =
            static_cast<unsigned char>(static_cast<unsigned char>(toUpper(static_cast<char>(code))) + 1);
    return ranks;
}();

std::uint64_t rankOf(char c)
{
    return kRanks[static_cast<unsigned char>(c)];
}

/// Ranks of the eight characters from `depth` on.
std::uint64_t keyOf(std::string_view text, std::size_t depth)
{
    std::uint64_t key = 0;
    if (depth + kCharacters <= text.size()) {
        for (std::size_t i = 0; i < kCharacters; ++i)
            key = (key << 8) | rankOf(text[depth + i]);
        return key;
    }
    for (std::size_t i = depth; i < depth + kCharacters; ++i)
        key = (key << 8) | (i < text.size() ? rankOf(text[i]) : kTextEnd);
    return key;
}

bool endsWithin(std::uint64_t key)
{
    return (key & 0xFF) == kTextEnd;
}

}  // namespace

TextOrder::TextOrder(const std::deque<LineStore::Line>& lines) : lines_(lines)
{
    items_.reserve(lines.size());
    if (lines.size() > 1) unordered_.push_back({0, lines.size(), 0});
}

bool TextOrder::run(std::size_t steps)
{
    for (std::size_t done = 0; done < steps; done += kStep) {
        if (items_.size() < lines_.size()) {
            takeSome();
        } else if (sort_) {
            if (sort_->run(kStep)) sort_.reset();
        } else if (current_.from + loaded_ < current_.to) {
            loadSome();
        } else if (current_.from + split_ < current_.to) {
            splitSome();
        } else if (unordered_.empty()) {
            buffer_ = {};
            return true;
        } else {
            current_ = unordered_.back();
            unordered_.pop_back();
            loaded_ = 0;
            split_ = 0;
            ascending_ = true;
        }
    }
    return false;
}

void TextOrder::takeSome()
{
    const std::size_t to = std::min(items_.size() + kStep, lines_.size());
    while (items_.size() < to)
        items_.push_back({0, lines_[items_.size()]});
}

void TextOrder::loadSome()
{
    const std::size_t from = current_.from + loaded_;
    const std::size_t to = std::min(from + kStep, current_.to);
    for (std::size_t i = from; i < to; ++i) {
        items_[i].key = keyOf(items_[i].line.sortText(), current_.depth);
        ascending_ = ascending_ && (i == current_.from || !(items_[i] < items_[i - 1]));
    }
    loaded_ += to - from;
    if (to < current_.to || ascending_) return;
    sort_.emplace(std::span(items_).subspan(current_.from, current_.to - current_.from), buffer_);
}

/// Orders what is still alike: few texts at once, many of them later, by their next characters.
void TextOrder::splitSome()
{
    const std::size_t most = split_ + kStep;
    while (split_ < most && current_.from + split_ < current_.to) {
        const std::size_t from = current_.from + split_;
        std::size_t to = from + 1;
        while (to < current_.to && items_[to].key == items_[from].key)
            ++to;
        split_ = to - current_.from;
        if (to - from == 1 || endsWithin(items_[from].key)) continue;
        const Run alike{from, to, current_.depth + kCharacters};
        if (to - from <= kFew) {
            sortWhole(alike);
        } else {
            unordered_.push_back(alike);
        }
    }
}

void TextOrder::sortWhole(const Run& run)
{
    const auto items = std::span(items_).subspan(run.from, run.to - run.from);
    std::stable_sort(items.begin(), items.end(), [&run](const Item& a, const Item& b) {
        const std::string_view left = a.line.sortText().substr(run.depth);
        const std::string_view right = b.line.sortText().substr(run.depth);
        return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                            [](char x, char y) { return rankOf(x) < rankOf(y); });
    });
}

}  // namespace quorvin
