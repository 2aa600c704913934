#include "output/PrintFile.h"

#include <cmath>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "output/PrintMatrix.h"
#include "rec/RecordScanner.h"
#include "search/SearchQuery.h"

namespace quorvin {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kFirstLabel = "      da rekord:";
constexpr std::string_view kLastLabel = "  a rekord:";

/// The range of a partial search, for the header line; nothing for the whole file.
std::string rangeOf(const SearchQuery& query, RecordNumber recordCount)
{
    if (!query.range) return {};
    const double last = query.range->to.value_or(static_cast<double>(recordCount));
    return std::string(kFirstLabel) + str(std::trunc(query.range->from)) + std::string(kLastLabel) +
           str(std::trunc(last));
}

}  // namespace

void PrintFile::clear()
{
    text_.clear();
    full_ = false;
    ++edition_;
}

void PrintFile::addLine(std::string_view label, std::string_view value, std::string_view lineEnd)
{
    if (full_) return;
    const auto margin = static_cast<std::size_t>(matrix_.PrintMargin);
    full_ = margin + label.size() + value.size() + lineEnd.size() > kCapacity - text_.size();
    if (full_) return;
    text_.append(margin, ' ').append(label).append(value).append(lineEnd);
}

void PrintFile::add(RecordScanner& record)
{
    if (full_) return;
    for (int j = 1; j <= matrix_.PrintMatrixCount(); ++j) {
        const int field = matrix_.entries.at(j);
        if (field < 1 || field > file_.fieldCount()) throw RuntimeError(ErrorNumber::subscript);
        addLine(file_.fields().questionText[static_cast<std::size_t>(field)], record.fieldValue(field),
                kLineEnd);
    }
    addLine(std::string(kSeparatorWidth, '<'), {}, kLineEnd);
}

void PrintFile::searchAsked(const SearchQuery& query, RecordNumber recordCount)
{
    if (!stamp2) return;
    clear();
    addLine(matrix_.PrintHeader, rangeOf(query, recordCount), kLineEnd);
}

void PrintFile::hit(RecordScanner& record)
{
    if (stamp2) add(record);
}

void PrintFile::searchEnds(SearchEnd, std::string_view criteria, const Matcher&)
{
    if (stamp2) addLine(criteria, {}, {});
}

}  // namespace quorvin
