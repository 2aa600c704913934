/// What the grid shows of a statistics table, cell by cell.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "stats/StatOptions.h"

namespace quorvin {

class StatTable;

enum class CellBackground { usual, yellow, green };

struct StatCell {
    std::string text;  ///< Windows-1252
    CellBackground background = CellBackground::usual;
};

/// What stands around the counts, in Windows-1252, and how wide it all is.
struct StatCaptions {
    std::string lastName;         ///< the row field's, as read
    std::string penultimateName;  ///< the column field's, as read
    std::string fieldPattern;     ///< what was searched in the row field
    int lastWidth = 0;            ///< characters that the columns of the grid take: the first one
    int penultimateWidth = 0;     ///< and the others
};

/// Rows and columns count from 0. Row 0 and column 0 hold the captions; behind the values' rows stand those
/// of the totals and of the search's caption, behind the values' columns that of the totals.
class StatGrid {
public:
    StatGrid() = default;
    /// Shows a table in one of the two modes. Column values that are blank have a column of their own behind
    /// all others, if there are any.
    StatGrid(const StatTable& table, const StatOptions& options, const StatCaptions& captions);

    int rows() const { return rows_; }
    int columns() const { return columns_; }
    /// RuntimeError 9 outside the grid.
    const StatCell& at(int row, int column) const;
    /// Row of the totals; the values stand in the rows from 1 to the one before it.
    int totalsRow() const { return rows_ - 2; }
    int totalsColumn() const { return columns_ - 1; }
    /// Width of a column in characters.
    int width(int column) const { return column == 0 ? captions_.lastWidth : captions_.penultimateWidth; }

private:
    std::size_t indexOf(int row, int column) const;
    StatCell& cell(int row, int column) { return cells_[indexOf(row, column)]; }
    void fillCaptions(const StatTable& table, StatMode mode);
    void fillCounts(const StatTable& table);
    void sumRows(const StatTable& table);
    void sumColumns(const StatTable& table);
    void showSum(double sum);

    StatCaptions captions_;
    int rows_ = 0;
    int columns_ = 0;
    std::vector<StatCell> cells_;
};

}  // namespace quorvin
