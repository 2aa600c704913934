/// The linker leads each call of our own code to __wrap_..., and calls of __real_... to the system.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "tests/support/FaultyCalls.h"

namespace {

/// Runs a system call, or has it fail.
template<class Call>
auto attempt(const Call& call) -> decltype(call())
{
    return quorvin::test::isToFail() ? -1 : call();
}

const char* named(const char* file)
{
    quorvin::test::noteNamed();
    return file;
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
using quorvin::test::faultsMutex;
using quorvin::test::portionOf;
using quorvin::test::presentFaults;

extern "C" {

// All of them take their arguments where a function of a fixed number of them does.
#define WRAP(result, call, parameters, ...)                                                                  \
    result __real_##call parameters;                                                                         \
    result __wrap_##call parameters                                                                          \
    {                                                                                                        \
        return attempt([&] { return __real_##call(__VA_ARGS__); });                                          \
    }

WRAP(int, open, (const char* name, int flags, mode_t rights), name, flags, rights)
WRAP(int, fcntl, (int descriptor, int command, int argument), descriptor, command, argument)
WRAP(int, fstat, (int descriptor, struct stat* status), descriptor, status)
WRAP(int, stat, (const char* name, struct stat* status), name, status)
WRAP(int, fchown, (int descriptor, uid_t owner, gid_t group), descriptor, owner, group)
WRAP(int, fchmod, (int descriptor, mode_t rights), descriptor, rights)
WRAP(ssize_t, pread, (int descriptor, void* to, size_t n, off_t from), descriptor, to, portionOf(n), from)
WRAP(int, link, (const char* from, const char* to), named(from), to)
WRAP(int, rename, (const char* from, const char* to), named(from), to)

ssize_t __real_write(int, const void*, size_t);
int __real_fsync(int);
int __real_close(int);

ssize_t __wrap_write(int descriptor, const void* bytes, size_t count)
{
    return attempt([&]() -> ssize_t {
        const std::lock_guard lock(faultsMutex);
        const size_t taken = presentFaults ? presentFaults->take(count) : count;
        return taken == 0 && count > 0 ? -1 : __real_write(descriptor, bytes, taken);
    });
}

int __wrap_fsync(int descriptor)
{
    return attempt([&] {
        const std::lock_guard lock(faultsMutex);
        if (!presentFaults) return __real_fsync(descriptor);
        // Nobody is to wait for the disk.
        presentFaults->synced();
        return __real_fcntl(descriptor, F_GETFD, 0) < 0 ? -1 : 0;
    });
}

int __wrap_close(int descriptor)
{
    // What cannot be closed without a fault is closed all the same.
    const int result = attempt([] { return 0; });
    const int error = errno;
    const int closed = __real_close(descriptor);
    if (result != 0) errno = error;
    return result != 0 ? result : closed;
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
