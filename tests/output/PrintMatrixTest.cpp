#include "output/PrintMatrix.h"

#include <gtest/gtest.h>
#include <tuple>

#include "output/DocumentTemplate.h"
#include "rec/RecFile.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

using test::bytesOf;
using test::errorOf;

/// Entries, header, margin and template, a "|" between them.
std::string shown(const PrintMatrix& matrix)
{
    std::string text;
    for (int i = 1; i <= matrix.PrintMatrixCount(); ++i)
        text += (i > 1 ? " " : "") + std::to_string(matrix.entries.at(i));
    return text + "|" + matrix.PrintHeader + "|" + std::to_string(matrix.PrintMargin) + "|" +
           matrix.DocumentTemplate;
}

class PrintMatrixTest : public testing::Test {
protected:
    PrintMatrixTest()
    {
        file_.open(folder_.write("prova.rec", test::rec({{}}).bytes()));
        matrix_.entries.append(3);
        matrix_.entries.append(1);
        matrix_.PrintHeader = "Citt\xE0, uno";
        matrix_.PrintMargin = 2;
        matrix_.DocumentTemplate = "{\\rtf1 a,\\'22b}";
    }

    std::string shownText(const std::string& text)
    {
        matrix_.fromText(text);
        return shown(matrix_);
    }
    /// The number of the error; nothing is left of the matrix before.
    int read()
    {
        const int error = errorOf([&] { matrix_.read(file_); });
        EXPECT_TRUE(error == 0 || shown(matrix_) == "||0|");
        return error;
    }

    test::TempFolder folder_;
    const std::filesystem::path name_ = folder_.path() / "prova.mtr";
    RecFile file_;
    PrintMatrix matrix_;
};

TEST_F(PrintMatrixTest, TheFileByteForByte)
{
    const std::string before = shown(matrix_);
    matrix_.matrice(file_);
    EXPECT_EQ(bytesOf(name_), " 3\r\n 1\r\nCitt\xE0, uno\r\n 2\r\n\"{\\rtf1 a,\\'22b}\"\r\n");
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(shown(matrix_), before);
    EXPECT_EQ(PrintMatrix().toText(), "\r\n 0\r\n\"\"\r\n");
    matrix_.DocumentTemplate = std::string(std::size_t{64} << 20, 'a');
    EXPECT_EQ(errorOf([&] { matrix_.matrice(file_); }), 7) << "it could not be read again";
    EXPECT_EQ(shown((matrix_.read(file_), matrix_)), before);
}

TEST_F(PrintMatrixTest, ADocumentOfAnotherProgramMayHoldQuotes)
{
    matrix_.fromText(" 1\r\n\r\n 0\r\n\"{\\rtf1 a{\\*\\fldinst \"x\"}\"b\"\r\n\\par}\"\r\n");
    EXPECT_EQ(matrix_.toText(),
              " 1\r\n\r\n 0\r\n\"{\\rtf1 a{\\*\\fldinst \\'22x\\'22}\\'22b\\'22\r\n\\par}\"\r\n");
    // Cut short, escaped without need, or with something behind it.
    matrix_.fromText("\r\n 0\r\n\"{\\rtf1 \"a\" b}\r\n");
    EXPECT_EQ(matrix_.DocumentTemplate, "{\\rtf1 \"a\" b}\r\n");
    matrix_.fromText("\r\n 0\r\n\"{\\rtf1 a\\\"b\\\\\"c}\"\r\n\"d\"\r\n");
    EXPECT_EQ(matrix_.toText(), "\r\n 0\r\n\"{\\rtf1 a\\.b\\\\\\'22c}\"\r\n");
    matrix_.fromText("\r\n 0\r\nT\"b\r\n");
    EXPECT_EQ(
        DocumentTemplate((matrix_.fromText(matrix_.toText()), matrix_.DocumentTemplate)).Textserb.text(),
        U"T\"b");
}

/// What becomes of a header behind one entry and before margin 4 and template T.
TEST_F(PrintMatrixTest, Headers)
{
    const std::string h78(78, 'h');
    using Case = std::tuple<std::string, std::string>;
    for (const auto& [header, expected] : {
             Case{"", "1||4|T"},
             Case{" ", "1| |4|T"},
             Case{"  Reparto 3, piano 2 ", "1|  Reparto 3, piano 2 |4|T"},
             Case{",", "1|,|4|T"},
             Case{"\"Esami\", 2", "1|\"Esami\", 2|4|T"},
             Case{h78 + "x", "1|" + h78 + "|4|T"},
             Case{"0 esami", "1|0 esami|4|T"},
             Case{".5", "1|.5|4|T"},
             Case{"2 piani", "1 2 4|\"T\"|0|"},
             Case{" - 2 piani", "1 -2 4|\"T\"|0|"},
             Case{"2, 3 piani, a, 5", "1 2 3| a, 5|4|T"},
         })
        EXPECT_EQ(shownText(" 1\r\n" + header + "\r\n 4\r\n\"T\"\r\n"), expected) << header;
    EXPECT_EQ(shownText(" 1\r\n2 piani\r\n 0\r\n\"T\"\r\n"), "1 2| 0|0|") << "the margin ends the list";
}

TEST_F(PrintMatrixTest, FilesOfOthersMaking)
{
    const std::string gigantic(300, '9');
    const std::string twice = std::string(gigantic).append("\r\nA\r\n").append(gigantic);
    using Case = std::tuple<std::string, std::string>;
    for (const auto& [text, expected] : {
             Case{"", "||0|"},
             Case{"\r\n", "||0|"},
             Case{"\x1A 3\r\nA\r\n", "||0|"},
             Case{" 3", "3||0|"},
             Case{" 3\r\nA", "3|A|0|"},
             Case{" 3\r\nA\r\n 2", "3|A|2|"},
             Case{" 3\r\nA\x1A\r\n 2\r\n\"T\"\r\n", "3|A|0|"},
             Case{"3\n1\nA\n2\n\"T\"\n", "3 1|A|2|T"},
             Case{"3,1,A,b\r\n2,T", "3 1|A,b|2|T"},
             Case{"2.9\r\n-3.9\r\n0.9\r\n2.9\r\n", "2 -3|0.9|2|"},
             Case{twice, "2147483647|A|2147483647|"},
             Case{"-" + gigantic, "-2147483647||0|"},
             Case{"A\r\n-5\r\n T \r\n", "|A|0|T "},
             Case{"A\r\n0.9\r\nuno, due", "|A|0|uno"},
             Case{"A\r\n2\r\n  \"uno,\r\ndue\"\r\ntre", "|A|2|uno,\r\ndue"},
             Case{"A\r\n2\r\n\"uno\r\n", "|A|2|uno\r\n"},
         })
        EXPECT_EQ(shownText(text), expected) << text;
}

TEST_F(PrintMatrixTest, AFullListLosesItsHeader)
{
    std::string lines, list;
    for (int i = 1; i < 200; ++i) {
        lines += " " + std::to_string(i) + "\r\n";
        list += (i > 1 ? " " : "") + std::to_string(i);
    }
    EXPECT_EQ(shownText(lines + "A,b\r\n 4\r\n\"T\"\r\n"), list + "|A,b|4|T");
    EXPECT_EQ(shownText(lines + " 7\r\nA\r\n 4\r\n\"T\"\r\n"), list + " 7|7|0|4");
    EXPECT_EQ(shownText(lines + " 7\r\n 8\r\nA\r\n 4\r\n"), list + " 7|7|8|A");
}

TEST_F(PrintMatrixTest, FilesThatCannotBeRead)
{
#ifndef _WIN32
    // Elsewhere so long a file needs as much room.
    folder_.write("prova.mtr", " 1\r\n");
    std::filesystem::resize_file(name_, std::uintmax_t{1} << 40);
    EXPECT_EQ(read(), 7);
    std::filesystem::remove(name_);
#endif
    std::filesystem::create_directory(name_);
    EXPECT_EQ(read(), 75);
    EXPECT_EQ(errorOf([&] { matrix_.matrice(file_); }), 75);
    std::filesystem::remove(name_);
    matrix_.PrintHeader = "before";
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(shown(matrix_), "||0|") << "there is none";

    std::filesystem::rename(file_.dataFileName(), name_);
    file_.open(name_);
    const std::string source = bytesOf(name_);
    EXPECT_EQ(read(), 75) << "it is the data";
    EXPECT_EQ(errorOf([&] { matrix_.matrice(file_); }), 75);
    EXPECT_EQ(bytesOf(name_), source);
}

TEST_F(PrintMatrixTest, ChoicesAndMargins)
{
    matrix_.beginChoice();
    EXPECT_TRUE(matrix_.entries.empty());
    EXPECT_FALSE(matrix_.endChoice());
    EXPECT_EQ(matrix_.PrintMatrixCount(), 2);
    matrix_.beginChoice();
    matrix_.entries.append(2);
    EXPECT_TRUE(matrix_.endChoice());
    EXPECT_EQ(matrix_.PrintMatrixCount(), 1);

    using Case = std::tuple<double, bool, int>;
    for (const auto& [typed, taken, margin] :
         {Case{3.9, true, 3}, Case{0, false, 3}, Case{0.9, false, 3}, Case{-5, false, 3}, Case{1, true, 1},
          Case{1e300, true, 2147483647}}) {
        EXPECT_EQ(matrix_.setMargin(typed), taken) << typed;
        EXPECT_EQ(matrix_.PrintMargin, margin) << typed;
    }
}

}  // namespace
}  // namespace quorvin
