#include "base/InputFile.h"

#include <cerrno>
#include <utility>

#include "base/SystemError.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quorvin {

namespace {

using RawHandle = std::intptr_t;

#ifdef _WIN32

HANDLE asHandle(RawHandle handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

RawHandle openShared(const std::filesystem::path& name)
{
    const DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw RuntimeError(ErrorNumber::accessError);
    }
    const HANDLE handle =
        CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) throw lastSystemError();
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        throw RuntimeError(ErrorNumber::accessError);
    }
    return reinterpret_cast<RawHandle>(handle);
}

void closeRaw(RawHandle handle)
{
    CloseHandle(asHandle(handle));
}

RawHandle duplicateOf(RawHandle handle)
{
    HANDLE copy = nullptr;
    const HANDLE process = GetCurrentProcess();
    if (!DuplicateHandle(process, asHandle(handle), process, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS))
        throw RuntimeError(ErrorNumber::deviceError);
    return reinterpret_cast<RawHandle>(copy);
}

std::int64_t lengthOf(RawHandle handle)
{
    LARGE_INTEGER length;
    if (!GetFileSizeEx(asHandle(handle), &length)) throw lastSystemError();
    return length.QuadPart;
}

/// One read call; 0 at the end of the file.
std::size_t readSome(RawHandle handle, std::int64_t offset, std::span<char> buffer)
{
    constexpr std::size_t kMost = 1U << 30;
    OVERLAPPED position{};
    position.Offset = static_cast<DWORD>(offset & 0xFFFFFFFF);
    position.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(buffer.size() < kMost ? buffer.size() : kMost);
    if (!ReadFile(asHandle(handle), buffer.data(), wanted, &got, &position)) {
        if (GetLastError() == ERROR_HANDLE_EOF) return 0;
        throw RuntimeError(ErrorNumber::deviceError);
    }
    return got;
}

#else

RawHandle openShared(const std::filesystem::path& name)
{
    // Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
    const int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) throw lastSystemError();
    struct stat status {};
    const bool known = ::fstat(descriptor, &status) == 0;
    if (known && S_ISREG(status.st_mode)) return descriptor;
    const RuntimeError error = known ? RuntimeError(ErrorNumber::accessError) : lastSystemError();
    ::close(descriptor);
    throw error;
}

void closeRaw(RawHandle handle)
{
    ::close(static_cast<int>(handle));
}

RawHandle duplicateOf(RawHandle handle)
{
    const int copy = ::fcntl(static_cast<int>(handle), F_DUPFD_CLOEXEC, 0);
    if (copy < 0) throw RuntimeError(ErrorNumber::deviceError);
    return copy;
}

std::int64_t lengthOf(RawHandle handle)
{
    struct stat status {};
    if (::fstat(static_cast<int>(handle), &status) != 0) throw lastSystemError();
    return status.st_size;
}

/// One read call; 0 at the end of the file.
std::size_t readSome(RawHandle handle, std::int64_t offset, std::span<char> buffer)
{
    for (;;) {
        const ssize_t got = ::pread(static_cast<int>(handle), buffer.data(), buffer.size(), offset);
        if (got >= 0) return static_cast<std::size_t>(got);
        if (errno != EINTR) throw RuntimeError(ErrorNumber::deviceError);
    }
}

#endif

}  // namespace

InputFile::~InputFile()
{
    close();
}

InputFile::InputFile(InputFile&& other) noexcept : handle_(std::exchange(other.handle_, kNone)) {}

InputFile& InputFile::operator=(InputFile&& other) noexcept
{
    if (this != &other) {
        close();
        handle_ = std::exchange(other.handle_, kNone);
    }
    return *this;
}

void InputFile::open(const std::filesystem::path& name)
{
    close();
    // Systems do not agree on what is wrong with no name.
    if (name.empty()) throw RuntimeError(ErrorNumber::fileNotFound);
    handle_ = openShared(name);
}

void InputFile::close() noexcept
{
    if (handle_ != kNone) closeRaw(std::exchange(handle_, kNone));
}

InputFile InputFile::duplicate() const
{
    if (!isOpen()) throw RuntimeError(ErrorNumber::badFileName);
    InputFile copy;
    copy.handle_ = duplicateOf(handle_);
    return copy;
}

std::int64_t InputFile::size() const
{
    if (!isOpen()) throw RuntimeError(ErrorNumber::badFileName);
    return lengthOf(handle_);
}

std::size_t InputFile::readAt(std::int64_t offset, std::span<char> buffer) const
{
    if (!isOpen()) throw RuntimeError(ErrorNumber::badFileName);
    // After a short call another one may give bytes of a file that was cut and written anew between them,
    // which do not belong together: all is read again then, unless calls never give everything here.
    constexpr int kTries = 4;
    for (int tries = 1;; ++tries) {
        const std::size_t got = readSome(handle_, offset, buffer);
        if (got == 0 || got == buffer.size()) return got;
        const std::int64_t next = offset + static_cast<std::int64_t>(got);
        const std::span<char> rest = buffer.subspan(got);
        if (readSome(handle_, next, rest.first(1)) == 0) return got;
        if (tries == kTries) return got + readAt(next, rest);
    }
}

}  // namespace quorvin
