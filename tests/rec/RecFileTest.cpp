#include "rec/RecFile.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/CommandLine.h"
#include "base/Text.h"
#include "tests/rec/SameReading.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FileFaults.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

using test::append;
using test::errorOf;
using test::rec;

class RecFileTest : public testing::Test {
protected:
    std::filesystem::path write(const std::string& bytes) { return folder_.write("prova.rec", bytes); }

    /// The number of the error that opening the file ends with.
    int load(const std::string& bytes)
    {
        return errorOf([&] { test::load(file_, write(bytes)); });
    }

    std::string value(RecordNumber n, int field)
    {
        file_.seek(n);
        file_.caricastring();
        return std::string(file_.fieldValue(field));
    }

    test::TempFolder folder_;
    RecFile file_;
};

TEST_F(RecFileTest, Headers)
{
    const std::string rest = test::definitionLine({.length = 2}) + "\r\nab!\r\n";
    struct Case {
        const char* name;
        std::string header;
        int error;
        double colour;
    };
    for (const Case& c : {
             Case{"usual", "1 7 VLAB Filelabel: x\r\n", 0, 7},
             Case{"blanks in front", "   1 7\r\n", 0, 7},
             Case{"no colour", "1 \r\n", 0, 0},
             Case{"colour behind ten characters", "1          7\r\n", 0, 0},
             Case{"fraction", "1.9 7\r\n", 0, 7},
             Case{"comma: the rest is the first definition", "1 7,", 0, 7},
             Case{"no blank", "1\r\n", 5, 0},
             Case{"comma before the blank", "1,7 \r\n", 5, 0},
             Case{"no fields", "0 7\r\n", 11, 7},
             Case{"fewer than none", "-1 7\r\n", 11, 7},
             Case{"not a number", "x 7\r\n", 11, 7},
             Case{"more than there are lines", "3 7\r\n", 62, 7},
         }) {
        EXPECT_EQ(load(std::string(c.header).append(rest)), c.error) << c.name;
        EXPECT_EQ(file_.screenColour(), c.colour) << c.name;
        if (c.error != 0) continue;
        EXPECT_EQ(value(1, 1), "ab") << c.name;
    }
}

TEST_F(RecFileTest, TooManyFieldsAnnounced)
{
    std::string lines;
    for (int i = 0; i < 201; ++i)
        lines += test::definitionLine({.length = 1}) + "\r\n";
    EXPECT_EQ(load("999999999 1\r\n" + lines), 9);
    EXPECT_EQ(file_.fieldCount(), 200);
}

TEST_F(RecFileTest, FilesThatAreDamaged)
{
    const std::string good = rec({{.length = 100}}).record({"a"}).bytes();
    const std::size_t secondLine = good.size() - 25;
    const std::pair<std::string, int> cases[] = {
        {"\x1A", 62},
        {rec({{.length = 0}}).record({}).bytes(), 11},
        {good.substr(0, secondLine) + "\x1A" + good.substr(secondLine), 62},
        {std::string(5000, '\0'), 5},
        {"1 1\r\n" + std::string(3 << 20, 'x'), 7},
    };
    for (const auto& [bytes, error] : cases)
        EXPECT_EQ(load(bytes), error) << bytes.substr(0, 200);
    // Cut anywhere, the only record may lack its line end, but not half of it.
    const std::size_t data = good.size() - 106;
    for (std::size_t length = 0; length < good.size(); ++length) {
        const int error = load(good.substr(0, length));
        const int expected = length + 2 == good.size() ? 0 : 62;
        EXPECT_TRUE(length > data ? error == expected : error != 0) << length << ": " << error;
    }
}

TEST_F(RecFileTest, RecordsAreReadByNumber)
{
    const std::string first(100, 'a');
    ASSERT_EQ(load(rec({{.length = 0}, {.length = 90}, {.length = 10}})
                       .record({"", first, "città"})
                       .record({"", "b", "zz"}, '?')
                       .record({"", "c", "^"}, '^')
                       .bytes()),
              0);
    EXPECT_EQ(value(3, 2), "c" + std::string(89, ' '));
    EXPECT_EQ(file_.lastMark(), '^');
    EXPECT_EQ(value(1, 2), first.substr(0, 90));
    EXPECT_EQ(value(1, 1), "");
    EXPECT_EQ(file_.lastMark(), '!');
    EXPECT_EQ(value(2, 3), "zz        ");
    EXPECT_TRUE(file_.isDeleted());

    EXPECT_EQ(errorOf([&] { value(4, 1); }), 62);
    EXPECT_EQ(rTrim(value(2, 2)), "b") << "usable after an error";
    EXPECT_EQ(errorOf([&] { file_.seek(0); }), 5);
    EXPECT_EQ(errorOf([&] { file_.seek(INT64_MAX); }), 5);
}

TEST_F(RecFileTest, CapitalsAndLinesThatAreShort)
{
    ASSERT_EQ(load(rec({{.length = 5}}).bytes() + "t\xE0!\r\n"), 0);
    EXPECT_EQ(value(1, 1), "t\xE0!") << "with the mark";
    file_.impostMaiusc = true;
    EXPECT_EQ(value(1, 1), "T\xC0!");
    EXPECT_EQ(file_.lastMark(), '!');
}

TEST_F(RecFileTest, FilesThatOthersChange)
{
    const test::RecBuilder two = rec({{}}).records(2);
    const auto name = folder_.path() / "prova.rec";
    ASSERT_EQ(load(two.bytes()), 0);

    for (const char byte : std::string("r3   !\r\n")) {
        file_.recount();
        EXPECT_EQ(file_.recordCount(), 2) << "a half record does not count";
        EXPECT_EQ(errorOf([&] { value(3, 1); }), 62) << "nor is it read";
        append(name, {byte});
    }
    EXPECT_EQ(value(3, 1), "r3   ");
    std::filesystem::remove(name);
    EXPECT_EQ(errorOf([&] { file_.recount(); }), 53);
    for (const auto& other : {rec({{.length = 6}}), rec({{.question = "altra domanda"}}), rec({{}, {}})}) {
        write(test::RecBuilder(other).records(9).bytes());
        EXPECT_EQ(errorOf([&] { file_.recount(); }), 75) << "its records stand elsewhere";
        EXPECT_EQ(errorOf([&] { value(1, 1); }), 52) << "and are not read";
    }
    write(std::string(2 << 20, 'x'));
    EXPECT_EQ(errorOf([&] { file_.recount(); }), 75) << "no REC file at all";
    std::string bytes = rec({{.question = "Domanda"}}).records(2).bytes();
    bytes.replace(bytes.find("\r\n") + 2 + 37, 3, " 5 ");
    const std::pair<std::string, int> cases[] = {
        {bytes, 2}, {rec({{}}).records(1).bytes(), 1}, {"x", 0}, {two.bytes(), 2}};
    for (const auto& [other, count] : cases) {
        write(other);
        file_.recount();
        EXPECT_EQ(file_.recordCount(), count) << "the same lengths, maybe written otherwise";
    }
}

TEST_F(RecFileTest, AnotherFileIsWrittenWhileThisOneIsCounted)
{
    for (int at = 1;; ++at) {
        ASSERT_EQ(load(rec({{}}).records(2).bytes()), 0);
        write("x");
        test::FileFaults faults;
        faults.at = at;
        faults.before = [&] { write(rec({{.length = 6}}).records(9).bytes()); };
        const bool counted = errorOf([&] { file_.recount(); }) == 0;
        EXPECT_TRUE(!counted || file_.recordCount() == 0) << at;
        if (!faults.isReached()) break;
    }
}

TEST_F(RecFileTest, CountingGoesByLengthBeyondFourGigabytes)
{
    ASSERT_EQ(load(rec({{.length = 5}}).records(1).bytes()), 0);
    const auto& name = file_.dataFileName();
    const std::int64_t records = 900'000'000;
    std::filesystem::resize_file(
        name, static_cast<std::uintmax_t>(file_.dataStart() - 1 + records * file_.recordBytes()));
    std::fstream out(name, std::ios::binary | std::ios::in | std::ios::out);
    out.seekp(file_.dataStart() - 1 + (records - 1) * file_.recordBytes());
    out << "last !\r\n";
    out.close();
    file_.recount();
    EXPECT_EQ(file_.recordCount(), records);
    EXPECT_EQ(value(records, 1), "last ");
}

TEST(RecFile, Stems)
{
    for (const auto& [name, stem] : {std::pair("/dati/pazienti.rec", "/dati/pazienti"),
                                     {"a.rec", "a"},
                                     {"/dati/abc", "/dati/"},
                                     {"/dati/.rec", "/dati/"},
                                     {"/dati/nome.dati", "/dati/nome."},
                                     {"/d/xàè.r", "/d/x"}})
        EXPECT_EQ(stemOf(pathFromUtf8(name)), pathFromUtf8(stem));
}

/// Values looked up by hand in the files.
TEST(RecFile, SampleFiles)
{
    struct Case {
        const char* file;
        RecordNumber records;
        std::vector<RecordNumber> deleted;
        RecordNumber record;
        std::vector<const char*> values;
    };
    for (const Case& c : {
             Case{TEST_DATA "/wnv.rec",
                  766,
                  {3, 100, 766},
                  766,
                  {"", "768", "Tulare        ", "68", "M", "Unknown", "14/10/2004", "07/12/2004", "   "}},
             Case{TEST_DATA "/infert.rec", 248, {}, 5, {"", "6-11yrs", "35", "3", "1", "1", "1", " 5", "32"}},
             Case{TEST_DATA "/oswego.rec",
                  75,
                  {7, 40},
                  1,
                  {"", " 2", "52", "F", "8:00 PM ", "Y", "4/19", "12:30 AM"}},
         }) {
        RecFile file;
        test::load(file, c.file);
        EXPECT_EQ(file.recordCount(), c.records) << c.file;
        std::vector<RecordNumber> deleted;
        for (RecordNumber n = 1; n <= file.recordCount(); ++n) {
            file.seek(n);
            file.caricastring();
            if (file.isDeleted()) deleted.push_back(n);
        }
        EXPECT_EQ(deleted, c.deleted) << c.file;
        file.seek(c.record);
        file.caricastring();
        for (std::size_t i = 0; i < c.values.size(); ++i)
            EXPECT_EQ(file.fieldValue(static_cast<int>(i) + 1), c.values[i]) << c.file << " field " << i + 1;
    }
}

}  // namespace
}  // namespace quorvin
