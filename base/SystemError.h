/// The error for a system call about a file that has just failed, the same on every system.
#pragma once

#include "base/RuntimeError.h"

namespace quorvin {

/// From the system's own number of the last error: 53 or 76 for what is not there, 70 without the right or
/// while another program keeps it, 75 for a file system that may not be written, 61, 52, 57 otherwise.
RuntimeError lastSystemError();

/// The same for a file that was to be written: 75 without the right, 76 for a folder that is not there.
RuntimeError lastWriteError();

}  // namespace quorvin
