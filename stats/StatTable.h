/// The table of a statistics run: how often each pair of values occurs among the records found.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "rec/RecFormat.h"
#include "stats/ValueSlots.h"

namespace quorvin {

/// Rows (axis Y) are the values of one field, columns (axis X) those of another, both in slots from 1 in
/// order of first appearance. The column slot `nuovoX` holds the records whose column value is blank; it
/// moves on when another value appears. Once an axis is full nothing more is counted at all, so that every
/// number shown belongs to the same records.
class StatTable {
public:
    /// Most distinct values on either axis.
    static constexpr int kMostY = 799;
    static constexpr int kMostX = 199;
    /// Characters of d/m/yyyy before the month, for two-digit days.
    static constexpr int kDayLength = 3;

    /// Row values that are dates are counted by month and year.
    bool accorpa = false;
    /// Characters dropped at the beginning of each row value, 0 or kDayLength. While `accorpa` is set, each
    /// value sets it anew: what the last one left is in force until somebody changes it.
    int inizioData = 0;

    /// Counts one record. `Y`: value of the row field; a record without one is not counted, nor one of whose
    /// value `inizioData` leaves nothing. `X`: value of the column field, may be blank.
    void statistica(std::string_view Y, std::string_view X);

    /// Next free slots; the table holds one value less on each axis.
    int nuovoY() const { return valoriY_.next(); }
    int nuovoX() const { return valoriX_.next(); }
    /// Value of a slot, 0..nuovoY and 0..nuovoX; the first and the last are empty. RuntimeError 9 outside.
    const std::string& valoriY(int i) const { return valoriY_.at(i); }
    const std::string& valoriX(int j) const { return valoriX_.at(j); }

    /// Records with the values of row slot `i`, 0..nuovoY, and column slot `j`, 0..nuovoX; RuntimeError 9
    /// outside.
    RecordNumber conteggi(int i, int j) const;
    /// The sum of a row, of a column, of all.
    RecordNumber totaliRiga(int i) const;
    RecordNumber totaliColonna(int j) const;
    RecordNumber total() const { return total_; }

    /// Whether any record counted has a blank column value.
    bool hasBlanks() const { return totaliColonna(nuovoX()) > 0; }
    bool isFullY() const { return nuovoY() > kMostY; }
    bool isFullX() const { return nuovoX() > kMostX; }

    /// Empties the table; `accorpa` and `inizioData` stay.
    void clear();

private:
    ValueSlots valoriY_;
    ValueSlots valoriX_;
    /// Counts by row slot and column slot, as far as there are any; blank column values are in 0.
    std::vector<std::vector<RecordNumber>> conteggi_ = {{}};
    RecordNumber total_ = 0;
};

}  // namespace quorvin
