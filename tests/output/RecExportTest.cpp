#include "output/RecExport.h"

#include <tuple>

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
    using Case = std::tuple<const char*, std::string, RecordNumber>;
    for (const auto& [failsAt, bytes, records] : {Case{"starts 1-3", "old", -1}, Case{"hit b  ", "old", -1},
                                                  Case{"completed", withLetters("aba"), 3}}) {
        failing_.failsAt = failsAt;
        EXPECT_EQ(run(query(7, {1}, {"a b"})), 61) << failsAt;
        EXPECT_EQ(bytesOf(target_), bytes) << failsAt;
        EXPECT_EQ(recordsWritten(), records) << failsAt;
    }
    const std::string source = bytesOf(name_);
    export_.prepare(RecExport::Target{folder_.path() / "." / "prova.rec", {1}, 80});
    EXPECT_EQ(run(query(7, {1}, {"a b"})), 75);
    EXPECT_EQ(bytesOf(name_), source);
}

}  // namespace
}  // namespace quorvin
