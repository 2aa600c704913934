#include "search/HitList.h"

#include <algorithm>
#include <exception>

#include "base/Text.h"

namespace quorvin {

void HitList::start(HitListKind kind, std::size_t valueWidth)
{
    clear();
    kind_ = kind;
    valueWidth_ = valueWidth;
}

void HitList::clear()
{
    lines_ = {};
    store_.clear();
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
    const std::size_t sortLength = scratch_.size();
    if (kind_ == HitListKind::List2) {
        scratch_ += " [";
        scratch_ += lTrim(str(n));
        scratch_ += ']';
    }
    lines_.push_back(store_.add(scratch_, sortLength));
    longest_ = std::max(longest_, scratch_.size());
}

bool HitList::sort(std::size_t steps)
{
    if (kind_ != HitListKind::List2 || sorted_) return true;
    try {
        if (!order_) order_.emplace(lines_);
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
    return (order_ ? order_->at(row) : lines_[row]).text();
}

double recordNumberOf(HitListKind kind, std::string_view line)
{
    if (kind == HitListKind::List1) return val(line.substr(0, line.find('.')));
    const std::size_t bracket = line.find('[');
    return bracket == std::string_view::npos ? 0 : val(line.substr(bracket + 1));
}

}  // namespace quorvin
