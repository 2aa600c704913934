/// The number of the error that an action raises.
#pragma once

#include <functional>

#include "base/RuntimeError.h"

namespace quorvin::test {

/// 0 when it raises none.
inline int errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
    return 0;
}

}  // namespace quorvin::test
