#include "rec/LineReader.h"

#include <algorithm>
#include <string_view>

#include "base/RuntimeError.h"
#include "rec/RecFormat.h"

namespace quorvin {

namespace {

constexpr std::size_t kBlockSize = std::size_t{16} * 1024;

}  // namespace

void LineReader::seek(std::int64_t position)
{
    if (position < 1) throw RuntimeError(ErrorNumber::invalidCall);
    blockStart_ = position;
    next_ = 0;
    block_.clear();
    lineEndBytes_ = 0;
}

bool LineReader::fill()
{
    blockStart_ = position();
    next_ = 0;
    block_.resize(kBlockSize);
    block_.resize(file_.readAt(blockStart_ - 1, block_));
    return !block_.empty();
}

bool LineReader::atEnd()
{
    return next_ >= block_.size() && !fill();
}

std::string LineReader::readLine()
{
    std::string line;
    lineEndBytes_ = 0;
    bool anything = false;
    for (;;) {
        if (atEnd()) break;
        const std::string_view rest(block_.data() + next_, block_.size() - next_);
        const std::size_t length = std::min(rest.find('\n'), rest.find(kEndOfText));
        line.append(rest.substr(0, length));
        if (static_cast<std::int64_t>(line.size()) > kMaxLineLength)
            throw RuntimeError(ErrorNumber::outOfMemory);
        anything = anything || !line.empty();
        if (length == std::string_view::npos) {
            next_ = block_.size();
            continue;
        }
        next_ += length;
        if (rest[length] == kEndOfText) break;
        ++next_;
        lineEndBytes_ = 1;
        anything = true;
        break;
    }
    if (!anything) throw RuntimeError(ErrorNumber::inputPastEnd);
    if (lineEndBytes_ == 1 && line.ends_with('\r')) {
        line.pop_back();
        lineEndBytes_ = 2;
    }
    return line;
}

}  // namespace quorvin
