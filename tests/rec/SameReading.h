/// REC files opened for a test, and their records read in a pass and one by one.
#pragma once

#include <filesystem>
#include <string>

#include "rec/RecFile.h"

namespace quorvin::test {

/// Opens a file up to its count of records; raises what that raises.
void load(RecFile& file, const std::filesystem::path& name);

/// Says which record differs first between the two ways, in its values, its mark or its error; nothing when
/// all are the same. Every `step`th record is read singly.
std::string differentReading(const std::filesystem::path& name, RecordNumber step = 1);

}  // namespace quorvin::test
