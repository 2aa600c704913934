/// Reads a stretch of a file in blocks, a little ahead of whoever works on them.
#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <mutex>
#include <span>
#include <stop_token>
#include <thread>
#include <vector>

#include "base/InputFile.h"

namespace quorvin {

/// Reading and working overlap: the next blocks are read by a thread of their own, unless the stretch is so
/// short that starting one would take longer. Everything else stays in the caller's thread.
class ReadAhead {
public:
    ReadAhead() = default;
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// Begins with the `bytes` bytes from `offset` (0-based) on, in blocks of `blockBytes`; the last may be
    /// shorter. Ends the stretch read before.
    void start(InputFile file, std::int64_t offset, std::int64_t bytes, std::size_t blockBytes);
    /// Reads nothing more and closes the file; `next` then gives nothing. The block handed out last stays.
    void stop();

    /// The next block, valid until the next call. It ends early where the file does, and is empty when there
    /// is nothing more. Raises what reading it raised.
    std::span<const char> next();

private:
    static constexpr std::size_t kBlocks = 4;

    struct Block {
        std::vector<char> bytes;
        std::size_t filled = 0;
        std::exception_ptr failure;
    };

    bool fill(Block& block);
    void readAll(const std::stop_token& stopped);
    Block& block(std::uint64_t number) { return blocks_[number % kBlocks]; }

    InputFile file_;
    std::int64_t offset_ = 0;  ///< of the block to be read next
    std::int64_t left_ = 0;    ///< bytes to be read
    std::size_t blockBytes_ = 0;
    std::array<Block, kBlocks> blocks_;

    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::uint64_t read_ = 0;   ///< blocks read
    std::uint64_t taken_ = 0;  ///< blocks handed out; the last of them is in use
    bool ended_ = false;       ///< nothing more will be read
    std::jthread reader_;
};

}  // namespace quorvin
