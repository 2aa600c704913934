#include "tests/support/FileFaults.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <mutex>

namespace quorvin::test {

namespace {

std::recursive_mutex mutex;
FileFaults* present = nullptr;

/// Runs a system call, or has it fail.
template<class Call>
auto attempt(const Call& call) -> decltype(call())
{
    {
        const std::lock_guard lock(mutex);
        if (present && present->fails()) return -1;
    }
    return call();
}

std::size_t portion(std::size_t bytes)
{
    const std::lock_guard lock(mutex);
    return present ? std::min(bytes, present->portion) : bytes;
}

}  // namespace

FileFaults::FileFaults()
{
    const std::lock_guard lock(mutex);
    present = this;
}

FileFaults::~FileFaults()
{
    const std::lock_guard lock(mutex);
    present = nullptr;
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
    if (taken == 0 && bytes > 0) errno = ENOSPC;
    unsynced_ = true;
    return taken;
}

}  // namespace quorvin::test

// The linker leads each call of our own code to __wrap_..., and calls of __real_... to the system.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
using quorvin::test::attempt;
using quorvin::test::mutex;
using quorvin::test::portion;
using quorvin::test::present;

extern "C" {

int __real_open(const char*, int, ...);
int __real_fcntl(int, int, ...);
int __real_fstat(int, struct stat*);
int __real_stat(const char*, struct stat*);
int __real_fchown(int, uid_t, gid_t);
int __real_fchmod(int, mode_t);
ssize_t __real_pread(int, void*, size_t, off_t);
ssize_t __real_write(int, const void*, size_t);
int __real_fsync(int);
int __real_close(int);
int __real_link(const char*, const char*);
int __real_rename(const char*, const char*);

int __wrap_open(const char* name, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t rights = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return attempt([&] { return __real_open(name, flags, rights); });
}

int __wrap_fcntl(int descriptor, int command, ...)
{
    va_list more;
    va_start(more, command);
    const int argument = va_arg(more, int);
    va_end(more);
    return attempt([&] { return __real_fcntl(descriptor, command, argument); });
}

int __wrap_fstat(int descriptor, struct stat* status)
{
    return attempt([&] { return __real_fstat(descriptor, status); });
}

int __wrap_stat(const char* name, struct stat* status)
{
    return attempt([&] { return __real_stat(name, status); });
}

int __wrap_fchown(int descriptor, uid_t owner, gid_t group)
{
    return attempt([&] { return __real_fchown(descriptor, owner, group); });
}

int __wrap_fchmod(int descriptor, mode_t rights)
{
    return attempt([&] { return __real_fchmod(descriptor, rights); });
}

ssize_t __wrap_pread(int descriptor, void* bytes, size_t count, off_t offset)
{
    return attempt([&] { return __real_pread(descriptor, bytes, portion(count), offset); });
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t count)
{
    return attempt([&]() -> ssize_t {
        const std::lock_guard lock(mutex);
        const size_t taken = present ? present->take(count) : count;
        return taken == 0 && count > 0 ? -1 : __real_write(descriptor, bytes, taken);
    });
}

int __wrap_fsync(int descriptor)
{
    return attempt([&] {
        const std::lock_guard lock(mutex);
        if (!present) return __real_fsync(descriptor);
        // Nobody is to wait for the disk.
        present->synced();
        return __real_fcntl(descriptor, F_GETFD) < 0 ? -1 : 0;
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

int __wrap_link(const char* from, const char* to)
{
    if (present) present->named();
    return attempt([&] { return __real_link(from, to); });
}

int __wrap_rename(const char* from, const char* to)
{
    if (present) present->named();
    return attempt([&] { return __real_rename(from, to); });
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
