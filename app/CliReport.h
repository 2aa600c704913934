/// What quorvin-cli prints about a file and its records, UTF-8, lines ended by LF.
#pragma once

#include <string>

#include "rec/RecFile.h"

namespace quorvin {

/// Measures and fields of an open file.
std::string infoAsText(const RecFile& file);
std::string infoAsJson(const RecFile& file);

/// The record read last, whose number is `number`: the fields of length above 0, trailing blanks removed.
/// In JSON a field whose name is empty or taken is called "#" and its number.
std::string recordAsText(const RecFile& file, RecordNumber number);
std::string recordAsJson(const RecFile& file, RecordNumber number);

}  // namespace quorvin
