#include "base/RuntimeError.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <new>

namespace quorvin {

namespace {

struct Description {
    ErrorNumber number;
    const char* text;
};

constexpr std::array kDescriptions = {
    Description{ErrorNumber::invalidCall, "Chiamata di routine o argomento non validi"},
    Description{ErrorNumber::outOfMemory, "Memoria insufficiente"},
    Description{ErrorNumber::subscript, "Indice non incluso nell'intervallo"},
    Description{ErrorNumber::divisionByZero, "Divisione per zero"},
    Description{ErrorNumber::badFileName, "Nome o numero di file non valido"},
    Description{ErrorNumber::fileNotFound, "Impossibile trovare il file"},
    Description{ErrorNumber::deviceError, "Errore di I/O della periferica"},
    Description{ErrorNumber::diskFull, "Disco pieno"},
    Description{ErrorNumber::inputPastEnd, "Input oltre la fine del file"},
    Description{ErrorNumber::permissionDenied, "Autorizzazione negata"},
    Description{ErrorNumber::accessError, "Errore di accesso al percorso/file"},
    Description{ErrorNumber::pathNotFound, "Impossibile trovare il percorso"},
};

}  // namespace

const char* RuntimeError::description() const
{
    for (const Description& entry : kDescriptions) {
        if (entry.number == number_) return entry.text;
    }
    return "";
}

RuntimeError currentError()
{
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(ErrorNumber::outOfMemory);
    } catch (const std::filesystem::filesystem_error& error) {
        return fileError(error.code().default_error_condition().value());
    } catch (const std::exception&) {
        return RuntimeError(ErrorNumber::deviceError);
    }
}

RuntimeError fileError(int errnoValue)
{
    switch (errnoValue) {
    case ENOENT:
        return RuntimeError(ErrorNumber::fileNotFound);
    case ENOTDIR:
        return RuntimeError(ErrorNumber::pathNotFound);
    case EACCES:
    case EPERM:
        return RuntimeError(ErrorNumber::permissionDenied);
    case EISDIR:
    case EROFS:
        return RuntimeError(ErrorNumber::accessError);
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return RuntimeError(ErrorNumber::diskFull);
    case ENOMEM:
        return RuntimeError(ErrorNumber::outOfMemory);
    case EINVAL:
    case ENAMETOOLONG:
        return RuntimeError(ErrorNumber::badFileName);
    default:
        return RuntimeError(ErrorNumber::deviceError);
    }
}

}  // namespace quorvin
