#include "rec/FieldTable.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace quorvin {

namespace {

/// The items between name and question text: eight numbers, right-aligned, with a blank column before each.
constexpr std::array kNumberColumns = {
    kQuestionXColumns, kQuestionYColumns, kQuestionColourColumns, kFieldXColumns,
    kFieldYColumns,    kFieldTypeColumns, kFieldLengthColumns,    kFieldColourColumns,
};

std::string cut(std::string_view line, ItemColumns columns, int shift = 0)
{
    return std::string(mid(line, columns.first + shift, columns.width));
}

/// Character at a 1-based column, a blank behind the line's end.
char at(std::string_view line, std::int64_t column)
{
    return column <= static_cast<std::int64_t>(line.size()) ? line[static_cast<std::size_t>(column - 1)]
                                                            : ' ';
}

bool isOfNumber(char c)
{
    return c == ' ' || isDigit(c);
}

enum class Placement { inColumns, oneColumnLeft, undecided };

/// Where a definition line's numbers end: in their columns, or all of them one column before. A line whose
/// columns are blank where they must be in both cases, or which has not all numbers, decides nothing.
Placement placementOf(std::string_view line)
{
    bool separatorUsed = at(line, kQuestionTextColumns.first - 1) != ' ';
    bool allThere = true;
    for (const ItemColumns& item : kNumberColumns) {
        const std::int64_t last = item.first + item.width - 1;
        const char before = at(line, last - 1);
        const char separator = at(line, item.first - 1);
        // One column to the left both would belong to the number.
        if (at(line, last) != ' ' || !isOfNumber(before) || !isOfNumber(separator))
            return Placement::inColumns;
        allThere = allThere && before != ' ';
        separatorUsed = separatorUsed || separator != ' ';
    }
    return allThere && separatorUsed ? Placement::oneColumnLeft : Placement::undecided;
}

}  // namespace

/// Some programs write definitions without the blank behind the name, so that all that follows stands one
/// column to the left. Read by the usual columns such a file would lose the first letter of every question
/// and the first digit of three-digit numbers. It counts as such a file only if no complete line contradicts
/// it.
bool standOneColumnLeft(const std::vector<std::string>& lines)
{
    bool left = false;
    for (const std::string& line : lines) {
        const bool complete = static_cast<std::int64_t>(line.size()) >= kFieldColourColumns.first + 1;
        if (!complete) continue;
        const Placement placement = placementOf(line);
        if (placement == Placement::inColumns) return false;
        left = left || placement == Placement::oneColumnLeft;
    }
    return left;
}

void FieldTable::addFields(const std::vector<std::string>& lines)
{
    oneColumnLeft = standOneColumnLeft(lines);
    for (const std::string& line : lines)
        addField(line, oneColumnLeft ? -1 : 0);
}

void FieldTable::addField(std::string_view line, int columnShift)
{
    if (fieldCount >= kMaxFields) throw RuntimeError(ErrorNumber::subscript);
    const auto i = static_cast<std::size_t>(fieldCount) + 1;
    fieldMark[i] = cut(line, kMarkColumns);
    fieldName[i] = cut(line, kNameColumns);
    fieldNameWork[i] = fieldName[i];
    questionX[i] = cut(line, kQuestionXColumns, columnShift);
    questionY[i] = cut(line, kQuestionYColumns, columnShift);
    questionColour[i] = cut(line, kQuestionColourColumns, columnShift);
    fieldX[i] = cut(line, kFieldXColumns, columnShift);
    fieldY[i] = cut(line, kFieldYColumns, columnShift);
    fieldType[i] = cut(line, kFieldTypeColumns, columnShift);
    fieldLength[i] = cut(line, kFieldLengthColumns, columnShift);
    fieldColour[i] = cut(line, kFieldColourColumns, columnShift);
    questionText[i] = cut(line, kQuestionTextColumns, columnShift);

    const double announced = val(fieldLength[i]);
    if (announced < 0) throw RuntimeError(ErrorNumber::invalidCall);
    lengths_[i] = static_cast<int>(announced);
    fieldOffset[i] = recordLength;
    recordLength += lengths_[i];
    fieldCount = static_cast<int>(i);
}

void FieldTable::requireField(int n) const
{
    if (n < 0 || n > fieldCount) throw RuntimeError(ErrorNumber::subscript);
}

int FieldTable::length(int n) const
{
    requireField(n);
    return lengths_[static_cast<std::size_t>(n)];
}

std::vector<int> FieldTable::allFields() const
{
    std::vector<int> fields(static_cast<std::size_t>(fieldCount));
    std::iota(fields.begin(), fields.end(), 1);
    return fields;
}

bool FieldTable::isEpiDataCompatible() const
{
    return std::all_of(lengths_.begin(), lengths_.end(),
                       [](int length) { return length <= kCompatibleLength; });
}

std::string_view FieldTable::fieldValue(std::string_view recordText, int n) const
{
    requireField(n);
    const auto i = static_cast<std::size_t>(n);
    return mid(recordText, fieldOffset[i] + 1, lengths_[i]);
}

}  // namespace quorvin
