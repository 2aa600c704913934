/// What the system calls of each system need to fail on demand.
#pragma once

#include <algorithm>
#include <mutex>

#include "tests/support/FileFaults.h"

namespace quorvin::test {

/// Guards the only FileFaults that stands, and the pointer to it.
extern std::recursive_mutex faultsMutex;
extern FileFaults* presentFaults;

/// Whether this call is to fail.
inline bool isToFail()
{
    const std::lock_guard lock(faultsMutex);
    return presentFaults && presentFaults->fails();
}

inline std::size_t portionOf(std::size_t bytes)
{
    const std::lock_guard lock(faultsMutex);
    return presentFaults ? std::min(bytes, presentFaults->portion) : bytes;
}

/// A file is about to get its name.
inline void noteNamed()
{
    const std::lock_guard lock(faultsMutex);
    if (presentFaults) presentFaults->named();
}

}  // namespace quorvin::test
