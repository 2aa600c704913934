#include <tuple>

#include "stats/RowOrder.h"
#include "stats/StatRun.h"
#include "stats/StatTable.h"
#include "tests/search/SearchFixture.h"

namespace quorvin {
namespace {

using test::query;
using test::rec;
using Rows = std::vector<std::string>;
using Fields = std::vector<int>;

/// The parts of a text between separators.
Rows split(const std::string& text, char separator)
{
    Rows parts(1);
    for (const char c : text) {
        if (c != separator) parts.back() += c;
        if (c == separator) parts.emplace_back();
    }
    return parts;
}

/// The rows of a grid, cells separated by bars, "*" behind yellow ones, "#" behind green ones. The captions
/// of the rows that hold no values are left out.
Rows rowsOf(const StatGrid& grid)
{
    constexpr const char* kMarks[] = {"", "*", "#"};
    Rows rows;
    for (int i = 0; i < grid.rows(); ++i) {
        rows.push_back(i == 0 || i >= grid.totalsRow() ? "" : grid.at(i, 0).text);
        for (int j = 1; j < grid.columns(); ++j) {
            const StatCell& cell = grid.at(i, j);
            rows.back() += '|' + cell.text + kMarks[static_cast<std::size_t>(cell.background)];
        }
    }
    return rows;
}

class StatTableTest : public test::SearchTest {
protected:
    StatTableTest()
    {
        stat_.askOptions = [this] { return options_; };
        driver_.addConsumer(stat_);
    }

    /// A file of the fields 1 GRUPPO and 2 Valore. `records`: "group=value", separated by semicolons.
    void useRecords(const std::string& records)
    {
        test::RecBuilder file = rec({{.length = 10, .name = "GRUPPO"}, {.length = 10, .name = "Valore"}});
        for (const std::string& record : split(records, ';'))
            file.record(split(record, '='));
        use(file.bytes());
    }

    /// Counts the hits of a search by its fields. `names`: options that are on, the search's or tabella,
    /// accorpa, SommaCampNum.
    void count(const SearchQuery& q, const std::string& names)
    {
        const auto on = [&](const char* name) { return names.find(name) != std::string::npos; };
        options_ = {on("tabella") ? StatMode::tabella : StatMode::freq, q.selection, on("accorpa"),
                    on("SommaCampNum")};
        EXPECT_EQ(run(q), 0);
    }

    StatOptions options_;
    StatRun stat_{file_.fields()};
};

TEST_F(StatTableTest, Grids)
{
    using Case = std::tuple<const char*, Fields, const char*, const char*>;
    const Case cases[] = {
        {"", {2}, "= b;=a;X=B", "||;B|2|2;A|1|1;|3|3;||"},
        {"", {1, 2}, "X=a;Y=a;X=", "|||;A|1|1|2;|1|1|2;|||"},
        {"tabella SommaCampNum", {1, 2}, "X=;1=", "|;|;|"},
        {"tabella", {2, 1}, "X=a;Y=b", "|A|B|;X|1||1;Y||1|1;|1|1|2;|||"},
        {"tabella", {1, 2}, "=a;X=b;=a;Y=a;=b", "|X|Y||;A||1|2|3;B|1||1|2;|1|1|3|5;||||"},
        {"tabella unirek", {1, 2}, "a=b;a= c", "|AB|AC|;AB|1||1;AC||1|1;|1|1|2;|||"},
        {"tabella eliminapuntegg", {1, 2}, "a b=A.B.;AB=AB", "|AB|;AB|2|2;|2|2;||"},
        {"tabella accorpa", {1, 2}, "1/2/2004=05/3/2004;1/2/2004=17/3/2004", "|1/2/2004|;3/2004|2|2;|2|2;||"},
        {"accorpa", {2}, "=2/12/2003;=1/;=2004-03-12", "||;2/2003|1|1;2004-03-12|1|1;|2|2;||"},
        {"still", {2}, "=ABC", "||;ABC|1|1;|1|1;||"},
        {"accorpa", {2}, "=1/2;=12/03/2004;=", "||;03/2004|1|1;|1|1;||"},
        {"still", {2}, "=ABCDE;=ABC;=2004;=1/3/2003;=XYZDE", "||;DE|2|2;4|1|1;/2003|1|1;|4|4;||"},
        {"SommaCampNum", {2}, "=3;=X;=3", "||;3|2|2;X|1|1;|3|3;||6#"},
        {"SommaCampNum", {1, 2}, "4=3;5=3", "|||;3|1|1|2;|1|1|2;|||6#"},
        {"SommaCampNum", {2}, "=-3;=3", "||;-3|1|1;3|1|1;|2|2;||"},
        {"SommaCampNum", {2}, "=.1;=.1;=.1", "||;.1|3|3;|3|3;||0.3#"},
        {"tabella SommaCampNum", {1, 2}, "2=1;2=1;5=1;2=1;2=1", "|2|5|;1|4|1|5;|4|1|5;|8*|5*|13#"},
        {"tabella SommaCampNum", {1, 2}, "2.50=a;X=a;=a;2.50=a", "|2.50|X||;A|2|1|1|4;|2|1|1|4;|5*|||5#"},
        {"tabella SommaCampNum", {1, 2}, "-3=9;2 M=9", "|-3|2 M|;9|1|1|2;|1|1|2;|-3*|2*|"},
    };
    for (const auto& [options, fields, records, rows] : cases) {
        useRecords(records);
        if (options != std::string("still")) stat_.table.inizioData = 0;
        count(query(2, fields, Rows(fields.size()), options), options);
        EXPECT_EQ(rowsOf(stat_.grid()), split(rows, ';')) << records;
    }
}

TEST_F(StatTableTest, Captions)
{
    useRecords("X=Rossi");
    for (const auto& [fields, texts, corner, caption] :
         {std::tuple(Fields{2}, Rows{" "}, "Valore    /", "ZZValore     TUTTI "),
          {Fields{1, 2}, Rows{"x", " ros "}, "Valore    /GRUPPO    ", "ZZValore     ROS"},
          {Fields{2, 2}, Rows{"r", "ros"}, "Valore    /Valore    ", "ZZValore     ROS"},
          {Fields{2, 1}, Rows{"", "y"}, "GRUPPO    /Valore    ", "ZZGRUPPO     Y"}}) {
        count(query(2, fields, texts), "");
        const StatGrid grid = stat_.grid();
        EXPECT_EQ(grid.at(0, 0).text, corner);
        EXPECT_EQ(grid.at(grid.rows() - 2, 0).text, "ZX TOT.");
        EXPECT_EQ(grid.at(grid.rows() - 1, 0).text, caption);
        EXPECT_EQ(grid.width(0), 10);
        EXPECT_EQ(grid.width(1), fields.size() == 1 ? 8 : 10) << "eight without a field";
    }
}

TEST(StatTable, NothingMoreIsCountedWhenAnAxisIsFull)
{
    for (const auto& [isY, most] : {std::pair(true, 799), {false, 199}}) {
        for (const int values : {most - 1, most, most + 1}) {
            StatTable table;
            for (int n = 0; n <= values; ++n) {
                const std::string value = std::to_string(n % values);  // the last one is known
                table.statistica(isY ? value : "A", isY ? "" : value);
            }
            EXPECT_EQ(table.total(), most) << values;
            EXPECT_EQ(isY ? table.nuovoY() : table.nuovoX(), std::min(values, most) + 1);
            EXPECT_EQ(table.isFullY(), isY && values >= most) << values;
            EXPECT_EQ(table.isFullX(), !isY && values >= most) << values;
        }
    }
}

TEST_F(StatTableTest, WhatIsLeftAfterASearch)
{
    useRecords("=a;=b;=a");
    options_.SelectedFields.append(2);
    using enum StatMode;
    for (const auto& [atFirstHit, mode, ready, total] : {std::tuple(&SearchDriver::goOn, freq, true, 3),
                                                         {&SearchDriver::stop, freq, true, 1},
                                                         {&SearchDriver::refuse, freq, false, 0},
                                                         {&SearchDriver::goOn, tabella, true, 3},
                                                         {&SearchDriver::fail, freq, false, 0},
                                                         {&SearchDriver::goOn, off, false, 0}}) {
        options_.mode = mode;
        driver_.start(query(2, {2}, {""}, "step"));
        driver_.advance(1000);
        (driver_.*atFirstHit)();
        EXPECT_EQ(finish(), 0);
        EXPECT_EQ(stat_.isReady(), ready);
        EXPECT_EQ(stat_.table.total(), total);
    }
}

TEST(RowOrder, NumbersThenDatesThenText)
{
    using enum Direction;
    const std::tuple<int, Direction, const char*, const char*> cases[] = {
        {0, ascending, "10;-2;9;+3;2.5", "-2;2.5;+3;9;10"},
        {0, descending, "10;9;11", "11;10;9"},
        {0, ascending, "B;9;10", "10;9;B"},
        {0, ascending, "10;-;9", "-;10;9"},
        {0, ascending, "9-1;10-1;4", "10-1;4;9-1"},
        {0, ascending, "9.1.1;10.1.1;4", "10.1.1;4;9.1.1"},
        {0, ascending, "2/12/2003;01/2004;10/2/2003;5/2003", "10/2/2003;5/2003;2/12/2003;01/2004"},
        {0, ascending, "13/2003;02/2004;12/2003", "02/2004;12/2003;13/2003"},
        {0, ascending, "zeta;ZX TOT.;ZZZ;\xE0;A", "A;ZX TOT.;ZZZ;zeta;\xE0"},
        {1, ascending, "A;B;C;A;C;D;A;A;A;A;A;A;A;A", "B;D;C;A"},
        {2, descending, "A;B;C;A;C;D", "A;C;B;D"},
    };
    for (const auto& [column, direction, counted, expected] : cases) {
        StatTable table;
        for (const std::string& value : split(counted, ';'))
            table.statistica(value, "");
        std::string rows;
        for (const int row : rowOrder(StatGrid(table, {}, {}), column, direction))
            rows += (rows.empty() ? "" : ";") + table.valoriY(row);
        EXPECT_EQ(rows, expected);
    }
}

TEST(RowOrder, EmptyCountsComeFirst)
{
    StatTable table;
    for (int n = 0; n < 10; ++n)
        table.statistica("ten", "X");
    table.statistica("none", "Y");
    for (int n = 0; n < 9; ++n)
        table.statistica("nine", "X");
    const StatGrid grid(table, {}, {});
    EXPECT_EQ(rowOrder(grid, 1, Direction::ascending), (std::vector<int>{2, 3, 1}));
    EXPECT_EQ(test::errorOf([&] { rowOrder(grid, 4, Direction::ascending); }), 9);
}

}  // namespace
}  // namespace quorvin
