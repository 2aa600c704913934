/// Writes a new REC file with some or all fields of an open one.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/OutputFile.h"
#include "rec/RecFile.h"

namespace quorvin {

class RecordScanner;

/// Lines of definitions and records are laid out as in the source (doc/rec-format.md), ended by CR LF; only
/// the screen lines of the fields are counted anew, so that the new form has no empty ones. The file appears
/// when it is finished.
class RecWriter {
public:
    /// Begins a file: header and definitions. `fields`: field numbers of `source` in the order of the new
    /// file; one that stands there twice is written once. Longer fields are cut to `MaxTextLength`
    /// characters.
    /// Raises RuntimeError 9 for a field that the source does not have, 11 when the fields have no length at
    /// all, for nobody could read such a file, 75 when the target is the source, and what OutputFile raises.
    void start(const std::filesystem::path& target, const RecFile& source, const std::vector<int>& fields,
               int MaxTextLength);
    bool isOpen() const { return output_.isOpen(); }

    /// Appends a record of the source, with its own mark. Raises what OutputFile raises.
    void add(RecordScanner& record);
    /// Records written so far.
    RecordNumber recordCount() const { return recordCount_; }

    /// Completes the file, or gives it up.
    void finish() { output_.commit(); }
    void discard() noexcept { output_.discard(); }

private:
    /// Characters of a record that stand in the new file as they stand in the source; from 0.
    struct Stretch {
        std::size_t first;
        std::size_t length;
    };

    int WriteFieldCount() const { return static_cast<int>(WriteFieldList.size()); }
    void chooseFields(const FieldTable& table, const std::vector<int>& fields);
    int writtenLength(const FieldTable& table, int field) const;
    void addStretch(const Stretch& field);
    void writeHeader(const RecFile& source);
    std::vector<std::string> definitions(const FieldTable& table, bool left) const;
    std::string_view recordBuffer(std::string_view text);

    OutputFile output_;
    std::vector<int> WriteFieldList;  ///< the fields that are written, in this order
    std::vector<Stretch> stretches_;  ///< the written fields, those together that stand side by side
    int MaxTextLength_ = kCompatibleLength;
    std::string RecordBuffer;  ///< text of the record being written
    RecordNumber recordCount_ = 0;
};

}  // namespace quorvin
