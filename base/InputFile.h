/// A file opened for reading while other programs may go on writing, replacing or deleting it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace quorvin {

/// Holds the file open; closes it at the end of its life. Moves, does not copy.
class InputFile {
public:
    InputFile() = default;
    ~InputFile();
    InputFile(InputFile&& other) noexcept;
    InputFile& operator=(InputFile&& other) noexcept;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Opens a regular file, closing the one open before. Locks nothing.
    /// Raises RuntimeError 53 or 76 when it is not there, 70 without the right to read it, 75 for a directory
    /// or a device, 52 for an impossible name, 57 otherwise; then no file is open.
    void open(const std::filesystem::path& name);
    void close() noexcept;
    bool isOpen() const { return handle_ != kNone; }

    /// The same open file through a handle of its own: it stays open, and the same file, whatever becomes of
    /// this one. Raises RuntimeError 52 when no file is open, 57 otherwise.
    InputFile duplicate() const;

    /// Length in bytes at this moment. Raises RuntimeError 52 when no file is open.
    std::int64_t size() const;

    /// Reads the bytes from `offset` (0-based) on into `buffer`; returns how many there were, fewer than
    /// asked for only at the end of the file. Raises RuntimeError 52 when no file is open, 57 when reading
    /// fails.
    std::size_t readAt(std::int64_t offset, std::span<char> buffer) const;

private:
    using Handle = std::intptr_t;
    static constexpr Handle kNone = -1;
    Handle handle_ = kNone;
};

}  // namespace quorvin
