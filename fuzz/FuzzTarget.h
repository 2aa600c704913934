/// What every fuzzing target is made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// Takes one input. Anything but returning is a fault that the input has found: a failed `require`, an error
/// that is no RuntimeError, and what sanitizers end the program for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace quorvin::fuzz {

/// Ends the program, with the input at fault, unless what must hold does.
inline void require(bool holds, const std::string& what)
{
    if (holds) return;
    std::fprintf(stderr, "Violated: %s\n", what.c_str());
    std::abort();
}

inline std::string bytesOf(const std::uint8_t* data, std::size_t size)
{
    return {data, data + size};
}

}  // namespace quorvin::fuzz
