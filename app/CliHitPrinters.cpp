#include "app/CliHitPrinters.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "app/CliReport.h"
#include "rec/RecordScanner.h"

namespace quorvin {

namespace {

/// Puts the item of a row that begins at `start` in quotes, its own ones doubled, when it holds what would
/// end it.
void quoteItem(std::string& row, std::size_t start)
{
    if (std::none_of(row.begin() + static_cast<std::ptrdiff_t>(start), row.end(),
                     [](char c) { return c == ',' || c == '"'; }))
        return;
    for (std::size_t i = row.size(); i-- > start;) {
        if (row[i] == '"') row.insert(i, 1, '"');
    }
    row.insert(start, 1, '"');
    row += '"';
}

}  // namespace

void CsvPrinter::searchStarts(const SearchQuery&, RecordNumber, RecordNumber)
{
    const std::vector<std::string> names = fieldLabels(fields_);
    row_ = "rekord";
    for (int n = 1; n <= fields_.fieldCount; ++n) {
        if (fields_.length(n) == 0) continue;
        row_ += ',';
        const std::size_t start = row_.size();
        row_ += names[static_cast<std::size_t>(n)];
        quoteItem(row_, start);
    }
    std::cout << row_ << '\n';
}

void CsvPrinter::hit(RecordScanner& record)
{
    row_ = std::to_string(record.number());
    for (int n = 1; n <= fields_.fieldCount; ++n) {
        if (fields_.length(n) == 0) continue;
        row_ += ',';
        const std::size_t start = row_.size();
        appendOnOneLine(row_, record.fieldValue(n));
        quoteItem(row_, start);
    }
    row_ += '\n';
    std::cout << row_;
}

JsonPrinter::JsonPrinter(const FieldTable& fields) : fields_(fields), names_(fieldLabels(fields)) {}

void JsonPrinter::searchStarts(const SearchQuery&, RecordNumber, RecordNumber)
{
    std::cout << '[';
}

void JsonPrinter::hit(RecordScanner& record)
{
    std::cout << (first_ ? "\n" : ",\n")
              << recordObject(fields_, names_, record.number(), record.isDeleted(),
                              [&record](int n) { return record.fieldValue(n); });
    first_ = false;
}

void JsonPrinter::searchEnds(SearchEnd, std::string_view, const Matcher&)
{
    std::cout << "\n]\n";
}

}  // namespace quorvin
