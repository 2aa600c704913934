/// The numbers of the EpiData data file (REC file), for everything that reads or writes one. See
/// doc/rec-format.md.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvin {

/// Number of a record in its file, from 1.
using RecordNumber = std::int64_t;

/// Most fields of a record; tables that are indexed by field number have this many slots and the unused slot
/// 0.
inline constexpr int kMaxFields = 200;
inline constexpr std::size_t kFieldSlots = kMaxFields + 1;

/// Characters of a record's text on one line of the file; the mark at the line's end comes behind them.
inline constexpr std::size_t kLineWidth = 78;

/// Longest field that EpiData can open, and longest that is written at all; characters.
inline constexpr int kCompatibleLength = 80;
inline constexpr int kGreatestLength = 250;
constexpr int greatestLength(bool compEpidat)
{
    return compEpidat ? kCompatibleLength : kGreatestLength;
}

/// The mark of the last line of a record that was deleted in EpiData.
inline constexpr char kDeletedMark = '?';

/// Characters of the header, from its first blank on, that hold the screen colour.
inline constexpr std::int64_t kHeaderColourWidth = 10;

/// Ends a text file wherever it stands (Ctrl-Z).
inline constexpr char kEndOfText = '\x1A';

/// Longest line that is read; data that is no REC file may go on for gigabytes without a line end.
inline constexpr std::int64_t kMaxLineLength = std::int64_t{1} << 20;

/// Characters of a definition line that are kept; the question, its last item, is far shorter in any real
/// file.
inline constexpr std::size_t kMaxDefinition = 1024;

/// First column (1-based) and width of an item in a field-definition line.
struct ItemColumns {
    std::int64_t first;
    std::int64_t width;
};

inline constexpr ItemColumns kMarkColumns{1, 1};
inline constexpr ItemColumns kNameColumns{2, 10};
inline constexpr ItemColumns kQuestionXColumns{14, 3};
inline constexpr ItemColumns kQuestionYColumns{18, 3};
inline constexpr ItemColumns kQuestionColourColumns{22, 3};
inline constexpr ItemColumns kFieldXColumns{26, 3};
inline constexpr ItemColumns kFieldYColumns{30, 3};
inline constexpr ItemColumns kFieldTypeColumns{34, 3};
inline constexpr ItemColumns kFieldLengthColumns{38, 3};
inline constexpr ItemColumns kFieldColourColumns{42, 3};
inline constexpr ItemColumns kQuestionTextColumns{46, kMaxDefinition};

}  // namespace quorvin
