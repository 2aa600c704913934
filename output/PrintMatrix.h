/// The user's own list of fields to print, and what is kept with it beside the REC file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "view/FieldList.h"

namespace quorvin {

class RecFile;

/// Texts are Windows-1252. The file (.mtr) has no count and no version: a line for each entry, then the
/// header, the margin, and the template in double quotes. What has no number in front ends the entries, so
/// that a header that begins with a digit is read as one more entry; doc/mtr-format.md has it all.
class PrintMatrix {
public:
    /// Characters of the header that are read back.
    static constexpr std::size_t kHeaderWidth = 78;

    FieldList entries;             ///< field numbers in the order of printing
    std::string PrintHeader;       ///< first line of a printed search
    int PrintMargin = 0;           ///< blanks before every printed line
    std::string DocumentTemplate;  ///< RTF or plain text; of other programs also over several lines

    int PrintMatrixCount() const { return entries.count(); }
    /// Entries in force when the choice of new ones began, and until it ends.
    int SavedMatrixCount() const { return saved_.count(); }

    /// Begins a new choice, with nothing chosen.
    void beginChoice();
    /// Ends it: true when fields were chosen; the old ones are in force again otherwise.
    bool endChoice();

    /// Sets a margin. A fraction is cut off; less than 1 changes nothing.
    bool setMargin(double characters);

    void clear() { *this = PrintMatrix(); }

    /// Writes the file that belongs to a REC file, whole or not at all; during a choice with the entries
    /// before it. Raises what OutputFile raises, 75 when it would be the REC file itself, and 7 when it could
    /// not be read again. A file that is there but could not be read is kept: what reading it raised is
    /// raised again.
    void matrice(const RecFile& recFile);

    /// Reads the file that belongs to a REC file. Where there is none everything is empty; also after an
    /// error: RuntimeError 7 for a file beyond any sense, else InputFile's.
    void read(const RecFile& recFile);

    /// The text of the file, and back; whatever the text, reading it raises nothing.
    std::string toText() const;
    void fromText(std::string_view text);

private:
    bool choosing_ = false;
    std::optional<RuntimeError> unread_;  ///< why the file that is there could not be read
    FieldList saved_;
};

}  // namespace quorvin
