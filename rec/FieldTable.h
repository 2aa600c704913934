/// The field definitions of a REC file and where each field stands in a record.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "rec/RecFormat.h"

namespace quorvin {

/// Parallel arrays indexed by field number, 1..fieldCount; slot 0 stays empty. Items are kept as the text
/// found in the file, blanks included, Windows-1252, and turned into numbers where they are used.
class FieldTable {
public:
    template<class T>
    using Column = std::array<T, kFieldSlots>;

    int fieldCount = 0;
    Column<std::string> fieldMark;
    Column<std::string> fieldName;
    Column<std::string> fieldNameWork;   ///< a copy of the name that may be trimmed or changed
    Column<std::string> questionX;       ///< character columns
    Column<std::string> questionY;       ///< screen lines
    Column<std::string> questionColour;  ///< background in steps of 16, foreground the rest
    Column<std::string> fieldX;          ///< character columns
    Column<std::string> fieldY;          ///< screen lines
    Column<std::string> fieldType;
    Column<std::string> fieldLength;  ///< characters
    Column<std::string> fieldColour;
    Column<std::string> questionText;
    Column<int> fieldOffset{};  ///< characters of the record text before the field

    /// The definitions stand one column to the left, behind the names; see doc/rec-format.md.
    bool oneColumnLeft = false;

    /// Sum of all field lengths.
    int recordLength = 0;

    /// Adds the fields of these definition lines, in order, to an empty table. A fraction of a length is cut
    /// off. Raises RuntimeError 9 behind field 200 and 5 for a negative length; the fields before it are
    /// kept.
    void addFields(const std::vector<std::string>& lines);

    /// The numbers of all fields.
    std::vector<int> allFields() const;

    /// Length of field `n` as a number; 0 for slot 0. Raises RuntimeError 9 outside 0..fieldCount.
    int length(int n) const;

    /// Whether both have the same fields as far as records go; the lengths may be written otherwise.
    bool hasSameLengths(const FieldTable& other) const { return lengths_ == other.lengths_; }

    /// Whether EpiData can open a file with these fields: none is too long for it.
    bool isEpiDataCompatible() const;

    /// Value of field `n` in a record's text, blanks kept; what remains, possibly nothing, where the text is
    /// too short. A view into `recordText`. Slot 0 gives the empty text. Raises RuntimeError 9 outside
    /// 0..fieldCount.
    std::string_view fieldValue(std::string_view recordText, int n) const;

private:
    void addField(std::string_view line, int columnShift);
    void requireField(int n) const;

    Column<int> lengths_{};
};

/// Whether definition lines are read one column to the left; see doc/rec-format.md.
bool standOneColumnLeft(const std::vector<std::string>& lines);

}  // namespace quorvin
