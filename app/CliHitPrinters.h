/// The formats in which quorvin-cli prints whole records that a search finds.
#pragma once

#include <string>
#include <vector>

#include "rec/FieldTable.h"
#include "search/SearchConsumer.h"

namespace quorvin {

/// Comma-separated values after RFC 4180, but for lines that end as all output does: a header, then a row for
/// each hit with its number and the fields of length above 0, trailing blanks removed.
class CsvPrinter : public SearchConsumer {
public:
    /// `fields` must outlive the printer.
    explicit CsvPrinter(const FieldTable& fields) : fields_(fields) {}

    void searchStarts(const SearchQuery& query, RecordNumber searchStart, RecordNumber searchEnd) override;
    void hit(RecordScanner& record) override;

private:
    const FieldTable& fields_;
    std::string row_;  ///< the last one printed; its memory is used again
};

/// A JSON array with an object for each hit, on a line of its own.
class JsonPrinter : public SearchConsumer {
public:
    /// `fields` must outlive the printer.
    explicit JsonPrinter(const FieldTable& fields);

    void searchStarts(const SearchQuery& query, RecordNumber searchStart, RecordNumber searchEnd) override;
    void hit(RecordScanner& record) override;
    void searchEnds(SearchEnd end, std::string_view criteria, const Matcher& matcher) override;

private:
    const FieldTable& fields_;
    std::vector<std::string> names_;
    bool first_ = true;
};

}  // namespace quorvin
