/// The print file: the text that is put together on the screen before anything goes to paper.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "rec/RecFile.h"
#include "search/SearchConsumer.h"

namespace quorvin {

class PrintMatrix;

/// Each record is printed as the fields of the print matrix, one a line, label and value with nothing between
/// them, and a separator; every line begins with the margin and ends with CR LF. Windows-1252. A line that
/// does not fit is not added, nor anything behind it.
class PrintFile : public SearchConsumer {
public:
    /// Characters that the print file holds, line ends included.
    static constexpr std::size_t kCapacity = 32768;
    /// Length of the line of "<" behind each record.
    static constexpr std::size_t kSeparatorWidth = 78;

    /// Both must outlive the print file.
    PrintFile(const RecFile& file, const PrintMatrix& matrix) : file_(file), matrix_(matrix) {}

    /// Whether searches are printed: header, hits, and the closing caption.
    bool stamp2 = false;

    const std::string& text() const { return text_; }
    /// Something did not fit.
    bool isFull() const { return full_; }
    void clear();
    /// Counts the texts that were begun: as long as it stays, the text was only added to.
    int edition() const { return edition_; }

    /// Appends a record. Raises RuntimeError 9 at an entry of the matrix that the file has no field for; the
    /// entries before it are appended.
    void add(RecordScanner& record);

    void searchAsked(const SearchQuery& query, RecordNumber recordCount) override;
    void hit(RecordScanner& record) override;
    void searchEnds(SearchEnd end, std::string_view criteria, const Matcher& matcher) override;

private:
    void addLine(std::string_view label, std::string_view value, std::string_view lineEnd);

    const RecFile& file_;
    const PrintMatrix& matrix_;
    std::string text_;
    bool full_ = false;
    int edition_ = 0;
};

}  // namespace quorvin
