#include <gtest/gtest.h>

#include <random>

#include "tests/support/WindowTest.h"

namespace quorvin {
namespace {

class BadFilesTest : public test::WindowTest {
protected:
    /// Opens the file, moves in it, and then in another one.
    void expectMessages(const std::filesystem::path& name, const QStringList& expected)
    {
        dialogs_.messages.clear();
        openFile(name);
        click("Command1");
        type("Text1", QStringLiteral("1"));
        EXPECT_EQ(dialogs_.messages, expected) << name;
        open(test::rec({{}}).records(2));
        click("Command1");
        EXPECT_EQ(value(1), QStringLiteral("r1   "));
        EXPECT_EQ(dialogs_.messages.size(), expected.size()) << name;
    }

    std::mt19937 random_{1};
};

TEST_F(BadFilesTest, EachIsSaidAndTheNextFileOpens)
{
    const std::string good = test::rec({{}, {}}).record({"a", "b"}).bytes();
    std::string negative = good;
    negative.replace(negative.find("   5 112"), 4, "  -5");
    std::string tooMany = "201 1\r\n";
    for (int i = 0; i < 201; ++i)
        tooMany += test::definitionLine({.length = 1}) + "\r\n";
    const auto bad = [this](const std::string& bytes) { return folder_.write("bad.rec", bytes); };
    const std::pair<std::function<std::filesystem::path()>, const char*> cases[] = {
        {[&] { return folder_.path(); }, "!Errore!! Errore di accesso al percorso/file"},
        {[&] { return folder_.path() / "none"; }, "!Errore!! Impossibile trovare il file"},
        {[&] { return bad(""); }, "!Errore!! Input oltre la fine del file"},
        {[&] { return bad("2\r\n"); }, "!Errore!! Chiamata di routine o argomento non validi"},
        {[&] { return bad(good.substr(0, 80)); }, "!Errore file !! Input oltre la fine del file"},
        {[&] { return bad(negative); }, "!Errore file !! Chiamata di routine o argomento non validi"},
        {[&] { return bad("-1 1\r\nx\r\n"); }, "!Errore file !! Divisione per zero"},
        {[&] { return bad(test::rec({{}}).bytes() + "\x1A"); }, "!Errore file !! Divisione per zero"},
        {[&] { return bad(tooMany); }, "!Errore file !! Indice non incluso nell'intervallo"},
        {[&] { return bad("1 1\r\n" + std::string(2 << 20, '\0')); },
         "!Errore file !! Memoria insufficiente"},
    };
    for (const auto& [file, message] : cases)
        expectMessages(file(), {QString::fromLatin1(message)});
}

TEST_F(BadFilesTest, Noise)
{
    for (int i = 0; i < 30; ++i) {
        std::string noise = i % 2 ? "9 1\r\n" : "";
        for (int n = 0; n < 3000; ++n)
            noise.push_back(static_cast<char>(random_()));
        dialogs_.messages.clear();
        openFile(folder_.write("noise.rec", noise));
        click("Command1");
        EXPECT_LE(dialogs_.messages.size(), 1) << i;
    }
    open(test::rec({{}}).records(2));
    EXPECT_EQ(caption("Label9").trimmed(), QStringLiteral("2"));
}

}  // namespace
}  // namespace quorvin
