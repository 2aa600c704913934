#include <algorithm>
#include <random>

#include "tests/search/SearchFixture.h"
#include "tests/search/SlowSearch.h"

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

/// Records and search texts by chance, of few different characters so that much is found.
class Chance {
public:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string some(std::string_view of, std::size_t count)
    {
        std::string text;
        while (text.size() < count)
            text += of[below(of.size())];
        return text;
    }
    std::string any(std::size_t most) { return some("aAbB12  +></.'-\xE0\xC0\x9A\x8A", below(most + 1)); }
    std::string number() { return some("123", 1 + below(2)); }
    std::string date() { return number() + "/" + some("123", 1) + "/200" + some("34", 1); }
    std::string numeric() { return below(2) == 0 ? number() : date(); }

    std::vector<std::string> record()
    {
        return {any(70), any(12), any(1), below(2) == 0 ? number() : any(3),
                below(4) == 0 ? any(10) : numeric()};
    }

    /// `values`: those of some record.
    std::string pattern(const std::vector<std::string>& values)
    {
        const std::string& value = values[below(values.size())];
        const std::string part = value.substr(below(value.size() + 1), below(2) == 0 ? 3 : 20);
        const std::string interval = some("<>", 1) + any(1) + numeric();
        const std::string texts[] = {value,
                                     part,
                                     any(3),
                                     part + " " + any(2),
                                     part + "+" + any(1) + " " + any(2),
                                     interval,
                                     interval + some(" <>", 1) + interval};
        return texts[below(std::size(texts))];
    }

private:
    std::mt19937 random_{20040615};
};

TEST_F(MatcherTest, AgreesWithTheSlowComparison)
{
    Chance chance;
    test::RecBuilder built =
        test::rec({{.length = 70}, {.length = 12}, {.length = 1}, {.length = 3}, {.length = 10}});
    for (int n = 0; n < 300; ++n)
        built.record(chance.record());
    // The last hundred records stand beside their places.
    use(std::string(built.bytes()).insert(built.bytes().size() * 2 / 3, 25, 'x'));
    std::vector<std::vector<std::string>> records;
    for (RecordNumber n = 1; n <= file_.recordCount(); ++n) {
        file_.seek(n);
        file_.caricastring();
        records.emplace_back();
        for (int field = 0; field <= file_.fieldCount(); ++field)
            records.back().emplace_back(file_.fieldValue(field));
    }
    for (int mode = 1; mode <= kSearchModes; ++mode) {
        std::size_t found = 0;
        for (int round = 0; round < 200; ++round) {
            const std::string options =
                std::string(round % 2 == 0 ? "eliminapuntegg " : "") + (round % 4 > 1 ? "unirek" : "");
            test::SlowSearch slow{mode, round % 2 == 0, {}, {}, 0};
            do {
                slow.selection.push_back(1 + static_cast<int>(chance.below(5)));
                slow.texts.push_back(chance.pattern(records[chance.below(records.size())]));
            } while (slow.selection.size() < 3 && chance.below(2) == 0);
            SearchQuery q = query(mode, slow.selection, slow.texts, options);
            if (q.unirek) slow.joined = slow.selection.size();
            if (q.unirek && slow.selection.size() > 1) {
                // The first field stands before the join list.
                q.joinList.clear();
                for (std::size_t i = 1; i < slow.selection.size(); ++i)
                    q.joinList.append(slow.selection[i]);
                --slow.joined;
            }
            file_.impostMaiusc = chance.below(2) == 0;
            const std::vector<RecordNumber> hits = search(q);
            found += hits.size();
            for (std::size_t i = 0; i < records.size(); ++i) {
                const bool hit =
                    std::binary_search(hits.begin(), hits.end(), static_cast<RecordNumber>(i) + 1);
                ASSERT_EQ(hit, isHit(slow, records[i]))
                    << "mode " << mode << options << testing::PrintToString(slow.texts)
                    << testing::PrintToString(slow.selection) << testing::PrintToString(records[i]);
            }
        }
        EXPECT_GT(found, 1000U) << "too little to tell anything, mode " << mode;
    }
}

}  // namespace
}  // namespace quorvin
