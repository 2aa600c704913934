/// Our own code calls the system through pointers named __imp_...; the linker puts those of this file, named
/// with __wrap_ before that, in their place, and calls the system's own __real___imp_...

#include <windows.h>

#include <cerrno>

#include "tests/support/FaultyCalls.h"

namespace {

using quorvin::test::faultsMutex;
using quorvin::test::portionOf;
using quorvin::test::presentFaults;

/// Says what went wrong the way this system does.
void sayError()
{
    SetLastError(errno == ENOSPC ? ERROR_DISK_FULL : errno == EACCES ? ERROR_ACCESS_DENIED : ERROR_IO_DEVICE);
}

bool isToFail()
{
    const bool fails = quorvin::test::isToFail();
    if (fails) sayError();
    return fails;
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
extern "C" {

// A call that fails gives `failure`; all of them take their arguments as they are.
#define WRAP(result, call, failure, parameters, ...)                                                         \
    extern result(WINAPI* __real___imp_##call) parameters;                                                   \
    static result WINAPI faulty##call parameters                                                             \
    {                                                                                                        \
        return isToFail() ? (failure) : __real___imp_##call(__VA_ARGS__);                                    \
    }                                                                                                        \
    result(WINAPI* __wrap___imp_##call) parameters = faulty##call;

WRAP(HANDLE, CreateFileW, INVALID_HANDLE_VALUE,
     (LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD how, DWORD flags,
      HANDLE like),
     name, access, share, security, how, flags, like)
WRAP(DWORD, GetFileAttributesW, INVALID_FILE_ATTRIBUTES, (LPCWSTR name), name)
WRAP(BOOL, GetFileSizeEx, FALSE, (HANDLE file, PLARGE_INTEGER size), file, size)
WRAP(BOOL, GetFileInformationByHandle, FALSE, (HANDLE file, LPBY_HANDLE_FILE_INFORMATION info), file, info)
WRAP(DWORD, GetFinalPathNameByHandleW, 0, (HANDLE file, LPWSTR path, DWORD room, DWORD flags), file, path,
     room, flags)
WRAP(BOOL, DuplicateHandle, FALSE,
     (HANDLE from, HANDLE handle, HANDLE to, LPHANDLE copy, DWORD access, BOOL inherits, DWORD options), from,
     handle, to, copy, access, inherits, options)
WRAP(BOOL, ReadFile, FALSE, (HANDLE file, LPVOID to, DWORD count, LPDWORD got, LPOVERLAPPED place), file, to,
     static_cast<DWORD>(portionOf(count)), got, place)

extern BOOL(WINAPI* __real___imp_WriteFile)(HANDLE, LPCVOID, DWORD, LPDWORD, LPOVERLAPPED);
static BOOL WINAPI faultyWriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written,
                                   LPOVERLAPPED place)
{
    if (isToFail()) return FALSE;
    const std::lock_guard lock(faultsMutex);
    const auto taken = presentFaults ? static_cast<DWORD>(presentFaults->take(count)) : count;
    if (taken > 0 || count == 0) return __real___imp_WriteFile(file, bytes, taken, written, place);
    sayError();
    return FALSE;
}
BOOL(WINAPI* __wrap___imp_WriteFile)(HANDLE, LPCVOID, DWORD, LPDWORD, LPOVERLAPPED) = faultyWriteFile;

extern BOOL(WINAPI* __real___imp_FlushFileBuffers)(HANDLE);
static BOOL WINAPI faultyFlushFileBuffers(HANDLE file)
{
    if (isToFail()) return FALSE;
    const std::lock_guard lock(faultsMutex);
    if (!presentFaults) return __real___imp_FlushFileBuffers(file);
    // Nobody is to wait for the disk.
    presentFaults->synced();
    return TRUE;
}
BOOL(WINAPI* __wrap___imp_FlushFileBuffers)(HANDLE) = faultyFlushFileBuffers;

extern BOOL(WINAPI* __real___imp_CloseHandle)(HANDLE);
static BOOL WINAPI faultyCloseHandle(HANDLE handle)
{
    // What cannot be closed without a fault is closed all the same.
    const bool fails = quorvin::test::isToFail();
    const BOOL closed = __real___imp_CloseHandle(handle);
    if (!fails) return closed;
    sayError();
    return FALSE;
}
BOOL(WINAPI* __wrap___imp_CloseHandle)(HANDLE) = faultyCloseHandle;

extern BOOL(WINAPI* __real___imp_MoveFileExW)(LPCWSTR, LPCWSTR, DWORD);
static BOOL WINAPI faultyMoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags)
{
    quorvin::test::noteNamed();
    return isToFail() ? FALSE : __real___imp_MoveFileExW(from, to, flags);
}
BOOL(WINAPI* __wrap___imp_MoveFileExW)(LPCWSTR, LPCWSTR, DWORD) = faultyMoveFileExW;

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
