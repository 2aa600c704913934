/// The open REC file: its definitions, its measures, and access to its records by number.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/InputFile.h"
#include "rec/FieldTable.h"
#include "rec/LineReader.h"

namespace quorvin {

/// Reads records by position; never holds more of the file than one block and one record. The record size is
/// measured once, on the first record, and holds for all others; a file with uneven records is not detected.
/// Positions are 1-based bytes. Errors are RuntimeErrors; those that only the file system raises are
/// InputFile's.
class RecFile {
public:
    RecFile() = default;
    RecFile(const RecFile&) = delete;
    RecFile& operator=(const RecFile&) = delete;

    /// Forgets the file open before, opens this one and reads its header line.
    /// Raises 62 for an empty file, 5 for a header item without a blank.
    void open(const std::filesystem::path& name);

    /// Reads the field definitions, as many as the header announces. Raises 62 when lines are missing, 9
    /// behind field 200, 5 for a negative length; the fields before the faulty one stay in the table.
    void readDefinitions();

    /// Measures the first record and counts. Raises 11 without data or with records of no length, 62 when the
    /// first record is cut short. Until it has succeeded there are no records.
    void measure();

    /// Closes and opens the file again and counts its whole records anew: others may have written to it.
    /// Raises 11 when the file was never measured, and 75 when a file of another layout has taken its place,
    /// whose records would be cut at the wrong places; a file that is gone leaves the count as it was and
    /// the file closed.
    void recount();

    /// Sets the reading position to record `n`; raises what `positionOf` does.
    void seek(RecordNumber n);

    /// Reads the record at the reading position into `recordText` and `lastMark`. Raises 62 when the file
    /// ends within it or lines are missing; the record read before is then kept.
    void caricastring();

    /// Position of record `n`'s first byte, 1-based. Raises 5 for n < 1 or beyond any file, 11 when the file
    /// was never measured.
    std::int64_t positionOf(RecordNumber n) const;

    /// The open file once more, for a reader of its own. Raises RuntimeError 52 when it is closed.
    InputFile duplicateFile() const { return file_.duplicate(); }

    /// Closes the file and keeps what is known of it.
    void close() { file_.close(); }

    /// Back to the state without any file.
    void reset();

    bool hasName() const { return !dataFileName_.empty(); }
    const std::filesystem::path& dataFileName() const { return dataFileName_; }
    /// The path without its last four characters, the extension; never shorter than up to the last path
    /// separator.
    const std::filesystem::path& RecFileStem() const { return RecFileStem_; }

    const FieldTable& fields() const { return fields_; }
    int fieldCount() const { return fields_.fieldCount; }
    double screenColour() const { return screenColour_; }
    int recordLength() const { return fields_.recordLength; }
    int linesPerRecord() const { return linesPerRecord_; }
    std::int64_t dataStart() const { return dataStart_; }  ///< position of the first data line
    std::int64_t recordBytes() const
    {
        return recordBytes_;
    }  ///< bytes of one record in the file, line ends included
    /// Bytes of each line of the first record, line ends left out; all records are taken to be alike.
    const std::vector<std::int64_t>& lineLengths() const { return lineLengths_; }
    /// Bytes of a line end: 1 (LF) or 2 (CR LF), as in the file's first line.
    int lineEndBytes() const { return lineEndBytes_; }
    RecordNumber recordCount() const { return recordCount_; }  ///< whole records in the file
    RecordNumber rangeEnd() const { return rangeEnd_; }        ///< set to the count whenever it is taken

    const std::string& recordText() const { return recordText_; }
    /// Last character of the record's last line; 0 when that line is empty or no record was read.
    char lastMark() const { return lastMark_; }
    bool isDeleted() const { return lastMark_ == kDeletedMark; }
    /// Value of field `n` in the record read last; see FieldTable::fieldValue.
    std::string_view fieldValue(int n) const { return fields_.fieldValue(recordText_, n); }

    /// While set, records are read in capitals; the file is never changed.
    bool impostMaiusc = false;

private:
    void readHeader();
    bool hasSameLayout() const;
    void requireMeasured() const;
    void count(std::int64_t fileBytes);

    InputFile file_;
    LineReader reader_{file_};
    std::filesystem::path dataFileName_;
    std::filesystem::path RecFileStem_;
    FieldTable fields_;
    double announcedFields_ = 0;
    double screenColour_ = 0;
    int lineEndBytes_ = 2;
    int linesPerRecord_ = 0;
    std::vector<std::int64_t> lineLengths_;
    std::int64_t dataStart_ = 0;
    std::int64_t recordBytes_ = 0;
    RecordNumber recordCount_ = 0;
    RecordNumber rangeEnd_ = 0;
    std::string recordText_;
    char lastMark_ = 0;
};

/// A file name less its last four characters, but never less than its folder.
std::filesystem::path stemOf(const std::filesystem::path& name);

}  // namespace quorvin
