#include "base/OutputFile.h"

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <system_error>
#include <utility>

#include "base/SystemError.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace quorvin {

namespace {

namespace fs = std::filesystem;
using RawHandle = std::intptr_t;
constexpr RawHandle kNoHandle = -1;

/// Bytes that may wait in memory while a file is written: the disk gets its share on the way, so that
/// completing the file takes no long moment.
constexpr std::size_t kSyncBytes = std::size_t{16} << 20;

/// Links that lead to links, before they are taken for a circle.
constexpr int kMostLinks = 40;

/// The file that is to be written.
struct Target {
    fs::path name;                         ///< where it stands, links followed
    RawHandle held = kNoHandle;            ///< the file that is there, open
    std::optional<FileIdentity> identity;  ///< and what it is
};

#ifdef _WIN32

HANDLE asHandle(RawHandle handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

/// Opens the file that a name leads to for another look at it; not there: none.
OwnedHandle openThere(const fs::path& name, DWORD access)
{
    const HANDLE handle =
        CreateFileW(name.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return OwnedHandle(handle);
    if (GetLastError() != ERROR_FILE_NOT_FOUND) throw lastWriteError();
    return nullptr;
}

/// Nothing for what is no file that may be replaced.
std::optional<FileIdentity> identityOf(HANDLE handle)
{
    constexpr DWORD kNotReplaced = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    if (GetFileType(handle) != FILE_TYPE_DISK) return {};
    BY_HANDLE_FILE_INFORMATION info{};
    if (!GetFileInformationByHandle(handle, &info)) throw lastWriteError();
    if ((info.dwFileAttributes & kNotReplaced) != 0) return {};
    return FileIdentity{info.dwVolumeSerialNumber,
                        (std::uint64_t{info.nFileIndexHigh} << 32) | info.nFileIndexLow};
}

fs::path finalName(HANDLE handle, const fs::path& name)
{
    std::wstring path(32768, L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(handle, path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED);
    if (length == 0 || length >= path.size()) return name;
    path.resize(length);
    return path;
}

Target targetOf(const fs::path& name)
{
    OwnedHandle handle = openThere(name, GENERIC_WRITE);
    if (!handle) return {name, kNoHandle, {}};
    const auto identity = identityOf(handle.get());
    if (!identity) throw RuntimeError(ErrorNumber::accessError);
    const fs::path finally = finalName(handle.get(), name);
    return {finally, reinterpret_cast<RawHandle>(handle.release()), identity};
}

std::optional<FileIdentity> identityAt(const fs::path& name)
{
    const OwnedHandle handle = openThere(name, 0);
    if (!handle) return {};
    return identityOf(handle.get()).value_or(FileIdentity{});
}

/// A new file, or none when there is one of that name.
RawHandle createNew(const fs::path& name)
{
    const HANDLE handle =
        CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return reinterpret_cast<RawHandle>(handle);
    if (GetLastError() == ERROR_FILE_EXISTS) return kNoHandle;
    throw lastWriteError();
}

std::size_t writeSome(RawHandle handle, const char* bytes, std::size_t count)
{
    DWORD written = 0;
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(count, std::size_t{1} << 30));
    if (!WriteFile(asHandle(handle), bytes, wanted, &written, nullptr)) throw lastWriteError();
    return written;
}

void syncRaw(RawHandle handle)
{
    if (!FlushFileBuffers(asHandle(handle))) throw lastWriteError();
}

/// Has the disk take what was written so far.
void startSync(RawHandle handle)
{
    syncRaw(handle);
}

void closeRaw(RawHandle handle)
{
    if (!CloseHandle(asHandle(handle))) throw lastWriteError();
}

void putInPlace(const fs::path& temporary, const fs::path& target, bool replaces)
{
    const DWORD flags = MOVEFILE_WRITE_THROUGH | (replaces ? MOVEFILE_REPLACE_EXISTING : 0);
    if (!MoveFileExW(temporary.c_str(), target.c_str(), flags)) throw lastWriteError();
}

/// A new file has the rights that its folder gives.
void likeTarget(RawHandle, const fs::path&) {}

#else

/// What a name leads to, itself if it is a link and `follow` is not set; nothing is an answer too.
fs::file_status statusOf(const fs::path& name, bool follow)
{
    std::error_code failed;
    const fs::file_status status = follow ? fs::status(name, failed) : fs::symlink_status(name, failed);
    if (fs::status_known(status)) return status;
    errno = failed.default_error_condition().value();
    throw lastWriteError();
}

std::optional<FileIdentity> identityOf(const struct stat& status)
{
    if (!S_ISREG(status.st_mode)) return {};
    return FileIdentity{static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

/// Nothing where there is no file; the identity of none for what is no regular file.
std::optional<FileIdentity> identityAt(const fs::path& name)
{
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return {};
        throw lastWriteError();
    }
    return identityOf(status).value_or(FileIdentity{});
}

Target targetOf(fs::path name)
{
    for (int links = 0; fs::is_symlink(statusOf(name, false)); ++links) {
        if (links >= kMostLinks) throw RuntimeError(ErrorNumber::accessError);
        name = name.parent_path() / fs::read_symlink(name);
    }
    const fs::file_status status = statusOf(name, true);
    if (!fs::exists(status)) return {name, kNoHandle, {}};
    if (!fs::is_regular_file(status)) throw RuntimeError(ErrorNumber::accessError);
    const int descriptor = ::open(name.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) throw lastWriteError();
    struct stat there {};
    const bool known = ::fstat(descriptor, &there) == 0;
    if (const auto identity = known ? identityOf(there) : std::nullopt) return {name, descriptor, identity};
    const RuntimeError error = known ? RuntimeError(ErrorNumber::accessError) : lastWriteError();
    ::close(descriptor);
    throw error;
}

/// A new file, or none when there is one of that name.
RawHandle createNew(const fs::path& name)
{
    const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0 && errno != EEXIST) throw lastWriteError();
    return descriptor;
}

std::size_t writeSome(RawHandle handle, const char* bytes, std::size_t count)
{
    for (;;) {
        const ssize_t written = ::write(static_cast<int>(handle), bytes, count);
        if (written >= 0) return static_cast<std::size_t>(written);
        if (errno != EINTR) throw lastWriteError();
    }
}

void syncRaw(RawHandle handle)
{
    // Some file systems have no such call; then there is nothing to wait for.
    if (::fsync(static_cast<int>(handle)) != 0 && errno != EINVAL) throw lastWriteError();
}

/// Has the disk take what was written so far; where that can be done without waiting for it.
void startSync(RawHandle handle)
{
#ifdef __linux__
    // What fails here fails again in the end.
    ::sync_file_range(static_cast<int>(handle), 0, 0, SYNC_FILE_RANGE_WRITE);
#else
    syncRaw(handle);
#endif
}

void closeRaw(RawHandle handle)
{
    if (::close(static_cast<int>(handle)) != 0 && errno != EINTR) throw lastWriteError();
}

/// Has the disk keep the names in a folder. The file is in its place by then: a folder that may not be read,
/// or a file system without this, changes nothing of that.
void syncFolder(const fs::path& folder)
{
    const char* name = folder.empty() ? "." : folder.c_str();
    const int descriptor = ::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

/// The temporary name may stay; it is then one more of the same file.
void putInPlace(const fs::path& temporary, const fs::path& target, bool replaces)
{
    // Unlike renaming, linking never replaces. Not every file system can; there a look must do.
    const bool linked = !replaces && ::link(temporary.c_str(), target.c_str()) == 0;
    if (!replaces && !linked && (errno == EEXIST || identityAt(target)))
        throw RuntimeError(ErrorNumber::accessError);
    if (!linked && ::rename(temporary.c_str(), target.c_str()) != 0) throw lastWriteError();
    syncFolder(target.parent_path());
}

/// Gives the new file the owner, group and rights of the one that it will replace, as far as the system lets
/// it; the group's rights only together with the group.
void likeTarget(RawHandle handle, const fs::path& target)
{
    struct stat status {};
    if (::stat(target.c_str(), &status) != 0) throw lastWriteError();
    const auto descriptor = static_cast<int>(handle);
    constexpr auto kOwnerStays = static_cast<uid_t>(-1);
    mode_t rights = status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    if (::fchown(descriptor, status.st_uid, status.st_gid) != 0 &&
        ::fchown(descriptor, kOwnerStays, status.st_gid) != 0)
        rights &= static_cast<mode_t>(~S_IRWXG);
    ::fchmod(descriptor, rights);
}

#endif

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
    const Target found = targetOf(target);
    target_ = found.name;
    held_ = found.held;
    replaced_ = found.identity;
    if (!buffer_) buffer_ = std::make_unique<char[]>(kBufferBytes);
    sinceSync_ = 0;
    try {
        createTemporary();
        if (replaced_) likeTarget(handle_, target_);
    } catch (const RuntimeError&) {
        discard();
        throw;
    }
}

void OutputFile::createTemporary()
{
    constexpr int kAttempts = 10;
    for (int i = 0; i < kAttempts; ++i) {
        const fs::path name = temporaryName(target_.parent_path());
        handle_ = createNew(name);
        if (handle_ == kNone) continue;
        temporary_ = name;
        return;
    }
    throw RuntimeError(ErrorNumber::accessError);
}

void OutputFile::writeOn(std::string_view bytes)
{
    if (!isOpen()) throw RuntimeError(ErrorNumber::badFileName);
    while (!bytes.empty()) {
        if (filled_ == kBufferBytes) flush();
        const std::string_view part = bytes.substr(0, kBufferBytes - filled_);
        write(part);
        bytes.remove_prefix(part.size());
    }
}

void OutputFile::flush()
{
    if (!isOpen()) throw RuntimeError(ErrorNumber::badFileName);
    try {
        for (std::size_t done = 0; done < filled_;)
            done += writeSome(handle_, buffer_.get() + done, filled_ - done);
        sinceSync_ += std::exchange(filled_, 0);
        if (sinceSync_ < kSyncBytes) return;
        startSync(handle_);
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
        // What has a name must be whole even if the power fails now: a data file that is short looks like one
        // of fewer records.
        syncRaw(handle_);
        closeRaw(std::exchange(handle_, kNone));
        const auto there = identityAt(target_);
        if (there && there != replaced_) throw RuntimeError(ErrorNumber::accessError);
        // Some systems replace no file that is open.
        if (held_ != kNone) closeRaw(std::exchange(held_, kNone));
        putInPlace(temporary_, target_, there.has_value());
    } catch (const RuntimeError&) {
        discard();
        throw;
    }
    discard();
}

void OutputFile::discard() noexcept
{
    filled_ = 0;
    for (Handle* handle : {&handle_, &held_}) {
        try {
            if (*handle != kNone) closeRaw(std::exchange(*handle, kNone));
        } catch (const RuntimeError&) {
            // What could not be written any more is not wanted either.
        }
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
