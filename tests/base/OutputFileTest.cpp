#include "base/OutputFile.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <memory>
#include <set>

#include "tests/support/ErrorNumber.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::errorOf;
using Names = std::set<std::string>;

Names namesIn(const fs::path& folder)
{
    Names names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

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

    test::TempFolder folder_;
    const std::string large_ = std::string(600'000, 'x');
};

TEST_F(OutputFileTest, NothingShowsBeforeTheEnd)
{
    folder_.write("old", "old");
    for (const char* name : {"old", "new"}) {
        const std::string before = bytesOf(path(name));
        OutputFile file;
        file.open(path(name));
        std::string all;
        for (std::size_t i = 0; i < 1000; ++i) {
            const std::string part = std::to_string(i) + std::string(i, 'x');
            file.write(part);
            all += part;
        }
        file.write(all);
        EXPECT_EQ(bytesOf(path(name)), before);
        file.commit();
        EXPECT_TRUE(bytesOf(path(name)) == all + all) << name;
    }
    const fs::path here = fs::current_path();
    fs::current_path(folder_.path());
    EXPECT_EQ(save("old"), 0) << "a name without a folder";
    fs::current_path(here);
    EXPECT_EQ(bytesOf(path("old")), "new");
    EXPECT_EQ(namesIn(folder_.path()), (Names{"new", "old"}));
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
    EXPECT_EQ(bytesOf(path("new")), "new") << "with nothing of the one begun before";
    file.open(path("old"));
    file.write(large_);
    file.discard();
    EXPECT_EQ(errorOf([&] { file.write("x"); }), 52);
    EXPECT_EQ(errorOf([&] { file.commit(); }), 52);
    {
        OutputFile other;
        other.open(path("old"));
        other.write(large_);
    }
    EXPECT_EQ(namesIn(folder_.path()), (Names{"new", "old"}));
    EXPECT_EQ(bytesOf(path("old")), "old");
}

TEST_F(OutputFileTest, TargetsThatAreRefused)
{
    folder_.write("file", "old");
    fs::create_directory(path("folder"));
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    fs::create_symlink("folder", path("to folder"));
    fs::create_symlink("second", path("first"));
    fs::create_symlink("first", path("second"));
    const Names before = namesIn(folder_.path());
    struct Case {
        fs::path target;
        int error;
    };
    for (const Case& c : {Case{path("none/a"), 76}, Case{path("file/a"), 76}, Case{path("folder"), 75},
                          Case{path("pipe"), 75}, Case{path("to folder"), 75}, Case{path("first"), 75},
                          Case{path(std::string(300, 'x')), 52}, Case{{}, 52}}) {
        OutputFile file;
        EXPECT_EQ(errorOf([&] { file.open(c.target); }), c.error) << c.target;
    }
    EXPECT_EQ(namesIn(folder_.path()), before);
}

TEST_F(OutputFileTest, WithoutTheRightToWrite)
{
    const auto file = folder_.write("file", "old");
    fs::permissions(file, fs::perms{0444});
    // Who may write everything acts as somebody who owns nothing for a while.
    constexpr uid_t kNobody = 65534;
    const bool root = ::geteuid() == 0;
    ASSERT_EQ(root ? ::chown(folder_.path().c_str(), kNobody, kNobody) + ::seteuid(kNobody) : 0, 0);
    EXPECT_EQ(save(file), 75);
    fs::permissions(folder_.path(), fs::perms{0555});
    EXPECT_EQ(save(path("new")), 75);
    fs::permissions(folder_.path(), fs::perms{0});
    EXPECT_EQ(save(path("new")), 75) << "not even a look into the folder";
    fs::permissions(folder_.path(), fs::perms{0755});
    ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
    EXPECT_EQ(namesIn(folder_.path()), Names{"file"});
    EXPECT_EQ(bytesOf(file), "old");
}

TEST_F(OutputFileTest, LinksStayAndLeadToTheNewFile)
{
    fs::create_directory(path("there"));
    folder_.write("there/old", "old");
    fs::create_symlink("there/old", path("first"));
    fs::create_symlink(path("first"), path("second"));
    fs::create_symlink("there/none", path("dangling"));
    EXPECT_EQ(save(path("second")), 0);
    EXPECT_EQ(save(path("dangling")), 0);
    EXPECT_EQ(bytesOf(path("there/old")), "new");
    EXPECT_EQ(bytesOf(path("there/none")), "new");
    for (const char* link : {"first", "second", "dangling"})
        EXPECT_TRUE(fs::is_symlink(path(link))) << link;
    EXPECT_EQ(namesIn(path("there")), (Names{"none", "old"}));
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
    for (const Case& c :
         {Case{"appeared", nullptr, "other", 75, "other"}, Case{"other", "old", "other", 75, "other"},
          Case{"gone", "old", nullptr, 0, "new"}, Case{"same", "old", "old", 0, "new"}}) {
        const fs::path target = path(c.name);
        if (c.before) folder_.write(c.name, c.before);
        OutputFile file;
        file.open(target);
        file.write("new");
        const std::string now = c.meanwhile ? c.meanwhile : "";
        if (now != "old" && c.before) fs::remove(target);
        if (now == "other") folder_.write(c.name, now);
        EXPECT_EQ(errorOf([&] { file.commit(); }), c.error) << c.name;
        EXPECT_EQ(bytesOf(target), c.after) << c.name;
    }
    EXPECT_EQ(namesIn(folder_.path()), (Names{"appeared", "gone", "other", "same"}));

    fs::create_directory(path("there"));
    OutputFile file;
    file.open(path("there/new"));
    fs::create_directory(path("there/new"));
    EXPECT_EQ(errorOf([&] { file.commit(); }), 75);
    EXPECT_EQ(namesIn(path("there")), Names{"new"});
    file.open(path("there/other"));
    fs::remove_all(path("there"));
    EXPECT_EQ(errorOf([&] { file.commit(); }), 76);
    EXPECT_FALSE(file.isOpen());
}

TEST_F(OutputFileTest, AFullDisk)
{
    const fs::path disk = path("disk");
    fs::create_directory(disk);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "this user may not mount a disk";
    const std::shared_ptr<void> atEnd(nullptr, [&](void*) { ::umount(disk.c_str()); });
    const auto file = folder_.write("disk/file", "old");
    for (const std::size_t bytes : {100'000U, 600'000U}) {
        EXPECT_EQ(save(file, std::string(bytes, 'x')), 61) << bytes;
        EXPECT_EQ(bytesOf(file), "old") << bytes;
        EXPECT_EQ(namesIn(disk), Names{"file"}) << bytes;
    }
    EXPECT_EQ(save(file), 0);
}

/// Whatever fails, the target is the old file or the new one, and nothing else is left.
TEST_F(OutputFileTest, EveryOperationFails)
{
    for (const std::string before : {"", "old"}) {
        for (const auto& [fault, number] : {std::pair(EIO, 57), {ENOSPC, 61}, {EACCES, 75}}) {
            bool reached = true;
            for (int n = 1; reached; ++n) {
                before.empty() ? void(fs::remove(path("file"))) : void(folder_.write("file", before));
                test::FileFaults faults;
                faults.at = n;
                faults.error = fault;
                const int error = save(path("file"), large_);
                reached = faults.isReached();
                SCOPED_TRACE(before + ", error " + std::to_string(fault) + " of operation " +
                             std::to_string(n));
                EXPECT_TRUE(error == 0 || error == number) << error;
                EXPECT_TRUE(bytesOf(path("file")) == (error == 0 ? large_ : before));
                EXPECT_TRUE(reached || error == 0);
                EXPECT_FALSE(faults.isNamedTooEarly()) << "what has a name outlives a loss of power";
                EXPECT_EQ(namesIn(folder_.path()), error == 0 || !before.empty() ? Names{"file"} : Names{});
            }
        }
    }
}

TEST_F(OutputFileTest, ADiskFullAtEveryByte)
{
    const auto file = folder_.write("file", "old");
    std::string all;
    for (char c = ' '; c < 'z'; ++c)
        all += c;
    for (const std::size_t portion : {std::size_t{7}, test::FileFaults::kAll}) {
        for (std::size_t room = 0; room <= all.size(); ++room) {
            test::FileFaults faults;
            faults.room = room;
            faults.portion = portion;
            EXPECT_EQ(save(file, all), room < all.size() ? 61 : 0) << room;
            EXPECT_EQ(bytesOf(file), room < all.size() ? "old" : all) << room;
            EXPECT_EQ(namesIn(folder_.path()), Names{"file"}) << room;
        }
        folder_.write("file", "old");
    }
    for (const std::size_t room : {131071U, 131072U, 131073U, 599'999U}) {
        test::FileFaults faults;
        faults.room = room;
        EXPECT_EQ(save(file, large_), 61) << room;
    }
    EXPECT_EQ(bytesOf(file), "old");
}

/// The process is killed before each operation in turn.
TEST_F(OutputFileTest, KilledAnywhere)
{
    for (const std::string before : {"", "old"}) {
        int status = SIGKILL;
        for (int n = 1; status == SIGKILL; ++n) {
            before.empty() ? void(fs::remove(path("file"))) : void(folder_.write("file", before));
            const pid_t child = ::fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                test::FileFaults faults;
                faults.at = n;
                faults.before = [] { ::raise(SIGKILL); };
                ::_exit(save(path("file"), large_));
            }
            ASSERT_EQ(::waitpid(child, &status, 0), child);
            const std::string after = bytesOf(path("file"));
            EXPECT_TRUE(after == before || after == large_) << n;
        }
        EXPECT_EQ(status, 0);
        EXPECT_TRUE(bytesOf(path("file")) == large_);
    }
}

TEST_F(OutputFileTest, NamesOfTheSameFile)
{
    const auto file = folder_.write("file", "x");
    folder_.write("other", "x");
    fs::create_directory(path("folder"));
    fs::create_symlink("file", path("link"));
    fs::create_hard_link(file, path("hard link"));
    fs::create_symlink("circle", path("circle"));
    struct Case {
        const char* one;
        const char* other;
        bool same;
    };
    for (const Case& c :
         {Case{"file", "file", true}, Case{"file", "link", true}, Case{"hard link", "file", true},
          Case{"file", "./file", true}, Case{"folder/../link", "file", true}, Case{"file", "other", false},
          Case{"none", "folder/../none", true}, Case{"none", "nobody", false}, Case{"file", "none", false},
          Case{"circle", "file", false}}) {
        EXPECT_EQ(isSameFile(path(c.one), path(c.other)), c.same) << c.one << ", " << c.other;
    }
}

}  // namespace
}  // namespace quorvin
