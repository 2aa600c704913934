/// What ends quorvin-cli with a message.
#pragma once

#include <string>

namespace quorvin {

/// Words for standard error, without a line end; UTF-8.
struct CliError {
    std::string text;
};

}  // namespace quorvin
