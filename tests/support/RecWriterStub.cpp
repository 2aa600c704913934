/// Stands in for programs that work on a REC file while it is open elsewhere: appends, cuts, replaces,
/// removes, as fast as it can, until its standard input ends. Arguments: the file, a seed, about how many
/// records to keep, and "same" or "other", whether other files come into its place too. It leaves half
/// a record at the end and tells how many whole ones there are and were at most, and what was done how often.

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <thread>

#include "tests/support/ProvenRecord.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

class Writer {
public:
    Writer(fs::path name, unsigned seed, unsigned usual) :
        name_(std::move(name)),
        random_(seed),
        usual_(usual)
    {
        const std::string bytes = quorvin::test::bytesOf(name_);
        header_ = bytes.substr(0, bytes.find("\r\nr0") + 2);
        rewriteAside();
    }

    void step(bool others)
    {
        const unsigned kind = below(others ? 9 : 8);
        if (kind == 0 || kind == 1 || records_ < usual_ / 2) appendWhole();
        if (kind == 2) appendInPieces();
        if (kind == 3 || records_ > 2 * usual_) truncateWithin();
        if (kind == 4) truncateAtRecord();
        if (kind == 5) rewriteAside();
        if (kind == 6) rewriteInPlace();
        if (kind == 7) removeAndRestore();
        if (kind == 8) putAnother();
        if (below(4) == 0) pause();
    }

    /// Half a record, as when the program is killed.
    void leaveHalf()
    {
        add(next().substr(0, 50));
        --records_;
    }

    void tell()
    {
        std::cout << records_ << ' ' << most_;
        for (const auto& [what, count] : done_)
            std::cout << ' ' << what << ' ' << count;
        std::cout << std::endl;
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
    std::string records(unsigned count)
    {
        std::string bytes;
        for (records_ = 0; records_ < count;)
            bytes += next();
        return bytes;
    }
    unsigned someCount() { return usual_ / 2 + below(usual_ + 1); }

    /// Every call is one write.
    void add(const std::string& bytes)
    {
        std::FILE* file = std::fopen(name_.string().c_str(), "ab");
        if (!file) std::abort();
        std::setvbuf(file, nullptr, _IONBF, 0);
        if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
        std::fclose(file);
    }
    void addInPieces(const std::string& bytes, unsigned most)
    {
        for (std::size_t at = 0; at < bytes.size();) {
            const std::size_t piece = 1 + below(most);
            add(bytes.substr(at, piece));
            at += piece;
            if (below(16) == 0) pause();
        }
    }

    void appendWhole()
    {
        ++done_["append"];
        std::string bytes;
        for (unsigned count = 1 + below(usual_ / 4 + 1); count > 0; --count)
            bytes += next();
        add(bytes);
    }
    void appendInPieces()
    {
        ++done_["pieces"];
        for (unsigned count = 1 + below(4); count > 0; --count)
            addInPieces(next(), 53);
    }
    /// Leaves the first part of a record, and then completes it.
    void truncateWithin()
    {
        if (records_ == 0) return;
        ++done_["cut"];
        const std::uintmax_t end = header_.size() + keepSome() * kBytes;
        const std::uintmax_t within = end - 1 - below(kBytes - 1);
        const std::string whole = quorvin::test::bytesOf(name_);
        fs::resize_file(name_, within);
        for (unsigned times = below(10); times > 0; --times)
            pause();
        addInPieces(whole.substr(within, end - within), 40);
    }
    void truncateAtRecord()
    {
        ++done_["truncate"];
        fs::resize_file(name_, header_.size() + keepSome() * kBytes);
    }
    std::uintmax_t keepSome() { return records_ = std::max(1U, records_ - below(records_ / 2 + 1)); }

    void rewriteAside()
    {
        ++done_["replace"];
        putAside(header_ + records(someCount()));
    }
    void putAside(const std::string& bytes)
    {
        const fs::path other = name_.string() + ".tmp";
        std::ofstream(other, std::ios::binary) << bytes;
        fs::rename(other, name_);
    }
    void rewriteInPlace()
    {
        ++done_["rewrite"];
        const std::string bytes = header_ + records(someCount());
        fs::resize_file(name_, 0);
        if (below(2) == 0) {
            add(bytes);
        } else {
            addInPieces(bytes, static_cast<unsigned>(bytes.size() / 4));
        }
    }
    void removeAndRestore()
    {
        ++done_["remove"];
        const fs::path away = name_.string() + ".away";
        fs::rename(name_, away);
        pause();
        fs::rename(away, name_);
    }
    /// Something else by the same name, for a while.
    void putAnother()
    {
        ++done_["another"];
        using quorvin::test::rec;
        static const std::string longer = rec({{.length = 33}, {.length = 4}}).records(500).bytes();
        static const std::string unmarked(20000, '\n');
        static const std::string one(300000, 'x');
        const std::string others[] = {longer, "", "1 1\r\n", unmarked, one, header_};
        if (below(2) == 0) {
            putAside(others[below(std::size(others))]);
        } else {
            fs::resize_file(name_, 0);
            add(others[below(std::size(others))]);
        }
        pause();
        rewriteAside();
    }

    static constexpr unsigned kBytes = 102 + 6;
    fs::path name_;
    std::mt19937 random_;
    unsigned usual_;
    std::string header_;
    unsigned records_ = 0;
    unsigned most_ = 0;
    unsigned version_ = 0;
    std::map<std::string, int> done_;
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 5) return 1;
    Writer writer(argv[1], static_cast<unsigned>(std::atoi(argv[2])),
                  static_cast<unsigned>(std::atoi(argv[3])));
    std::atomic<bool> stopped = false;
    std::thread watch([&stopped] {
        while (std::cin.get() != EOF) {
        }
        stopped = true;
    });
    while (!stopped)
        writer.step(std::string(argv[4]) == "other");
    watch.join();
    writer.leaveHalf();
    writer.tell();
    return 0;
}
