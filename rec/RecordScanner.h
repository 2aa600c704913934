/// The sequential pass over the records of a REC file.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "rec/ReadAhead.h"
#include "rec/RecFile.h"

namespace quorvin {

/// Visits records in ascending order, each exactly as seeking and RecFile::caricastring would read it, but in
/// large blocks and without copying: values are views into the block. A record whose lines do not stand where
/// the first record's do is read line by line from its position. The file's own reading position and record
/// are touched only for such a record that is not whole within its block. Views are valid until the pass
/// moves on.
class RecordScanner {
public:
    /// `file` must outlive the scanner and stay open and measured during a pass.
    explicit RecordScanner(RecFile& file) : file_(file) {}

    /// Begins a pass over the records `first` to `last`, both included, from 1.
    void start(RecordNumber first, RecordNumber last);

    /// Forgets what was read beyond the record visited: after a pause the file may hold something newer. The
    /// record itself is gone with it.
    void refresh();

    /// Ends the pass before its end.
    void stop() { reader_.stop(); }

    /// Moves on to the next record; false behind the last. Raises what seeking and reading raise, and 62 when
    /// the file has become too short to hold the record where it is expected.
    bool next()
    {
        if (number_ >= last_) return false;
        ++number_;
        ++index_;
        if (index_ >= checked_) checkSome();
        record_ = block_ + index_ * stride_;
        textReady_ = false;
        if (!regular_) classify();
        return true;
    }

    /// Number of the record visited, from 1.
    RecordNumber number() const { return number_; }

    /// What reading the record took, in usual records: far more than 1 when it does not stand in its place
    /// and goes on for long. Whoever works in slices is to count by it.
    RecordNumber effort() const { return recordRegular_ ? 1 : effort_; }

    /// Value of field `n`, blanks kept; see FieldTable::fieldValue. `n`: 1..fieldCount, or 0 for the empty
    /// text.
    std::string_view fieldValue(int n)
    {
        const Place& place = places_[static_cast<std::size_t>(n)];
        if (recordRegular_ && place.inOneLine && !capitals_) return {record_ + place.offset, place.bytes};
        return file_.fields().fieldValue(text(), n);
    }

    /// Bytes that hold all characters of field `n`, in either case, as cheaply as they can be had: where the
    /// field goes on in another line, with what stands between the lines. `n` as above.
    std::string_view fieldBytes(int n)
    {
        const Place& place = places_[static_cast<std::size_t>(n)];
        if (!recordRegular_ || place.bytes == 0) return fieldValue(n);
        return {record_ + place.offset, place.bytes};
    }
    /// Whether the characters of field `n` stand side by side in `fieldBytes`.
    bool isInOneLine(int n) const { return places_[static_cast<std::size_t>(n)].inOneLine; }

    /// The record's text: its lines, each cut to its first characters, joined; see RecFile::recordText.
    std::string_view text();

    /// Last character of the record's last line; 0 when that line is empty.
    char lastMark() const { return recordRegular_ ? (markPlace_ ? record_[markPlace_ - 1] : '\0') : mark_; }
    /// Whether EpiData deleted the record.
    bool isDeleted() const { return lastMark() == kDeletedMark; }

private:
    /// Where a field stands within a record as it lies in the file, and how many bytes it takes there, with
    /// what stands between the lines if it goes over more than one.
    struct Place {
        std::size_t offset = 0;
        std::size_t bytes = 0;
        bool inOneLine = false;
    };
    /// A line within a record as it lies in the file.
    struct Line {
        std::size_t start;
        std::size_t length;  ///< without its line end
        std::size_t text;    ///< its first characters, those that belong to the record's text
    };

    void placeLines();
    void placeFields();
    std::size_t placeOf(std::size_t character) const;
    void checkSome();
    void loadBlock();
    bool areRegular(std::size_t first, std::size_t count) const;
    bool isRegular(const char* record) const;
    void classify();
    bool readFromBlock();
    void readLineByLine();

    RecFile& file_;
    RecordNumber number_ = 0;
    RecordNumber last_ = 0;
    std::vector<Line> lines_;
    std::array<Place, kFieldSlots> places_;
    std::size_t stride_ = 0;  ///< bytes of a record, or 0 for records too large to be read in blocks
    std::size_t lineEnd_ = 2;
    bool capitals_ = false;      ///< every value is a copy
    std::size_t markPlace_ = 0;  ///< behind the last character of the last line, 0 for an empty line

    ReadAhead reader_;
    const char* block_ = "";
    std::size_t inBlock_ = 0;  ///< whole records in the block
    std::size_t index_ = 0;    ///< of the record visited, in the block
    std::size_t checked_ = 0;  ///< records of the block that were looked at
    bool regular_ = true;      ///< those looked at last all have their lines where they belong
    const char* record_ = nullptr;
    bool recordRegular_ = true;
    RecordNumber effort_ = 1;  ///< for a record that is not regular
    bool textReady_ = false;
    std::string text_;  ///< the record's text, when a view will not do
    char mark_ = 0;     ///< of a record read line by line
};

}  // namespace quorvin
