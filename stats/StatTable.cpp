#include "stats/StatTable.h"

#include <numeric>

#include "base/RuntimeError.h"

namespace quorvin {

void StatTable::statistica(std::string_view Y, std::string_view X)
{
    if (Y.empty() || isFullY() || isFullX()) return;
    if (accorpa) inizioData = Y.find('/') == std::string_view::npos ? 0 : kDayLength;
    const auto dropped = static_cast<std::size_t>(inizioData);
    if (Y.size() <= dropped) return;
    const auto row = static_cast<std::size_t>(valoriY_.slotOf(Y.substr(dropped)));
    const auto column = X.empty() ? 0 : static_cast<std::size_t>(valoriX_.slotOf(X));
    if (row >= conteggi_.size()) conteggi_.resize(row + 1);
    std::vector<RecordNumber>& counts = conteggi_[row];
    if (column >= counts.size()) counts.resize(column + 1);
    ++counts[column];
    ++total_;
}

RecordNumber StatTable::conteggi(int i, int j) const
{
    if (i < 0 || i > nuovoY() || j < 0 || j > nuovoX()) throw RuntimeError(ErrorNumber::subscript);
    if (j == 0 || i == nuovoY()) return 0;
    const std::vector<RecordNumber>& counts = conteggi_[static_cast<std::size_t>(i)];
    const auto column = j == nuovoX() ? 0 : static_cast<std::size_t>(j);
    return column < counts.size() ? counts[column] : 0;
}

RecordNumber StatTable::totaliRiga(int i) const
{
    if (i < 0 || i > nuovoY()) throw RuntimeError(ErrorNumber::subscript);
    if (i == nuovoY()) return 0;
    const std::vector<RecordNumber>& counts = conteggi_[static_cast<std::size_t>(i)];
    return std::accumulate(counts.begin(), counts.end(), RecordNumber{0});
}

RecordNumber StatTable::totaliColonna(int j) const
{
    RecordNumber sum = 0;
    for (int i = 1; i <= nuovoY(); ++i)
        sum += conteggi(i, j);
    return sum;
}

void StatTable::clear()
{
    valoriY_.clear();
    valoriX_.clear();
    conteggi_.resize(1);
    total_ = 0;
}

}  // namespace quorvin
