/// The records of a file, read in a pass and one by one.
#pragma once

#include <filesystem>
#include <string>

#include "rec/RecFormat.h"

namespace quorvin::test {

/// Says which record differs first between the two, in its values, its mark or its error; nothing when all
/// are the same. Every `step`th record is read singly. Raises what opening and measuring the file raises.
std::string differentReading(const std::filesystem::path& name, RecordNumber step = 1);

}  // namespace quorvin::test
