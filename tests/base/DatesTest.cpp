#include "base/Dates.h"

#include <gtest/gtest.h>

namespace quorvin {
namespace {

TEST(Dates, DayNumbers)
{
    struct Case {
        const char* text;
        std::int64_t day;
    };
    for (const Case& c : {Case{"30/12/1899", 0}, Case{"31/12/1899", 1}, Case{"1/1/1900", 2},
                          Case{"01/01/2000", 36526}, Case{"29/02/2000", 36585}, Case{"1/3/2000", 36586},
                          Case{"12/03/2004", 38058}, Case{"29/12/1899", -1}, Case{"31/12/9999", 2958465}}) {
        EXPECT_EQ(dayNumber(c.text), c.day) << c.text;
    }
}

TEST(Dates, TextsThatAreNoDates)
{
    for (const char* text :
         {"", "1/1/04", "31/04/2004", "29/02/1900", "00/01/2000", "1/13/2000", "1/1/20000", " 1/1/2000",
          "1/1/2000 ", "1-1-2000", "001/1/2000", "2000/1/1", "1/1", "a/b/cccc", "+1/1/2000", "1//2000"}) {
        EXPECT_FALSE(dayNumber(text)) << text;
    }
}

}  // namespace
}  // namespace quorvin
