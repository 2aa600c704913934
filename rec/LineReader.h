/// Reads a text file line by line through one block of memory, from any position.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/InputFile.h"

namespace quorvin {

/// One line of a text file, without its line end.
struct TextLine {
    std::string text;         ///< its first characters, as many as were asked for
    std::int64_t length = 0;  ///< of the whole line
    char last = 0;            ///< last character of the whole line, 0 when it is empty
};

/// Lines end at LF; one CR before it is dropped. Byte 26 (Ctrl-Z) ends the text where it stands.
/// Positions are 1-based byte positions in the file.
class LineReader {
public:
    /// `file` must outlive the reader; it may be closed and opened again between reads, with a seek after it.
    explicit LineReader(const InputFile& file) : file_(file) {}

    /// Sets the position of the next read; what was buffered is read anew, since others may have written it
    /// meanwhile.
    void seek(std::int64_t position);

    /// Has these bytes from the position on at hand, read in one go so that they belong together; of a line's
    /// greatest length at most. Raises RuntimeError 62 when the file ends before.
    void require(std::int64_t bytes);

    /// Where the next read begins.
    std::int64_t position() const { return blockStart_ + static_cast<std::int64_t>(next_); }

    /// The next line, of which the first `keep` characters are kept. The last line of the file needs no line
    /// end. Raises RuntimeError 62 at the end of the file or of the text, 7 for a line longer than
    /// kMaxLineLength.
    TextLine readLine(std::size_t keep);

    /// Bytes of the line end that the last line had: 2, 1, or 0 when the file ended.
    int lineEndBytes() const { return lineEndBytes_; }

    /// Whether the last line was ended by the end of the file.
    bool endedWithFile() const { return lineEndBytes_ == 0 && next_ == block_.size(); }

    /// Whether the file or the text ends at the position.
    bool atEnd();

private:
    bool fill(std::size_t atLeast = 0);
    std::string_view buffered() const;

    const InputFile& file_;
    std::vector<char> block_;
    std::int64_t blockStart_ = 1;
    std::size_t next_ = 0;
    int lineEndBytes_ = 0;
};

}  // namespace quorvin
