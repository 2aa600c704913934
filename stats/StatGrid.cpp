#include "stats/StatGrid.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "stats/StatTable.h"

namespace quorvin {

namespace {

/// Both sort behind every ordinary value.
constexpr char kTotals[] = "ZX TOT.";
constexpr char kCaptionPrefix[] = "ZZ";

/// Stands for the search text when the field was searched for nothing.
constexpr char kAll[] = " TUTTI ";

std::string countText(RecordNumber count)
{
    return count == 0 ? std::string() : std::to_string(count);
}

}  // namespace

StatGrid::StatGrid(const StatTable& table, const StatOptions& options, const StatCaptions& captions) :
    captions_(captions),
    rows_(table.nuovoY() + 2),
    columns_(table.nuovoX() + (table.hasBlanks() ? 2 : 1)),
    cells_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_))
{
    fillCaptions(table, options.mode);
    fillCounts(table);
    if (!options.SommaCampNum) return;
    if (options.mode == StatMode::freq) {
        sumRows(table);
    } else {
        sumColumns(table);
    }
}

std::size_t StatGrid::indexOf(int row, int column) const
{
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
}

const StatCell& StatGrid::at(int row, int column) const
{
    if (row < 0 || row >= rows_ || column < 0 || column >= columns_)
        throw RuntimeError(ErrorNumber::subscript);
    return cells_[indexOf(row, column)];
}

void StatGrid::fillCaptions(const StatTable& table, StatMode mode)
{
    cell(0, 0).text = captions_.lastName + '/' + captions_.penultimateName;
    for (int i = 1; i < table.nuovoY(); ++i)
        cell(i, 0).text = table.valoriY(i);
    if (mode == StatMode::tabella) {
        for (int j = 1; j < table.nuovoX(); ++j)
            cell(0, j).text = table.valoriX(j);
    }
    cell(totalsRow(), 0).text = kTotals;
    const std::string searched = captions_.fieldPattern.empty() ? kAll : ' ' + captions_.fieldPattern;
    cell(totalsRow() + 1, 0).text = kCaptionPrefix + captions_.lastName + searched;
}

void StatGrid::fillCounts(const StatTable& table)
{
    for (int j = 1; j < totalsColumn(); ++j) {
        for (int i = 1; i < totalsRow(); ++i)
            cell(i, j).text = countText(table.conteggi(i, j));
        cell(totalsRow(), j).text = countText(table.totaliColonna(j));
    }
    for (int i = 1; i < totalsRow(); ++i)
        cell(i, totalsColumn()).text = countText(table.totaliRiga(i));
    cell(totalsRow(), totalsColumn()).text = countText(table.total());
}

void StatGrid::sumRows(const StatTable& table)
{
    double sum = 0;
    for (int i = 1; i < table.nuovoY(); ++i)
        sum += val(table.valoriY(i)) * static_cast<double>(table.totaliRiga(i));
    showSum(sum);
}

void StatGrid::sumColumns(const StatTable& table)
{
    double sum = 0;
    for (int j = 1; j < table.nuovoX(); ++j) {
        const double value = val(table.valoriX(j));
        if (value == 0) continue;
        const double product = value * static_cast<double>(table.totaliColonna(j));
        cell(totalsRow() + 1, j) = {bareStr(product), CellBackground::yellow};
        sum += product;
    }
    showSum(sum);
}

void StatGrid::showSum(double sum)
{
    if (sum > 0) cell(totalsRow() + 1, totalsColumn()) = {bareStr(sum), CellBackground::green};
}

}  // namespace quorvin
