/// A file that appears whole or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

namespace quorvin {

/// What tells a file from all others while it exists.
struct FileIdentity {
    std::uint64_t volume = 0;
    std::uint64_t index = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// What is written goes into a temporary file in the target's own folder, which takes the target's place when
/// it is complete and on the disk. Until then, and after any failure, of the power too, the target is what it
/// was before. Only the file that was the target at the beginning is ever replaced, never one that has come
/// to stand there meanwhile. A process that is killed leaves its temporary file, "quorvin-<number>.tmp",
/// behind; nobody can tell it from one that is being written, so that nobody else removes it.
class OutputFile {
public:
    OutputFile() = default;
    /// Gives up a file that was not completed.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Begins a file; gives up one that was begun before. A target that is a link stands for what it leads
    /// to. Raises RuntimeError 75 when the target may not be written, is no regular file, or its folder takes
    /// no file; 76 when the folder is not there, 52 for an impossible name, 61 when the disk is full.
    void open(const std::filesystem::path& target);
    bool isOpen() const { return handle_ != kNone; }

    /// Appends bytes. Raises RuntimeError 61 when the disk is full, 57 when writing fails otherwise; the file
    /// is then given up. 52 when no file is open.
    void write(std::string_view bytes)
    {
        if (!isOpen() || bytes.size() > kBufferBytes - filled_) {
            writeOn(bytes);
            return;
        }
        std::memcpy(buffer_.get() + filled_, bytes.data(), bytes.size());
        filled_ += bytes.size();
    }

    /// Completes the file and puts it into the target's place. Raises what writing raises, and 75 when the
    /// target may not be replaced, or has become another file; the new file is then given up.
    void commit();

    /// Deletes what was written and is not in its place.
    void discard() noexcept;

private:
    using Handle = std::intptr_t;
    static constexpr Handle kNone = -1;
    static constexpr std::size_t kBufferBytes = std::size_t{1} << 17;

    void createTemporary();
    void writeOn(std::string_view bytes);
    void flush();

    Handle handle_ = kNone;
    Handle held_ =
        kNone;  ///< the target that is to be replaced: kept open, so that its identity stays its own
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    std::optional<FileIdentity> replaced_;  ///< the target, if it was there when the file was begun
    std::size_t sinceSync_ = 0;             ///< bytes that the disk may not have yet
    std::unique_ptr<char[]> buffer_;
    std::size_t filled_ = 0;
};

/// Whether two names lead to the same file: by links, another spelling of the path, or letter case where the
/// file system ignores it.
bool isSameFile(const std::filesystem::path& one, const std::filesystem::path& other);

}  // namespace quorvin
