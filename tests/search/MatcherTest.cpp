#include "tests/search/SearchFixture.h"

namespace quorvin {
namespace {

using MatcherTest = test::SearchTest;
using test::query;

TEST_F(MatcherTest, WhatMatchesInWhichMode)
{
    struct Case {
        const char* options;
        const char* pattern;
        std::vector<std::pair<const char*, const char*>> values;  ///< each with the modes in which it matches
    };
    const Case cases[] = {
        {"", "rossi", {{"Rossi", "1234678"}, {"rossi M", "245678"}, {"A Rossi", "345678"}, {"ross", "5"}}},
        // Blank searches, empty and filled values.
        {"", "  ", {{"", "123"}, {"x", "2345678"}}},
        {"eliminapuntegg", ".", {{"-", "123"}, {"x", "2345678"}}},
        // Capitals of the code page, some of them not at the usual distance.
        {"", "\xE0", {{"citt\xC0", "345678"}, {"\xE0", "1234678"}}},
        {"", "\xC0", {{"citt\xE0", "345678"}}},
        {"", "\x9A", {{"\x8A", "1234678"}, {"\xBA", "5"}}},
        {"", "\xFF", {{"\x9F", "1234678"}, {"\xDF", "5"}}},
        {"", "\xD7", {{"\xF7", "5"}}},
        // Punctuation.
        {"", "a.b c", {{"AB-C", "57"}}},
        {"eliminapuntegg", "a.b c", {{"AB-C", "1234678"}, {"a b cd", "245678"}}},
        {"eliminapuntegg", "AB", {{"a.,-;:_' b", "1234678"}, {"a/b", "5"}}},
        {"eliminapuntegg", "12/03", {{"12-03", "5"}, {"1.2/03", "1234678"}}},
        // Words and phrases.
        {"", "MARIO   ROSSI", {{"ROSSI MARIO", "567"}, {"MARIO BIANCHI", "57"}}},
        {"", "ROSSI+MARIO", {{"ROSSI MARIO", "567"}, {"MARIO ROSSI", "5"}, {"ROSSI+MARIO", "12348"}}},
        {"", "ROSSI+MARIO VERDI", {{"VERDI ROSSI MARIO", "567"}, {"VERDI MARIO ROSSI", "57"}}},
        {"",
         "VERDI ROSSI+MARIO",
         {{"MARIO ROSSI VERDI", "567"}, {"MARIO ROSSI", "5"}, {"ROSSI MARIO", "57"}}},
        {"", "B +", {{"AB", "567"}, {"A C", "57"}}},
        // Numbers.
        {"", ">5", {{"5.1", "58"}, {"5", "5"}, {"", "5"}, {"0 >5", "345678"}}},
        {"", "<5", {{"4.9", "58"}, {"5", "5"}, {"abc", "58"}, {"", "58"}}},
        {"", "<5 >2", {{"3", "58"}, {"2", "5"}, {"5", "5"}}},
        {"", ">2 <5", {{"3", "58"}, {"1", "5"}, {"6", "5"}}},
        {"", ">abc", {{"1", "58"}, {"0", "5"}}},
        {"", ">1 000", {{"1001", "58"}, {"999", "5"}}},
        {"eliminapuntegg", ">-2", {{"-1", "5"}, {"3", "58"}}},
        // Dates on both sides, on one, on none.
        {"", ">01/01/2004", {{"2/1/2004", "58"}, {"1/1/2004", "5"}, {"31/12/2003", "5"}}},
        {"", ">01/01/2004", {{"2004", "58"}, {"1", "5"}, {"x >01/01/2004", "345678"}}},
        {"", ">38000", {{"15/06/2004", "5"}, {"38001", "58"}}},
        {"", "<1/2/2004>1/1/2004", {{"31/1/2004", "58"}, {"1/2/2004", "5"}, {"1/1/2004", "5"}}},
        {"", ">1/1/2004<1/2/2004", {{"15/1/2004", "58"}, {"15/3/2004", "5"}, {"15/12/2003", "5"}}},
        {"", "< 1/2/2004", {{"31/1/2004", "58"}}},
        {"", "<  01/2/2004", {{"31/1/2004", "5"}, {"31/2/2004", "5"}, {"0/1", "58"}}},
        {"", ">45/01/2004", {{"15/06/2004", "58"}, {"46/99", "58"}, {"44/99", "5"}}},
        {"", "<01/01/1900", {{"29/12/1899", "58"}, {"2/1/1900", "5"}}},
    };
    for (const Case& c : cases) {
        test::RecBuilder file = test::rec({{.length = 20}});
        for (const auto& [value, modes] : c.values)
            file.record({value});
        use(file.bytes());
        std::vector<std::string> found(c.values.size());
        for (int mode = 1; mode <= kSearchModes; ++mode) {
            for (const RecordNumber n : search(query(mode, {1}, {c.pattern}, c.options)))
                found[static_cast<std::size_t>(n) - 1] += std::to_string(mode);
        }
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_EQ(found[i], c.values[i].second) << c.pattern << " in " << c.values[i].first;
    }
}

}  // namespace
}  // namespace quorvin
