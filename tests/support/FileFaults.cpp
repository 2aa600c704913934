#include "tests/support/FileFaults.h"

#include <cerrno>

#include "tests/support/FaultyCalls.h"

namespace quorvin::test {

std::recursive_mutex faultsMutex;
FileFaults* presentFaults = nullptr;

FileFaults::FileFaults()
{
    const std::lock_guard lock(faultsMutex);
    presentFaults = this;
}

FileFaults::~FileFaults()
{
    const std::lock_guard lock(faultsMutex);
    presentFaults = nullptr;
}

bool FileFaults::fails()
{
    if (++count_ != at) return false;
    if (before) before();
    errno = error;
    return error != 0;
}

std::size_t FileFaults::take(std::size_t bytes)
{
    const std::size_t taken = std::min({bytes, portion, room});
    if (room != kAll) room -= taken;
    full_ |= taken == 0 && bytes > 0;
    if (full_) errno = ENOSPC;
    unsynced_ = true;
    return taken;
}

}  // namespace quorvin::test
