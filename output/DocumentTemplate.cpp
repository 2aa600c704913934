#include "output/DocumentTemplate.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <vector>

#include "base/Ansi.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "output/RtfReader.h"
#include "output/RtfWriter.h"
#include "rec/FieldTable.h"

namespace quorvin {

namespace {

constexpr std::u32string_view kBegin = U"*(";
constexpr std::u32string_view kEnd = U")*";

constexpr std::size_t kNone = std::u32string_view::npos;

/// Finds one marker after the other.
class MarkerFinder {
public:
    explicit MarkerFinder(std::u32string_view text) :
        text_(text),
        begin_(text.find(kBegin)),
        end_(text.find(kEnd))
    {
    }

    /// Whether there is a further marker at or behind `from`; raises 5 for one that is not whole.
    bool find(std::size_t from)
    {
        begin_ = again(kBegin, begin_, from);
        end_ = again(kEnd, end_, from);
        if (begin_ == kNone && end_ == kNone) return false;
        if (begin_ == kNone || end_ == kNone || end_ < begin_) throw RuntimeError(ErrorNumber::invalidCall);
        return true;
    }

    std::size_t position() const { return begin_; }

    /// The number within the marker; raises 9 when it can be no field's.
    int field() const
    {
        const std::size_t first = begin_ + kBegin.size();
        // No number goes on beyond an asterisk, however far away the marker's end is.
        const std::size_t last = std::min(end_, text_.find(U'*', first));
        std::string characters;
        for (const char32_t c : text_.substr(first, last - first))
            characters.push_back(fromUnicode(c));
        const double number = val(characters);
        if (number != std::floor(number) || number < 0 || number > kMaxFields)
            throw RuntimeError(ErrorNumber::subscript);
        return static_cast<int>(number);
    }

private:
    /// The first `mark` at or behind `from`; `known`: the first one at or behind an earlier place.
    std::size_t again(std::u32string_view mark, std::size_t known, std::size_t from) const
    {
        return known == kNone || known >= from ? known : text_.find(mark, from);
    }

    std::u32string_view text_;
    std::size_t begin_;
    std::size_t end_;
};

/// What comes in place of the markers, up to the first one that cannot be filled; `failure` is its error.
std::vector<RichText::Replacement>
fillings(std::u32string_view text, const DocumentTemplate::FieldText& fieldText, std::exception_ptr& failure)
{
    std::vector<RichText::Replacement> result;
    MarkerFinder marker(text);
    try {
        std::size_t from = 0;
        while (marker.find(from)) {
            const int n = marker.field();
            // Box 0 exists and is empty.
            const std::u32string v = toUnicode(trim(n == 0 ? std::string() : fieldText(n)));
            const int L = static_cast<int>(v.size());
            const int length = 4 + (n < L ? L - n : n);
            result.push_back({marker.position(), static_cast<std::size_t>(length), v});
            from = marker.position() + static_cast<std::size_t>(length);
        }
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    return result;
}

}  // namespace

DocumentTemplate::DocumentTemplate(std::string_view stored) :
    Textserb(isRtf(stored) ? readRtf(stored) : RichText::plain(stored))
{
}

void DocumentTemplate::elabcom(const FieldText& fieldText, RichText& Textcomunic) const
{
    std::exception_ptr failure;
    Textcomunic = Textserb.replaced(fillings(Textserb.text(), fieldText, failure));
    if (failure) std::rethrow_exception(failure);
}

std::string DocumentTemplate::marker(int field)
{
    return "*(" + std::to_string(field) + ")*          ";
}

std::string DocumentTemplate::toStored() const
{
    return Textserb.empty() ? std::string() : writeRtf(Textserb);
}

}  // namespace quorvin
