#include "rec/LineReader.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "rec/RecFormat.h"

namespace quorvin {

namespace {

constexpr std::size_t kBlockSize = std::size_t{16} * 1024;
constexpr char kLineEnders[] = {'\n', kEndOfText, '\0'};

}  // namespace

void LineReader::seek(std::int64_t position)
{
    if (position < 1) throw RuntimeError(ErrorNumber::invalidCall);
    blockStart_ = position;
    next_ = 0;
    block_.clear();
    lineEndBytes_ = 0;
}

void LineReader::require(std::int64_t bytes)
{
    const auto wanted = static_cast<std::size_t>(std::min(bytes, kMaxLineLength));
    if (buffered().size() < wanted) fill(wanted);
    if (buffered().size() < wanted) throw RuntimeError(ErrorNumber::inputPastEnd);
}

bool LineReader::fill(std::size_t atLeast)
{
    blockStart_ = position();
    next_ = 0;
    block_.resize(std::max(kBlockSize, atLeast));
    block_.resize(file_.readAt(blockStart_ - 1, block_));
    return !block_.empty();
}

std::string_view LineReader::buffered() const
{
    return std::string_view(block_.data(), block_.size()).substr(next_);
}

bool LineReader::atEnd()
{
    return (buffered().empty() && !fill()) || buffered().front() == kEndOfText;
}

TextLine LineReader::readLine(std::size_t keep)
{
    if (atEnd()) throw RuntimeError(ErrorNumber::inputPastEnd);
    TextLine line;
    char beforeLast = 0;
    lineEndBytes_ = 0;
    while (lineEndBytes_ == 0 && !atEnd()) {
        const std::string_view rest = buffered();
        const std::size_t end = rest.find_first_of(kLineEnders);
        const std::string_view part = rest.substr(0, end);
        if (line.text.size() < keep) line.text.append(part.substr(0, keep - line.text.size()));
        if (!part.empty()) {
            beforeLast = part.size() > 1 ? part[part.size() - 2] : line.last;
            line.last = part.back();
        }
        line.length += static_cast<std::int64_t>(part.size());
        if (line.length > kMaxLineLength) throw RuntimeError(ErrorNumber::outOfMemory);
        next_ += part.size();
        if (end != std::string_view::npos && rest[end] == '\n') {
            ++next_;
            lineEndBytes_ = 1;
        }
    }
    if (lineEndBytes_ == 1 && line.last == '\r') {
        lineEndBytes_ = 2;
        --line.length;
        line.last = beforeLast;
        if (line.text.size() > static_cast<std::size_t>(line.length)) line.text.pop_back();
    }
    return line;
}

}  // namespace quorvin
