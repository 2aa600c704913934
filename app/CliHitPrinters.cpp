#include "app/CliHitPrinters.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "app/CliReport.h"
#include "rec/RecordScanner.h"

namespace quorvin {

namespace {

/// A value as an item of a row: in quotes, its own ones doubled, when it holds what would end it.
std::string csvItem(const std::string& value)
{
    if (value.find_first_of(",\"") == std::string::npos) return value;
    std::string item = "\"";
    for (const char c : value) {
        if (c == '"') item += c;
        item += c;
    }
    return item + '"';
}

}  // namespace

void CsvPrinter::searchStarts(const SearchQuery&, RecordNumber, RecordNumber)
{
    const std::vector<std::string> names = fieldLabels(fields_);
    std::string row = "rekord";
    for (int n = 1; n <= fields_.fieldCount; ++n) {
        if (fields_.length(n) > 0) row += ',' + csvItem(names[static_cast<std::size_t>(n)]);
    }
    std::cout << row << '\n';
}

void CsvPrinter::hit(RecordScanner& record)
{
    std::string row = std::to_string(record.number());
    for (int n = 1; n <= fields_.fieldCount; ++n) {
        if (fields_.length(n) > 0) row += ',' + csvItem(onOneLine(record.fieldValue(n)));
    }
    std::cout << row << '\n';
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
