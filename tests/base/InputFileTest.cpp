#include "base/InputFile.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "tests/support/ErrorNumber.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

using test::errorOf;

TEST(InputFile, ErrorsOfOpening)
{
    const test::TempFolder folder;
    const auto file = folder.write("a.rec", "x");
    const std::pair<std::filesystem::path, int> cases[] = {{folder.path() / "b.rec", 53},
                                                           {file / "c.rec", 76},
                                                           {folder.path(), 75},
#ifndef _WIN32
                                                           {folder.path() / std::string(5000, 'x'), 52},
#endif
                                                           {{}, 53}};
    for (const auto& c : cases) {
        InputFile input;
        EXPECT_EQ(errorOf([&] { input.open(c.first); }), c.second) << c.first;
    }
}

TEST(InputFile, ReadsWhatIsThereAndSeesItGrow)
{
    const test::TempFolder folder;
    const auto name = folder.write("a.rec", "abcdef");
    InputFile input, before;
    before.open(name);
    input = std::move(before);
    std::array<char, 4> buffer{};
    EXPECT_EQ(input.readAt(4, buffer), 2U);
    EXPECT_EQ(input.readAt(6, buffer), 0U);
    test::append(name, "gh");
    EXPECT_EQ(input.size(), 8);
    test::FileFaults faults;
    faults.portion = 1;
    EXPECT_EQ(input.readAt(4, buffer), 4U);
    EXPECT_EQ(std::string(buffer.data(), 4), "efgh");
    input.close();
    EXPECT_EQ(errorOf([&] { (void)input.size(); }), 52);
}

}  // namespace
}  // namespace quorvin
