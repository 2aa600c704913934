/// What quorvin-cli prints about a file and its records, UTF-8, lines ended by LF.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "rec/RecFile.h"

namespace quorvin {

/// Measures and fields of an open file.
std::string infoAsText(const RecFile& file);
std::string infoAsJson(const RecFile& file);

/// The record read last, whose number is `number`: the fields of length above 0, trailing blanks removed.
/// In JSON a field whose name is empty or taken is called "#" and its number.
std::string recordAsText(const RecFile& file, RecordNumber number);
std::string recordAsJson(const RecFile& file, RecordNumber number);

/// One name for each field number, blanks trimmed: "#" and the number where the name is empty or taken; slot
/// 0 and fields of length 0 are left empty.
std::vector<std::string> fieldLabels(const FieldTable& fields);

/// A record as a JSON object on one line. `value`: a field's stored value by its number.
std::string recordObject(const FieldTable& fields, const std::vector<std::string>& labels,
                         RecordNumber number, bool deleted,
                         const std::function<std::string_view(int)>& value);

/// A text for the terminal, UTF-8: tabs, line ends and other control characters print as blanks.
std::string printable(std::string_view text);
/// The same without its trailing blanks, those that were printed for something else too.
std::string onOneLine(std::string_view text);
/// Both behind what `target` holds; `text` must not be part of it.
void appendPrintable(std::string& target, std::string_view text);
void appendOnOneLine(std::string& target, std::string_view text);

/// Raises RuntimeError 61 or 57 when standard output takes no more.
void requireOutput();

}  // namespace quorvin
