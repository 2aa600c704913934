#include "rec/ReadAhead.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace quorvin {

ReadAhead::~ReadAhead()
{
    stop();
}

void ReadAhead::start(InputFile file, std::int64_t offset, std::int64_t bytes, std::size_t blockBytes)
{
    stop();
    file_ = std::move(file);
    offset_ = offset;
    left_ = bytes;
    blockBytes_ = blockBytes;
    read_ = 0;
    taken_ = 0;
    ended_ = false;
    if (bytes / static_cast<std::int64_t>(blockBytes) < static_cast<std::int64_t>(kBlocks)) return;
    try {
        reader_ = std::jthread([this](const std::stop_token& stopped) { readAll(stopped); });
    } catch (const std::system_error&) {
        // No thread to be had: blocks are read when they are asked for.
    }
}

void ReadAhead::stop()
{
    if (reader_.joinable()) {
        reader_.request_stop();
        reader_.join();
    }
    ended_ = true;
    file_.close();
}

/// Reads the next block into `block`; false when it is the last.
bool ReadAhead::fill(Block& block)
{
    const std::int64_t wanted = std::min(left_, static_cast<std::int64_t>(blockBytes_));
    block.failure = nullptr;
    try {
        block.bytes.resize(static_cast<std::size_t>(wanted));
        block.filled = file_.readAt(offset_, block.bytes);
    } catch (const std::exception&) {
        block.filled = 0;
        block.failure = std::current_exception();
        return false;
    }
    offset_ += wanted;
    left_ -= wanted;
    return left_ > 0 && block.filled == block.bytes.size();
}

void ReadAhead::readAll(const std::stop_token& stopped)
{
    for (bool more = true; more;) {
        std::unique_lock lock(mutex_);
        if (!changed_.wait(lock, stopped, [this] { return read_ - taken_ + 1 < kBlocks; })) return;
        Block& next = block(read_);
        lock.unlock();
        more = fill(next);
        lock.lock();
        ++read_;
        ended_ = !more;
        lock.unlock();
        changed_.notify_one();
    }
}

std::span<const char> ReadAhead::next()
{
    std::unique_lock lock(mutex_);
    if (reader_.joinable()) {
        ++taken_;
        changed_.notify_one();
        changed_.wait(lock, [this] { return read_ >= taken_ || ended_; });
        if (read_ < taken_) return {};
    } else {
        if (ended_) return {};
        ended_ = !fill(block(taken_++));
    }
    const Block& current = block(taken_ - 1);
    if (current.failure) std::rethrow_exception(current.failure);
    return std::span(current.bytes).first(current.filled);
}

}  // namespace quorvin
