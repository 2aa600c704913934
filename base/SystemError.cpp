#include "base/SystemError.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

namespace quorvin {

#ifdef _WIN32

RuntimeError lastSystemError()
{
    switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
        return RuntimeError(ErrorNumber::fileNotFound);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return RuntimeError(ErrorNumber::pathNotFound);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return RuntimeError(ErrorNumber::permissionDenied);
    case ERROR_WRITE_PROTECT:
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
        return RuntimeError(ErrorNumber::accessError);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return RuntimeError(ErrorNumber::diskFull);
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
        return RuntimeError(ErrorNumber::badFileName);
    default:
        return RuntimeError(ErrorNumber::deviceError);
    }
}

#else

RuntimeError lastSystemError()
{
    return fileError(errno);
}

#endif

RuntimeError lastWriteError()
{
    RuntimeError error = lastSystemError();
    switch (error.number()) {
    case ErrorNumber::permissionDenied:
        return RuntimeError(ErrorNumber::accessError);
    case ErrorNumber::fileNotFound:
        return RuntimeError(ErrorNumber::pathNotFound);
    default:
        return error;
    }
}

}  // namespace quorvin
