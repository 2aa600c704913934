#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "output/PrintMatrix.h"
#include "rec/RecFile.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using Clock = std::chrono::steady_clock;

constexpr rlim_t kNoLimit = RLIM_INFINITY;

/// Another process, killed at the latest when it is forgotten.
class Process {
public:
    explicit Process(const std::function<void()>& work)
    {
        if (::pipe(pipe_.data()) != 0 || (id_ = ::fork()) < 0) throw std::runtime_error("no process");
        if (id_ != 0) {
            ::close(pipe_[1]);
            return;
        }
        ::dup2(pipe_[1], STDOUT_FILENO);
        ::dup2(pipe_[1], STDERR_FILENO);
        work();
        ::_exit(1);
    }
    ~Process()
    {
        ::kill(id_, SIGKILL);
        (void)wait();
        ::close(pipe_[0]);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void killAfter(std::chrono::microseconds time)
    {
        std::this_thread::sleep_for(time);
        ::kill(id_, SIGKILL);
        (void)wait();
    }
    /// Its exit status, or less than 0 when it was killed; -1 the second time.
    int wait()
    {
        int status = 0;
        if (ended_ || ::waitpid(id_, &status, 0) != id_) return -1;
        ended_ = true;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    /// All that it says.
    std::string output()
    {
        std::string all;
        std::array<char, 4096> part{};
        for (ssize_t got = 1; got > 0;
             all.append(part.data(), static_cast<std::size_t>(std::max<ssize_t>(got, 0))))
            got = ::read(pipe_[0], part.data(), part.size());
        return all;
    }

private:
    std::array<int, 2> pipe_{};
    pid_t id_ = -1;
    bool ended_ = false;
};

class CliFaultsTest : public testing::Test {
protected:
    /// Has quorvin-cli write the records with this text over the target, which may take so many bytes.
    std::function<void()> creating(const std::string& value, rlim_t most = kNoLimit) const
    {
        return [this, value, most] {
            const rlimit limit{most, most};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            const std::string criterion = "#1=" + value;
            ::execl(QUORVIN_CLI, "quorvin-cli", "crea", (folder_.path() / "prova.rec").c_str(), "-c",
                    criterion.c_str(), "--tutto", "--sovrascrivi", "-o", target_.c_str(), nullptr);
        };
    }
    std::string created(const std::string& value)
    {
        EXPECT_EQ(Process(creating(value)).wait(), 0);
        return bytesOf(target_);
    }
    /// Files in the folder that are none of ours, nor left behind by a process that was killed.
    std::vector<std::string> others(bool killed) const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.path())) {
            const std::string name = entry.path().filename().string();
            const bool left = killed && name.starts_with("quorvin-") && name.ends_with(".tmp");
            if (!left && !name.starts_with("prova.") && name != "new.rec") names.push_back(name);
        }
        return names;
    }
    void writeSource(int records, int length) const
    {
        auto rec = test::rec({{.length = length}});
        for (int i = 0; i < records; ++i)
            rec.record({(i % 2 ? "a" : "b") + std::to_string(i)});
        folder_.write("prova.rec", rec.bytes());
    }

    test::TempFolder folder_;
    const fs::path target_ = folder_.path() / "new.rec";
    std::mt19937 random_{1};
};

TEST_F(CliFaultsTest, ADiskFullAtEveryByte)
{
    writeSource(2, 2);
    const std::string old = created("b");
    const std::string whole = created("a");
    folder_.write("new.rec", old);
    for (rlim_t room = 0; room < whole.size(); ++room) {
        Process process(creating("a", room));
        EXPECT_EQ(process.output(), "Errore!! Disco pieno\n") << room;
        EXPECT_EQ(process.wait(), 2) << room;
        EXPECT_EQ(bytesOf(target_), old) << room;
    }
    EXPECT_EQ(Process(creating("a", whole.size())).wait(), 0);
    EXPECT_EQ(bytesOf(target_), whole);
    EXPECT_EQ(others(false), std::vector<std::string>());
}

TEST_F(CliFaultsTest, KilledWhileItWritesOverAFile)
{
    writeSource(60000, 70);
    std::string versions[] = {created("a"), {}};
    const auto began = Clock::now();
    versions[1] = created("b");
    const auto longest = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - began).count();
    std::uniform_int_distribution<std::int64_t> moment(0, longest);
    for (int i = 0; i < 100; ++i) {
        Process(creating(i % 2 ? "b" : "a")).killAfter(std::chrono::microseconds(moment(random_)));
        const std::string now = bytesOf(target_);
        ASSERT_TRUE(now == versions[0] || now == versions[1]) << i;
    }
    EXPECT_EQ(others(true), std::vector<std::string>());
}

TEST_F(CliFaultsTest, KilledWhileTheMatrixIsWrittenOverAndOver)
{
    writeSource(1, 2);
    RecFile file;
    file.open(folder_.path() / "prova.rec");
    PrintMatrix versions[2];
    versions[0].DocumentTemplate = std::string(700'000, 'x');
    versions[1].DocumentTemplate = std::string(300'000, 'y');
    versions[0].matrice(file);
    std::uniform_int_distribution<std::int64_t> moment(0, 10'000);
    for (int i = 0; i < 100; ++i) {
        Process([&] {
            for (int n = 0;; ++n)
                versions[n % 2].matrice(file);
        }).killAfter(std::chrono::microseconds(moment(random_)));
        const std::string now = bytesOf(folder_.path() / "prova.mtr");
        ASSERT_TRUE(now == versions[0].toText() || now == versions[1].toText()) << i;
    }
    EXPECT_EQ(others(true), std::vector<std::string>());
}

}  // namespace
}  // namespace quorvin
