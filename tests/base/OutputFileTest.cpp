#include "base/OutputFile.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#ifndef _WIN32
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

#include "tests/support/ErrorNumber.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::errorOf;
using test::Files;

class OutputFileTest : public testing::Test {
protected:
    fs::path path(const std::string& name) const { return folder_.path() / name; }

    /// The number of the error that a file's writing ends with.
    static int save(const fs::path& target, const std::string& bytes = "new")
    {
        OutputFile file;
        return errorOf([&] {
            file.open(target);
            file.write(bytes);
            file.commit();
        });
    }
    /// Saves as one of the files that are there, or without any, while operation after operation meets
    /// something; `one` tells whether there were so many.
    void saveOverAndOver(const std::function<bool(const Files&, test::FileFaults&)>& one)
    {
        for (const Files& before : {Files{}, Files{{"file", "old"}}}) {
            bool reached = true;
            for (int n = 1; reached; ++n) {
                SCOPED_TRACE("operation " + std::to_string(n) + (before.empty() ? ", new" : ""));
                fs::remove(path("file"));
                for (const auto& [name, bytes] : before)
                    folder_.write(name, bytes);
                test::FileFaults faults;
                faults.at = n;
                reached = one(before, faults);
            }
            EXPECT_EQ(folder_.files(), (Files{{"file", large_}}));
        }
    }

    test::TempFolder folder_;
    const std::string large_ = std::string(600'000, 'x');
};

TEST_F(OutputFileTest, NothingShowsBeforeTheEnd)
{
    folder_.write("old", "old");
    for (const char* name : {"old", "new"}) {
        OutputFile file;
        file.open(path(name));
        std::string all;
        for (std::size_t i = 0; i < 1000; ++i) {
            all += std::string(i, static_cast<char>('a' + i % 26));
            file.write(std::string_view(all).substr(all.size() - i));
        }
        file.write(all);
        EXPECT_EQ(test::bytesOf(path(name)), name == std::string("old") ? "old" : "");
        file.commit();
        EXPECT_TRUE(test::bytesOf(path(name)) == all + all) << name;
    }
    const fs::path here = fs::current_path();
    fs::current_path(folder_.path());
    EXPECT_EQ(save("old") + save("new"), 0) << "names without a folder";
    fs::current_path(here);
    EXPECT_EQ(folder_.files(), (Files{{"old", "new"}, {"new", "new"}}));
}

TEST_F(OutputFileTest, FilesThatAreGivenUp)
{
    folder_.write("old", "old");
    OutputFile file;
    file.open(path("old"));
    file.write(large_);
    file.open(path("new"));
    file.write("new");
    file.commit();
    file.open(path("old"));
    file.write(large_);
    file.discard();
    EXPECT_EQ(errorOf([&] { file.write("x"); }), 52);
    EXPECT_EQ(errorOf([&] { file.commit(); }), 52);
    EXPECT_EQ(folder_.files(), (Files{{"old", "old"}, {"new", "new"}}));
}

TEST_F(OutputFileTest, TargetsThatAreRefused)
{
    const Files before = {{"file", "old"}};
    folder_.write("file", "old");
    fs::create_directory(path("folder"));
    std::vector<std::pair<fs::path, int>> cases = {
        {path("none/a"), 76}, {path("file/a"), 76}, {path("folder"), 75}, {{}, 52}};
#ifdef _WIN32
    cases.insert(cases.end(), {{path("nul"), 75}, {path("a?"), 52}});
#else
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    fs::create_symlink("folder", path("to folder"));
    fs::create_symlink("second", path("first"));
    fs::create_symlink("first", path("second"));
    cases.insert(cases.end(), {{path("pipe"), 75},
                               {path("to folder"), 75},
                               {path("first"), 75},
                               {path(std::string(300, 'x')), 52}});
#endif
    for (const auto& [target, error] : cases)
        EXPECT_EQ(save(target), error) << target;
    fs::remove(path("first"));
    EXPECT_EQ(folder_.files(), before);
}

TEST_F(OutputFileTest, AFileThatMayNotBeWritten)
{
    const auto file = folder_.write("file", "old");
    fs::permissions(file, fs::perms{0444});
#ifdef _WIN32
    EXPECT_EQ(save(file), 75);
    fs::permissions(file, fs::perms{0666});
#else
    // Who may write everything acts as somebody who owns nothing for a while.
    constexpr uid_t kNobody = 65534;
    const bool root = ::geteuid() == 0;
    ASSERT_EQ(root ? ::chown(folder_.path().c_str(), kNobody, kNobody) + ::seteuid(kNobody) : 0, 0);
    EXPECT_EQ(save(file), 75) << "though its folder would let it be replaced";
    for (const unsigned rights : {0555U, 0U}) {
        fs::permissions(folder_.path(), fs::perms{rights});
        EXPECT_EQ(save(path("new")), 75) << rights;
    }
    fs::permissions(folder_.path(), fs::perms{0755});
    ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
#endif
    EXPECT_EQ(folder_.files(), (Files{{"file", "old"}}));
}

#ifndef _WIN32
TEST_F(OutputFileTest, LinksStayAndLeadToTheNewFile)
{
    fs::create_directory(path("there"));
    folder_.write("there/old", "old");
    fs::create_symlink("there/old", path("first"));
    fs::create_symlink(path("first"), path("second"));
    fs::create_symlink("there/none", path("dangling"));
    EXPECT_EQ(save(path("second")), 0);
    EXPECT_EQ(save(path("dangling"), "none"), 0);
    for (const char* link : {"first", "second", "dangling"})
        EXPECT_TRUE(fs::is_symlink(path(link))) << link;
    EXPECT_EQ(folder_.files(), (Files{{"there/old", "new"},
                                      {"first", "new"},
                                      {"second", "new"},
                                      {"there/none", "none"},
                                      {"dangling", "none"}}));
}

TEST_F(OutputFileTest, RightsOfAReplacedFileStay)
{
    const auto file = folder_.write("file", "old");
    for (const unsigned rights : {0600U, 0666U, 0750U}) {
        fs::permissions(file, fs::perms{rights});
        EXPECT_EQ(save(file), 0);
        EXPECT_EQ(fs::status(file).permissions(), fs::perms{rights});
    }
    EXPECT_EQ(save(path("new")), 0);
    EXPECT_EQ(fs::status(path("new")).permissions(), fs::status(folder_.write("usual", "")).permissions());
}
#endif

/// What stands at the target when the file is complete is only replaced if it stood there at the beginning.
TEST_F(OutputFileTest, ChangesMeanwhile)
{
    struct Case {
        const char* name;
        const char* before;
        const char* meanwhile;
        int error;
        const char* after;
    };
    Files expected;
    std::vector<Case> cases = {{"appeared", nullptr, "other", 75, "other"},
                               {"gone", "old", nullptr, 0, "new"},
                               {"same", "old", "old", 0, "new"}};
#ifndef _WIN32
    // Elsewhere the name of a file that is open may not be free for another.
    cases.push_back({"other", "old", "other", 75, "other"});
#endif
    for (const Case& c : cases) {
        if (c.before) folder_.write(c.name, c.before);
        OutputFile file;
        file.open(path(c.name));
        file.write("new");
        if (c.before != c.meanwhile) fs::remove(path(c.name));
        if (c.meanwhile) folder_.write(c.name, c.meanwhile);
        EXPECT_EQ(errorOf([&] { file.commit(); }), c.error) << c.name;
        expected[c.name] = c.after;
    }
    fs::create_directory(path("there"));
    for (const int error : {75, 76}) {
        OutputFile file;
        file.open(path("there/new"));
#ifdef _WIN32
        // Nobody can remove a folder in which a file is being written.
        if (error == 76) break;
#endif
        error == 75 ? fs::create_directory(path("there/new")) : fs::remove_all(path("there")) > 0;
        EXPECT_EQ(errorOf([&] { file.commit(); }), error);
        fs::remove(path("there/new"));
    }
    EXPECT_EQ(folder_.files(), expected);
}

/// Whatever fails, the target is the old file or the new one, and nothing else is left.
TEST_F(OutputFileTest, EveryOperationFails)
{
    for (const auto& fault : {std::pair(EIO, 57), {ENOSPC, 61}, {EACCES, 75}}) {
        saveOverAndOver([&](const Files& before, test::FileFaults& faults) {
            faults.error = fault.first;
            const int error = save(path("file"), large_);
            EXPECT_TRUE(error == 0 || (error == fault.second && faults.isReached())) << error;
            EXPECT_TRUE(folder_.files() == (error == 0 ? Files{{"file", large_}} : before)) << fault.first;
            EXPECT_FALSE(faults.isNamedTooEarly()) << "what has a name outlives a loss of power";
            return faults.isReached();
        });
    }
}

TEST_F(OutputFileTest, ADiskFullAtEveryByte)
{
    std::string all;
    for (char c = ' '; c < 'z'; ++c)
        all += c;
    for (const std::size_t portion : {std::size_t{7}, test::FileFaults::kAll}) {
        folder_.write("file", "old");
        for (std::size_t room = 0; room <= all.size(); ++room) {
            test::FileFaults faults;
            faults.room = room;
            faults.portion = portion;
            EXPECT_EQ(save(path("file"), all), room < all.size() ? 61 : 0) << room;
            EXPECT_EQ(folder_.files(), (Files{{"file", room < all.size() ? "old" : all}})) << room;
        }
    }
}

#ifndef _WIN32
/// The process is killed before each operation in turn; what it leaves behind is known by its name.
TEST_F(OutputFileTest, KilledAnywhere)
{
    saveOverAndOver([&](const Files& before, test::FileFaults& faults) {
        faults.before = [] { ::raise(SIGKILL); };
        const pid_t child = ::fork();
        if (child == 0) ::_exit(save(path("file"), large_));
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        for (const auto& [name, bytes] : folder_.files())
            if (name.starts_with("quorvin-")) fs::remove(path(name));
        EXPECT_TRUE(folder_.files() == before || folder_.files() == Files({{"file", large_}}));
        return WIFSIGNALED(status);
    });
}
#endif

TEST_F(OutputFileTest, NamesOfTheSameFile)
{
    const auto file = folder_.write("file", "x");
    folder_.write("other", "x");
    fs::create_directory(path("folder"));
    fs::create_hard_link(file, path("hard link"));
    using Names = std::pair<const char*, const char*>;
    std::vector<Names> same = {{"hard link", "file"}, {"file", "./file"}, {"none", "folder/../none"}};
    std::vector<Names> others = {{"file", "other"}, {"none", "nobody"}, {"file", "none"}};
#ifdef _WIN32
    same.insert(same.end(), {{"file", "FILE"}, {"none", "folder\\..\\none"}});
#else
    fs::create_symlink("file", path("link"));
    fs::create_symlink("circle", path("circle"));
    same.insert(same.end(), {{"file", "link"}, {"folder/../link", "file"}});
    others.insert(others.end(), {{"circle", "file"}, {"file", "FILE"}});
#endif
    for (const auto& [one, other] : same)
        EXPECT_TRUE(isSameFile(path(one), path(other))) << one << ", " << other;
    for (const auto& [one, other] : others)
        EXPECT_FALSE(isSameFile(path(one), path(other))) << one << ", " << other;
}

}  // namespace
}  // namespace quorvin
