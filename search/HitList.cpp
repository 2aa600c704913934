#include "search/HitList.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "base/Text.h"

namespace quorvin {

namespace {

/// Holds many lines; none is longer than two fields and their number.
constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

}  // namespace

void HitList::start(HitListKind kind, std::size_t valueWidth)
{
    clear();
    kind_ = kind;
    valueWidth_ = valueWidth;
}

void HitList::clear()
{
    lines_ = {};
    blocks_.clear();
    used_ = 0;
    longest_ = 0;
    order_.reset();
    sorted_ = false;
}

void HitList::add(RecordNumber n, std::string_view startValue, std::string_view extra)
{
    scratch_.clear();
    if (kind_ == HitListKind::List1) {
        scratch_ += str(n);
        scratch_ += ". ";
        scratch_ += rTrim(startValue);
    } else {
        scratch_ += startValue.substr(0, valueWidth_);
    }
    scratch_ += ' ';
    scratch_ += rTrim(extra);
    if (kind_ == HitListKind::List2) {
        scratch_ += " [";
        scratch_ += lTrim(str(n));
        scratch_ += ']';
    }
    store(scratch_);
}

void HitList::store(std::string_view line)
{
    if (blocks_.empty() || kBlockBytes - used_ < line.size()) {
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlockBytes));
        used_ = 0;
    }
    char* place = blocks_.back().get() + used_;
    std::memcpy(place, line.data(), line.size());
    used_ += line.size();
    lines_.emplace_back(place, line.size());
    longest_ = std::max(longest_, line.size());
}

std::string_view HitList::sortText(std::size_t line) const
{
    // The last bracket is the number's, and a blank stands before it.
    return lines_[line].substr(0, lines_[line].rfind('[') - 1);
}

bool HitList::sort(std::size_t steps)
{
    if (kind_ != HitListKind::List2 || sorted_) return true;
    try {
        if (!order_) order_.emplace(lines_.size(), [this](std::size_t line) { return sortText(line); });
        sorted_ = order_->run(steps);
    } catch (const std::exception&) {
        giveUpSorting();
        throw;
    }
    return sorted_;
}

void HitList::giveUpSorting()
{
    if (sorted_) return;
    order_.reset();
    sorted_ = true;
}

std::size_t HitList::rowCount() const
{
    return kind_ == HitListKind::List2 && !sorted_ ? 0 : lines_.size();
}

std::string_view HitList::line(std::size_t row) const
{
    return order_ ? lines_[order_->at(row)] : lines_[row];
}

double recordNumberOf(HitListKind kind, std::string_view line)
{
    if (kind == HitListKind::List1) return val(line.substr(0, line.find('.')));
    const std::size_t bracket = line.find('[');
    return bracket == std::string_view::npos ? 0 : val(line.substr(bracket + 1));
}

}  // namespace quorvin
