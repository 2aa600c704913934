#include <algorithm>
#include <tuple>

#include "tests/search/SearchFixture.h"

namespace quorvin {
namespace {

using SearchDriverTest = test::SearchTest;
using test::query;
using test::rec;
using Numbers = std::vector<RecordNumber>;
using Lines = std::vector<std::string>;

TEST_F(SearchDriverTest, LinesOfTheLists)
{
    const std::string letters = "zabcdefghijklmnopqrSTuvwxyz0123456789ABCDEFG";
    use(rec({{.length = 44}, {.length = 6}, {.length = 3}})
            .record({letters, "  Pisa", " 7"})
            .record({"Rossi", "Roma"})
            .bytes());
    const auto blanks = [](std::size_t count) { return std::string(count, ' '); };
    const std::tuple<const char*, std::vector<int>, int, Lines> cases[] = {
        {"maxel", {1, 2}, 1, {" 1. " + letters + " ", " 2. Rossi "}},
        {"Check2", {2, 3}, 1, {" 1. " + letters + "   Pisa", " 2. Rossi Roma"}},
        {"Check2", {2}, 3, {" 1.  7 ", " 2.  "}},
        {"sort", {2, 3}, 1, {"Rossi" + blanks(16) + "[2]", letters.substr(0, 19) + "  [1]"}},
        {"sort maxel", {1}, 1, {"Rossi" + blanks(35) + "[2]", letters.substr(0, 38) + "  [1]"}},
        {"sort Check2",
         {3, 2, 1},
         1,
         {"Rossi" + blanks(15) + "Roma [2]", letters.substr(0, 19) + "   Pisa [1]"}},
        {"sort Check2", {1}, 3, {"     [2]", " 7   [1]"}},
    };
    for (const auto& [options, selection, startField, expected] : cases) {
        SearchQuery q = query(2, selection, Lines(selection.size(), " "), options);
        q.startField = startField;
        EXPECT_EQ(run(q), 0);
        EXPECT_EQ(lines(), expected);
    }
}

TEST(HitList, NumbersAreReadBack)
{
    EXPECT_EQ(recordNumberOf(HitListKind::List1, " 12. ROSSI [3] 4.5"), 12);
    EXPECT_EQ(recordNumberOf(HitListKind::List2, "1.5 ROSSI  [12]"), 12);
    EXPECT_EQ(recordNumberOf(HitListKind::List2, "A[5]B  [12]"), 5);
    EXPECT_EQ(recordNumberOf(HitListKind::List2, "A[x  [12]"), 0);
}

TEST_F(SearchDriverTest, OrderOfList2)
{
    test::RecBuilder file = rec({{.length = 12}});
    for (const char* value : {"alfa [1", "alfa", "Alfa", "\xE0", "abcdefghX", "abcdefghb", "_", "", "\x9A",
                              "ALFA", "zeta", "abcdefgh\xE0", "bbbbbbbbY", "bbbbbbbbx"})
        file.record({value});
    use(file.bytes());
    run(query(2, {1}, {" "}, "sort"));
    Numbers order;
    for (const std::string& line : lines())
        order.push_back(static_cast<RecordNumber>(recordNumberOf(HitListKind::List2, line)));
    EXPECT_EQ(order, (Numbers{8, 6, 5, 12, 2, 3, 10, 1, 14, 13, 11, 7, 9, 4}));
}

TEST_F(SearchDriverTest, OrderOfManyLines)
{
    test::RecBuilder file = rec({{.length = 38}});
    std::vector<std::pair<std::string, int>> expected;
    for (int n = 1; n <= 30000; ++n) {
        expected.emplace_back((n % 3 == 0 ? "" : "abcdefgh") + std::to_string(1000 + n * 7919 % 1501), n);
        file.record({expected.back().first});
    }
    use(file.bytes());
    run(query(4, {1}, {" "}, "sort maxel"));
    std::sort(expected.begin(), expected.end());
    const Lines found = lines();
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t row = 0; row < found.size(); ++row) {
        std::string value = expected[row].first;
        value.resize(38, ' ');
        ASSERT_EQ(found[row], value + "  [" + std::to_string(expected[row].second) + "]");
    }
}

TEST_F(SearchDriverTest, Ranges)
{
    use(rec({{}}).records(4).bytes());
    test::append(name_, "r5   !\r\n");
    using enum SearchDriver::Started;
    using Case = std::tuple<double, double, SearchDriver::Started, Numbers>;
    const Case cases[] = {{0, 3, badStart, {}},
                          {0.9, 3, badStart, {}},
                          {-1, 0, badStart, {}},
                          {1, 0, badEnd, {}},
                          {1, -2, badEnd, {}},
                          {1, 6, badEnd, {}},
                          {9, 6, badEnd, {}},
                          {1, 5.9, running, {1, 2, 3, 4, 5}},
                          {2.7, 4.2, running, {2, 3, 4}},
                          {5, 5, running, {5}},
                          {5, 3, running, {}},
                          {9, 3, running, {}}};
    for (const auto& [from, to, started, found] : cases) {
        SearchQuery q = query(4, {1}, {" "});
        q.range = {from, to};
        consumer_.hits.clear();
        EXPECT_EQ(driver_.start(q), started) << from << " to " << to;
        EXPECT_EQ(finish(), 0);
        EXPECT_EQ(consumer_.hits, found) << from << " to " << to;
    }
    EXPECT_EQ(search(query(4, {1}, {" "})), (Numbers{1, 2, 3, 4, 5}));
}

TEST_F(SearchDriverTest, AConsumerMayWantNoSearch)
{
    use(rec({{.length = 1}}).record({"a"}).bytes());
    using enum SearchDriver::Started;
    using Case = std::tuple<double, bool, bool, SearchDriver::Started, int, const char*>;
    for (const auto& [from, firstWilling, secondWilling, started, secondAsked, log] :
         {Case{0, true, false, badStart, 0, ""}, Case{1, false, true, refused, 0, ""},
          Case{1, true, false, refused, 1, ""},
          Case{1, true, true, running, 1, "starts 1-1, matched A, hit a, completed"}}) {
        failing_.willing = firstWilling;
        consumer_.willing = secondWilling;
        consumer_.asked = 0;
        SearchQuery q = query(4, {1}, {" "});
        q.range = {from, {}};
        EXPECT_EQ(driver_.start(q), started);
        EXPECT_EQ(finish(), 0);
        EXPECT_EQ(consumer_.asked, secondAsked);
        EXPECT_EQ(failing_.log, log) << "all are asked before one is told of a search";
        EXPECT_EQ(consumer_.log, log);
    }
}

TEST_F(SearchDriverTest, OptionsAndCriteria)
{
    use(rec({{.length = 6}, {.length = 6}})
            .record({"Ros", "  si"})
            .record({" ros", "SI"}, '?')
            .record({"", "rossi"})
            .bytes());
    using Case = std::tuple<const char*, Lines, Numbers, const char*>;
    const Case cases[] = {
        {"", {"ROS ", " s"}, {1, 2}, " 1.ROS   2.S   2"},
        {"norec", {"ros", "s"}, {1}, " 1.ROS   2.S   1"},
        {"unirek", {"rossi", "ssi"}, {1, 2, 3}, " 1.ROSSI   2.SSI   3"},
        {"", {"rossi", "ssi"}, {}, " 1.ROSSI   2.SSI   0"},
    };
    for (const auto& [options, texts, found, criteria] : cases) {
        EXPECT_EQ(search(query(4, {1, 2}, texts, options)), found) << criteria;
        EXPECT_EQ(driver_.criteria(), criteria);
    }
}

TEST_F(SearchDriverTest, AFieldJoinedAtOnePlaceCarriesTheJoinedValueAtAll)
{
    use(rec({{.length = 3}, {.length = 3}}).record({"abc", "xyz"}).bytes());
    SearchQuery q = query(6, {1, 2, 1}, {"xyz", "xyz", "xyz"}, "unirek");
    q.joinList.clear();
    q.joinList.append(2);
    q.joinList.append(1);
    EXPECT_EQ(search(q), Numbers{1});
    q.mode = SearchMode::contains;
    EXPECT_EQ(search(q), Numbers{}) << "tested before the join is made";
}

TEST_F(SearchDriverTest, MoreThanFiftyWordsEndASearchAtTheFirstRecordTested)
{
    use(rec({{.length = 1}}).record({"a"}, '?').record({"b"}, '?').record({"c"}).bytes());
    const std::tuple<int, int, const char*, double, int, const char*> cases[] = {
        {6, 50, "", 3, 0, "starts 1-3, completed"},
        {7, 50, "", 1, 0, "starts 1-1, matched A, hit a, completed"},
        {6, 51, "", 2, 9, "starts 1-2, failed"},
        {7, 51, "norec", 3, 9, "starts 1-3, failed"},
        {7, 51, "norec", 2, 0, "starts 1-2, completed"},
        {4, 51, "", 3, 0, "starts 1-3, completed"},
    };
    for (const auto& [mode, count, options, to, error, log] : cases) {
        std::string words = "b";
        for (int n = 1; n < count; ++n)
            words += "  a";
        SearchQuery q = query(mode, {1, 1}, {"a c", words + " "}, options);
        q.range = {1, to};
        EXPECT_EQ(run(q), error) << mode << log;
        EXPECT_EQ(consumer_.log, log) << mode;
    }
}

TEST_F(SearchDriverTest, AsksAtEachHitUntilRefused)
{
    const auto file = [](const char* third) {
        return rec({{.length = 1}}).record({"a"}).record({"b"}).record({third}).record({"a"}).bytes();
    };
    use(file("a"));
    driver_.start(query(1, {1}, {"a"}, "step"));
    EXPECT_EQ(driver_.advance(1000), State::atHit);
    EXPECT_EQ(driver_.advance(1000), State::atHit);
    EXPECT_EQ(driver_.position(), 1);
    folder_.write("prova.rec", file("c"));
    driver_.goOn();
    EXPECT_EQ(driver_.advance(1), State::running);
    EXPECT_EQ(driver_.advance(2), State::atHit);
    EXPECT_EQ(driver_.position(), 4) << "the third has changed during the pause";
    driver_.refuse();
    EXPECT_EQ(finish(), 0);
    EXPECT_EQ(consumer_.log, "starts 1-4, matched A, hit a, matched A, refused");
    EXPECT_EQ(driver_.criteria(), " 1.A   2");
}

TEST_F(SearchDriverTest, StoppingKeepsWhatWasFound)
{
    use(rec({{.length = 1}}).record({"b"}).record({"x"}).record({"a"}).record({"a"}).bytes());
    driver_.start(query(7, {1}, {"a b"}, "sort"));
    driver_.advance(3);
    driver_.stop();
    EXPECT_EQ(finish(), 0);
    EXPECT_EQ(consumer_.log, "starts 1-4, matched B, hit b, matched A, hit a, stopped");
    EXPECT_EQ(lines(), (Lines{"a  [3]", "b  [1]"}));

    driver_.start(query(7, {1}, {"a b"}, "sort"));
    driver_.advance(4);
    driver_.stop();
    driver_.stop();
    EXPECT_EQ(finish(), 0);
    EXPECT_EQ(lines(), (Lines{"b  [1]", "a  [3]", "a  [4]"})) << "stopped once more, while they are sorted";
}

TEST_F(SearchDriverTest, AConsumerThatFailsEndsTheSearch)
{
    use(rec({{.length = 1}}).record({"a"}).record({"-"}).record({"b"}).bytes());
    const std::string all = "starts 1-3, matched A, hit a, matched B, hit b, completed";
    using Case = std::tuple<const char*, const char*, std::string, double>;
    const Case cases[] = {
        {"", "", all, 2},
        {"step", "", all, 2},
        {"", "starts 1-3", "", 0},
        {"", "matched B", "starts 1-3, matched A, hit a, failed", 1},
        {"", "hit a", "starts 1-3, matched A, failed", 1},
        {"step", "hit a", "starts 1-3, matched A, failed", 1},
        {"", "completed", all, 2},
    };
    for (const auto& [options, failsAt, log, hitCount] : cases) {
        failing_.failsAt = failsAt;
        EXPECT_EQ(run(query(5, {1}, {"-"}, options)), *failsAt == 0 ? 0 : 61) << failsAt;
        EXPECT_EQ(consumer_.log, log) << failsAt;
        EXPECT_EQ(driver_.hitCount(), hitCount) << failsAt;
        EXPECT_EQ(lines().size(), *options == 0 ? hitCount : 0) << failsAt;
    }
}

TEST_F(SearchDriverTest, RecordsThatGoOnForLongTakeMoreOfAStep)
{
    // The first record is an empty line; each of the others begins one character further in a long one, which
    // ends in the block that is read at once, or not.
    for (const std::size_t length : {10000U, 500000U}) {
        use(rec({{.length = 3}}, 1, "\n").bytes() + '\n' + std::string(length, 'a') + '\n');
        driver_.start(query(1, {1}, {"aa"}));
        driver_.advance(1000);
        EXPECT_LT(driver_.position(), 110) << length;
        driver_.stop();
        EXPECT_EQ(finish(), 0);
    }
}

TEST_F(SearchDriverTest, AFileCutShortMeanwhileEndsTheSearch)
{
    const std::string bytes = rec({{.length = 40}}).records(9000).bytes();
    use(bytes);
    driver_.start(query(2, {1}, {"r"}));
    driver_.advance(10);
    // A thousand records of 43 bytes and one byte more are cut off.
    std::filesystem::resize_file(name_, bytes.size() - 43001);
    EXPECT_EQ(finish(), 62);
    EXPECT_EQ(driver_.hitCount(), 7999);
    EXPECT_EQ(lines().size(), 7999U);
    EXPECT_TRUE(consumer_.log.ends_with(", failed"));
}

}  // namespace
}  // namespace quorvin
