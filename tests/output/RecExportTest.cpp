#include "output/RecExport.h"

#include <sstream>

#include "tests/search/SearchFixture.h"

namespace quorvin {
namespace {

using test::bytesOf;
using test::query;
using test::rec;

class RecExportTest : public test::SearchTest {
protected:
    RecExportTest() { driver_.addConsumer(export_); }

    void prepare() { export_.prepare(RecExport::Target{target_, {1}, 1}); }

    /// Records of the file that the last search says to have completed; -1 for none.
    RecordNumber recordsWritten()
    {
        const auto written = export_.takeWritten();
        EXPECT_TRUE(!written || written->name == target_);
        return written ? written->records : -1;
    }

    /// Records of one letter in a field of three, and the file with the field cut to it.
    void useLetters(const std::string& letters)
    {
        test::RecBuilder file = rec({{.length = 3}});
        for (const char letter : letters)
            file.record({std::string(1, letter)});
        use(file.bytes());
    }
    static std::string withLetters(const std::string& letters)
    {
        std::string bytes = "1 1\r\n" + test::definitionLine({.length = 1}) + "\r\n";
        for (const char letter : letters)
            bytes += std::string(1, letter) + "!\r\n";
        return bytes;
    }

    RecExport export_{file_};
    const std::filesystem::path target_ = folder_.path() / "nuovo.rec";
};

/// Their questions stand on lines 1, 3, 4, 5 and so on, so that one empty line goes.
TEST_F(RecExportTest, WholeFilesComeOutAsTheyWere)
{
    for (const auto& [name, count] : {std::pair("oswego.rec", 75), {"wnv.rec", 766}, {"infert.rec", 248}}) {
        const std::string source = bytesOf(std::filesystem::path(TEST_DATA) / name);
        use(source);
        export_.prepare(RecExport::Target{target_, file_.fields().allFields(), greatestLength(true)});
        EXPECT_EQ(run(query(4, {2}, {" "})), 0);
        EXPECT_EQ(recordsWritten(), count) << name;

        std::istringstream lines(source);
        std::string expected, line;
        std::getline(lines, line);
        expected = line.substr(0, line.find(" VLAB")) + "\r\n";
        for (int n = 1; n <= file_.fieldCount(); ++n) {
            std::getline(lines, line);
            const int row = std::stoi(line.substr(15, 4));
            std::string counted = std::to_string(row > 1 ? row - 1 : 1);
            counted.insert(0, 4 - counted.size(), ' ');
            expected += line.replace(15, 4, counted).replace(27, 4, counted) + "\n";
        }
        expected += source.substr(static_cast<std::size_t>(lines.tellg()));
        EXPECT_EQ(bytesOf(target_), expected) << name;
    }
}

TEST_F(RecExportTest, TheFileAppearsWhenTheSearchEnds)
{
    useLetters("axba");
    folder_.write("nuovo.rec", "old");
    prepare();
    driver_.start(query(7, {1}, {"a b"}, "step"));
    driver_.advance(1);
    driver_.goOn();
    driver_.advance(2);
    EXPECT_EQ(bytesOf(target_), "old");
    driver_.refuse();
    finish();
    EXPECT_EQ(bytesOf(target_), withLetters("a"));
    EXPECT_EQ(recordsWritten(), 1);
    EXPECT_EQ(recordsWritten(), -1) << "told once";

    driver_.start(query(7, {1}, {"a b"}));
    driver_.advance(3);
    driver_.stop();
    finish();
    EXPECT_EQ(bytesOf(target_), withLetters("ab"));
    EXPECT_EQ(run(query(7, {1}, {"c"})), 0);
    EXPECT_EQ(bytesOf(target_), withLetters(""));
    EXPECT_EQ(recordsWritten(), 0);
}

TEST_F(RecExportTest, AnErrorLeavesWhatWasThere)
{
    useLetters("aba");
    folder_.write("nuovo.rec", "old");
    prepare();
    struct Case {
        const char* failsAt;
        std::string bytes;
        RecordNumber records;
    };
    for (const Case& c : {Case{"starts 1-3", "old", -1}, Case{"hit b  ", "old", -1},
                          Case{"completed", withLetters("aba"), 3}}) {
        failing_.failsAt = c.failsAt;
        EXPECT_EQ(run(query(7, {1}, {"a b"})), 61) << c.failsAt;
        EXPECT_EQ(bytesOf(target_), c.bytes) << c.failsAt;
        EXPECT_EQ(recordsWritten(), c.records) << c.failsAt;
    }
    const std::string source = bytesOf(name_);
    export_.prepare(RecExport::Target{folder_.path() / "." / "prova.rec", {1}, 80});
    EXPECT_EQ(run(query(7, {1}, {"a b"})), 75);
    EXPECT_EQ(bytesOf(name_), source);
}

TEST_F(RecExportTest, IsAskedBeforeEachSearch)
{
    useLetters("ab");
    for (const std::string answer : {"write", "search", "refuse"}) {
        std::filesystem::remove(target_);
        export_.beforeSearch = [&](const SearchQuery& q) {
            export_.prepare({});
            if (answer == "write") export_.prepare(RecExport::Target{target_, q.selection.numbers(), 1});
            return answer != "refuse";
        };
        EXPECT_EQ(run(query(7, {1}, {"a b"})), 0);
        EXPECT_EQ(bytesOf(target_), answer == "write" ? withLetters("ab") : "") << answer;
        EXPECT_EQ(consumer_.hits.size(), answer == "refuse" ? 0U : 2U) << answer;
        if (answer == "search") {
            EXPECT_EQ(recordsWritten(), -1) << "that of the search before is forgotten";
        }
    }
}

}  // namespace
}  // namespace quorvin
