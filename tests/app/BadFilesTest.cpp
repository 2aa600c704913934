#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "tests/support/WindowTest.h"

namespace quorvin {
namespace {

class BadFilesTest : public test::WindowTest {
protected:
    static std::string definitions(int count)
    {
        std::string lines;
        for (int i = 0; i < count; ++i)
            lines += test::definitionLine({.length = 1}) + "\r\n";
        return lines;
    }

    void expectUsable()
    {
        dialogs_.messages.clear();
        open(test::rec({{}}).records(2));
        click("Command1");
        EXPECT_EQ(value(1), QStringLiteral("r1   "));
        EXPECT_TRUE(dialogs_.messages.isEmpty());
    }
};

TEST_F(BadFilesTest, EachIsSaidAndTheNextFileOpens)
{
    const std::string good = test::rec({{}, {}}).record({"a", "b"}).bytes();
    std::string negative = good;
    negative.replace(negative.find("   5 112"), 4, "  -5");
    struct Case {
        const char* name;
        std::string bytes;
        const char* message;
    };
    for (const Case& c : {
             Case{"empty", "", "!Errore!! Input oltre la fine del file"},
             Case{"header without blank", "2\r\n", "!Errore!! Chiamata di routine o argomento non validi"},
             Case{"too few definitions", good.substr(0, 80), "!Errore file !! Input oltre la fine del file"},
             Case{"negative length", negative, "!Errore file !! Chiamata di routine o argomento non validi"},
             Case{"no data", test::rec({{}}).bytes(), "!Errore file !! Divisione per zero"},
             Case{"no data but the end of a DOS text", test::rec({{}}).bytes() + "\x1A",
                  "!Errore file !! Divisione per zero"},
             Case{"no fields", "0 1\r\nx\r\n", "!Errore file !! Divisione per zero"},
             Case{"fewer than none", "-1 1\r\nx\r\n", "!Errore file !! Divisione per zero"},
             Case{"201 fields", "201 1\r\n" + definitions(201),
                  "!Errore file !! Indice non incluso nell'intervallo"},
             Case{"far too many fields", "999999999 1\r\n" + definitions(300),
                  "!Errore file !! Indice non incluso nell'intervallo"},
             Case{"endless line", "1 1\r\n" + std::string(2 << 20, '\0'),
                  "!Errore file !! Memoria insufficiente"},
         }) {
        dialogs_.messages.clear();
        openFile(folder_.write("bad.rec", c.bytes));
        EXPECT_EQ(dialogs_.messages, QStringList(QString::fromLatin1(c.message))) << c.name;
        click("Command1");
        type("Text1", QStringLiteral("1"));
        EXPECT_EQ(dialogs_.messages.size(), 1) << "moves stay silent: " << c.name;
        expectUsable();
    }
}

TEST_F(BadFilesTest, ASparseFileOfManyGigabytes)
{
    const auto name = folder_.write("sparse.rec", test::rec({{}}).records(1).bytes());
    std::filesystem::resize_file(name, std::uintmax_t{6} << 30);
    openFile(name);
    type("Text1", QStringLiteral("800000000"));
    EXPECT_TRUE(dialogs_.messages.isEmpty());
    EXPECT_EQ(caption("Label14"), QStringLiteral("800000000"));
    EXPECT_EQ(value(1), QString()) << "there is no line to read";
    expectUsable();
}

TEST_F(BadFilesTest, WithoutTheRightToRead)
{
    const auto name = folder_.write("locked.rec", test::rec({{}}).records(1).bytes());
    std::filesystem::permissions(name, std::filesystem::perms::none);
    if (std::ifstream(name)) GTEST_SKIP() << "this user may read everything";
    openFile(name);
    EXPECT_EQ(dialogs_.messages, QStringList(QStringLiteral("!Errore!! Autorizzazione negata")));
    expectUsable();
}

TEST_F(BadFilesTest, WhatIsNoFile)
{
    openFile(folder_.path());
    EXPECT_EQ(dialogs_.messages, QStringList(QStringLiteral("!Errore!! Errore di accesso al percorso/file")));
    expectUsable();
    openFile(folder_.path() / "missing.rec");
    EXPECT_EQ(dialogs_.messages, QStringList(QStringLiteral("!Errore!! Impossibile trovare il file")));
    EXPECT_TRUE(control("Label7").isVisible()) << "no file is open now";
    EXPECT_FALSE(control("Command1").isEnabled());
    expectUsable();
}

TEST_F(BadFilesTest, DefinitionsCutAnywhereAndNoise)
{
    const std::string good = test::rec({{}, {.length = 90}}).record({"a", "b"}).bytes();
    const std::size_t lastLine = good.rfind("\r\n", good.size() - 3) + 2;
    for (std::size_t length = 0; length <= lastLine; ++length) {
        dialogs_.messages.clear();
        openFile(folder_.write("cut.rec", good.substr(0, length)));
        ASSERT_EQ(dialogs_.messages.size(), 1) << length;
        EXPECT_TRUE(dialogs_.messages[0].startsWith(QStringLiteral("!Errore"))) << length;
    }
    std::mt19937 random(1);
    for (int i = 0; i < 50; ++i) {
        std::string noise = i % 2 ? "9 1\r\n" : "";
        for (int n = 0; n < 3000; ++n)
            noise.push_back(static_cast<char>(random()));
        dialogs_.messages.clear();
        openFile(folder_.write("noise.rec", noise));
        click("Command1");
        EXPECT_LE(dialogs_.messages.size(), 1) << "noise " << i;
    }
    expectUsable();
}

}  // namespace
}  // namespace quorvin
