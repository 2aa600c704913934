#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>
#include <tuple>

namespace quorvin {
namespace {

TEST(RuntimeError, OtherExceptionsBecomeItsKind)
{
    using Case = std::tuple<std::function<void()>, ErrorNumber>;
    for (const auto& [action, number] : {
             Case{[] { throw RuntimeError(ErrorNumber::subscript); }, ErrorNumber::subscript},
             Case{[] { throw std::bad_alloc(); }, ErrorNumber::outOfMemory},
             Case{[] { (void)std::filesystem::file_size("/no/such/file"); }, ErrorNumber::fileNotFound},
             Case{[] { throw std::length_error("x"); }, ErrorNumber::deviceError},
         }) {
        try {
            action();
            FAIL();
        } catch (const std::exception&) {
            EXPECT_EQ(currentError().number(), number);
        }
    }
}

}  // namespace
}  // namespace quorvin
