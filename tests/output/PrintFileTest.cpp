#include "output/PrintFile.h"

#include <limits>
#include <tuple>

#include "output/IntervalPrint.h"
#include "output/PrintMatrix.h"
#include "tests/search/SearchFixture.h"

namespace quorvin {
namespace {

using test::query;
using test::rec;

const std::string kSeparator = std::string(78, '<') + "\r\n";

class PrintFileTest : public test::SearchTest {
protected:
    PrintFileTest()
    {
        driver_.addConsumer(print_);
        print_.stamp2 = true;
    }

    void setMatrix(const std::vector<int>& fields, const std::string& header = "", int margin = 0)
    {
        matrix_.clear();
        for (const int field : fields)
            matrix_.entries.append(field);
        matrix_.PrintHeader = header;
        matrix_.PrintMargin = margin;
    }

    /// Adds an interval to the text; the number of the error that ends it.
    int printInterval(double first, double last, bool norec = false)
    {
        return test::errorOf([&] {
            for (bool more = interval_.start(first, last, norec); more;)
                more = interval_.advance(3);
        });
    }

    PrintMatrix matrix_;
    PrintFile print_{file_, matrix_};
    IntervalPrint interval_{file_, print_};
};

TEST_F(PrintFileTest, ASearch)
{
    use(rec({{.length = 0, .question = "Dati"},
             {.length = 6, .question = "Cognome: "},
             {.length = 2, .question = "Et\xE0"}})
            .record({"", "Rossi", "42"})
            .record({"", "Neri", "7"})
            .record({"", "Rosso"}, '?')
            .bytes());
    setMatrix({3, 1, 2}, "ELENCO", 3);
    const std::string first = "   Et\xE0\x34\x32\r\n   Dati\r\n   Cognome: Rossi \r\n   " + kSeparator;
    const std::string third = "   Et\xE0  \r\n   Dati\r\n   Cognome: Rosso \r\n   " + kSeparator;
    run(query(4, {2}, {"ross"}));
    EXPECT_EQ(print_.text(), "   ELENCO\r\n" + first + third + "    2.ROSS   2");
    run(query(4, {2}, {"ross"}, "norec"));
    const std::string live = "   ELENCO\r\n" + first + "    2.ROSS   1";
    EXPECT_EQ(print_.text(), live) << "it begins anew";
    print_.stamp2 = false;
    run(query(4, {2}, {"ross"}));
    EXPECT_EQ(print_.text(), live);

    print_.stamp2 = true;
    setMatrix({});
    driver_.start(query(4, {2}, {"ross"}, "step"));
    driver_.advance(1);
    EXPECT_EQ(print_.text(), "\r\n") << "not before the user has gone on";
    driver_.goOn();
    driver_.advance(2);
    driver_.refuse();
    finish();
    EXPECT_EQ(print_.text(), "\r\n" + kSeparator + " 2.ROSS   2");
}

TEST_F(PrintFileTest, RangesInTheHeader)
{
    use(rec({{}}).records(5).bytes());
    using Case = std::tuple<std::optional<SearchRange>, const char*>;
    for (const auto& [range, header] :
         {Case{std::nullopt, " A\r\n"}, Case{SearchRange{2.7, 4.2}, " A      da rekord: 2  a rekord: 4\r\n"},
          Case{SearchRange{2, {}}, " A      da rekord: 2  a rekord: 5\r\n"},
          Case{SearchRange{12, 3}, " A      da rekord: 12  a rekord: 3\r\n"}}) {
        setMatrix({}, "A", 1);
        SearchQuery q = query(1, {1}, {"none"});
        q.range = range;
        EXPECT_EQ(run(q), 0);
        EXPECT_EQ(print_.text(), std::string(header) + "  1.NONE   0");
    }
}

TEST_F(PrintFileTest, Intervals)
{
    test::RecBuilder file = rec({{.length = 2, .question = ""}});
    for (const char record : std::string("abcde"))
        file.record({std::string(1, record)}, record == 'b' ? '?' : '!');
    use(file.bytes());
    setMatrix({1}, "not printed", 1);
    using Case = std::tuple<double, double, bool, std::string>;
    for (const auto& [first, last, norec, records] :
         {Case{1, 5, false, "abcde"}, Case{1, 5, true, "acde"}, Case{2.9, 3.9, false, "bc"},
          Case{5, 5, false, "e"}, Case{3, 2, false, ""}, Case{9, 5, false, ""}, Case{1e300, 5, false, ""},
          Case{0.9, 5, false, ""}, Case{-1, 5, false, ""}, Case{1, 0, false, ""}, Case{1, 6, false, ""},
          Case{1, 1e300, false, ""}}) {
        print_.clear();
        EXPECT_EQ(printInterval(first, last, norec), 0);
        std::string expected;
        for (const char record : records)
            expected += std::string(" ") + record + " \r\n " + kSeparator;
        EXPECT_EQ(print_.text(), expected) << first << " to " << last;
    }
    EXPECT_TRUE(interval_.start(2, 5, false));
    EXPECT_EQ(interval_.progress(), 0);
    EXPECT_TRUE(interval_.advance(3));
    EXPECT_EQ(interval_.progress(), 0.75);
    EXPECT_TRUE(interval_.start(3, 2, false));
    EXPECT_EQ(interval_.progress(), 1);
}

TEST_F(PrintFileTest, EntriesWithoutAField)
{
    use(rec({{.length = 1, .question = "A"}}).record({"x"}).record({"x"}).bytes());
    for (const int missing : {2, 0, -1, std::numeric_limits<int>::max()}) {
        setMatrix({1, missing, 1});
        EXPECT_EQ(run(query(4, {1}, {"x"})), 9) << missing;
        EXPECT_EQ(print_.text(), "\r\nAx\r\n 1.X   1") << missing;
        print_.clear();
        EXPECT_EQ(printInterval(1, 2), 9) << missing;
        EXPECT_EQ(print_.text(), "Ax\r\n") << missing;
    }
}

TEST_F(PrintFileTest, CapacityOfAnInterval)
{
    // With their separators 256 records of 128 characters fit exactly.
    use(rec({{.length = 46, .question = ""}}).records(257).bytes());
    setMatrix({1});
    printInterval(1, 256);
    EXPECT_EQ(print_.text().size(), 32768U);
    EXPECT_FALSE(print_.isFull());
    print_.clear();
    printInterval(1, 257);
    EXPECT_EQ(print_.text().size(), 32768U);
    EXPECT_TRUE(print_.isFull());
    EXPECT_TRUE(interval_.start(1, 2, false));
    EXPECT_FALSE(interval_.advance(1)) << "nothing is read for a full file";
    print_.clear();
    setMatrix({1}, "", std::numeric_limits<int>::max());
    printInterval(1, 2);
    EXPECT_EQ(print_.text(), "");
    EXPECT_TRUE(print_.isFull());
}

TEST_F(PrintFileTest, CapacityOfASearch)
{
    // 255 records of 128 characters, a closing line of 9 without a line end, and 117 of header with one.
    use(rec({{.length = 46, .question = ""}}).records(255).bytes());
    setMatrix({1}, std::string(117, 'h'));
    run(query(4, {1}, {" "}));
    EXPECT_EQ(print_.text().size(), 32768U);
    EXPECT_TRUE(print_.text().ends_with("<\r\n 1.   255"));
    EXPECT_FALSE(print_.isFull());
    setMatrix({1}, std::string(118, 'h'));
    run(query(4, {1}, {" "}));
    EXPECT_EQ(print_.text().size(), 32760U);
    EXPECT_TRUE(print_.isFull());

    // 187 records of 92 + 3 + 80 characters leave no room for another 92, but for the next 3 and the end.
    use(rec({{.length = 90, .question = ""}, {.length = 1, .question = ""}}).records(188).bytes());
    setMatrix({1, 2});
    run(query(4, {1}, {" "}));
    EXPECT_EQ(print_.text().size(), 2U + 187 * 175);
    EXPECT_TRUE(print_.text().ends_with("<\r\n"));
}

}  // namespace
}  // namespace quorvin
