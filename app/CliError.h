/// What ends quorvin-cli with a message.
#pragma once

#include <string>

#include "view/Messages.h"

namespace quorvin {

/// Words for standard error, without a line end; UTF-8.
struct CliError {
    std::string text;
};

/// Ends the program with words behind the usual prefix.
[[noreturn]] inline void fail(const std::string& words)
{
    throw CliError{messages::kError + words};
}

}  // namespace quorvin
