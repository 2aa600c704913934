/// The one error type of the program: a number and its Italian description.
#pragma once

#include <exception>

namespace quorvin {

enum class ErrorNumber {
    invalidCall = 5,
    outOfMemory = 7,
    subscript = 9,
    divisionByZero = 11,
    badFileName = 52,
    fileNotFound = 53,
    deviceError = 57,
    diskFull = 61,
    inputPastEnd = 62,
    permissionDenied = 70,
    accessError = 75,
    pathNotFound = 76,
};

/// Core code raises it; only event handlers catch it, and turn it into the box that their rule names, or into
/// silence.
class RuntimeError : public std::exception {
public:
    explicit RuntimeError(ErrorNumber number) : number_(number) {}

    ErrorNumber number() const { return number_; }
    /// Italian, ASCII only, lives as long as the program.
    const char* description() const;
    const char* what() const noexcept override { return description(); }

private:
    ErrorNumber number_;
};

/// The exception being handled, as a RuntimeError: failed allocations and file-system errors of the library
/// become theirs, anything else 57. To be called within a catch block.
RuntimeError currentError();

/// The error for a failed file-system call, from its `errno` value.
RuntimeError fileError(int errnoValue);

}  // namespace quorvin
