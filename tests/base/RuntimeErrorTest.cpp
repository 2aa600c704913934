#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>

namespace quorvin {
namespace {

TEST(RuntimeError, OtherExceptionsBecomeItsKind)
{
    struct Case {
        std::function<void()> action;
        ErrorNumber number;
    };
    for (const Case& c : {
             Case{[] { throw RuntimeError(ErrorNumber::subscript); }, ErrorNumber::subscript},
             Case{[] { throw std::bad_alloc(); }, ErrorNumber::outOfMemory},
             Case{[] { (void)std::filesystem::file_size("/no/such/file"); }, ErrorNumber::fileNotFound},
             Case{[] { throw std::length_error("x"); }, ErrorNumber::deviceError},
         }) {
        try {
            c.action();
            FAIL();
        } catch (const std::exception&) {
            EXPECT_EQ(currentError().number(), c.number);
        }
    }
}

}  // namespace
}  // namespace quorvin
