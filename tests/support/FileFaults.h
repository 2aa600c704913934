/// Lets the program's own file operations fail, one by one.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>

namespace quorvin::test {

/// While one stands, it counts the system calls that our own code makes about files, in all threads: opening,
/// looking, reading, writing, syncing, closing, linking and renaming, each whether it will fail or not. Those
/// of libraries, and so of the tests themselves, are left alone, and syncing waits for nothing. Only one at a
/// time.
class FileFaults {
public:
    FileFaults();
    ~FileFaults();
    FileFaults(const FileFaults&) = delete;
    FileFaults& operator=(const FileFaults&) = delete;

    static constexpr int kNever = 0;
    int at = kNever;               ///< the operation, from 1, that meets what follows
    int error = 0;                 ///< it fails with this number of the system's, unless that is 0
    std::function<void()> before;  ///< is done just before it
    static constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
    std::size_t room = kAll;     ///< bytes on the disk: behind them it is full
    std::size_t portion = kAll;  ///< most bytes that one call reads or writes

    /// Whether there were so many operations, or the disk was full.
    bool isReached() const { return full_ || (at != kNever && count_ >= at); }

    /// Whether a file got its name with bytes that the disk may not have had.
    bool isNamedTooEarly() const { return namedTooEarly_; }

    /// Called by the system calls: counts one, and tells whether it fails.
    bool fails();
    /// How many bytes of so many are written; none when the disk is full, which sets the system's number.
    std::size_t take(std::size_t bytes);
    void synced() { unsynced_ = false; }
    void named() { namedTooEarly_ |= unsynced_; }

private:
    int count_ = 0;
    bool full_ = false;
    bool unsynced_ = false;
    bool namedTooEarly_ = false;
};

}  // namespace quorvin::test
