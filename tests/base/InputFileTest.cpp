#include "base/InputFile.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "tests/support/ErrorNumber.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

using test::errorOf;

TEST(InputFile, ErrorsOfOpening)
{
    const test::TempFolder folder;
    const auto file = folder.write("a.rec", "x");
    struct Case {
        std::filesystem::path name;
        int error;
    };
    for (const Case& c :
         {Case{folder.path() / "b.rec", 53}, Case{file / "c.rec", 76}, Case{folder.path(), 75},
          Case{folder.path() / std::string(5000, 'x'), 52}, Case{std::filesystem::path(), 53}}) {
        InputFile input;
        EXPECT_EQ(errorOf([&] { input.open(c.name); }), c.error) << c.name;
        EXPECT_FALSE(input.isOpen());
    }
}

TEST(InputFile, ReadsWhatIsThereAndSeesItGrow)
{
    const test::TempFolder folder;
    const auto name = folder.write("a.rec", "abcdef");
    InputFile input;
    input.open(name);
    std::array<char, 4> buffer{};
    EXPECT_EQ(input.readAt(4, buffer), 2U);
    EXPECT_EQ(buffer[0], 'e');
    EXPECT_EQ(input.readAt(6, buffer), 0U);
    test::append(name, "gh");
    EXPECT_EQ(input.size(), 8);
    EXPECT_EQ(input.readAt(4, buffer), 4U);
    EXPECT_EQ(buffer[3], 'h');
}

TEST(InputFile, HandlesAreGivenOnAndClosed)
{
    const test::TempFolder folder;
    InputFile first;
    first.open(folder.write("a.rec", "a"));
    InputFile second = std::move(first);
    EXPECT_EQ(second.size(), 1);
    second.close();
    EXPECT_EQ(errorOf([&] { (void)second.size(); }), 52);
}

}  // namespace
}  // namespace quorvin
