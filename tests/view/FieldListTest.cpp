#include "view/FieldList.h"

#include <gtest/gtest.h>

#include "tests/support/ErrorNumber.h"

namespace quorvin {
namespace {

TEST(FieldList, KeepsTheOrderOfTwoHundredClicksAndRepeats)
{
    FieldList list;
    for (const int field : {7, 3, 7})
        list.append(field);
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.at(3), 7);
    EXPECT_EQ(list.at(2), 3);
    EXPECT_EQ(list.at(0), 0);
    EXPECT_EQ(test::errorOf([&] { (void)list.at(4); }), 9);
    while (list.count() < 200)
        list.append(1);
    EXPECT_EQ(test::errorOf([&] { list.append(1); }), 9);
    EXPECT_EQ(list.count(), 200);
}

}  // namespace
}  // namespace quorvin
