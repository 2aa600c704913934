/// The eight search modes; the user picks one for the whole search.
#pragma once

namespace quorvin {

/// Numbers are those of the menu items `ric(1)` to `ric(8)`.
enum class SearchMode {
    equals = 1,
    begins = 2,
    ends = 3,
    contains = 4,
    differs = 5,
    allWords = 6,
    anyWord = 7,
    interval = 8,
};

inline constexpr int kSearchModes = 8;
inline constexpr SearchMode kUsualMode = SearchMode::contains;

/// The modes that test a field as soon as its value is known. The others look at all fields of a record
/// together; they need the punctuation and blanks that separate words, numbers and dates, so that only these
/// modes work with the removal of punctuation.
constexpr bool testsFieldByField(SearchMode mode)
{
    return mode <= SearchMode::differs;
}

/// Fields that are searched as one cannot hold one number or date.
constexpr bool worksWithJoinedFields(SearchMode mode)
{
    return mode != SearchMode::interval;
}

}  // namespace quorvin
