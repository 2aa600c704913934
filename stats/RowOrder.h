/// The order in which the grid's rows stand after a click on a column's head.
#pragma once

#include <vector>

namespace quorvin {

class StatGrid;

enum class Direction { ascending, descending };

/// The grid's rows 1 to the one before the totals, in the order of a column's cells; rows that are alike keep
/// theirs. Counts go by number. The values of column 0 go by number when all of them are numbers, by date
/// when all are dates (d/m/yyyy, or month and year), else by text. RuntimeError 9 for a column outside the
/// grid.
std::vector<int> rowOrder(const StatGrid& grid, int column, Direction direction);

}  // namespace quorvin
