/// A file that appears whole or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace quorvin {

/// What is written goes into a temporary file in the target's own folder, which takes the target's place when
/// it is complete. Until then, and after any failure, the target is what it was before.
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
    void write(std::string_view bytes);

    /// Completes the file and puts it into the target's place. Raises what writing raises, 70 when another
    /// program keeps the target; the file is then given up.
    void commit();

    /// Deletes what was written.
    void discard() noexcept;

private:
    using Handle = std::intptr_t;
    static constexpr Handle kNone = -1;
    static constexpr std::size_t kBufferBytes = std::size_t{1} << 18;

    void flush();

    Handle handle_ = kNone;
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    bool replaces_ = false;      ///< the target was there when the file was begun
    std::size_t sinceSync_ = 0;  ///< bytes that the disk may not have yet
    std::vector<char> buffer_;
};

/// Whether two names lead to the same file: by links, another spelling of the path, or letter case where the
/// file system ignores it.
bool isSameFile(const std::filesystem::path& one, const std::filesystem::path& other);

}  // namespace quorvin
