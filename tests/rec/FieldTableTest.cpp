#include "rec/FieldTable.h"

#include <gtest/gtest.h>

#include "tests/support/ErrorNumber.h"
#include "tests/support/RecBuilder.h"

namespace quorvin {
namespace {

using test::errorOf;

/// Columns     1         2         3         4
///    1234567890123456789012345678901234567890123456789
constexpr const char* kLine = "#NAME567890zz111a222b333c444d555e666f 77g888hquestion";

TEST(FieldTable, ItemsAreCutByColumns)
{
    FieldTable table;
    table.addFields({kLine});
    EXPECT_EQ(table.fieldMark[1], "#");
    EXPECT_EQ(table.fieldName[1], "NAME567890");
    EXPECT_EQ(table.fieldNameWork[1], "NAME567890");
    EXPECT_EQ(table.questionX[1], "111");
    EXPECT_EQ(table.questionY[1], "222");
    EXPECT_EQ(table.questionColour[1], "333");
    EXPECT_EQ(table.fieldX[1], "444");
    EXPECT_EQ(table.fieldY[1], "555");
    EXPECT_EQ(table.fieldType[1], "666");
    EXPECT_EQ(table.fieldLength[1], " 77");
    EXPECT_EQ(table.fieldColour[1], "888");
    EXPECT_EQ(table.questionText[1], "question");
    EXPECT_EQ(table.length(1), 77);
    EXPECT_EQ(table.fieldCount, 1);
}

TEST(FieldTable, LinesCutShort)
{
    const std::string line = kLine;
    struct Case {
        std::size_t columns;
        int length;
        const char* question;
    };
    for (const Case& c : {Case{0, 0, ""}, Case{11, 0, ""}, Case{37, 0, ""}, Case{38, 0, ""}, Case{39, 7, ""},
                          Case{40, 77, ""}, Case{45, 77, ""}, Case{46, 77, "q"}}) {
        FieldTable table;
        table.addFields({line.substr(0, c.columns)});
        EXPECT_EQ(table.length(1), c.length) << c.columns;
        EXPECT_EQ(table.questionText[1], c.question) << c.columns;
    }
}

TEST(FieldTable, LengthsThatAreNoLengths)
{
    struct Case {
        const char* item;
        int length;
        int error;
    };
    for (const Case& c : {Case{"  0", 0, 0}, Case{"abc", 0, 0}, Case{"2.9", 2, 0}, Case{"999", 999, 0},
                          Case{"1 2", 12, 0}, Case{" -1", 0, 5}, Case{"-.5", 0, 5}}) {
        std::string line = kLine;
        line.replace(37, 3, c.item);
        FieldTable table;
        EXPECT_EQ(errorOf([&] { table.addFields({kLine, line}); }), c.error) << c.item;
        EXPECT_EQ(table.fieldCount, c.error ? 1 : 2) << "the field before it stays";
        EXPECT_EQ(c.error ? 0 : table.length(2), c.length) << c.item;
    }
}

TEST(FieldTable, TwoHundredFieldsAndNoMore)
{
    const std::vector<std::string> lines(201, test::definitionLine({.length = 999}));
    FieldTable table;
    EXPECT_EQ(errorOf([&] { table.addFields(lines); }), 9);
    EXPECT_EQ(table.fieldCount, 200);
    EXPECT_EQ(table.recordLength, 200 * 999);
    EXPECT_EQ(table.fieldOffset[200], 199 * 999);
}

TEST(FieldTable, DefinitionsOneColumnToTheLeft)
{
    const std::string narrow = "_TITLE        1   1  30   0   0  15   0 112 TITOLO";
    const std::string wide = "_NOTE        12  22  30 100   3   1 250 112 note";
    FieldTable table;
    table.addFields({narrow, wide});
    EXPECT_EQ(table.questionText[1], "TITOLO");
    EXPECT_EQ(table.fieldColour[1], "112");
    EXPECT_EQ(table.length(2), 250);
    EXPECT_EQ(table.fieldX[2], "100");

    FieldTable mixed;
    mixed.addFields({narrow, test::definitionLine({.question = "nota"})});
    EXPECT_EQ(mixed.questionText[1], "ITOLO") << "one line in its columns, and all are read by columns";
    EXPECT_EQ(mixed.questionText[2], "nota");

    FieldTable marked;
    marked.addFields({"_MARKED      10 x10 x10 x10 x10 x10 x12 x10 xnota"});
    EXPECT_EQ(marked.length(1), 12) << "what parts the items is no digit of theirs";
    EXPECT_EQ(marked.questionText[1], "nota");
}

TEST(FieldTable, ValuesAreCutFromTheRecord)
{
    FieldTable table;
    table.addFields({test::definitionLine({.length = 3}), test::definitionLine({.length = 0}),
                     test::definitionLine({.length = 4})});
    EXPECT_EQ(table.fieldValue("ab cdef", 1), "ab ");
    EXPECT_EQ(table.fieldValue("ab cdef", 2), "");
    EXPECT_EQ(table.fieldValue("ab cdef", 3), "cdef");
    EXPECT_EQ(table.fieldValue("ab cd", 3), "cd");
    EXPECT_EQ(table.fieldValue("ab", 3), "");
    EXPECT_EQ(table.fieldValue("ab cdef", 0), "");
    EXPECT_EQ(errorOf([&] { (void)table.fieldValue("ab cdef", 4); }), 9);
}

}  // namespace
}  // namespace quorvin
