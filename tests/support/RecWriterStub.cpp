/// Stands in for programs that work on a REC file while it is open elsewhere: appends, cuts, replaces,
/// removes, as fast as it can, until its standard input ends. Arguments: the file, about how many records to
/// keep, and "same" or "other", whether other files come into its place too. It leaves half a record at the
/// end and tells how many whole ones there are and were at most.

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <thread>

#include "tests/support/ProvenRecord.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

class Writer {
public:
    Writer(fs::path name, unsigned usual) : name_(std::move(name)), usual_(usual)
    {
        const std::string bytes = quorvin::test::bytesOf(name_);
        header_ = bytes.substr(0, bytes.find("\r\nr0") + 2);
        replace(whole());
    }

    void step(bool others)
    {
        const unsigned kind = below(others ? 7 : 6);
        if (kind < 2 || records_ < usual_ / 2) append();
        if (kind == 2 || records_ > 2 * usual_) truncate();
        if (kind == 3 || kind == 4) replace(whole());
        if (kind == 5) removeAndRestore();
        if (kind == 6) putAnother();
        if (below(4) == 0) pause();
    }

    /// Leaves half a record, as when the program is killed.
    void end()
    {
        add(next().substr(0, 50));
        std::cout << records_ - 1 << ' ' << most_ << std::endl;
    }

private:
    unsigned below(unsigned end) { return static_cast<unsigned>(random_() % end); }
    void pause() { std::this_thread::sleep_for(std::chrono::microseconds(below(3000))); }

    std::string next()
    {
        version_ = (version_ + 1) % quorvin::test::kVersions;
        const std::string text = quorvin::test::provenText(++records_, version_);
        most_ = std::max(most_, records_);
        return text.substr(0, 78) + "!\r\n" + text.substr(78) + (below(8) == 0 ? "?\r\n" : "!\r\n");
    }
    std::string whole()
    {
        std::string bytes = header_;
        const unsigned count = usual_ / 2 + below(usual_ + 1);
        for (records_ = 0; records_ < count;)
            bytes += next();
        return bytes;
    }

    /// Every call is one write.
    void add(const std::string& bytes)
    {
        std::FILE* file = std::fopen(name_.string().c_str(), "ab");
        if (!file) std::abort();
        std::setvbuf(file, nullptr, _IONBF, 0);
        if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
        std::fclose(file);
    }
    void addInPieces(const std::string& bytes, std::size_t most)
    {
        for (std::size_t at = 0; at < bytes.size();) {
            const std::size_t piece = 1 + below(static_cast<unsigned>(most));
            add(bytes.substr(at, piece));
            at += piece;
            if (below(16) == 0) pause();
        }
    }

    void append()
    {
        if (below(3) == 0) {
            for (unsigned count = 1 + below(4); count > 0; --count)
                addInPieces(next(), 53);
            return;
        }
        std::string bytes;
        for (unsigned count = 1 + below(usual_ / 4 + 1); count > 0; --count)
            bytes += next();
        add(bytes);
    }
    /// Behind a record; or within one, which is completed by and by.
    void truncate()
    {
        if (records_ == 0) return;
        records_ = std::max(1U, records_ - below(records_ / 2 + 1));
        const std::uintmax_t end = header_.size() + std::uintmax_t{records_} * kBytes;
        const std::uintmax_t within = below(2) == 0 ? end : end - 1 - below(kBytes - 1);
        const std::string rest = quorvin::test::bytesOf(name_).substr(within, end - within);
        fs::resize_file(name_, within);
        for (unsigned times = below(10); times > 0; --times)
            pause();
        addInPieces(rest, 40);
    }
    /// Aside and then in its place, or where it stands, at once or by and by.
    void replace(const std::string& bytes)
    {
        if (below(2) == 0) {
            const fs::path other = name_.string() + ".tmp";
            std::ofstream(other, std::ios::binary) << bytes;
            // Not every system replaces a file that is open.
            std::error_code failed;
            fs::rename(other, name_, failed);
            if (!failed) return;
        }
        fs::resize_file(name_, 0);
        below(2) == 0 ? add(bytes) : addInPieces(bytes, bytes.size() / 4 + 1);
    }
    void removeAndRestore()
    {
        const fs::path away = name_.string() + ".away";
        fs::rename(name_, away);
        pause();
        fs::rename(away, name_);
    }
    /// Something else by the same name, for a while.
    void putAnother()
    {
        using quorvin::test::rec;
        static const std::string longer = rec({{.length = 33}, {.length = 4}}).records(500).bytes();
        static const std::string others[] = {
            longer, "", "1 1\r\n", std::string(20000, '\n'), std::string(300000, 'x'), header_};
        replace(others[below(std::size(others))]);
        pause();
        replace(whole());
    }

    static constexpr unsigned kBytes = 102 + 6;
    fs::path name_;
    std::mt19937 random_{7};
    unsigned usual_;
    std::string header_;
    unsigned records_ = 0;
    unsigned most_ = 0;
    unsigned version_ = 0;
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) return 1;
    Writer writer(argv[1], static_cast<unsigned>(std::atoi(argv[2])));
    std::atomic<bool> stopped = false;
    const std::jthread watch([&stopped] {
        std::cin.get();
        stopped = true;
    });
    while (!stopped)
        writer.step(std::string(argv[3]) == "other");
    writer.end();
    return 0;
}
