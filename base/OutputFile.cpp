#include "base/OutputFile.h"

#include <cerrno>
#include <random>
#include <string>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quorvin {

namespace {

namespace fs = std::filesystem;
using RawHandle = std::intptr_t;
constexpr RawHandle kNoHandle = -1;

/// Bytes that may wait in memory while a file is written that replaces another: the disk gets its share on
/// the way, so that completing the file takes no long moment.
constexpr std::size_t kSyncBytes = std::size_t{32} << 20;

/// Links that lead to links, before they are taken for a circle.
constexpr int kMostLinks = 40;

#ifdef _WIN32

HANDLE asHandle(RawHandle handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

RuntimeError lastError()
{
    switch (GetLastError()) {
    case ERROR_PATH_NOT_FOUND:
        return RuntimeError(ErrorNumber::pathNotFound);
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return RuntimeError(ErrorNumber::accessError);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return RuntimeError(ErrorNumber::permissionDenied);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return RuntimeError(ErrorNumber::diskFull);
    case ERROR_INVALID_NAME:
        return RuntimeError(ErrorNumber::badFileName);
    default:
        return RuntimeError(ErrorNumber::deviceError);
    }
}

void requireWritable(const fs::path& target)
{
    const HANDLE handle =
        CreateFileW(target.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) throw lastError();
    CloseHandle(handle);
}

/// A new file, or none when there is one of that name.
RawHandle createNew(const fs::path& name)
{
    const HANDLE handle =
        CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return reinterpret_cast<RawHandle>(handle);
    if (GetLastError() == ERROR_FILE_EXISTS) return kNoHandle;
    throw lastError();
}

std::size_t writeSome(RawHandle handle, const char* bytes, std::size_t count)
{
    DWORD written = 0;
    if (!WriteFile(asHandle(handle), bytes, static_cast<DWORD>(count), &written, nullptr)) throw lastError();
    return written;
}

void syncRaw(RawHandle handle)
{
    if (!FlushFileBuffers(asHandle(handle))) throw lastError();
}

void closeRaw(RawHandle handle)
{
    if (!CloseHandle(asHandle(handle))) throw lastError();
}

void putInPlace(const fs::path& temporary, const fs::path& target, bool replaces)
{
    // Replacing keeps the rights of the file that is replaced.
    const bool done =
        (replaces && ReplaceFileW(target.c_str(), temporary.c_str(), nullptr, 0, nullptr, nullptr)) ||
        MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING);
    if (!done) throw lastError();
}

void likeTarget(RawHandle, const fs::path&) {}

#else

RuntimeError lastError()
{
    switch (errno) {
    case ENOENT:
        return RuntimeError(ErrorNumber::pathNotFound);
    case EACCES:
    case EPERM:
        return RuntimeError(ErrorNumber::accessError);
    default:
        return fileError(errno);
    }
}

void requireWritable(const fs::path& target)
{
    const int descriptor = ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) throw lastError();
    ::close(descriptor);
}

/// A new file, or none when there is one of that name.
RawHandle createNew(const fs::path& name)
{
    const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0 && errno != EEXIST) throw lastError();
    return descriptor;
}

std::size_t writeSome(RawHandle handle, const char* bytes, std::size_t count)
{
    for (;;) {
        const ssize_t written = ::write(static_cast<int>(handle), bytes, count);
        if (written >= 0) return static_cast<std::size_t>(written);
        if (errno != EINTR) throw lastError();
    }
}

void syncRaw(RawHandle handle)
{
    // Some file systems have no such call; then there is nothing to wait for.
    if (::fsync(static_cast<int>(handle)) != 0 && errno != EINVAL) throw lastError();
}

void closeRaw(RawHandle handle)
{
    if (::close(static_cast<int>(handle)) != 0 && errno != EINTR) throw lastError();
}

void putInPlace(const fs::path& temporary, const fs::path& target, bool)
{
    if (::rename(temporary.c_str(), target.c_str()) != 0) throw lastError();
}

/// Gives the new file the rights and, where that is allowed, the owner of the one that it will replace.
void likeTarget(RawHandle handle, const fs::path& target)
{
    struct stat status {};
    if (::stat(target.c_str(), &status) != 0) throw lastError();
    const auto descriptor = static_cast<int>(handle);
    [[maybe_unused]] const int owned = ::fchown(descriptor, status.st_uid, status.st_gid);
    ::fchmod(descriptor, status.st_mode & 07777);
}

#endif

/// What a name leads to, itself if it is a link and `follow` is not set; nothing is an answer too.
fs::file_status statusOf(const fs::path& name, bool follow)
{
    std::error_code failed;
    const fs::file_status status = follow ? fs::status(name, failed) : fs::symlink_status(name, failed);
    if (fs::status_known(status)) return status;
    const RuntimeError error = fileError(failed.default_error_condition().value());
    throw error.number() == ErrorNumber::permissionDenied ? RuntimeError(ErrorNumber::accessError) : error;
}

/// The file that a name stands for in the end.
fs::path resolved(fs::path name)
{
    for (int links = 0; fs::is_symlink(statusOf(name, false)); ++links) {
        if (links >= kMostLinks) throw RuntimeError(ErrorNumber::accessError);
        name = name.parent_path() / fs::read_symlink(name);
    }
    return name;
}

/// A short name that hardly anybody else uses; short, for one made from the target's could be too long.
fs::path temporaryName(const fs::path& folder)
{
    static std::random_device random;
    return folder / ("quorvin-" + std::to_string(random()) + ".tmp");
}

}  // namespace

OutputFile::~OutputFile()
{
    discard();
}

void OutputFile::open(const fs::path& target)
{
    discard();
    if (!target.has_filename()) throw RuntimeError(ErrorNumber::badFileName);
    target_ = resolved(target);
    const fs::file_status status = statusOf(target_, true);
    replaces_ = fs::exists(status);
    if (replaces_ && !fs::is_regular_file(status)) throw RuntimeError(ErrorNumber::accessError);
    if (replaces_) requireWritable(target_);
    constexpr int kAttempts = 10;
    for (int i = 0; i < kAttempts && handle_ == kNone; ++i) {
        temporary_ = temporaryName(target_.parent_path());
        handle_ = createNew(temporary_);
    }
    if (handle_ == kNone) throw RuntimeError(ErrorNumber::accessError);
    buffer_.reserve(kBufferBytes);
    sinceSync_ = 0;
    try {
        if (replaces_) likeTarget(handle_, target_);
    } catch (const RuntimeError&) {
        discard();
        throw;
    }
}

void OutputFile::write(std::string_view bytes)
{
    if (!isOpen()) throw RuntimeError(ErrorNumber::badFileName);
    while (!bytes.empty()) {
        const std::string_view part = bytes.substr(0, kBufferBytes - buffer_.size());
        buffer_.insert(buffer_.end(), part.begin(), part.end());
        bytes.remove_prefix(part.size());
        if (buffer_.size() == kBufferBytes) flush();
    }
}

void OutputFile::flush()
{
    if (!isOpen()) throw RuntimeError(ErrorNumber::badFileName);
    try {
        for (std::size_t done = 0; done < buffer_.size();)
            done += writeSome(handle_, buffer_.data() + done, buffer_.size() - done);
        sinceSync_ += buffer_.size();
        buffer_.clear();
        if (!replaces_ || sinceSync_ < kSyncBytes) return;
        syncRaw(handle_);
        sinceSync_ = 0;
    } catch (const RuntimeError&) {
        // Part of the buffer may be written: there is no going on.
        discard();
        throw;
    }
}

void OutputFile::commit()
{
    flush();
    try {
        // The old file must not give way to one that is still on its way to the disk.
        if (replaces_) syncRaw(handle_);
        closeRaw(std::exchange(handle_, kNone));
        putInPlace(temporary_, target_, replaces_);
    } catch (const RuntimeError&) {
        discard();
        throw;
    }
    temporary_.clear();
}

void OutputFile::discard() noexcept
{
    buffer_.clear();
    try {
        if (handle_ != kNone) closeRaw(std::exchange(handle_, kNone));
    } catch (const RuntimeError&) {
        // What could not be written any more is not wanted either.
    }
    std::error_code ignored;
    if (!temporary_.empty()) fs::remove(temporary_, ignored);
    temporary_.clear();
}

bool isSameFile(const fs::path& one, const fs::path& other)
{
    std::error_code failed;
    if (fs::equivalent(one, other, failed) && !failed) return true;
    const fs::path first = fs::weakly_canonical(one, failed);
    return !failed && first == fs::weakly_canonical(other, failed) && !failed;
}

}  // namespace quorvin
