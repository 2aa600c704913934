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
    FieldTable t;
    t.addFields({kLine});
    const std::pair<std::string, const char*> items[] = {
        {t.fieldMark[1], "#"},     {t.fieldName[1], "NAME567890"}, {t.fieldNameWork[1], "NAME567890"},
        {t.questionX[1], "111"},   {t.questionY[1], "222"},        {t.questionColour[1], "333"},
        {t.fieldX[1], "444"},      {t.fieldY[1], "555"},           {t.fieldType[1], "666"},
        {t.fieldLength[1], " 77"}, {t.fieldColour[1], "888"},      {t.questionText[1], "question"},
    };
    for (const auto& [item, expected] : items)
        EXPECT_EQ(item, expected);
}

TEST(FieldTable, LinesCutShortAndLengths)
{
    struct Case {
        std::string line;
        int error;
        int length;
        const char* question;
    };
    const std::string line = kLine;
    const auto with = [&](const char* item) { return std::string(line).replace(37, 3, item); };
    for (const Case& c :
         {Case{"", 0, 0, ""}, Case{line.substr(0, 11), 0, 0, ""}, Case{line.substr(0, 38), 0, 0, ""},
          Case{line.substr(0, 39), 0, 7, ""}, Case{line.substr(0, 45), 0, 77, ""},
          Case{line.substr(0, 46), 0, 77, "q"}, Case{with("  0"), 0, 0, "question"},
          Case{with("abc"), 0, 0, "question"}, Case{with("2.9"), 0, 2, "question"},
          Case{with("999"), 0, 999, "question"}, Case{with("1 2"), 0, 12, "question"},
          Case{with(" -1"), 5, 0, ""}, Case{with("-.5"), 5, 0, ""}}) {
        FieldTable table;
        EXPECT_EQ(errorOf([&] { table.addFields({kLine, c.line}); }), c.error) << c.line;
        EXPECT_EQ(table.fieldCount, c.error ? 1 : 2) << "the field before it stays";
        if (c.error) continue;
        EXPECT_EQ(table.length(2), c.length) << c.line;
        EXPECT_EQ(table.questionText[2], c.question) << c.line;
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
    const char* values[] = {"", "ab ", "", "cdef"};
    for (int n = 0; n <= 3; ++n)
        EXPECT_EQ(table.fieldValue("ab cdef", n), values[n]);
    EXPECT_EQ(table.fieldValue("ab cd", 3), "cd");
    EXPECT_EQ(table.fieldValue("ab", 3), "");
    EXPECT_EQ(errorOf([&] { (void)table.fieldValue("ab cdef", 4); }), 9);
}

}  // namespace
}  // namespace quorvin
