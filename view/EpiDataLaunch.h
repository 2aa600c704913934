/// Hands the open file over to EpiData.
#pragma once

#include <filesystem>

namespace quorvin {

/// Starts EpiData with a data file, in a minimised window that has the focus, and does not wait for it.
/// The environment variable QUORVIN_EPIDATA may name another program. Raises RuntimeError 53 when the program
/// is not there, 75 when it does not start.
void launchEpiData(const std::filesystem::path& dataFile);

}  // namespace quorvin
