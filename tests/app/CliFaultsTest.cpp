#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <random>

#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

class CliFaultsTest : public testing::Test {
protected:
    void writeSource(int records, int length) const
    {
        auto rec = test::rec({{.length = length}});
        for (int i = 0; i < records; ++i)
            rec.record({(i % 2 ? "a" : "b") + std::to_string(i)});
        folder_.write("prova.rec", rec.bytes());
    }
    /// Has quorvin-cli, started by another program, write the records with this text over new.rec. What it
    /// says, and its exit status.
    std::string create(const std::string& text, const std::string& starter = "") const
    {
        const std::string folder = folder_.path().string();
        const std::string command = "exec " + starter + " " QUORVIN_CLI " crea " + folder +
                                    "/prova.rec -c '#1=" + text + "' --tutto --sovrascrivi -o " + folder +
                                    "/new.rec 2>&1";
        std::FILE* output = ::popen(command.c_str(), "r");
        std::string said;
        for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output))
            said += static_cast<char>(c);
        const int status = ::pclose(output);
        return said + std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
    }
    std::string created(const std::string& text) const
    {
        EXPECT_TRUE(create(text).ends_with("\n0"));
        return target();
    }
    std::string target() const { return folder_.files()["new.rec"]; }

    test::TempFolder folder_;
};

TEST_F(CliFaultsTest, ADiskFullAtEveryByte)
{
    writeSource(2, 2);
    const std::string whole = created("a");
    created("b");
    const test::Files before = folder_.files();
    const std::string starter = "prlimit --fsize=";
    for (std::size_t room = 0; room < whole.size(); ++room) {
        EXPECT_EQ(create("a", starter + std::to_string(room)), "Errore!! Disco pieno\n2") << room;
        EXPECT_EQ(folder_.files(), before) << room;
    }
    create("a", starter + std::to_string(whole.size()));
    EXPECT_EQ(target(), whole);
}

TEST_F(CliFaultsTest, KilledWhileItWritesOverAFile)
{
    using Seconds = std::chrono::duration<double>;
    writeSource(30000, 70);
    const std::string one = created("a");
    const auto began = std::chrono::steady_clock::now();
    const std::string other = created("b");
    const Seconds longest = std::chrono::steady_clock::now() - began;
    std::mt19937 random(1);
    std::uniform_real_distribution<> moment(0.001, longest.count());
    for (int i = 0; i < 100; ++i) {
        create(i % 2 ? "b" : "a", "timeout -s KILL " + std::to_string(moment(random)));
        const std::string now = target();
        ASSERT_TRUE(now == one || now == other) << i;
    }
    for (const auto& [name, bytes] : folder_.files())
        EXPECT_TRUE(name == "prova.rec" || name == "new.rec" || name.starts_with("quorvin-")) << name;
}

}  // namespace
}  // namespace quorvin
